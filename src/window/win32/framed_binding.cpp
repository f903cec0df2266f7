#include "window/win32/framed_binding.h"

#include "window/win32/paint.h"

namespace tavix::win32 {

std::optional<LRESULT> FramedBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCPAINT) {
    // The system paints scroll bars there, too.
    const LRESULT result = PassOn(message, wide, longer);
    PaintFrame();
    return result;
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
