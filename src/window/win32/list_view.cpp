#include "window/win32/lists.h"

#include <algorithm>
#include <utility>

#include "platform/windows/wide.h"
#include "window/win32/input.h"

namespace tavix::win32 {
namespace {

// The header's own class.
WNDPROC headerClassProcedure = nullptr;

// A double click on a header counts as a second click. Between headers it stays a double click.
// Keep this cheap: the list sends the header a message for each row that changes.
LRESULT CALLBACK HeaderProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_LBUTTONDBLCLK) {
    HDHITTESTINFO hit{};
    hit.pt = PointOf(lParam);
    SendMessageW(window, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (hit.flags == HHT_ONHEADER) message = WM_LBUTTONDOWN;
  }
  return CallWindowProcW(headerClassProcedure, window, message, wParam, lParam);
}

bool Selects(UINT message, WPARAM wParam) {
  return message == WM_LBUTTONDOWN || (message == WM_KEYDOWN && wParam >= VK_PRIOR && wParam <= VK_DOWN);
}

}  // namespace

ListViewBinding::ListViewBinding(ListView& model, WindowContext& context, int id, ControlName name,
                                 ListStyle style)
    : VirtualList(model, context, id, 0, std::move(name)),
      model_(model),
      style_(style),
      columns_(model.ColumnHeaders) {
  for (int i = 0; i < ListView::kColumns; ++i) {
    const ListView::ColumnHeader& column = columns_[i];
    AddColumn(i, column.Caption, context.Pixels(column.Width));
  }
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  headerClassProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(header, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(HeaderProcedure)));
  if (!style.checkBoxes) RemoveCheckBoxes();
}

// The rows stay as far apart as boxes would keep them.
void ListViewBinding::RemoveCheckBoxes() {
  Send(LVM_SETCALLBACKMASK, 0);
  Send(LVM_SETIMAGELIST, LVSIL_STATE, 0);
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, 0);
  ShowSpacers();
}

void ListViewBinding::ShowSpacers() {
  ImageList spacers = MakeBlankImages(1, context_.Pixels(kRowHeight));
  Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(spacers.Get()));
  spacers_ = std::move(spacers);
}

void ListViewBinding::ShowLook() {
  VirtualList::ShowLook();
  ScaleColumns();
  if (!style_.checkBoxes) ShowSpacers();
}

// While painting is suspended the window stays as it is; the end of that shows all changes.
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

int ListViewBinding::SortMark(int header) const {
  if (header != model_.SortedHeader()) return 0;
  return model_.SortOrder == 0 ? HDF_SORTUP : HDF_SORTDOWN;
}

// The user may drag columns: a width is set only when the model's has changed.
void ListViewBinding::ShowColumns() {
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  for (int i = 0; i < ListView::kColumns; ++i) {
    const ListView::ColumnHeader& wanted = model_.ColumnHeaders[i];
    ListView::ColumnHeader& shown = columns_[i];
    const int mark = SortMark(i);
    if (wanted.Width != shown.Width) {
      pulled_[i] = 0;
      Send(LVM_SETCOLUMNWIDTH, i, context_.Pixels(wanted.Width));
    }
    if (wanted.Caption != shown.Caption || mark != sortMarks_[i]) {
      Text caption = wanted.Caption;
      HDITEMW item{};
      item.mask = HDI_TEXT | HDI_FORMAT;
      item.pszText = windows::WideBuffer(caption.data());
      item.fmt = HDF_LEFT | HDF_STRING | mark;
      SendMessageW(header, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
    }
    shown = wanted;
    sortMarks_[i] = mark;
  }
}

// A column that the user has made wider or narrower stays so.
void ListViewBinding::ScaleColumns() {
  for (int i = 0; i < ListView::kColumns; ++i) {
    const int width = pulled_[i] > 0 ? pulled_[i] : columns_[i].Width;
    Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), context_.Pixels(width));
  }
}

void ListViewBinding::OnRowsHighlighted(int first, int last, bool highlighted) {
  if (first < 0) {
    model_.SelectAll(highlighted);
  } else {
    model_.SelectRows(first + 1, last + 1, highlighted);
  }
  highlights_ = model_.HighlightChanges();
}

// All rows get the state of the majority at once; the others follow one by one.
void ListViewBinding::ShowHighlights() {
  if (std::exchange(highlights_, model_.HighlightChanges()) == model_.HighlightChanges()) return;
  const int highlighted = model_.SelectedCount();
  if (highlighted == 0 && Send(LVM_GETSELECTEDCOUNT) == 0) return;
  const bool most = highlighted > model_.Count() / 2;
  SetState(-1, LVIS_SELECTED, most ? LVIS_SELECTED : 0);
  for (int row = 0, left = most ? model_.Count() - highlighted : highlighted; left > 0; ++row) {
    if (model_.Row(row + 1).Selected() == most) continue;
    SetState(row, LVIS_SELECTED, most ? 0 : LVIS_SELECTED);
    --left;
  }
}

// A range highlighted with Shift. Windows reports it, Wine doesn't. It reaches from the mark to the focus.
void ListViewBinding::ReadRange(bool adds) {
  const auto [first, last] = std::minmax({static_cast<int>(Send(LVM_GETSELECTIONMARK)), ShownFocus()});
  if (first >= 0) {
    if (!adds) model_.SelectAll(false);
    model_.SelectRows(first + 1, last + 1, true);
    highlights_ = model_.HighlightChanges();
  }
  if (Send(LVM_GETSELECTEDCOUNT) != model_.SelectedCount()) ReadHighlights();
}

void ListViewBinding::ReadHighlights() {
  model_.SelectAll(false);
  const auto next = [this](int row) {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED));
  };
  for (int first = next(-1); first >= 0;) {
    int last = first;
    int following = next(last);
    for (; following == last + 1; following = next(last)) last = following;
    model_.SelectRows(first + 1, last + 1, true);
    first = following;
  }
  highlights_ = model_.HighlightChanges();
}

// A click or key that highlights one row ends the highlight of the others. The list itself would send a
// message for each of them.
LRESULT ListViewBinding::Select(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool mouse = message == WM_LBUTTONDOWN;
  const bool shift = mouse ? (wParam & MK_SHIFT) != 0 : GetKeyState(VK_SHIFT) < 0;
  const bool ctrl = mouse ? (wParam & MK_CONTROL) != 0 : GetKeyState(VK_CONTROL) < 0;
  if (!shift && !ctrl && Send(LVM_GETSELECTEDCOUNT) > 1) SetState(-1, LVIS_SELECTED, 0);
  const auto select = [&] { return PassOn(message, wParam, lParam); };
  const LRESULT result = shift ? ForManyRows(select) : select();
  if (!shift) return result;
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(ShownFocus()), FALSE);
  ReadRange(ctrl);
  return result;
}

// The menu pops up at the mouse, or below the row in focus after a key.
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

LRESULT ListViewBinding::OnNotify(NMHDR& header) {
  const LRESULT result = VirtualList::OnNotify(header);
  if (header.code == NM_DBLCLK && reinterpret_cast<NMITEMACTIVATE&>(header).iItem >= 0) model_.DblClick();
  return result;
}

// The header notifies the list, not its parent. A column without width can't be dragged open.
std::optional<LRESULT> ListViewBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NOTIFY) {
    const auto& header = *reinterpret_cast<const NMHEADERW*>(lParam);
    const UINT code = header.hdr.code;
    const bool pulled = code == HDN_BEGINTRACKW || code == HDN_DIVIDERDBLCLICKW;
    if (pulled && model_.ColumnHeaders[header.iItem].Width == 0) return TRUE;
    if (code == HDN_ENDTRACKW && header.pitem != nullptr)
      pulled_[header.iItem] = context_.Twips(header.pitem->cxy);
    if (code == HDN_DIVIDERDBLCLICKW) {
      const LRESULT result = PassOn(message, wParam, lParam);
      pulled_[header.iItem] = context_.Twips(static_cast<int>(Send(LVM_GETCOLUMNWIDTH, header.iItem)));
      return result;
    }
  }
  if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wParam) == Window()) return AskForMenu(lParam), 0;
  if (message == WM_LBUTTONUP) model_.MouseUp(kLeftButton);
  if (message == WM_KEYDOWN) model_.KeyDown(static_cast<int>(wParam), HeldShiftKeys());
  if (!style_.checkBoxes && (message == WM_KEYDOWN || message == WM_CHAR) && wParam == VK_SPACE) return 0;
  if (message == WM_KEYDOWN && wParam == 'A' && GetKeyState(VK_CONTROL) < 0)
    return SetState(-1, LVIS_SELECTED, LVIS_SELECTED), 0;
  const std::optional<LRESULT> done = VirtualList::OnMessage(message, wParam, lParam);
  return done || !Selects(message, wParam) ? done : Select(message, wParam, lParam);
}

TextView ListViewBinding::TextAt(int row, int column) { return model_.Row(row + 1).SubItems(column); }

void ListViewBinding::Toggle(int row) {
  ListView::Item item = model_.Row(row + 1);
  item.SetChecked(!item.Checked());
}

// All highlighted rows get the new state of the one in focus.
void ListViewBinding::OnSpace(int row) {
  const ListView::Item focused = model_.Row(row + 1);
  if (!focused.Selected()) return Toggle(row);
  model_.CheckSelected(!focused.Checked());
}

void ListViewBinding::OnRowFocused(int row) {
  model_.FocusRow(row + 1);
  model_.ItemClick();
}

void ListViewBinding::OnRowClick(int row) {
  if (row >= 0) model_.ItemClick();
}

COLORREF ListViewBinding::TextColorAt(int row) {
  return ScreenColor(model_.Row(row + 1).ForeColor().value_or(model_.ForeColor.Get()));
}

}  // namespace tavix::win32
