// Starts two programs in turn and prints how long each takes from the start of its process until its window
// is on the screen and answers a message: start_time RUNS PROGRAM CLASS PROGRAM CLASS. Prints one line for
// each start: the program (0 or 1) and milliseconds.

#include "platform/windows/windows_api.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr DWORD kTimeout = 30000;

double Milliseconds() {
  LARGE_INTEGER now, perSecond;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&perSecond);
  return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

// Null after a timeout.
HWND WaitForWindow(const wchar_t* className) {
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < kTimeout) {
    const HWND window = FindWindowW(className, nullptr);
    if (window != nullptr && IsWindowVisible(window) != FALSE) {
      SendMessageW(window, WM_NULL, 0, 0);
      return window;
    }
    Sleep(1);
  }
  return nullptr;
}

// Milliseconds; -1 if the program doesn't start or shows no window.
double TimeStart(const wchar_t* program, const wchar_t* className) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  std::wstring command = L"\"" + std::wstring(program) + L"\"";
  const double start = Milliseconds();
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &process) == FALSE) {
    std::printf("not started: error %lu\n", GetLastError());
    return -1;
  }
  const HWND window = WaitForWindow(className);
  const double taken = Milliseconds() - start;
  if (window != nullptr) PostMessageW(window, WM_CLOSE, 0, 0);
  WaitForSingleObject(process.hProcess, kTimeout);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return window != nullptr ? taken : -1;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 6) return 2;
  const int runs = _wtoi(arguments[1]);
  for (int run = 0; run < runs; ++run) {
    for (int which = 0; which < 2; ++which) {
      const double taken = TimeStart(arguments[2 + 2 * which], arguments[3 + 2 * which]);
      if (taken < 0) return 1;
      std::printf("%d %.1f\n", which, taken);
    }
  }
  return 0;
}
