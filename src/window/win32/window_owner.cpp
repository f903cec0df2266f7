#include "window/win32/window_owner.h"

namespace tavix::win32 {
namespace {

// What a control makes of a message that its parent got for it. Nothing where there is none.
std::optional<LRESULT> AskControl(UINT message, WPARAM wide, LPARAM longer) {
  const auto of = [](HWND control) { return control == nullptr ? nullptr : WindowBinding::Of(control); };
  if (message == WM_NOTIFY) {
    NMHDR& header = *reinterpret_cast<NMHDR*>(longer);
    WindowBinding* const binding = of(header.hwndFrom);
    return binding != nullptr ? binding->OnNotify(header) : 0;
  }
  if (message == WM_DRAWITEM) {
    const auto& draw = *reinterpret_cast<DRAWITEMSTRUCT*>(longer);
    if (WindowBinding* const binding = of(draw.hwndItem)) binding->OnDraw(draw);
    return TRUE;
  }
  WindowBinding* const binding = of(reinterpret_cast<HWND>(longer));
  const HBRUSH brush = binding != nullptr ? binding->OnColors(reinterpret_cast<HDC>(wide)) : nullptr;
  if (brush == nullptr) return std::nullopt;
  return reinterpret_cast<LRESULT>(brush);
}

HICON ProgramIcon(int metric) {
  const int size = GetSystemMetrics(metric);
  return static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, LR_SHARED));
}

}  // namespace

void WindowOwner::MakeClassKnown(const wchar_t* name) {
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

LRESULT CALLBACK WindowOwner::Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    auto* const made = static_cast<WindowOwner*>(reinterpret_cast<CREATESTRUCTW*>(longer)->lpCreateParams);
    made->Context().window = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* const owner = reinterpret_cast<WindowOwner*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (owner != nullptr && message == WM_NCDESTROY) {
    owner->Context().window = nullptr;
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  } else if (owner != nullptr) {
    if (const auto answer = owner->Answer(message, wide, longer)) return *answer;
  }
  return DefWindowProcW(window, message, wide, longer);
}

std::optional<LRESULT> WindowOwner::Answer(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_PAINT:
      return Paint(), 0;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_COMMAND:
      if (auto* const control = reinterpret_cast<HWND>(longer)) {
        if (WindowBinding* const binding = WindowBinding::Of(control)) OnCommand(*binding, HIWORD(wide));
      }
      return 0;
    case WM_NOTIFY:
    case WM_DRAWITEM:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
      return AskControl(message, wide, longer);
    default:
      return OnMessage(message, wide, longer);
  }
}

void WindowOwner::Paint() {
  const HWND window = Context().window;
  PAINTSTRUCT paint;
  const HDC screen = BeginPaint(window, &paint);
  OnPaint(screen, paint.rcPaint);
  EndPaint(window, &paint);
}

}  // namespace tavix::win32
