#include "window/win32/framed_binding.h"

#include "window/win32/paint.h"

namespace tavix::win32 {

std::optional<LRESULT> FramedBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCPAINT) {
    // Scroll bars are the system's to paint; its own frame would be painted over.
    const bool scrolls = (GetWindowLongPtrW(Window(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL)) != 0;
    if (scrolls) PassOn(message, wide, longer);
    PaintFrame();
    return 0;
  }
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
    RedrawWindow(Window(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
  return WindowBinding::OnMessage(message, wide, longer);
}

void FramedBinding::PaintFrame() const {
  RECT area;
  GetWindowRect(Window(), &area);
  OffsetRect(&area, -area.left, -area.top);
  const HDC context = GetWindowDC(Window());
  FrameArea(context, area, GetFocus() == Window() ? context_.colors.accent : context_.colors.line);
  ReleaseDC(Window(), context);
}

}  // namespace tavix::win32
