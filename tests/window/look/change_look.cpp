// Changes how the system looks, and tells the program's windows as Windows does.
//
//     tavix-change-look font PIXELS          stores a message font of this height
//     tavix-change-look screen WIDTH HEIGHT  gives the screen another size
//     tavix-change-look tell NEWS            colors, fonts, theme, scheme or screen
//     tavix-change-look dpi DPI              tells the windows that they are on a monitor of this resolution

// clang-format off
#include "platform/windows/windows_api.h"
// clang-format on

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

// Calls `visit` for each visible window of the program.
template <class Visit>
int ForEachWindow(const Visit& visit) {
  int windows = 0;
  for (const wchar_t* name :
       {L"TavixMainWindow", L"TavixOptionsWindow", L"TavixTypeWindow", L"TavixAboutWindow"}) {
    const HWND window = FindWindowW(name, nullptr);
    if (window == nullptr || IsWindowVisible(window) == FALSE) continue;
    visit(window);
    ++windows;
  }
  return windows > 0 ? 0 : 1;
}

int StoreFont(int pixels) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  std::printf("%ld %ls\n", metrics.lfMessageFont.lfHeight, metrics.lfMessageFont.lfFaceName);
  metrics.lfMessageFont.lfHeight = -pixels;
  return SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, SPIF_UPDATEINIFILE) != FALSE
             ? 0
             : 1;
}

int ChangeScreen(DWORD width, DWORD height) {
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
  mode.dmPelsWidth = width;
  mode.dmPelsHeight = height;
  return ChangeDisplaySettingsExW(nullptr, &mode, nullptr, 0, nullptr) == DISP_CHANGE_SUCCESSFUL ? 0 : 1;
}

int Tell(std::string_view news) {
  return ForEachWindow([news](HWND window) {
    const auto text = [](const wchar_t* words) { return reinterpret_cast<LPARAM>(words); };
    if (news == "colors") SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    if (news == "scheme") SendMessageW(window, WM_SETTINGCHANGE, 0, text(L"ImmersiveColorSet"));
    if (news == "fonts")
      SendMessageW(window, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, text(L"WindowMetrics"));
    if (news == "theme") SendMessageW(window, WM_THEMECHANGED, 0, 0);
    if (news == "screen")
      SendMessageW(window, WM_DISPLAYCHANGE, 32,
                   MAKELPARAM(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
  });
}

// The suggested place lies in the memory of the window's process, as it would from the system.
int TellResolution(UINT dpi) {
  return ForEachWindow([dpi](HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    void* const there = VirtualAllocEx(process, nullptr, sizeof(RECT), MEM_COMMIT, PAGE_READWRITE);
    RECT place;
    GetWindowRect(window, &place);
    WriteProcessMemory(process, there, &place, sizeof place, nullptr);
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(there));
    VirtualFreeEx(process, there, 0, MEM_RELEASE);
    CloseHandle(process);
  });
}

}  // namespace

int main(int count, char** values) {
  SetProcessDPIAware();  // so that lengths are those of the screen
  const std::string_view what = count > 2 ? values[1] : "";
  if (what == "font") return StoreFont(std::atoi(values[2]));
  if (what == "screen" && count > 3)
    return ChangeScreen(std::strtoul(values[2], nullptr, 10), std::strtoul(values[3], nullptr, 10));
  if (what == "tell") return Tell(values[2]);
  if (what == "dpi") return TellResolution(std::strtoul(values[2], nullptr, 10));
  return 2;
}
