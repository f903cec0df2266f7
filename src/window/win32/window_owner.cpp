#include "window/win32/window_owner.h"

#include "platform/windows/resolution.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

// Passes a control's message to its parent back to the control. Without a result, the system handles it.
std::optional<LRESULT> PassToControl(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto of = [](HWND control) { return control == nullptr ? nullptr : WindowBinding::Of(control); };
  if (message == WM_NOTIFY) {
    NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
    WindowBinding* const binding = of(header.hwndFrom);
    return binding != nullptr ? binding->OnNotify(header) : 0;
  }
  if (message == WM_DRAWITEM) {
    const auto& draw = *reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
    if (WindowBinding* const binding = of(draw.hwndItem)) binding->OnDraw(draw);
    return TRUE;
  }
  WindowBinding* const binding = of(reinterpret_cast<HWND>(lParam));
  const HBRUSH brush = binding != nullptr ? binding->OnColors(reinterpret_cast<HDC>(wParam)) : nullptr;
  if (brush == nullptr) return std::nullopt;
  return reinterpret_cast<LRESULT>(brush);
}

HICON ProgramIcon(int metric) {
  const int size = GetSystemMetrics(metric);
  return static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, LR_SHARED));
}

}  // namespace

void WindowOwner::RegisterWindowClass(const wchar_t* name) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = Procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = name;
  description.hIcon = ProgramIcon(SM_CXICON);
  description.hIconSm = ProgramIcon(SM_CXSMICON);
  RegisterClassExW(&description);
}

LRESULT CALLBACK WindowOwner::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* const made = static_cast<WindowOwner*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    made->Context().window = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* const owner = reinterpret_cast<WindowOwner*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (owner != nullptr && message == WM_NCDESTROY) {
    owner->Context().window = nullptr;
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  } else if (owner != nullptr) {
    if (const auto result = owner->HandleMessage(message, wParam, lParam)) return *result;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

// The system tells this to top-level windows alone. Its controls keep colours and lengths of the system, too.
void WindowOwner::TellControls(UINT message, WPARAM wParam, LPARAM lParam) {
  struct News {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
  } news{message, wParam, lParam};
  const auto tell = [](HWND control, LPARAM told) -> BOOL {
    const News& what = *reinterpret_cast<const News*>(told);
    SendMessageW(control, what.message, what.wParam, what.lParam);
    return TRUE;
  };
  EnumChildWindows(Context().window, tell, reinterpret_cast<LPARAM>(&news));
}

void WindowOwner::ChangeLook(int monitorDpi, const RECT* suggested) {
  OnNewLook(monitorDpi, suggested);
  if (Context().window != nullptr)
    RedrawWindow(Context().window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

std::optional<LRESULT> WindowOwner::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      PaintBuffered(Context().window, [this](HDC canvas, const RECT& area) { OnPaint(canvas, area); });
      return 0;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_COMMAND:
      if (auto* const control = reinterpret_cast<HWND>(lParam)) {
        if (WindowBinding* const binding = WindowBinding::Of(control)) OnCommand(*binding, HIWORD(wParam));
      }
      return 0;
    case WM_NOTIFY:
    case WM_DRAWITEM:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
      return PassToControl(message, wParam, lParam);
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      TellControls(message, wParam, lParam);
      ChangeLook(windows::DpiOf(Context().window), nullptr);
      return 0;
    case WM_DISPLAYCHANGE:
      ChangeLook(windows::DpiOf(Context().window), nullptr);
      return 0;
    case WM_DPICHANGED:
      ChangeLook(HIWORD(wParam), reinterpret_cast<const RECT*>(lParam));
      return 0;
    default:
      return OnMessage(message, wParam, lParam);
  }
}

}  // namespace tavix::win32
