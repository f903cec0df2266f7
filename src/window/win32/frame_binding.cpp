#include "window/win32/frame_binding.h"

#include "window/caption.h"
#include "window/win32/caption_paint.h"
#include "window/win32/paint.h"

namespace tavix::win32 {

GroupBinding::GroupBinding(Frame& model, WindowContext& context, int id)
    : WindowBinding(model, context), model_(model) {
  Create(id, L"BUTTON", BS_GROUPBOX | WS_GROUP);
}

void GroupBinding::Show() { SetName(model_.Caption.Get()); }

std::optional<LRESULT> GroupBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_PAINT) return Paint();
  if (message == WM_ERASEBKGND) return TRUE;
  // The system's own would paint itself.
  if (message == WM_SETTEXT) Redraw();
  return WindowBinding::OnMessage(message, wide, longer);
}

LRESULT GroupBinding::Paint() {
  PAINTSTRUCT paint;
  const HDC screen = BeginPaint(Window(), &paint);
  RECT area;
  GetClientRect(Window(), &area);
  {
    const Canvas canvas(screen, area);
    FillArea(canvas.Get(), area, context_.colors.ground);
    WriteCaptionLeft(canvas.Get(), Window(), model_.Caption.Get(), area, context_.boldFont.Get(),
                     context_.colors.text);
    SIZE words{};
    const Text caption = PlainCaption(model_.Caption.Get());
    const Selection bold(canvas.Get(), context_.boldFont.Get());
    GetTextExtentPoint32W(canvas.Get(), reinterpret_cast<const wchar_t*>(caption.data()),
                          static_cast<int>(caption.size()), &words);
    const LONG middle = (area.top + area.bottom) / 2;
    FillArea(canvas.Get(),
             {area.left + words.cx + context_.Pixels(120), middle, area.right, middle + context_.Line()},
             context_.colors.line);
  }
  EndPaint(Window(), &paint);
  return 0;
}

}  // namespace tavix::win32
