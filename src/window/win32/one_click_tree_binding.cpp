#include "window/win32/one_click_tree_binding.h"

#include "window/caption.h"

namespace tavix::win32 {
namespace {

constexpr int kRowRoom = 75;  // twips above and below a text together

}  // namespace

void OneClickTreeBinding::Show() {
  TreeBinding::Show();
  const int height = TextHeight(context_) + context_.Pixels(kRowRoom);
  if (Send(TVM_GETITEMHEIGHT) != height) Send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(height));
  SetName(PlainCaption(caption_.Get()));
  Dress(Next(TVGN_ROOT, nullptr));
}

void OneClickTreeBinding::Dress(HTREEITEM first) const {
  for (HTREEITEM handle = first; handle != nullptr; handle = Next(TVGN_NEXT, handle)) {
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_STATE;
    item.hItem = handle;
    item.stateMask = TVIS_BOLD;
    Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    const Node* const node = model_.NodeAt(static_cast<int>(item.lParam));
    if (node == nullptr) continue;
    const UINT state = node->Bold ? TVIS_BOLD : 0U;
    if ((item.state & TVIS_BOLD) != state) {
      item.mask = TVIF_HANDLE | TVIF_STATE;
      item.state = state;
      item.stateMask = TVIS_BOLD;
      Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    Dress(Next(TVGN_CHILD, handle));
  }
}

}  // namespace tavix::win32
