#pragma once

#include <vector>

#include "controls/tree_view.h"

#include "window/win32/framed_binding.h"
#include "window/win32/tick_images.h"

namespace tavix::win32 {

// A tree with check boxes, of which those of half-ticked branches show a third state. Ticks are turned by a
// click on the box or by the space bar, and only in the model; Enter is a click on the node in focus. Where a
// click folds nothing, an arrow key is one on the node that it brings the focus to.
class TreeBinding : public FramedBinding, private TreePeer {
 public:
  // With `folds`, branches have a mark that opens and closes them.
  TreeBinding(TreeView& model, WindowContext& context, int id, TextView name, bool folds);
  ~TreeBinding() override { TreeBinding::Detach(); }
  void Detach() override;
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }

 private:
  void NodeAdded(Node&) override { ModelChanged(); }
  void NodeChanged(Node& node) override;
  void NodesCleared() override;

  void FitRows() const;
  void InsertFrom(int first);
  void Insert(Node& node);
  void ShowNode(Node& node);
  // Nodes are kept in the order of their numbers, so what is missing stands at the end.
  Node* NodeOf(HTREEITEM item) const;
  bool IsShown(const Node& node) const { return static_cast<size_t>(node.Index) <= items_.size(); }
  HTREEITEM ItemOf(const Node& node) const { return items_[static_cast<size_t>(node.Index) - 1]; }
  TVHITTESTINFO HitTest(POINT position) const;
  LRESULT Paint(NMTVCUSTOMDRAW& draw) const;
  void Click();
  void Expanded(const NMTREEVIEWW& change);
  void Selected(const NMTREEVIEWW& change);
  std::optional<LRESULT> OnKey(WPARAM key);

  TreeView& model_;
  bool folds_;
  std::vector<HTREEITEM> items_;
  std::vector<int> changed_;  // numbers of nodes
  bool cleared_ = false;
  bool showing_ = false;
  ImageList ticks_;
};

}  // namespace tavix::win32
