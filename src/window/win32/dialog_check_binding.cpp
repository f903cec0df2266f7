#include "window/win32/dialog_check_binding.h"

#include "window/win32/caption_paint.h"
#include "window/win32/paint.h"
#include "window/win32/tick_images.h"

namespace tavix::win32 {

std::optional<LRESULT> DialogCheckBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message != WM_PAINT) return CheckBoxBinding::OnMessage(message, wide, longer);
  PAINTSTRUCT paint;
  const HDC screen = BeginPaint(Window(), &paint);
  RECT area;
  GetClientRect(Window(), &area);
  {
    const Canvas canvas(screen, area);
    FillArea(canvas.Get(), area, context_.colors.ground);
    DrawTick(canvas.Get(), context_, area, model_.GetValue() != 0 ? Tick::kWhole : Tick::kNone,
             IsWindowEnabled(Window()) != FALSE);
    PaintChoiceCaption(canvas.Get(), context_, {Window(), area, model_.Caption.Get()});
  }
  EndPaint(Window(), &paint);
  return 0;
}

}  // namespace tavix::win32
