#pragma once

#include <vector>

#include "controls/tree_view.h"

#include "window/win32/framed_binding.h"
#include "window/win32/tick_images.h"

namespace tavix::win32 {

// A tree of one level without check boxes: moving the choice in it, by mouse or keys, is a click on the node.
// It is named by a caption.
class PageTreeBinding : public FramedBinding, private TreePeer {
 public:
  PageTreeBinding(TreeView& model, WindowContext& context, int id, const Property<Text>& name);
  ~PageTreeBinding() override { PageTreeBinding::Detach(); }
  void Detach() override;
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  void Show() override;

 private:
  void NodeAdded(Node&) override { ModelChanged(); }
  void NodeChanged(Node&) override { ModelChanged(); }
  void NodesCleared() override;
  void Insert(const Node& node);

  TreeView& model_;
  const Property<Text>& caption_;
  std::vector<HTREEITEM> items_;  // in the order of the nodes' numbers
  ImageList room_;
  bool cleared_ = false;
  bool showing_ = false;
};

}  // namespace tavix::win32
