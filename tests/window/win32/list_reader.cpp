// Prints what the main window shows, read from outside by messages: one JSON object a line, UTF-8. A
// control as {"control":id,"text":...}, then the columns and rows of the result list, the rows of the
// function list and the nodes of the trees; of a list the first thousand rows. Rectangles are left, top,
// right, bottom on the screen.

// clang-format off
#include "platform/windows/windows_api.h"
#include <commctrl.h>
#include <fcntl.h>
#include <io.h>
// clang-format on

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "platform/windows/wide.h"
#include "text/utf8.h"
#include "window/win32/control_ids.h"

namespace {

using namespace tavix;
using namespace tavix::win32;

constexpr size_t kTextRoom = 4096;
constexpr int kMostRows = 1000;

// Room in the other process for one message's structure with its text.
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
  LRESULT Send(HWND control, UINT message, WPARAM wide, Data& data) const {
    static_assert(sizeof(Data) <= kStructure);
    WriteProcessMemory(process_, room_, &data, sizeof data, nullptr);
    const LRESULT result = SendMessageW(control, message, wide, reinterpret_cast<LPARAM>(room_));
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

const char* Flag(bool flag) { return flag ? "true" : "false"; }

std::string Rectangle(HWND origin, RECT area) {
  MapWindowPoints(origin, nullptr, reinterpret_cast<POINT*>(&area), 2);
  return "[" + std::to_string(area.left) + "," + std::to_string(area.top) + "," + std::to_string(area.right) +
         "," + std::to_string(area.bottom) + "]";
}

BOOL CALLBACK PrintControl(HWND control, LPARAM parent) {
  if (GetParent(control) != reinterpret_cast<HWND>(parent)) return TRUE;
  std::array<wchar_t, kTextRoom> text{};
  SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  RECT area;
  GetClientRect(control, &area);
  std::printf(
      "{\"control\":%d,\"text\":%s,\"visible\":%s,\"enabled\":%s,\"focus\":%s,\"ticked\":%s,\"rect\":%s}\n",
      GetDlgCtrlID(control), Quoted(windows::FromWide(text.data())).c_str(),
      Flag(IsWindowVisible(control) != FALSE), Flag(IsWindowEnabled(control) != FALSE),
      [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &info);
        return Flag(info.hwndFocus == control);
      }(),
      Flag(SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED), Rectangle(control, area).c_str());
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

void PrintRows(const RemoteRoom& room, HWND list, const char* kind, int columns) {
  const auto rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  std::printf("{\"%ss\":%d}\n", kind, rows);
  for (int row = 0; row < std::min(rows, kMostRows); ++row) {
    std::string texts;
    for (int column = 0; column < columns; ++column) {
      LVITEMW item{};
      item.iSubItem = column;
      item.pszText = room.TextAddress();
      item.cchTextMax = kTextRoom;
      room.Send(list, LVM_GETITEMTEXTW, row, item);
      texts += (column == 0 ? "" : ",") + Quoted(room.ReadText());
    }
    const auto state = static_cast<UINT>(SendMessageW(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK));
    RECT area{};
    area.left = LVIR_BOUNDS;
    room.Send(list, LVM_GETITEMRECT, row, area);
    std::printf("{\"%s\":%d,\"texts\":[%s],\"checked\":%s,\"rect\":%s}\n", kind, row + 1, texts.c_str(),
                Flag(state == INDEXTOSTATEIMAGEMASK(2)), Rectangle(list, area).c_str());
  }
}

HTREEITEM Next(HWND tree, WPARAM which, HTREEITEM item) {
  return reinterpret_cast<HTREEITEM>(
      SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

void PrintNodes(const RemoteRoom& room, HWND tree, HTREEITEM first, int level) {
  for (HTREEITEM node = first; node != nullptr; node = Next(tree, TVGN_NEXT, node)) {
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_STATE;
    item.hItem = node;
    item.stateMask = TVIS_STATEIMAGEMASK | TVIS_EXPANDED;
    item.pszText = room.TextAddress();
    item.cchTextMax = kTextRoom;
    room.Send(tree, TVM_GETITEMW, 0, item);
    const Text text = room.ReadText();
    // The label's place, which the message takes the node in.
    union {
      HTREEITEM node;
      RECT area;
    } place{};
    place.node = node;
    const bool seen = room.Send(tree, TVM_GETITEMRECT, TRUE, place) != FALSE;
    std::printf("{\"node\":%s,\"tree\":%d,\"level\":%d,\"checked\":%s,\"expanded\":%s,\"rect\":%s}\n",
                Quoted(text).c_str(), GetDlgCtrlID(tree), level,
                Flag((item.state & TVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2)),
                Flag((item.state & TVIS_EXPANDED) != 0), seen ? Rectangle(tree, place.area).c_str() : "null");
    PrintNodes(room, tree, Next(tree, TVGN_CHILD, node), level + 1);
  }
}

}  // namespace

int main() {
  _setmode(_fileno(stdout), _O_BINARY);
  const HWND window = FindWindowW(kMainWindowClass, nullptr);
  if (window == nullptr) return 1;
  const RemoteRoom room(window);
  if (!room.IsThere()) return 2;
  std::printf("{\"minimized\":%s}\n", Flag(IsIconic(window) != FALSE));
  EnumChildWindows(window, PrintControl, reinterpret_cast<LPARAM>(window));
  PrintColumns(room, GetDlgItem(window, kIdResult));
  PrintRows(room, GetDlgItem(window, kIdResult), "row", 5);
  PrintRows(room, GetDlgItem(window, kIdFunctions), "function", 1);
  for (const int id : {kIdPrivacyTree, kIdScopeTree}) {
    const HWND tree = GetDlgItem(window, id);
    PrintNodes(room, tree, Next(tree, TVGN_ROOT, nullptr), 0);
  }
  return 0;
}
