#include "window/win32/one_click_tree_binding.h"

#include "window/caption.h"

namespace tavix::win32 {
namespace {

constexpr int kRowRoom = 75;  // twips above and below a text together

struct Leaves {
  int all = 0;
  int ticked = 0;
};

void Count(const Node& node, Leaves& leaves) {
  if (node.Child() == nullptr) {
    ++leaves.all;
    leaves.ticked += node.Checked ? 1 : 0;
  }
  for (const Node* child = node.Child(); child != nullptr; child = child->Next()) Count(*child, leaves);
}

Tick TickOf(const Node& node) {
  Leaves leaves;
  Count(node, leaves);
  if (leaves.ticked == (node.Checked ? leaves.all : 0)) return node.Checked ? Tick::kWhole : Tick::kNone;
  return Tick::kPart;
}

}  // namespace

void OneClickTreeBinding::Show() {
  TreeBinding::Show();
  const int height = TextHeight(context_) + context_.Pixels(kRowRoom);
  if (Send(TVM_GETITEMHEIGHT) != height) Send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(height));
  SetName(PlainCaption(caption_.Get()));
  Dress(Next(TVGN_ROOT, nullptr));
}

void OneClickTreeBinding::Dress(HTREEITEM first) const {
  constexpr UINT kStates = TVIS_BOLD | TVIS_STATEIMAGEMASK;
  for (HTREEITEM handle = first; handle != nullptr; handle = Next(TVGN_NEXT, handle)) {
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_STATE;
    item.hItem = handle;
    item.stateMask = kStates;
    Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    const Node* const node = model_.NodeAt(static_cast<int>(item.lParam));
    if (node == nullptr) continue;
    // Images are counted from 1, in the order of `Tick`.
    const UINT state =
        INDEXTOSTATEIMAGEMASK(1U + static_cast<UINT>(TickOf(*node))) | (node->Bold ? TVIS_BOLD : 0U);
    if ((item.state & kStates) != state) {
      item.mask = TVIF_HANDLE | TVIF_STATE;
      item.state = state;
      item.stateMask = kStates;
      Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    Dress(Next(TVGN_CHILD, handle));
  }
}

}  // namespace tavix::win32
