#pragma once

#include <vector>

#include "controls/tree_view.h"
#include "window/win32/folder_images.h"
#include "window/win32/marks.h"
#include "window/win32/node_tip.h"
#include "window/win32/window_binding.h"

namespace tavix::win32 {

struct TreeStyle {
  // Without check boxes, all nodes are on one level, and moving the selection is a click on the node.
  bool checkBoxes = true;
  // Branches have a mark that opens and closes them, and the tree scrolls sideways. The texts of other trees
  // end in an ellipsis where the tree ends.
  bool folds = false;
  // Nodes have the system's pictures of drives and folders.
  bool pictures = false;
  // Twips above and below a text together; 0 for as much as lets all rows be seen.
  int rowPadding = 0;
};
constexpr TreeStyle kFunctionTree{};
constexpr TreeStyle kFolderTree{.folds = true, .pictures = true};
constexpr TreeStyle kOneClickTree{.folds = true, .rowPadding = 75};
constexpr TreeStyle kPageTree{.checkBoxes = false, .rowPadding = 150};

// A tree of nodes. A check box of a node with another back colour shows the third state, half ticked. A click
// on the box or the space bar changes the tick in the model only; the shown tick follows it. Enter is a click
// on the node in focus. Unless the tree folds, an arrow key is a click on the node that it moves the focus
// to, and so is a letter: it leads to the next node that begins with it. Opening an unopened node is a click
// on it. A text that isn't all in sight has a tool tip.
class TreeBinding : public OutlinedBinding, private TreePeer {
 public:
  TreeBinding(TreeView& model, WindowContext& context, int id, ControlName name, TreeStyle style);
  ~TreeBinding() override { TreeBinding::Detach(); }
  void Detach() override;
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  void Show() override;
  void ShowLook() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }

 private:
  void NodeAdded(Node&) override { ModelChanged(); }
  void NodeChanged(Node& node) override;
  void NodesCleared() override;

  void AddCheckBoxes();
  void ShowImages();
  void AddPictures();
  void ShowPictures();
  void SetRowHeight(int pixels) const { Send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(pixels)); }
  void FitRows() const;
  void InsertFrom(int first);
  void Insert(Node& node);
  void ShowNode(Node& node);
  void Describe(const Node& node, TVITEMW& item) const;
  void AnnounceTick(HTREEITEM item) const;
  UINT StateOf(const Node& node) const;
  Node* NodeOf(HTREEITEM item) const;
  bool IsShown(const Node& node) const { return static_cast<size_t>(node.Index) <= items_.size(); }
  HTREEITEM ItemOf(const Node& node) const { return items_[static_cast<size_t>(node.Index) - 1]; }
  TVHITTESTINFO HitTest(POINT position) const;
  LRESULT PaintNode(NMTVCUSTOMDRAW& draw) const;
  void FillText(TVITEMW& item);
  Text ShortText(HTREEITEM item, const Node& node);
  bool LabelArea(HTREEITEM item, RECT& area) const;
  LRESULT PaintAll(UINT message, WPARAM wParam, LPARAM lParam);
  int ImageSize() const { return style_.pictures ? FolderImageSize(context_) : 0; }
  void OfferTip(POINT mouse);
  void WithdrawTip();
  std::optional<LRESULT> TipMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnClick();
  bool OnOpening(const NMTREEVIEWW& change);
  void OnExpanded(const NMTREEVIEWW& change);
  void OnSelected(const NMTREEVIEWW& change);
  std::optional<LRESULT> OnKey(WPARAM key);
  void GoToLetter(char16_t letter);
  void ScrollSideways(int wheel);
  void ScrollTo(HTREEITEM item) const;

  TreeView& model_;
  TreeStyle style_;
  std::vector<HTREEITEM> items_;  // in the order of the nodes' numbers; missing ones come last
  std::vector<int> changed_;      // numbers of nodes
  bool cleared_ = false;          // the model was cleared, and the tree still shows the former nodes
  bool showing_ = false;          // changes are the program's, not the user's
  bool painting_ = false;         // texts are asked for to be painted
  bool searching_ = false;        // a letter moves the selection
  int wheel_ = 0;                 // what the wheel was turned and has not scrolled yet
  HTREEITEM pointed_ = nullptr;   // the row under the mouse
  NodeTip tip_;
  ImageList images_;    // of the check boxes, or the spacers before texts
  ImageList pictures_;  // of drives and folders
};

}  // namespace tavix::win32
