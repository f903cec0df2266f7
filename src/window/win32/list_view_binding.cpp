#include "window/win32/list_view_binding.h"

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

int SortMark(int icon) {
  if (icon == 0) return 0;
  return icon == 1 ? HDF_SORTUP : HDF_SORTDOWN;
}

// The second of two quick clicks on a header counts as the first does; between headers it stays what it is.
LRESULT CALLBACK HeaderProcedure(HWND window, UINT message, WPARAM wide, LPARAM longer, UINT_PTR id,
                                 DWORD_PTR) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, HeaderProcedure, id);
  if (message == WM_LBUTTONDBLCLK) {
    HDHITTESTINFO hit{};
    hit.pt = {static_cast<short>(LOWORD(longer)), static_cast<short>(HIWORD(longer))};
    SendMessageW(window, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (hit.flags == HHT_ONHEADER) message = WM_LBUTTONDOWN;
  }
  return DefSubclassProc(window, message, wide, longer);
}

}  // namespace

ListViewBinding::ListViewBinding(ListView& model, WindowContext& context, int id, TextView name)
    : VirtualList(model, context, id, 0), model_(model) {
  SetName(name);
  for (int column = 0; column < ListView::kColumns; ++column) AddColumn(column, u"", 0);
  SetWindowSubclass(reinterpret_cast<HWND>(Send(LVM_GETHEADER)), HeaderProcedure, 1, 0);
}

// Under suspended painting the window stays as it is; the end of that brings the changes.
void ListViewBinding::Show() {
  if (model_.PaintingSuspended) return;
  ShowColors();
  ShowColumns();
  ShowRows();
}

void ListViewBinding::ShowColors() {
  const COLORREF back = ScreenColor(model_.BackColor);
  if (back == back_) return;
  back_ = back;
  Send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(back));
  Send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(back));
}

// Widths are the user's once they have been shown; they change only with the model.
void ListViewBinding::ShowColumns() {
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  for (int i = 0; i < ListView::kColumns; ++i) {
    const ListView::ColumnHeader& wanted = model_.ColumnHeaders[i];
    ListView::ColumnHeader& shown = columns_[i];
    if (wanted.Width != shown.Width) Send(LVM_SETCOLUMNWIDTH, i, context_.Pixels(wanted.Width));
    if (wanted.Caption != shown.Caption || wanted.Icon != shown.Icon) {
      Text caption = wanted.Caption;
      HDITEMW item{};
      item.mask = HDI_TEXT | HDI_FORMAT;
      item.pszText = windows::WideBuffer(caption.data());
      item.fmt = HDF_LEFT | HDF_STRING | SortMark(wanted.Icon);
      SendMessageW(header, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
    shown = wanted;
  }
}

// A column of no width is not to be pulled open. The header tells the list of it, not us.
std::optional<LRESULT> ListViewBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NOTIFY) {
    const auto& header = *reinterpret_cast<const NMHEADERW*>(longer);
    const UINT code = header.hdr.code;
    const bool pulled = code == HDN_BEGINTRACKW || code == HDN_DIVIDERDBLCLICKW;
    if (pulled && model_.ColumnHeaders[header.iItem].Width == 0) return TRUE;
  }
  return VirtualList::OnMessage(message, wide, longer);
}

TextView ListViewBinding::TextAt(int row, int column) { return model_.Row(row + 1).SubItems(column); }

void ListViewBinding::Toggle(int row) {
  ListView::Item item = model_.Row(row + 1);
  item.SetChecked(!item.Checked());
}

void ListViewBinding::OnRowClick(int row) {
  if (row >= 0) model_.ItemClick();
}

COLORREF ListViewBinding::TextColorAt(int row) {
  return ScreenColor(model_.Row(row + 1).ForeColor().value_or(model_.ForeColor.Get()));
}

}  // namespace tavix::win32
