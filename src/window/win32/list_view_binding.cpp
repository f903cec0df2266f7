#include "window/win32/list_view_binding.h"

#include <algorithm>
#include <utility>

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

int SortMark(int icon) {
  if (icon == 0) return 0;
  return icon == 1 ? HDF_SORTUP : HDF_SORTDOWN;
}

// What headers of lists do by themselves.
WNDPROC ofHeader = nullptr;

// The second of two quick clicks on a header counts as the first does; between headers it stays what it is.
// The list asks the header once for each row that it changes: what stands between has to be cheap.
LRESULT CALLBACK HeaderProcedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_LBUTTONDBLCLK) {
    HDHITTESTINFO hit{};
    hit.pt = PointOf(longer);
    SendMessageW(window, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (hit.flags == HHT_ONHEADER) message = WM_LBUTTONDOWN;
  }
  return CallWindowProcW(ofHeader, window, message, wide, longer);
}

bool Selects(UINT message, WPARAM wide) {
  return message == WM_LBUTTONDOWN || (message == WM_KEYDOWN && wide >= VK_PRIOR && wide <= VK_DOWN);
}

}  // namespace

ListViewBinding::ListViewBinding(ListView& model, WindowContext& context, int id, TextView name)
    : VirtualList(model, context, id, 0, name), model_(model), columns_(model.ColumnHeaders) {
  for (int i = 0; i < ListView::kColumns; ++i) {
    ListView::ColumnHeader& column = columns_[i];
    AddColumn(i, column.Caption, context.Pixels(column.Width));
    column.Icon = 0;
  }
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  ofHeader = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(header, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(HeaderProcedure)));
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

void ListViewBinding::OnRowsHighlighted(int first, int last, bool highlighted) {
  if (first < 0) {
    model_.SelectAll(highlighted);
  } else {
    for (int row = first; row <= last && row < RowCount(); ++row)
      model_.Row(row + 1).SetSelected(highlighted);
  }
  highlights_ = model_.HighlightChanges();
}

int ListViewBinding::HighlightedRows() {
  int rows = 0;
  for (int row = 1; row <= model_.Count(); ++row) rows += model_.Row(row).Selected() ? 1 : 0;
  return rows;
}

// The state that most rows have goes to all of them at once, and the rest follow one by one.
void ListViewBinding::ShowHighlights() {
  if (std::exchange(highlights_, model_.HighlightChanges()) == model_.HighlightChanges()) return;
  const int highlighted = HighlightedRows();
  if (highlighted == 0 && Send(LVM_GETSELECTEDCOUNT) == 0) return;
  const bool most = highlighted > model_.Count() / 2;
  SetState(-1, LVIS_SELECTED, most ? LVIS_SELECTED : 0);
  for (int row = 0; row < model_.Count(); ++row) {
    if (model_.Row(row + 1).Selected() != most) SetState(row, LVIS_SELECTED, most ? 0 : LVIS_SELECTED);
  }
}

// The list tells of a range that was highlighted with Shift in one message, or not at all, as its maker
// pleases.
void ListViewBinding::ReadHighlights() {
  if (Send(LVM_GETSELECTEDCOUNT) == HighlightedRows()) return;
  model_.SelectAll(false);
  const auto next = [this](LRESULT row) {
    return Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
  };
  for (LRESULT row = next(-1); row >= 0; row = next(row))
    model_.Row(static_cast<int>(row) + 1).SetSelected(true);
  highlights_ = model_.HighlightChanges();
}

// A click or key that leaves one row highlighted takes the highlight from the others. Done by the list itself
// that is a message for each of them.
LRESULT ListViewBinding::Select(UINT message, WPARAM wide, LPARAM longer) {
  const bool mouse = message == WM_LBUTTONDOWN;
  const bool shift = mouse ? (wide & MK_SHIFT) != 0 : GetKeyState(VK_SHIFT) < 0;
  const bool ctrl = mouse ? (wide & MK_CONTROL) != 0 : GetKeyState(VK_CONTROL) < 0;
  if (!shift && !ctrl && Send(LVM_GETSELECTEDCOUNT) > 1) SetState(-1, LVIS_SELECTED, 0);
  const LRESULT result = PassOn(message, wide, longer);
  if (shift) ReadHighlights();
  return result;
}

// At the mouse, or at the row in focus when a key has asked for it.
void ListViewBinding::AskForMenu(LPARAM position) {
  context_.menuCorner.reset();
  if (position == -1) {
    RECT row{0, 0, 0, 0};
    row.left = LVIR_LABEL;
    Send(LVM_GETITEMRECT, static_cast<WPARAM>(std::max(ShownFocus(), 0)), reinterpret_cast<LPARAM>(&row));
    POINT corner{row.left, row.bottom};
    ClientToScreen(Window(), &corner);
    context_.menuCorner = corner;
  }
  model_.MouseUp(kRightButton);
  context_.menuCorner.reset();
}

// A column of no width is not to be pulled open. The header tells the list of it, not us.
std::optional<LRESULT> ListViewBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NOTIFY) {
    const auto& header = *reinterpret_cast<const NMHEADERW*>(longer);
    const UINT code = header.hdr.code;
    const bool pulled = code == HDN_BEGINTRACKW || code == HDN_DIVIDERDBLCLICKW;
    if (pulled && model_.ColumnHeaders[header.iItem].Width == 0) return TRUE;
  }
  if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wide) == Window()) return AskForMenu(longer), 0;
  if (message == WM_LBUTTONUP) model_.MouseUp(kLeftButton);
  if (message == WM_KEYDOWN && wide == 'A' && GetKeyState(VK_CONTROL) < 0)
    return SetState(-1, LVIS_SELECTED, LVIS_SELECTED), 0;
  const std::optional<LRESULT> done = VirtualList::OnMessage(message, wide, longer);
  return done || !Selects(message, wide) ? done : Select(message, wide, longer);
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
