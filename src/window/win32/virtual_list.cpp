#include "window/win32/lists.h"

#include <algorithm>
#include <utility>

#include <uxtheme.h>

#include "platform/windows/wide.h"
#include "window/win32/input.h"

namespace tavix::win32 {
namespace {
// State images of the check boxes.
constexpr UINT kUnticked = 1;
constexpr UINT kTicked = 2;
}  // namespace

VirtualList::VirtualList(Control& model, WindowContext& context, int id, DWORD style, ControlName name)
    : OutlinedBinding(model, context, std::move(name)) {
  CreateOutlined(id, WC_LISTVIEWW,
                 LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | style);
  SetWindowTheme(Window(), L"Explorer", nullptr);
  constexpr DWORD kStyle = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kStyle, kStyle);
  ShowTicks();
  AskFor(LVIS_STATEIMAGEMASK);
}

void VirtualList::AskFor(UINT states) {
  asked_ = states;
  Send(LVM_SETCALLBACKMASK, states);
}

// Our own boxes replace those that the list has: at first those that its style has made.
void VirtualList::ShowTicks() {
  ImageList ticks = MakeTickImages(context_, context_.Pixels(kRowHeight), false);
  const auto before = reinterpret_cast<HIMAGELIST>(
      Send(LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(ticks.Get())));
  if (before != ticks_.Get()) ImageList(before).Reset();
  ticks_ = std::move(ticks);
}

void VirtualList::ShowLook() {
  if ((Send(LVM_GETEXTENDEDLISTVIEWSTYLE) & LVS_EX_CHECKBOXES) != 0) ShowTicks();
}

void VirtualList::AddColumn(int column, TextView caption, int pixels) {
  Text text(caption);
  LVCOLUMNW data{};
  data.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  data.pszText = windows::WideBuffer(text.data());
  data.cx = pixels;
  data.iSubItem = column;
  Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&data));
}

void VirtualList::ShowRows() {
  showing_ = true;
  const int count = RowCount();
  if (static_cast<int>(Send(LVM_GETITEMCOUNT)) != count) {
    Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL | LVSICF_NOINVALIDATEALL);
  }
  ShowFocus();
  showing_ = false;
  AnnounceTick();
  Redraw();
}

void VirtualList::SetState(int row, UINT mask, UINT state) const {
  LVITEMW item{};
  item.stateMask = mask;
  item.state = state;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

int VirtualList::ShownFocus() const {
  return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

// Screen readers hear that the tick of the row in focus has turned.
void VirtualList::AnnounceTick() {
  const int row = ShownFocus();
  const bool tick = Has(row) && CheckedAt(row);
  const bool turned = row >= 0 && row == saidRow_ && tick != saidTick_;
  saidRow_ = row;
  saidTick_ = tick;
  if (turned) NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Window(), OBJID_CLIENT, row + 1);
}

void VirtualList::ShowFocus() {
  const int focused = FocusedRow();
  const int shown = ShownFocus();
  if (focused == shown) return;
  const UINT states = SelectsOne() ? LVIS_FOCUSED | LVIS_SELECTED : LVIS_FOCUSED;
  if (shown >= 0) SetState(shown, states, 0);
  if (focused < 0) return;
  SetState(focused, states, states);
  if (ScrollsToFocus()) Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(focused), FALSE);
}

LRESULT VirtualList::OnNotify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW:
      return Fill(reinterpret_cast<NMLVDISPINFOW&>(header).item);
    case NM_CUSTOMDRAW:
      return PaintRow(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    case LVN_ITEMCHANGED:
      return RowChanged(reinterpret_cast<NMLISTVIEW&>(header)), 0;
    case LVN_ODSTATECHANGED:
      return RowsChanged(reinterpret_cast<NMLVODSTATECHANGE&>(header)), 0;
    case NM_CLICK:
      return OnRowClick(reinterpret_cast<NMITEMACTIVATE&>(header).iItem), 0;
    case LVN_COLUMNCLICK:
      return OnColumnClick(reinterpret_cast<NMLISTVIEW&>(header).iSubItem), 0;
    case LVN_ODFINDITEMW:
      return FindAsked(reinterpret_cast<NMLVFINDITEMW&>(header));
    default:
      return 0;
  }
}

// The list may ask for a row that was removed after the last ShowRows.
LRESULT VirtualList::Fill(LVITEMW& item) {
  const bool known = Has(item.iItem);
  if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
    const TextView text = known ? TextAt(item.iItem, item.iSubItem) : TextView();
    const size_t length = std::min(text.size(), static_cast<size_t>(item.cchTextMax) - 1);
    *std::copy_n(text.begin(), length, item.pszText) = L'\0';
  }
  if ((item.mask & LVIF_STATE) != 0) {
    const UINT box = INDEXTOSTATEIMAGEMASK(known && CheckedAt(item.iItem) ? kTicked : kUnticked);
    item.state = (box | (known && HighlightedAt(item.iItem) ? LVIS_SELECTED : 0)) & asked_;
    item.stateMask = asked_;
  }
  return 0;
}

LRESULT VirtualList::PaintRow(NMLVCUSTOMDRAW& draw) {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const int row = static_cast<int>(draw.nmcd.dwItemSpec);
  if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && Has(row)) draw.clrText = TextColorAt(row);
  return CDRF_DODEFAULT;
}

SearchedRows VirtualList::Searched() {
  return {RowCount(), ShownFocus(), [this](int row) { return TextAt(row, 0); }};
}

// Other programs, such as screen readers, ask the list for a row by its text.
LRESULT VirtualList::FindAsked(const NMLVFINDITEMW& asked) {
  const LVFINDINFOW& by = asked.lvfi;
  if ((by.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || by.psz == nullptr) return -1;
  return FindRow(Searched(), asked.iStart, windows::FromWide(by.psz), (by.flags & LVFI_PARTIAL) == 0,
                 (by.flags & LVFI_WRAP) != 0);
}

void VirtualList::GoToLetter(char16_t letter) {
  const int row = context_.letters.Type(Window(), letter, Searched());
  if (row < 0) return;
  if (!SelectsOne()) SetState(-1, LVIS_SELECTED, 0);
  SetState(row, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  Send(LVM_SETSELECTIONMARK, 0, row);
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void VirtualList::RowChanged(const NMLISTVIEW& change) {
  const UINT changed = (change.uChanged & LVIF_STATE) != 0 ? change.uNewState ^ change.uOldState : 0;
  if ((changed & change.uNewState & LVIS_FOCUSED) != 0) AnnounceTick();
  if (showing_) return;
  if ((changed & LVIS_SELECTED) != 0)
    OnRowsHighlighted(change.iItem, change.iItem, (change.uNewState & LVIS_SELECTED) != 0);
  if ((changed & change.uNewState & LVIS_FOCUSED) != 0 && Has(change.iItem)) OnRowFocused(change.iItem);
}

void VirtualList::RowsChanged(const NMLVODSTATECHANGE& change) {
  if (!showing_ && ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0)
    OnRowsHighlighted(change.iFrom, change.iTo, (change.uNewState & LVIS_SELECTED) != 0);
}

int VirtualList::RowOfBoxAt(LPARAM position) const {
  LVHITTESTINFO hit{};
  hit.pt = PointOf(position);
  const int row = static_cast<int>(Send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  return hit.flags == LVHT_ONITEMSTATEICON ? row : -1;
}

std::optional<LRESULT> VirtualList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
    const int row = RowOfBoxAt(lParam);
    if (!Has(row)) return std::nullopt;
    SetFocus(Window());
    Toggle(row);
    return 0;
  }
  if ((message == WM_KEYDOWN || message == WM_CHAR) && wParam == VK_SPACE) {
    const int row = ShownFocus();
    if (message == WM_KEYDOWN && Has(row)) OnSpace(row);
    return 0;
  }
  if (message == WM_CHAR && wParam > VK_SPACE) return GoToLetter(static_cast<char16_t>(wParam)), 0;
  return OutlinedBinding::OnMessage(message, wParam, lParam);
}

}  // namespace tavix::win32
