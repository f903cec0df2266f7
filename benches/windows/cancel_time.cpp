// Presses F3 in the running program, then Esc during the scan, and prints the milliseconds until the closing
// line is shown: cancel_time RUNS. Reads the status line from the window itself: a message to the program
// would delay it.

#include "platform/windows/windows_api.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "window/win32/control_ids.h"

namespace {

constexpr DWORD kScanFor = 700;     // milliseconds between the start of a scan and the press
constexpr DWORD kTimeout = 20'000;  // milliseconds

bool StatusBegins(HWND status, std::wstring_view start) {
  std::array<wchar_t, 512> text{};
  InternalGetWindowText(status, text.data(), static_cast<int>(text.size()));
  return std::wstring_view(text.data()).starts_with(start);
}

void Press(WORD key) {
  std::array<INPUT, 2> input{};
  for (INPUT& part : input) {
    part.type = INPUT_KEYBOARD;
    part.ki.wVk = key;
  }
  input[1].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(static_cast<UINT>(input.size()), input.data(), sizeof(INPUT));
}

// The milliseconds until the status line begins with `start`; -1 after a timeout.
double WaitFor(HWND status, std::wstring_view start) {
  LARGE_INTEGER unit, begun, now;
  QueryPerformanceFrequency(&unit);
  QueryPerformanceCounter(&begun);
  for (;;) {
    QueryPerformanceCounter(&now);
    const double taken =
        static_cast<double>(now.QuadPart - begun.QuadPart) * 1000 / static_cast<double>(unit.QuadPart);
    if (StatusBegins(status, start)) return taken;
    if (taken > kTimeout) return -1;
    Sleep(1);
  }
}

}  // namespace

int wmain(int count, wchar_t** values) {
  const HWND window = FindWindowW(tavix::win32::kMainWindowClass, nullptr);
  if (count != 2 || window == nullptr) return 1;
  const HWND status = GetDlgItem(window, tavix::win32::kIdStatus);
  for (int runs = _wtoi(values[1]); runs > 0; --runs) {
    Press(VK_F3);
    if (WaitFor(status, L"Scanning in '") < 0) return 2;
    Sleep(kScanFor);
    // If the scan is over already, there is nothing to measure.
    if (!StatusBegins(status, L"Scanning in '")) return 3;
    Press(VK_ESCAPE);
    const double taken = WaitFor(status, L"Canceled, ");
    if (taken < 0) return 4;
    std::printf("%.1f\n", taken);
    Sleep(kScanFor);
  }
  return 0;
}
