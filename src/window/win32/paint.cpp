#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

void Write(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT format) {
  const Selection selected(context, font);
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, color);
  DrawTextW(context, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()), &area,
            format);
}

}  // namespace

void FillArea(HDC context, const RECT& area, COLORREF color) {
  SetDCBrushColor(context, color);
  FillRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void DrawOutline(HDC context, const RECT& area, COLORREF color) {
  FillArea(context, {area.left, area.top, area.right, area.top + 1}, color);
  FillArea(context, {area.left, area.bottom - 1, area.right, area.bottom}, color);
  FillArea(context, {area.left, area.top, area.left + 1, area.bottom}, color);
  FillArea(context, {area.right - 1, area.top, area.right, area.bottom}, color);
}

void WriteText(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT format) {
  Write(context, text, area, font, color, format | DT_NOPREFIX);
}

void WriteCaption(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT align,
                  bool hidesMnemonic) {
  Write(context, text, area, font, color,
        align | DT_VCENTER | DT_SINGLELINE | (hidesMnemonic ? DT_HIDEPREFIX : 0));
}

Bitmap MakePicture(SIZE size, uint32_t*& pixels) {
  BITMAPINFO info{};
  info.bmiHeader = {sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  Bitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  pixels = static_cast<uint32_t*>(bits);
  return bitmap;
}

Canvas::Canvas(HDC screen, const RECT& area)
    : screen_(screen),
      area_(area),
      memory_(CreateCompatibleDC(screen)),
      bitmap_(MakePicture({area.right - area.left, area.bottom - area.top}, pixels_)),
      before_(SelectObject(memory_.Get(), bitmap_.Get())) {
  SetViewportOrgEx(memory_.Get(), -area.left, -area.top, nullptr);
}

Canvas::~Canvas() {
  BitBlt(screen_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, memory_.Get(),
         area_.left, area_.top, SRCCOPY);
  SelectObject(memory_.Get(), before_);
}

void PaintBuffered(HWND window, const std::function<void(HDC canvas, const RECT& area)>& paint) {
  PAINTSTRUCT started;
  const HDC screen = BeginPaint(window, &started);
  {
    const Canvas canvas(screen, started.rcPaint);
    paint(canvas.Get(), started.rcPaint);
  }
  EndPaint(window, &started);
}

ButtonLook LookOf(const Palette& palette, UINT state, bool accented, bool hot) {
  const bool pressed = (state & ODS_SELECTED) != 0;
  if ((state & ODS_DISABLED) != 0) return {palette.background, palette.line, palette.faintText};
  if (accented) {
    const COLORREF face = pressed || hot ? palette.accentDark : palette.accent;
    return {face, palette.accentDark, palette.accentText};
  }
  const COLORREF face = pressed ? palette.pressed : hot ? palette.hot : palette.panel;
  return {face, palette.buttonLine, palette.text};
}

void DrawButtonFace(HDC context, RECT area, const ButtonLook& look, UINT state, int line) {
  FillArea(context, area, look.outline);
  InflateRect(&area, -line, -line);
  FillArea(context, area, look.face);
  if ((state & ODS_FOCUS) == 0) return;
  InflateRect(&area, -2 * line, -2 * line);
  DrawOutline(context, area, look.text);
}

}  // namespace tavix::win32
