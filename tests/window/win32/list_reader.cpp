// Reads windows of another process, by messages. Each line of the input asks for one window, and the answer
// ends with the line "end", or "none" if the window isn't there. The program stays, because its start takes
// much longer than an answer.
//
// An empty line asks for the main window. The answer has one JSON object a line, in UTF-8: first the window
// itself, then each control as {"control":id,"text":...}, then the columns and rows of the result list, the
// rows of the function list and the nodes of the trees. Only the first thousand rows of a list are printed.
// Rectangles are left, top, right, bottom on the screen: "rect" is the client area of a control, "frame" the
// whole.
//
// Any other line is the class of a window. The content of lists and trees comes after their control, and the
// title of the window is last.
//
// With a plus sign before the class, only visible controls are printed, and only what is in sight of the
// content of lists and trees. After each control comes how it draws its text, as
// {"drawn":id,"kind":...,"extent":...}: the size of the text in the font that it is drawn in. The same is
// printed for each title of a column.

// clang-format off
#include "platform/windows/windows_api.h"
#include <commctrl.h>
#include <fcntl.h>
#include <io.h>
// clang-format on

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

#include "platform/windows/wide.h"
#include "text/utf8.h"
#include "window/win32/control_ids.h"

namespace {

using namespace tavix;
using namespace tavix::win32;

constexpr size_t kTextRoom = 4096;
constexpr int kMaxRows = 1000;
// Whether ampersands in captions mark access keys.
bool lettersAreMarked = false;
// Whether only what can be seen is printed.
bool inSight = false;

// Memory in the other process for the structure and the text of one message.
class RemoteRoom {
 public:
  explicit RemoteRoom(HWND window) : window_(window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    room_ = static_cast<char*>(VirtualAllocEx(process_, nullptr, kRoom, MEM_COMMIT, PAGE_READWRITE));
  }
  RemoteRoom(const RemoteRoom&) = delete;
  ~RemoteRoom() {
    VirtualFreeEx(process_, room_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  bool IsThere() const { return room_ != nullptr; }
  wchar_t* TextAddress() const { return reinterpret_cast<wchar_t*>(room_ + kStructure); }
  // Sends the message with a copy of `data` that the window may change.
  template <class Data>
  LRESULT Send(HWND control, UINT message, WPARAM wParam, Data& data) const {
    static_assert(sizeof(Data) <= kStructure);
    WriteProcessMemory(process_, room_, &data, sizeof data, nullptr);
    const LRESULT result = SendMessageW(control, message, wParam, reinterpret_cast<LPARAM>(room_));
    ReadProcessMemory(process_, room_, &data, sizeof data, nullptr);
    return result;
  }
  Text ReadText() const {
    std::array<wchar_t, kTextRoom> text{};
    ReadProcessMemory(process_, TextAddress(), text.data(), (kTextRoom - 1) * sizeof(wchar_t), nullptr);
    return windows::FromWide(text.data());
  }
  HWND Window() const { return window_; }

 private:
  static constexpr size_t kStructure = 256;
  static constexpr size_t kRoom = kStructure + kTextRoom * sizeof(wchar_t);
  HWND window_;
  HANDLE process_ = nullptr;
  char* room_ = nullptr;
};

std::string Quoted(const Text& text) {
  std::string json = "\"";
  for (const char c : ToUtf8(text)) {
    if (c == '"' || c == '\\') json += '\\';
    if (static_cast<unsigned char>(c) < 0x20) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
      json += escape.data();
    } else {
      json += c;
    }
  }
  return json + '"';
}

// The system's message font. It is read once: that takes longer than all else.
const LOGFONTW& MessageFont() {
  static const LOGFONTW font = [] {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMessageFont;
  }();
  return font;
}

// The size of the text in the system's message font: on one line, or wrapped to the control's width for a
// label of several lines.
std::string TextRoom(HWND control, const wchar_t* text, RECT area) {
  const HDC context = GetDC(nullptr);
  const HFONT font = CreateFontIndirectW(&MessageFont());
  const HGDIOBJ before = SelectObject(context, font);
  const int number = GetDlgCtrlID(control);
  const UINT wrapped = number == kIdStatus || number == kIdPageRemark ? DT_WORDBREAK : DT_SINGLELINE;
  DrawTextW(context, text, -1, &area, DT_CALCRECT | wrapped | (lettersAreMarked ? 0U : DT_NOPREFIX));
  SelectObject(context, before);
  DeleteObject(font);
  ReleaseDC(nullptr, context);
  return "[" + std::to_string(area.right - area.left) + "," + std::to_string(area.bottom - area.top) + "]";
}

//--- How a text is drawn

enum class Weight { kPlain, kBold, kTitle };

// The size of a text in the system's message font, or in the heavier ones that the program makes from it: on
// one line, or wrapped to a width.
SIZE ExtentOf(const wchar_t* text, Weight weight, LONG wrappedTo, bool marksLetters) {
  LOGFONTW face = MessageFont();
  if (weight != Weight::kPlain) face.lfWeight = FW_BOLD;
  if (weight == Weight::kTitle) face.lfHeight = MulDiv(face.lfHeight, 5, 4);
  const HDC context = GetDC(nullptr);
  const HFONT font = CreateFontIndirectW(&face);
  const HGDIOBJ before = SelectObject(context, font);
  RECT room{0, 0, wrappedTo, 0};
  DrawTextW(context, text, -1, &room,
            DT_CALCRECT | (wrappedTo > 0 ? DT_WORDBREAK : DT_SINGLELINE) | (marksLetters ? 0U : DT_NOPREFIX));
  SelectObject(context, before);
  DeleteObject(font);
  ReleaseDC(nullptr, context);
  return {room.right, room.bottom};
}

struct Drawing {
  const char* kind = "other";
  Weight weight = Weight::kPlain;
  bool wraps = false;
};

// The pictures of the windows and the browser's place: their text is a name that isn't drawn.
bool IsPicture(int number) {
  return (number >= kIdTitleHelp && number <= kIdClose) || (number >= kIdPrivacy && number <= kIdOneClick) ||
         number == kIdProductLink || number == kIdBusyPage || number == kIdPagePicture;
}

Drawing DrawingOf(HWND control) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(control, name.data(), static_cast<int>(name.size()));
  const std::wstring_view kind(name.data());
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(control, GWL_STYLE));
  const int number = GetDlgCtrlID(control);
  if (IsPicture(number)) return {"picture"};
  if (kind == WC_EDITW) return {"box"};
  if (kind == WC_STATICW) {
    const DWORD type = style & SS_TYPEMASK;
    if (type == SS_ICON || type == SS_BITMAP) return {"picture"};
    if (number == kIdPageTitle) return {"label", Weight::kTitle};
    return {"label", Weight::kPlain, type == SS_LEFT || number == kIdStatus || number == kIdPageRemark};
  }
  if (kind != WC_BUTTONW) return {};
  switch (style & BS_TYPEMASK) {
    case BS_GROUPBOX:
      return {"group", Weight::kBold};
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
      return {"check"};
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
      return {"option"};
    default:
      return {number == kIdOptionLink ? "label" : "push",
              (number >= kIdScan && number <= kIdRepair) || number == kIdSave || number == kIdTypeButtons + 1
                  ? Weight::kBold
                  : Weight::kPlain};
  }
}

void PrintDrawing(HWND control) {
  const Drawing drawing = DrawingOf(control);
  std::array<wchar_t, kTextRoom> text{};
  SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  RECT area;
  GetClientRect(control, &area);
  const SIZE extent = ExtentOf(text.data(), drawing.weight, drawing.wraps ? area.right : 0, lettersAreMarked);
  std::printf("{\"drawn\":%d,\"kind\":\"%s\",\"extent\":[%ld,%ld]}\n", GetDlgCtrlID(control), drawing.kind,
              extent.cx, extent.cy);
}

const char* Flag(bool flag) { return flag ? "true" : "false"; }

std::string Rectangle(HWND origin, RECT area) {
  MapWindowPoints(origin, nullptr, reinterpret_cast<POINT*>(&area), 2);
  return "[" + std::to_string(area.left) + "," + std::to_string(area.top) + "," + std::to_string(area.right) +
         "," + std::to_string(area.bottom) + "]";
}

// The state of the thread that owns a window: its focus, and whether it moves a window or shows a menu.
GUITHREADINFO ThreadState(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
  return info;
}

BOOL CALLBACK PrintControl(HWND control, LPARAM parent) {
  if (GetParent(control) != reinterpret_cast<HWND>(parent)) return TRUE;
  std::array<wchar_t, kTextRoom> text{};
  SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  RECT area, frame;
  GetClientRect(control, &area);
  GetWindowRect(control, &frame);
  std::printf(
      "{\"control\":%d,\"text\":%s,\"visible\":%s,\"enabled\":%s,\"focus\":%s,\"ticked\":%s,\"rect\":%s,"
      "\"frame\":%s,\"room\":%s}\n",
      GetDlgCtrlID(control), Quoted(windows::FromWide(text.data())).c_str(),
      Flag(IsWindowVisible(control) != FALSE), Flag(IsWindowEnabled(control) != FALSE),
      Flag(ThreadState(control).hwndFocus == control),
      Flag(SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED), Rectangle(control, area).c_str(),
      Rectangle(nullptr, frame).c_str(), TextRoom(control, text.data(), area).c_str());
  return TRUE;
}

void PrintColumns(const RemoteRoom& room, HWND list) {
  const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  const auto columns = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
  for (int i = 0; i < columns; ++i) {
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_FORMAT | HDI_WIDTH;
    item.pszText = room.TextAddress();
    item.cchTextMax = kTextRoom;
    room.Send(header, HDM_GETITEMW, i, item);
    const Text caption = room.ReadText();
    RECT area{};
    room.Send(header, HDM_GETITEMRECT, i, area);
    const int icon = (item.fmt & HDF_SORTUP) != 0 ? 1 : (item.fmt & HDF_SORTDOWN) != 0 ? 2 : 0;
    std::printf("{\"column\":%d,\"text\":%s,\"width\":%d,\"icon\":%d,\"rect\":%s}\n", i + 1,
                Quoted(caption).c_str(), item.cxy, icon, Rectangle(header, area).c_str());
  }
}

void PrintColumnDrawings(const RemoteRoom& room, HWND list) {
  const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  const auto columns = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
  for (int i = 0; i < columns; ++i) {
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = room.TextAddress();
    item.cchTextMax = kTextRoom;
    room.Send(header, HDM_GETITEMW, i, item);
    const SIZE extent = ExtentOf(windows::Wide(room.ReadText()), Weight::kPlain, 0, false);
    std::printf("{\"drawn\":%d,\"kind\":\"column\",\"column\":%d,\"extent\":[%ld,%ld]}\n", GetDlgCtrlID(list),
                i + 1, extent.cx, extent.cy);
  }
}

void PrintRows(const RemoteRoom& room, HWND list, const char* kind, int columns) {
  const auto rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  std::printf("{\"%ss\":%d}\n", kind, rows);
  int first = 0, end = std::min(rows, kMaxRows);
  if (inSight) {
    first = static_cast<int>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
    end = std::min(rows, first + static_cast<int>(SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0)));
  }
  for (int row = first; row < end; ++row) {
    std::string texts;
    for (int column = 0; column < columns; ++column) {
      LVITEMW item{};
      item.iSubItem = column;
      item.pszText = room.TextAddress();
      item.cchTextMax = kTextRoom;
      room.Send(list, LVM_GETITEMTEXTW, row, item);
      texts += (column == 0 ? "" : ",") + Quoted(room.ReadText());
    }
    const auto state =
        static_cast<UINT>(SendMessageW(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK | LVIS_SELECTED));
    RECT area{};
    area.left = LVIR_BOUNDS;
    room.Send(list, LVM_GETITEMRECT, row, area);
    std::printf("{\"%s\":%d,\"texts\":[%s],\"checked\":%s,\"selected\":%s,\"rect\":%s}\n", kind, row + 1,
                texts.c_str(), Flag((state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2)),
                Flag((state & LVIS_SELECTED) != 0), Rectangle(list, area).c_str());
  }
}

// The box of a node, found by asking what lies left of its label; "null" if the box isn't in sight.
std::string BoxOf(const RemoteRoom& room, HWND tree, const RECT& label) {
  const LONG middle = (label.top + label.bottom) / 2;
  RECT box{0, label.top, 0, label.bottom}, area;
  GetClientRect(tree, &area);
  if (middle < area.top || middle >= area.bottom) return "null";
  const auto isOnBox = [&](LONG x) {
    TVHITTESTINFO hit{};
    hit.pt = {x, middle};
    room.Send(tree, TVM_HITTEST, 0, hit);
    return (hit.flags & TVHT_ONITEMSTATEICON) != 0;
  };
  LONG inside = label.left - 1;
  while (inside >= 0 && !isOnBox(inside)) --inside;
  if (inside < 0) return "null";
  box.right = inside + 1;
  // The left edge lies between a pixel on the box and one that isn't.
  LONG outside = -1;
  for (LONG step = 8; inside - step > outside; step *= 2) {
    (isOnBox(inside - step) ? inside : outside) = inside - step;
  }
  while (inside - outside > 1) {
    const LONG between = (inside + outside) / 2;
    (isOnBox(between) ? inside : outside) = between;
  }
  box.left = inside;
  return Rectangle(tree, box);
}

HTREEITEM Next(HWND tree, WPARAM which, HTREEITEM item) {
  return reinterpret_cast<HTREEITEM>(
      SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

void PrintNode(const RemoteRoom& room, HWND tree, HTREEITEM node, int level) {
  TVITEMW item{};
  item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_STATE;
  item.hItem = node;
  item.stateMask = TVIS_STATEIMAGEMASK | TVIS_EXPANDED | TVIS_SELECTED;
  item.pszText = room.TextAddress();
  item.cchTextMax = kTextRoom;
  room.Send(tree, TVM_GETITEMW, 0, item);
  const Text text = room.ReadText();
  // The message reads the node from the memory to which it writes the rectangle.
  union {
    HTREEITEM node;
    RECT area;
  } place{};
  place.node = node;
  const bool seen = room.Send(tree, TVM_GETITEMRECT, TRUE, place) != FALSE;
  // State images: a ticked box and a half-ticked one.
  const UINT box = item.state & TVIS_STATEIMAGEMASK;
  std::printf(
      "{\"node\":%s,\"tree\":%d,\"level\":%d,\"checked\":%s,\"half\":%s,\"expanded\":%s,\"selected\":%s,"
      "\"rect\":%s,\"box\":%s}\n",
      Quoted(text).c_str(), GetDlgCtrlID(tree), level,
      Flag(box == INDEXTOSTATEIMAGEMASK(2) || box == INDEXTOSTATEIMAGEMASK(3)),
      Flag(box == INDEXTOSTATEIMAGEMASK(3)), Flag((item.state & TVIS_EXPANDED) != 0),
      Flag((item.state & TVIS_SELECTED) != 0), seen ? Rectangle(tree, place.area).c_str() : "null",
      seen && !inSight && IsWindowVisible(tree) != FALSE ? BoxOf(room, tree, place.area).c_str() : "null");
}

void PrintNodes(const RemoteRoom& room, HWND tree, HTREEITEM first, int level) {
  for (HTREEITEM node = first; node != nullptr; node = Next(tree, TVGN_NEXT, node)) {
    PrintNode(room, tree, node, level);
    PrintNodes(room, tree, Next(tree, TVGN_CHILD, node), level + 1);
  }
}

void PrintNodesInSight(const RemoteRoom& room, HWND tree) {
  auto left = static_cast<int>(SendMessageW(tree, TVM_GETVISIBLECOUNT, 0, 0));
  HTREEITEM node = Next(tree, TVGN_FIRSTVISIBLE, nullptr);
  for (; node != nullptr && left > 0; --left) {
    PrintNode(room, tree, node, 0);
    node = Next(tree, TVGN_NEXTVISIBLE, node);
  }
}

void PrintLines(HWND list) {
  const auto count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
  for (int line = 0; line < count; ++line) {
    std::array<wchar_t, kTextRoom> text{};
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(text.data()));
    std::printf("{\"line\":%s,\"selected\":%s}\n", Quoted(windows::FromWide(text.data())).c_str(),
                Flag(SendMessageW(list, LB_GETSEL, static_cast<WPARAM>(line), 0) > 0));
  }
}

BOOL CALLBACK PrintContent(HWND control, LPARAM window) {
  if (GetParent(control) != reinterpret_cast<HWND>(window)) return TRUE;
  if (inSight && IsWindowVisible(control) == FALSE) return TRUE;
  PrintControl(control, window);
  if (inSight) PrintDrawing(control);
  std::array<wchar_t, 64> name{};
  GetClassNameW(control, name.data(), static_cast<int>(name.size()));
  const std::wstring kind(name.data());
  if (kind == WC_LISTVIEWW) {
    const RemoteRoom room(control);
    PrintColumns(room, control);
    if (inSight) PrintColumnDrawings(room, control);
    PrintRows(room, control, "row", 2);
  } else if (kind == WC_TREEVIEWW) {
    const RemoteRoom room(control);
    inSight ? PrintNodesInSight(room, control)
            : PrintNodes(room, control, Next(control, TVGN_ROOT, nullptr), 0);
  } else if (kind == L"ListBox") {
    PrintLines(control);
  }
  return TRUE;
}

// Stops at a visible window that has still to be painted.
BOOL CALLBACK IsDone(HWND control, LPARAM) {
  return IsWindowVisible(control) == FALSE || GetUpdateRect(control, nullptr, FALSE) == FALSE ? TRUE : FALSE;
}

// False if there is no such window.
bool PrintWindow(const wchar_t* className) {
  // A class may have several windows, such as tool tips; at most one is visible.
  HWND window = nullptr;
  do {
    window = FindWindowExW(nullptr, window, className, nullptr);
    if (window == nullptr) return false;
  } while (IsWindowVisible(window) == FALSE);
  lettersAreMarked = true;
  EnumChildWindows(window, PrintContent, reinterpret_cast<LPARAM>(window));
  std::array<wchar_t, kTextRoom> title{};
  SendMessageW(window, WM_GETTEXT, title.size(), reinterpret_cast<LPARAM>(title.data()));
  RECT place, inside;
  GetWindowRect(window, &place);
  GetClientRect(window, &inside);
  const bool painted = IsDone(window, 0) != FALSE && EnumChildWindows(window, IsDone, 0) != FALSE;
  std::printf("{\"title\":%s,\"enabled\":%s,\"painted\":%s,\"rect\":%s,\"inside\":%s}\n",
              Quoted(windows::FromWide(title.data())).c_str(), Flag(IsWindowEnabled(window) != FALSE),
              Flag(painted), Rectangle(nullptr, place).c_str(), Rectangle(window, inside).c_str());
  return true;
}

// False if there is no window, or its program ends just now.
bool PrintMainWindow() {
  const HWND window = FindWindowW(kMainWindowClass, nullptr);
  if (window == nullptr) return false;
  const RemoteRoom room(window);
  if (!room.IsThere()) return false;
  lettersAreMarked = false;
  RECT place;
  GetWindowRect(window, &place);
  const DWORD state = ThreadState(window).flags;
  std::printf("{\"minimized\":%s,\"enabled\":%s,\"moving\":%s,\"menu\":%s,\"rect\":%s}\n",
              Flag(IsIconic(window) != FALSE), Flag(IsWindowEnabled(window) != FALSE),
              Flag((state & GUI_INMOVESIZE) != 0), Flag((state & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0),
              Rectangle(nullptr, place).c_str());
  EnumChildWindows(window, PrintControl, reinterpret_cast<LPARAM>(window));
  PrintColumns(room, GetDlgItem(window, kIdResult));
  PrintRows(room, GetDlgItem(window, kIdResult), "row", 5);
  PrintRows(room, GetDlgItem(window, kIdFunctions), "function", 1);
  for (const int id : {kIdPrivacyTree, kIdScopeTree}) {
    const HWND tree = GetDlgItem(window, id);
    PrintNodes(room, tree, Next(tree, TVGN_ROOT, nullptr), 0);
  }
  return true;
}

}  // namespace

int main() {
  SetProcessDPIAware();  // so that places are those of the screen
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  for (std::string asked; std::getline(std::cin, asked);) {
    inSight = asked.starts_with('+');
    if (inSight) asked.erase(0, 1);
    const bool found = asked.empty() ? PrintMainWindow()
                                     : PrintWindow(windows::ToWide(FromUtf8(asked).value_or(Text())).c_str());
    std::puts(found ? "end" : "none");
    std::fflush(stdout);
  }
  return 0;
}
