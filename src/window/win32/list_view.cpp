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
LRESULT CALLBACK HeaderProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_LBUTTONDBLCLK) {
    HDHITTESTINFO hit{};
    hit.pt = PointOf(lParam);
    SendMessageW(window, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (hit.flags == HHT_ONHEADER) message = WM_LBUTTONDOWN;
  }
  return CallWindowProcW(headerClassProcedure, window, message, wParam, lParam);
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
  AskFor(BoxStates() | LVIS_SELECTED);
  if (!style.checkBoxes) RemoveCheckBoxes();
}

// The rows stay as far apart as boxes would keep them.
void ListViewBinding::RemoveCheckBoxes() {
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

//--- Highlights

// A frame is the list's: only it knows the rows inside. All other highlights are the model's already.
void ListViewBinding::OnRowsHighlighted(int first, int last, bool highlighted) {
  if (!framing_) return;
  first < 0 ? model_.SelectAll(highlighted) : model_.SelectRows(first + 1, last + 1, highlighted);
}

// A press beside all rows may begin a frame. Until it ends, the list keeps the highlights.
void ListViewBinding::BeginFrame() {
  AskFor(BoxStates());
  for (int row = NextHighlighted(-1); row >= 0; row = NextHighlighted(row)) PassOnState(row, LVIS_SELECTED);
  framing_ = true;
}

void ListViewBinding::EndFrame() {
  framing_ = false;
  PassOnState(-1, 0);
  AskFor(BoxStates() | LVIS_SELECTED);
}

// Sets the list's own highlights.
void ListViewBinding::PassOnState(int row, UINT state) const {
  LVITEMW item{};
  item.stateMask = LVIS_SELECTED;
  item.state = state;
  PassOn(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

// The next highlighted row after this one, -1 if there is none.
int ListViewBinding::NextHighlighted(int row) {
  if (model_.SelectedCount() == 0) return -1;
  while (Has(++row)) {
    if (HighlightedAt(row)) return row;
  }
  return -1;
}

// Programs, this one and others, ask for highlights and change them by the list's messages.
std::optional<LRESULT> ListViewBinding::OnHighlightMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == LVM_GETSELECTEDCOUNT) return model_.SelectedCount();
  if (message == LVM_GETSELECTIONMARK) return mark_;
  if (message == LVM_SETSELECTIONMARK) return std::exchange(mark_, static_cast<int>(lParam));
  const int row = static_cast<int>(wParam);
  if (message == LVM_GETNEXTITEM && lParam == LVNI_SELECTED) return NextHighlighted(row);
  if (message != LVM_SETITEMSTATE || lParam == 0) return std::nullopt;
  LVITEMW change = *reinterpret_cast<const LVITEMW*>(lParam);
  if ((change.stateMask & LVIS_SELECTED) == 0) return std::nullopt;
  const int last = row < 0 ? RowCount() - 1 : row;
  model_.SelectRows(std::max(row, 0) + 1, last + 1, (change.state & LVIS_SELECTED) != 0);
  AnnounceHighlights();
  change.stateMask &= ~static_cast<UINT>(LVIS_SELECTED);
  return change.stateMask == 0 ? TRUE : PassOn(message, wParam, reinterpret_cast<LPARAM>(&change));
}

void ListViewBinding::AnnounceHighlights() {
  const int row = model_.SelectedCount() == 1 ? NextHighlighted(-1) : -1;
  NotifyWinEvent(row >= 0 ? EVENT_OBJECT_SELECTION : EVENT_OBJECT_SELECTIONWITHIN, Window(), OBJID_CLIENT,
                 row + 1);
}

// What a click or key on a row highlights. A range reaches from the mark, which is the row of the last click
// or key without Shift. `adds` keeps the other highlights; without a range it turns that of the row.
void ListViewBinding::HighlightTo(int row, bool range, bool adds) {
  if (!range || mark_ < 0) mark_ = row;
  const auto [first, last] = std::minmax(mark_, row);
  const bool highlighted = range || !adds || !HighlightedAt(row);
  if (!adds) model_.SelectAll(false);
  model_.SelectRows(first + 1, last + 1, highlighted);
  AnnounceHighlights();
}

// The row to which a key leads from the one in focus.
int ListViewBinding::RowOfKey(WPARAM key) const {
  const int focus = ShownFocus();
  const int top = static_cast<int>(Send(LVM_GETTOPINDEX));
  const int page = static_cast<int>(Send(LVM_GETCOUNTPERPAGE)) - 1;
  switch (key) {
    case VK_UP:
      return focus - 1;
    case VK_DOWN:
      return focus + 1;
    case VK_PRIOR:
      return focus > top ? top : focus - page;
    case VK_NEXT:
      return focus < top + page ? top + page : focus + page;
    default:
      return key == VK_HOME ? 0 : model_.Count() - 1;
  }
}

// With Ctrl a key moves the focus alone.
void ListViewBinding::MoveFocus(WPARAM key) {
  if (RowCount() == 0) return;
  const int row = std::clamp(RowOfKey(key), 0, RowCount() - 1);
  const bool range = GetKeyState(VK_SHIFT) < 0;
  const bool ctrl = GetKeyState(VK_CONTROL) < 0;
  if (range || !ctrl) HighlightTo(row, range, ctrl);
  FocusOn(row);
}

void ListViewBinding::FocusOn(int row) {
  SetState(row, LVIS_FOCUSED, LVIS_FOCUSED);
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

// A press of the left or right button. The list itself would ask for the highlight of every row.
LRESULT ListViewBinding::Press(UINT message, WPARAM wParam, LPARAM lParam) {
  LVHITTESTINFO hit{};
  hit.pt = PointOf(lParam);
  const int row = static_cast<int>(Send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  const bool range = (wParam & MK_SHIFT) != 0;
  const bool ctrl = (wParam & MK_CONTROL) != 0;
  const bool right = message == WM_RBUTTONDOWN;
  if (!Has(row)) {
    if (!range && !ctrl) SetState(-1, LVIS_SELECTED, 0);
    BeginFrame();
    const LRESULT result = PassOn(message, wParam, lParam);
    if (right) EndFrame();
    return result;
  }
  // The right button opens the menu of the highlighted rows.
  if (!right || (!range && !ctrl && !HighlightedAt(row))) HighlightTo(row, range, ctrl);
  if (right) return PassOn(message, wParam, lParam);
  SetFocus(Window());
  FocusOn(row);
  return OnRowClick(row), 0;
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
  const bool isReleased = (message == WM_LBUTTONUP || message == WM_MOUSEMOVE) && (wParam & MK_LBUTTON) == 0;
  if (framing_ && isReleased) EndFrame();
  std::optional<LRESULT> done = OnHighlightMessage(message, wParam, lParam);
  if (!done) done = VirtualList::OnMessage(message, wParam, lParam);
  if (done) return done;
  if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN) return Press(message, wParam, lParam);
  const bool moves = wParam >= VK_PRIOR && wParam <= VK_DOWN && wParam != VK_LEFT && wParam != VK_RIGHT;
  if (message == WM_KEYDOWN && moves) return MoveFocus(wParam), 0;
  return std::nullopt;
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
