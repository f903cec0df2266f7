#include "window/win32/tree_binding.h"

#include <uxtheme.h>

#include <algorithm>
#include <utility>

#include "platform/windows/wide.h"
#include "window/win32/input.h"

namespace tavix::win32 {
namespace {

// Lengths in twips.
constexpr int kTickHeight = 240;
constexpr int kIndent = 240;
constexpr int kTextSpacer = 120;      // before a text without a check box
constexpr int kMostRowPadding = 120;  // above and below a text together

}  // namespace

TreeBinding::TreeBinding(TreeView& model, WindowContext& context, int id, ControlName name, TreeStyle style)
    : OutlinedBinding(model, context, std::move(name)), model_(model), style_(style) {
  const DWORD marks = style.folds ? TVS_HASBUTTONS | TVS_LINESATROOT : 0U;
  CreateOutlined(id, WC_TREEVIEWW,
                 TVS_SHOWSELALWAYS | TVS_NOHSCROLL | (style.checkBoxes ? marks : TVS_FULLROWSELECT));
  SetWindowTheme(Window(), L"Explorer", nullptr);
  if (style.rowPadding > 0) SetRowHeight(TextHeight(context) + context.Pixels(style.rowPadding));
  style.checkBoxes ? AddCheckBoxes() : AddSpacers();
  model_.treePeer = this;
}

void TreeBinding::AddCheckBoxes() {
  Send(TVM_SETINDENT, static_cast<WPARAM>(context_.Pixels(kIndent)));
  Send(TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
  // The system makes its boxes when an existing tree gets this style; ours replace them.
  SetWindowLongPtrW(Window(), GWL_STYLE, GetWindowLongPtrW(Window(), GWL_STYLE) | TVS_CHECKBOXES);
  images_ = MakeTickImages(context_, context_.Pixels(kTickHeight), true);
  const auto made = reinterpret_cast<HIMAGELIST>(
      Send(TVM_SETIMAGELIST, TVSIL_STATE, reinterpret_cast<LPARAM>(images_.Get())));
  ImageList(made).Reset();
}

void TreeBinding::AddSpacers() {
  images_ = MakeBlankImages(context_.Pixels(kTextSpacer), 1);
  Send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images_.Get()));
}

void TreeBinding::Detach() {
  model_.treePeer = nullptr;
  OutlinedBinding::Detach();
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
  if (const Node* const node = model_.SelectedItem; node != nullptr && !style_.checkBoxes)
    Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(ItemOf(*node)));
  showing_ = false;
}

// Makes rows as high as lets all of them be seen, within limits. A tree that has room for all rows gets no
// scroll bar: some systems would show one for texts that are cut.
void TreeBinding::FitRows() const {
  RECT area;
  GetClientRect(Window(), &area);
  const int text = TextHeight(context_);
  const int fitting = static_cast<int>(area.bottom) / model_.NodeCount();
  SetRowHeight(std::clamp(fitting, text + context_.Line(), text + context_.Pixels(kMostRowPadding)));
  if (style_.folds) return;
  const LONG_PTR style = GetWindowLongPtrW(Window(), GWL_STYLE) & ~LONG_PTR{TVS_NOSCROLL};
  const bool fits = Send(TVM_GETITEMHEIGHT) * model_.NodeCount() <= area.bottom;
  SetWindowLongPtrW(Window(), GWL_STYLE, style | (fits ? TVS_NOSCROLL : 0));
}

void TreeBinding::InsertFrom(int first) {
  Send(WM_SETREDRAW, FALSE);
  if (style_.rowPadding == 0 && (first == 1 || !style_.folds)) FitRows();
  for (int i = first; i <= model_.NodeCount(); ++i) Insert(*model_.NodeAt(i));
  // A node without children can't be opened yet.
  for (int i = first; i <= model_.NodeCount(); ++i) {
    Node* const parent = model_.NodeAt(i)->Parent();
    if (parent != nullptr && parent->Child() == model_.NodeAt(i)) ShowNode(*parent);
  }
  // Opening nodes has scrolled the new tree.
  if (first == 1) Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, reinterpret_cast<LPARAM>(items_.front()));
  Send(WM_SETREDRAW, TRUE);
}

void TreeBinding::Insert(Node& node) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = node.Parent() != nullptr ? ItemOf(*node.Parent()) : TVI_ROOT;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_STATE | TVIF_PARAM;
  insert.item.pszText = const_cast<wchar_t*>(windows::Wide(node.Caption.Get()));
  insert.item.state = StateOf(node);
  insert.item.stateMask = TVIS_STATEIMAGEMASK | TVIS_BOLD;
  insert.item.lParam = node.Index;
  const LRESULT item = Send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert));
  items_.push_back(reinterpret_cast<HTREEITEM>(item));
}

void TreeBinding::ShowNode(Node& node) {
  TVITEMW item{};
  item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_STATE;
  item.hItem = ItemOf(node);
  item.pszText = const_cast<wchar_t*>(windows::Wide(node.Caption.Get()));
  item.state = StateOf(node);
  item.stateMask = TVIS_STATEIMAGEMASK | TVIS_BOLD;
  const auto box = [&] {
    return Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item.hItem), TVIS_STATEIMAGEMASK);
  };
  const LRESULT before = box();
  Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  if (box() != before) AnnounceTick(item.hItem);
  const auto state = Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item.hItem), TVIS_EXPANDED);
  if (((state & TVIS_EXPANDED) != 0) != node.Expanded) {
    Send(TVM_EXPAND, node.Expanded ? TVE_EXPAND : TVE_COLLAPSE, reinterpret_cast<LPARAM>(item.hItem));
  }
  Redraw();
}

// Tells screen readers that a tick has turned.
void TreeBinding::AnnounceTick(HTREEITEM item) const {
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Window(), OBJID_CLIENT,
                 static_cast<LONG>(Send(TVM_MAPHTREEITEMTOACCID, reinterpret_cast<WPARAM>(item))));
}

UINT TreeBinding::StateOf(const Node& node) const {
  const UINT bold = node.Bold ? TVIS_BOLD : 0U;
  if (!style_.checkBoxes) return bold;
  const Tick ticked = node.BackColor == kButtonFace ? Tick::kPart : Tick::kWhole;
  // Images are counted from 1, in the order of `Tick`.
  return bold | INDEXTOSTATEIMAGEMASK(1U + static_cast<UINT>(node.Checked ? ticked : Tick::kNone));
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
      return style_.checkBoxes ? PaintNode(reinterpret_cast<NMTVCUSTOMDRAW&>(header)) : CDRF_DODEFAULT;
    case NM_CLICK:
      if (style_.checkBoxes) OnClick();
      return 0;
    case TVN_ITEMEXPANDEDW:
      return OnExpanded(reinterpret_cast<NMTREEVIEWW&>(header)), 0;
    case TVN_SELCHANGEDW:
      return OnSelected(reinterpret_cast<NMTREEVIEWW&>(header)), 0;
    default:
      return 0;
  }
}

LRESULT TreeBinding::PaintNode(NMTVCUSTOMDRAW& draw) const {
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

void TreeBinding::OnClick() {
  POINT position;
  GetCursorPos(&position);
  ScreenToClient(Window(), &position);
  const TVHITTESTINFO hit = HitTest(position);
  if ((hit.flags & (TVHT_ONITEMLABEL | TVHT_ONITEMICON)) == 0) return;
  if (Node* const node = NodeOf(hit.hItem); node != nullptr) model_.NodeClick(*node);
}

void TreeBinding::OnExpanded(const NMTREEVIEWW& change) {
  Node* const node = showing_ ? nullptr : NodeOf(change.itemNew.hItem);
  if (node != nullptr) node->Expanded = (change.action & TVE_TOGGLE) == TVE_EXPAND;
}

void TreeBinding::OnSelected(const NMTREEVIEWW& change) {
  Node* const node = showing_ ? nullptr : NodeOf(change.itemNew.hItem);
  if (node == nullptr) return;
  const bool clicks = style_.checkBoxes ? !style_.folds && change.action == TVC_BYKEYBOARD
                                        : node != model_.SelectedItem.Get();
  if (clicks) model_.NodeClick(*node);
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

std::optional<LRESULT> TreeBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!style_.checkBoxes) return OutlinedBinding::OnMessage(message, wParam, lParam);
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
    const TVHITTESTINFO hit = HitTest(PointOf(lParam));
    Node* const node = hit.flags == TVHT_ONITEMSTATEICON ? NodeOf(hit.hItem) : nullptr;
    if (node == nullptr) return std::nullopt;
    SetFocus(Window());
    model_.UserCheck(*node, !node->Checked);
    return 0;
  }
  if (message == WM_KEYDOWN) return OnKey(wParam);
  if (message == WM_CHAR) return 0;
  if (message == WM_GETDLGCODE && wParam == VK_RETURN) return DLGC_WANTARROWS | DLGC_WANTMESSAGE;
  return OutlinedBinding::OnMessage(message, wParam, lParam);
}

}  // namespace tavix::win32
