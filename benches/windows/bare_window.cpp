// A window as large as the program's, with as many controls of each kind, which do nothing.

// clang-format off
#include "platform/windows/windows_api.h"
#include <commctrl.h>
// clang-format on

namespace {

struct Kind {
  const wchar_t* className;
  DWORD style;
  int count;
};
// The controls of the program's window: pictures, buttons and a link; the check box; labels, the progress bar
// and the embedded page; lists; trees.
const Kind kKinds[] = {
    {L"BUTTON", BS_OWNERDRAW | WS_TABSTOP, 19},
    {L"BUTTON", BS_CHECKBOX | WS_TABSTOP, 1},
    {L"STATIC", SS_OWNERDRAW, 8},
    {WC_LISTVIEWW, WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA, 2},
    {WC_TREEVIEWW, WS_BORDER | WS_TABSTOP | TVS_CHECKBOXES, 2},
};
constexpr int kWidth = 993, kHeight = 745, kColumns = 6;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

void MakeControls(HWND window) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const HFONT font = CreateFontIndirectW(&metrics.lfMessageFont);
  int number = 0;
  for (const Kind& kind : kKinds) {
    for (int i = 0; i < kind.count; ++i, ++number) {
      const HWND control = CreateWindowExW(0, kind.className, L"", WS_CHILD | WS_VISIBLE | kind.style,
                                           10 + number % kColumns * 160, 10 + number / kColumns * 120, 150,
                                           110, window, nullptr, GetModuleHandleW(nullptr), nullptr);
      SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
  }
  CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 0, 0, window, nullptr,
                  GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
  const INITCOMMONCONTROLSEX controls{
      sizeof controls, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = instance;
  windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  windowClass.lpszClassName = L"TavixBareWindow";
  RegisterClassExW(&windowClass);
  const HWND window = CreateWindowExW(0, windowClass.lpszClassName, L"Bare", WS_POPUP | WS_CLIPCHILDREN, 15,
                                      7, kWidth, kHeight, nullptr, nullptr, instance, nullptr);
  MakeControls(window);
  ShowWindow(window, SW_SHOWNORMAL);
  UpdateWindow(window);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
