#pragma once

#include "window/win32/tree_binding.h"

namespace tavix::win32 {

// A tree with check boxes and bold headings. A heading is shown half ticked unless all that is below it is as
// it is; its own tick is the model's affair. It is named by a caption.
class OneClickTreeBinding : public TreeBinding {
 public:
  OneClickTreeBinding(TreeView& model, WindowContext& context, int id, const Property<Text>& name)
      : TreeBinding(model, context, id, u"", true), model_(model), caption_(name) {}

 protected:
  void Show() override;

 private:
  void Dress(HTREEITEM first) const;
  HTREEITEM Next(WPARAM which, HTREEITEM item) const {
    return reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
  }

  TreeView& model_;
  const Property<Text>& caption_;
};

}  // namespace tavix::win32
