// Presses keys, moves the mouse and takes pictures of the screen by Windows' own calls, for the tests of the
// window. Each line of the input is one command, and the answer is one line.
//
//     size              the width and the height of the screen
//     keyboard          "yes" if a window of the program has the keyboard, else "no"
//     front             brings the main window to the front, and answers as "keyboard" does
//     keys KEY...       presses keys, the last one while the others are held down, and releases them
//     character CODE    presses the keys that write a character, or hands over the character if no key does
//     move X Y          moves the mouse
//     press BUTTON      presses a button of the mouse
//     release BUTTON    releases it
//     click BUTTON KEY...
//                       presses and releases it, or turns a wheel, while the keys are held down
//     picture LEFT TOP RIGHT BOTTOM
//                       After the line come the pixels of this part of the screen, row by row, each
//                       as three bytes: red, green, blue.
//
// A command that worked is answered by "done", and another by what went wrong. Lengths are in pixels. Keys
// are numbered as Windows does, and the buttons of the mouse as X does: 1 the left one, 3 the right one, 4
// and 5 the wheel away from the user and towards him, 6 and 7 the wheel to the left and to the right.

// clang-format off
#include "platform/windows/windows_api.h"
#include <fcntl.h>
#include <io.h>
// clang-format on

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr const char* kDone = "done";
constexpr int kTurns = 50;
constexpr UINT kSecond = 1000;

//--- Which program has the keyboard

// Whether the file of a process is called tavix and something: the program, or one of its variants for tests.
bool IsOfTavix(DWORD id) {
  const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
  std::array<wchar_t, 1024> path{};
  DWORD length = path.size();
  const bool known =
      process != nullptr && QueryFullProcessImageNameW(process, 0, path.data(), &length) != FALSE;
  CloseHandle(process);
  const std::wstring_view file(path.data(), known ? length : 0);
  const std::wstring_view name = file.substr(file.find_last_of(L'\\') + 1);
  return CompareStringOrdinal(name.substr(0, 5).data(), name.size() < 5 ? 0 : 5, L"tavix", 5, TRUE) ==
         CSTR_EQUAL;
}

bool HasKeyboard() {
  const HWND front = GetForegroundWindow();
  if (front == nullptr) return false;
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(front, &process);
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return IsOfTavix(process) && GetGUIThreadInfo(thread, &info) != FALSE && info.hwndActive != nullptr;
}

// Windows lets a program that has had no input lately choose the window in front only if it shares the input
// of the one that is there.
bool BringToFront() {
  if (HasKeyboard()) return true;
  const HWND window = FindWindowW(L"TavixMainWindow", nullptr);
  const DWORD before = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
  AttachThreadInput(GetCurrentThreadId(), before, TRUE);
  SetForegroundWindow(GetLastActivePopup(window));
  AttachThreadInput(GetCurrentThreadId(), before, FALSE);
  return HasKeyboard();
}

//--- Keys

// Hands inputs over to Windows in one go: nothing comes between them.
const char* Send(std::vector<INPUT> inputs) {
  if (inputs.empty()) return "there is no such button";
  const auto count = static_cast<UINT>(inputs.size());
  return SendInput(count, inputs.data(), sizeof(INPUT)) == count ? kDone : "Windows takes no input";
}

// Keys that have a second one of the same meaning in the block of digits. Without this mark they would be
// those.
bool IsExtended(WORD key) {
  return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
}

INPUT Key(WORD key, bool down) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = (down ? 0U : KEYEVENTF_KEYUP) | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0U);
  return input;
}

INPUT CodeUnit(wchar_t unit, bool down) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = unit;
  input.ki.dwFlags = KEYEVENTF_UNICODE | (down ? 0U : KEYEVENTF_KEYUP);
  return input;
}

using Inputs = std::vector<INPUT>;

Inputs Down(const std::vector<WORD>& keys) {
  Inputs inputs;
  for (const WORD key : keys) inputs.push_back(Key(key, true));
  return inputs;
}

// The last one first.
Inputs Up(const std::vector<WORD>& keys) {
  Inputs inputs;
  std::for_each(keys.rbegin(), keys.rend(), [&](WORD key) { inputs.push_back(Key(key, false)); });
  return inputs;
}

// Presses keys, does something, and releases them when the window in front has taken it. Windows lets each
// message have the keys of its time. Wine tells those of now, so there a key that is released at once was
// never held.
const char* Hold(const std::vector<WORD>& keys, const Inputs& inputs) {
  Inputs all = Down(keys);
  all.insert(all.end(), inputs.begin(), inputs.end());
  const char* const answer = Send(all);
  if (keys.empty()) return answer;
  // Each of these messages lets the window's loop look for input again.
  const HWND front = GetForegroundWindow();
  for (int turn = 0; turn < kTurns; ++turn) {
    SendMessageTimeoutW(front, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kSecond, nullptr);
  }
  Send(Up(keys));
  return answer;
}

const char* Press(std::vector<WORD> keys) {
  const WORD last = keys.back();
  keys.pop_back();
  return Hold(keys, {Key(last, true), Key(last, false)});
}

const char* Write(unsigned code) {
  if (code > 0xFFFF) return "the character has no single code unit";
  const auto unit = static_cast<wchar_t>(code);
  const SHORT found = VkKeyScanW(unit);
  const auto key = static_cast<WORD>(found & 0xFF);
  const int held = (found >> 8) & 0xFF;
  if (found == -1 || held > 1) return Send({CodeUnit(unit, true), CodeUnit(unit, false)});
  return held == 0 ? Press({key}) : Press({VK_SHIFT, key});
}

//--- Mouse

INPUT Mouse(DWORD flags, DWORD data = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  input.mi.mouseData = data;
  return input;
}

// The number that Windows turns into a pixel of a screen of this length: it divides the screen into 65536
// parts.
LONG Part(int pixel, int length) {
  return static_cast<LONG>((static_cast<long long>(pixel) * 65536 + length - 1) / length);
}

const char* Move(int x, int y) {
  INPUT input = Mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
  input.mi.dx = Part(x, GetSystemMetrics(SM_CXSCREEN));
  input.mi.dy = Part(y, GetSystemMetrics(SM_CYSCREEN));
  const char* const answer = Send({input});
  // Another thread of Windows moves the mouse.
  for (int turn = 0; turn < 5000; ++turn) {
    POINT now;
    if (GetCursorPos(&now) != FALSE && now.x == x && now.y == y) return answer;
    Sleep(1);
  }
  return "the mouse has not come there";
}

// What a button of the mouse does; nothing for an unknown one.
Inputs Button(int button, bool down) {
  if (button == 1) return {Mouse(down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP)};
  if (button == 3) return {Mouse(down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP)};
  if (button < 4 || button > 7 || !down) return {};
  const bool positive = button == 4 || button == 7;
  return {Mouse(button < 6 ? MOUSEEVENTF_WHEEL : MOUSEEVENTF_HWHEEL,
                static_cast<DWORD>(positive ? WHEEL_DELTA : -WHEEL_DELTA))};
}

const char* Click(int button, const std::vector<WORD>& held) {
  Inputs inputs = Button(button, true);
  if (inputs.empty()) return "there is no such button";
  const Inputs release = Button(button, false);
  inputs.insert(inputs.end(), release.begin(), release.end());
  return Hold(held, inputs);
}

//--- Pictures

// The pixels of a part of the screen; nothing if Windows gives none.
std::string Picture(int left, int top, int right, int bottom) {
  const int width = right - left, height = bottom - top;
  BITMAPINFO form{};
  form.bmiHeader.biSize = sizeof form.bmiHeader;
  form.bmiHeader.biWidth = width;
  form.bmiHeader.biHeight = -height;  // the upper row first
  form.bmiHeader.biPlanes = 1;
  form.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateDIBSection(screen, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
  std::string pixels;
  if (bitmap != nullptr) {
    const HGDIOBJ before = SelectObject(memory, bitmap);
    // Windows that are drawn over others, such as tool tips, are copied, too.
    if (BitBlt(memory, 0, 0, width, height, screen, left, top, SRCCOPY | CAPTUREBLT) != FALSE &&
        GdiFlush() != FALSE) {
      const auto* blue = static_cast<const char*>(bits);
      pixels.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
      for (long i = 0; i < static_cast<long>(width) * height; ++i, blue += 4) {
        pixels.append({blue[2], blue[1], blue[0]});
      }
    }
    SelectObject(memory, before);
    DeleteObject(bitmap);
  }
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return pixels;
}

//--- Commands

std::string Answer(std::istringstream command) {
  std::string name;
  command >> name;
  const std::vector<int> numbers{std::istream_iterator<int>(command), {}};
  const auto has = [&](std::string_view wanted, size_t count) {
    return name == wanted && numbers.size() == count;
  };
  const auto keysFrom = [&](size_t first) {
    return std::vector<WORD>(numbers.begin() + static_cast<std::ptrdiff_t>(first), numbers.end());
  };
  if (has("size", 0))
    return std::to_string(GetSystemMetrics(SM_CXSCREEN)) + " " +
           std::to_string(GetSystemMetrics(SM_CYSCREEN));
  if (has("keyboard", 0)) return HasKeyboard() ? "yes" : "no";
  if (has("front", 0)) return BringToFront() ? "yes" : "no";
  if (name == "keys" && !numbers.empty()) return Press(keysFrom(0));
  if (name == "click" && !numbers.empty()) return Click(numbers[0], keysFrom(1));
  if (has("character", 1)) return Write(static_cast<unsigned>(numbers[0]));
  if (has("press", 1)) return Send(Button(numbers[0], true));
  if (has("release", 1)) return Send(Button(numbers[0], false));
  if (has("move", 2)) return Move(numbers[0], numbers[1]);
  if (!has("picture", 4)) return "there is no such command";
  const std::string pixels = Picture(numbers[0], numbers[1], numbers[2], numbers[3]);
  return pixels.empty() ? "Windows gives no picture" : kDone + ("\n" + pixels);
}

}  // namespace

int main() {
  // Without this, Windows translates places on the screen for a program that doesn't know of resolutions.
  SetProcessDPIAware();
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  for (std::string line; std::getline(std::cin, line);) {
    std::string answer = Answer(std::istringstream(line));
    // After the line of a picture come its pixels alone.
    if (answer.find('\n') == std::string::npos) answer += '\n';
    std::fwrite(answer.data(), 1, answer.size(), stdout);
    std::fflush(stdout);
  }
  return 0;
}
