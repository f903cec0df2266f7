#include "window/win32/virtual_list.h"

#include <algorithm>

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {
// State images of the check boxes.
constexpr UINT kUnticked = 1;
constexpr UINT kTicked = 2;
}  // namespace

VirtualList::VirtualList(Control& model, WindowContext& context, int id, DWORD style)
    : WindowBinding(model, context) {
  Create(id, WC_LISTVIEWW,
         WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SINGLESEL | style);
  constexpr DWORD kStyle = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kStyle, kStyle);
  Send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
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
  const int focused = FocusedRow();
  const int shown = static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  if (focused != shown) {
    LVITEMW item{};
    item.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = item.stateMask;
    if (focused >= 0) Send(LVM_SETITEMSTATE, static_cast<WPARAM>(focused), reinterpret_cast<LPARAM>(&item));
  }
  showing_ = false;
  InvalidateRect(Window(), nullptr, FALSE);
}

LRESULT VirtualList::OnNotify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW:
      return Fill(reinterpret_cast<NMLVDISPINFOW&>(header).item);
    case NM_CUSTOMDRAW:
      return Paint(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    case LVN_ITEMCHANGED:
      return RowChanged(reinterpret_cast<NMLISTVIEW&>(header)), 0;
    case NM_CLICK:
      return OnRowClick(reinterpret_cast<NMITEMACTIVATE&>(header).iItem), 0;
    case LVN_COLUMNCLICK:
      return OnColumnClick(reinterpret_cast<NMLISTVIEW&>(header).iSubItem), 0;
    case LVN_ODFINDITEMW:
      return -1;
    default:
      return 0;
  }
}

// The list may ask for a row that has gone since it was last told of the count.
LRESULT VirtualList::Fill(LVITEMW& item) {
  const bool known = Has(item.iItem);
  if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
    const TextView text = known ? TextAt(item.iItem, item.iSubItem) : TextView();
    const size_t length = std::min(text.size(), static_cast<size_t>(item.cchTextMax) - 1);
    *std::copy_n(text.begin(), length, item.pszText) = L'\0';
  }
  if ((item.mask & LVIF_STATE) != 0) {
    item.state = INDEXTOSTATEIMAGEMASK(known && CheckedAt(item.iItem) ? kTicked : kUnticked);
    item.stateMask = LVIS_STATEIMAGEMASK;
  }
  return 0;
}

LRESULT VirtualList::Paint(NMLVCUSTOMDRAW& draw) {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const int row = static_cast<int>(draw.nmcd.dwItemSpec);
  if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && Has(row)) draw.clrText = TextColorAt(row);
  return CDRF_DODEFAULT;
}

void VirtualList::RowChanged(const NMLISTVIEW& change) {
  const bool focused = (change.uNewState & ~change.uOldState & LVIS_FOCUSED) != 0;
  if (!showing_ && focused && Has(change.iItem)) OnRowFocused(change.iItem);
}

int VirtualList::RowOfBoxAt(LPARAM position) const {
  LVHITTESTINFO hit{};
  hit.pt = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
  const int row = static_cast<int>(Send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  return hit.flags == LVHT_ONITEMSTATEICON ? row : -1;
}

std::optional<LRESULT> VirtualList::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
    const int row = RowOfBoxAt(longer);
    if (!Has(row)) return std::nullopt;
    SetFocus(Window());
    Toggle(row);
    return 0;
  }
  if ((message == WM_KEYDOWN || message == WM_CHAR) && wide == VK_SPACE) {
    const int row = static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    if (message == WM_KEYDOWN && Has(row)) Toggle(row);
    return 0;
  }
  return WindowBinding::OnMessage(message, wide, longer);
}

}  // namespace tavix::win32
