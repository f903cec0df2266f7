#include "window/win32/tree_binding.h"

#include <uxtheme.h>

#include <algorithm>
#include <utility>

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

// Images are counted from 1, in the order of `Tick`.
UINT TickState(const Node& node) {
  const Tick ticked = node.BackColor == kButtonFace ? Tick::kPart : Tick::kWhole;
  return INDEXTOSTATEIMAGEMASK(1U + static_cast<UINT>(node.Checked ? ticked : Tick::kNone));
}

// Lengths in twips.
constexpr int kTickHeight = 240;
constexpr int kIndent = 240;
constexpr int kRowRoom = 120;  // above and below a text, at most

}  // namespace

TreeBinding::TreeBinding(TreeView& model, WindowContext& context, int id, TextView name, bool folds)
    : FramedBinding(model, context),
      model_(model),
      folds_(folds),
      ticks_(MakeTickImages(context, context.Pixels(kTickHeight), true)) {
  CreateFramed(id, WC_TREEVIEWW,
               TVS_SHOWSELALWAYS | TVS_NOHSCROLL | (folds ? TVS_HASBUTTONS | TVS_LINESATROOT : 0), name);
  Send(TVM_SETINDENT, static_cast<WPARAM>(context.Pixels(kIndent)));
  SetWindowTheme(Window(), L"Explorer", nullptr);
  Send(TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
  // The boxes are made when the style is set on a tree that is there; ours take their place.
  SetWindowLongPtrW(Window(), GWL_STYLE, GetWindowLongPtrW(Window(), GWL_STYLE) | TVS_CHECKBOXES);
  const auto made = reinterpret_cast<HIMAGELIST>(
      Send(TVM_SETIMAGELIST, TVSIL_STATE, reinterpret_cast<LPARAM>(ticks_.Get())));
  ImageList(made).Reset();
  model_.treePeer = this;
}

void TreeBinding::Detach() {
  model_.treePeer = nullptr;
  FramedBinding::Detach();
}

void TreeBinding::NodeChanged(Node& node) {
  changed_.push_back(node.Index);
  ModelChanged();
}

void TreeBinding::NodesCleared() {
  cleared_ = true;
  changed_.clear();
  ModelChanged();
}

void TreeBinding::Show() {
  showing_ = true;
  if (std::exchange(cleared_, false)) {
    items_.clear();
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  }
  const int first = static_cast<int>(items_.size()) + 1;
  if (first <= model_.NodeCount()) InsertFrom(first);
  for (const int index : std::exchange(changed_, {})) ShowNode(*model_.NodeAt(index));
  showing_ = false;
}

// Rows are as far apart as lets all of them be seen, within limits. Where that does, there is nothing to
// scroll; texts that are cut would have some systems show a bar all the same.
void TreeBinding::FitRows() const {
  RECT area;
  GetClientRect(Window(), &area);
  const int text = TextHeight(context_);
  const int fitting = static_cast<int>(area.bottom) / model_.NodeCount();
  const int height = std::clamp(fitting, text + context_.Line(), text + context_.Pixels(kRowRoom));
  Send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(height));
  if (folds_) return;
  const LONG_PTR style = GetWindowLongPtrW(Window(), GWL_STYLE) & ~LONG_PTR{TVS_NOSCROLL};
  const bool fits = Send(TVM_GETITEMHEIGHT) * model_.NodeCount() <= area.bottom;
  SetWindowLongPtrW(Window(), GWL_STYLE, style | (fits ? TVS_NOSCROLL : 0));
}

void TreeBinding::InsertFrom(int first) {
  Send(WM_SETREDRAW, FALSE);
  if (first == 1 || !folds_) FitRows();
  for (int i = first; i <= model_.NodeCount(); ++i) Insert(*model_.NodeAt(i));
  // A node opens only when it has children.
  for (int i = first; i <= model_.NodeCount(); ++i) {
    Node* const parent = model_.NodeAt(i)->Parent();
    if (parent != nullptr && parent->Child() == model_.NodeAt(i)) ShowNode(*parent);
  }
  // Opening has scrolled a tree that nobody has seen yet.
  if (first == 1) Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, reinterpret_cast<LPARAM>(items_.front()));
  Send(WM_SETREDRAW, TRUE);
}

void TreeBinding::Insert(Node& node) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = node.Parent() != nullptr ? ItemOf(*node.Parent()) : TVI_ROOT;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_STATE | TVIF_PARAM;
  insert.item.pszText = const_cast<wchar_t*>(windows::Wide(node.Caption.Get()));
  insert.item.state = TickState(node);
  insert.item.stateMask = TVIS_STATEIMAGEMASK;
  insert.item.lParam = node.Index;
  const LRESULT item = Send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert));
  items_.push_back(reinterpret_cast<HTREEITEM>(item));
}

void TreeBinding::ShowNode(Node& node) {
  TVITEMW item{};
  item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_STATE;
  item.hItem = ItemOf(node);
  item.pszText = const_cast<wchar_t*>(windows::Wide(node.Caption.Get()));
  item.state = TickState(node);
  item.stateMask = TVIS_STATEIMAGEMASK;
  Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  const auto state = Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item.hItem), TVIS_EXPANDED);
  if (((state & TVIS_EXPANDED) != 0) != node.Expanded) {
    Send(TVM_EXPAND, node.Expanded ? TVE_EXPAND : TVE_COLLAPSE, reinterpret_cast<LPARAM>(item.hItem));
  }
  Redraw();
}

Node* TreeBinding::NodeOf(HTREEITEM handle) const {
  TVITEMW item{};
  item.mask = TVIF_HANDLE | TVIF_PARAM;
  item.hItem = handle;
  if (handle == nullptr || cleared_ || Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE)
    return nullptr;
  return model_.NodeAt(static_cast<int>(item.lParam));
}

TVHITTESTINFO TreeBinding::HitTest(POINT position) const {
  TVHITTESTINFO hit{};
  hit.pt = position;
  Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit;
}

LRESULT TreeBinding::OnNotify(NMHDR& header) {
  switch (header.code) {
    case NM_CUSTOMDRAW:
      return Paint(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
    case NM_CLICK:
      return Click(), 0;
    case TVN_ITEMEXPANDEDW:
      return Expanded(reinterpret_cast<NMTREEVIEWW&>(header)), 0;
    case TVN_SELCHANGEDW:
      return Selected(reinterpret_cast<NMTREEVIEWW&>(header)), 0;
    default:
      return 0;
  }
}

LRESULT TreeBinding::Paint(NMTVCUSTOMDRAW& draw) const {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const bool selected = (draw.nmcd.uItemState & CDIS_SELECTED) != 0;
  const Node* const node =
      selected || cleared_ ? nullptr : model_.NodeAt(static_cast<int>(draw.nmcd.lItemlParam));
  if (node != nullptr) {
    if (node->BackColor != kButtonFace) draw.clrTextBk = ScreenColor(node->BackColor);
    draw.clrText = ScreenColor(node->ForeColor);
  }
  return CDRF_DODEFAULT;
}

void TreeBinding::Click() {
  POINT position;
  GetCursorPos(&position);
  ScreenToClient(Window(), &position);
  const TVHITTESTINFO hit = HitTest(position);
  if ((hit.flags & (TVHT_ONITEMLABEL | TVHT_ONITEMICON)) == 0) return;
  if (Node* const node = NodeOf(hit.hItem); node != nullptr) model_.NodeClick(*node);
}

void TreeBinding::Expanded(const NMTREEVIEWW& change) {
  Node* const node = showing_ ? nullptr : NodeOf(change.itemNew.hItem);
  if (node != nullptr) node->Expanded = (change.action & TVE_TOGGLE) == TVE_EXPAND;
}

void TreeBinding::Selected(const NMTREEVIEWW& change) {
  if (folds_ || change.action != TVC_BYKEYBOARD) return;
  if (Node* const node = NodeOf(change.itemNew.hItem); node != nullptr) model_.NodeClick(*node);
}

std::optional<LRESULT> TreeBinding::OnKey(WPARAM key) {
  if (key != VK_SPACE && key != VK_RETURN) return std::nullopt;
  Node* const node = NodeOf(reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET)));
  if (node == nullptr) return 0;
  if (key == VK_SPACE) {
    model_.UserCheck(*node, !node->Checked);
  } else {
    model_.NodeClick(*node);
  }
  return 0;
}

std::optional<LRESULT> TreeBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
    const TVHITTESTINFO hit = HitTest(PointOf(longer));
    Node* const node = hit.flags == TVHT_ONITEMSTATEICON ? NodeOf(hit.hItem) : nullptr;
    if (node == nullptr) return std::nullopt;
    SetFocus(Window());
    model_.UserCheck(*node, !node->Checked);
    return 0;
  }
  if (message == WM_KEYDOWN) return OnKey(wide);
  if (message == WM_CHAR) return 0;
  if (message == WM_GETDLGCODE && wide == VK_RETURN) return DLGC_WANTARROWS | DLGC_WANTMESSAGE;
  return FramedBinding::OnMessage(message, wide, longer);
}

}  // namespace tavix::win32
