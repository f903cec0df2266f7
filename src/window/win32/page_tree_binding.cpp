#include "window/win32/page_tree_binding.h"

#include <uxtheme.h>

#include <utility>

#include "platform/windows/wide.h"
#include "window/caption.h"
#include "window/win32/blank_images.h"

namespace tavix::win32 {
namespace {
// Twips.
constexpr int kRowRoom = 150;   // above and below a text together
constexpr int kTextRoom = 120;  // in front of a text
}  // namespace

PageTreeBinding::PageTreeBinding(TreeView& model, WindowContext& context, int id, const Property<Text>& name)
    : FramedBinding(model, context), model_(model), caption_(name) {
  CreateFramed(id, WC_TREEVIEWW, TVS_SHOWSELALWAYS | TVS_FULLROWSELECT | TVS_NOHSCROLL);
  SetWindowTheme(Window(), L"Explorer", nullptr);
  Send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(TextHeight(context) + context.Pixels(kRowRoom)));
  room_ = MakeBlankImages(context.Pixels(kTextRoom), 1);
  Send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(room_.Get()));
  model_.treePeer = this;
}

void PageTreeBinding::Detach() {
  model_.treePeer = nullptr;
  FramedBinding::Detach();
}

void PageTreeBinding::NodesCleared() {
  cleared_ = true;
  ModelChanged();
}

void PageTreeBinding::Show() {
  showing_ = true;
  SetName(PlainCaption(caption_.Get()));
  if (std::exchange(cleared_, false)) {
    items_.clear();
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  }
  while (static_cast<int>(items_.size()) < model_.NodeCount())
    Insert(*model_.NodeAt(static_cast<int>(items_.size()) + 1));
  if (const Node* const node = model_.SelectedItem; node != nullptr)
    Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(items_[static_cast<size_t>(node->Index) - 1]));
  showing_ = false;
}

void PageTreeBinding::Insert(const Node& node) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = TVI_ROOT;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_PARAM;
  insert.item.pszText = const_cast<wchar_t*>(windows::Wide(node.Caption.Get()));
  insert.item.lParam = node.Index;
  items_.push_back(reinterpret_cast<HTREEITEM>(Send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert))));
}

LRESULT PageTreeBinding::OnNotify(NMHDR& header) {
  if (header.code != TVN_SELCHANGEDW || showing_ || cleared_) return 0;
  const auto& change = reinterpret_cast<NMTREEVIEWW&>(header);
  Node* const node = model_.NodeAt(static_cast<int>(change.itemNew.lParam));
  if (node != nullptr && node != model_.SelectedItem) model_.NodeClick(*node);
  return 0;
}

}  // namespace tavix::win32
