#include "window/win32/background.h"

#include "forms/main_form.h"
#include "window/win32/paint.h"

namespace tavix::win32 {

bool Background::Covers(const Control& control, POINT position) const {
  const RECT area = context_.Area(control);
  return PtInRect(&area, position) != FALSE;
}

void Background::Paint(HDC canvas) const {
  const Palette& colors = context_.colors;
  RECT window;
  GetClientRect(context_.window, &window);
  const RECT title = context_.Area(frmPubMain.picTitle);
  const RECT panel = context_.Area(frmPubMain.lblFrame);
  FillArea(canvas, window, colors.background);
  FillArea(canvas, title, colors.title);
  context_.skin->Draw(canvas, {title.left, title.top}, frmPubMain.picTitle.Picture.Get());
  DrawOutline(canvas, window, colors.border);
  FillArea(canvas, panel, colors.panel);
  DrawOutline(canvas, panel, colors.line);
}

// Labels and disabled controls let the mouse through, but still cover the background.
bool Background::IsBare(POINT position) const {
  const HWND at = ChildWindowFromPointEx(context_.window, position, CWP_SKIPINVISIBLE);
  return at == context_.window || at == nullptr;
}

void Background::MouseMove(POINT position, int buttons) {
  if (!context_.HasMoved(context_.window, position) || !IsBare(position)) return;
  if (Covers(frmPubMain.picTitle, position)) {
    frmPubMain.picTitle.MouseMove(buttons);
  } else if (Covers(frmPubMain.lblFrame, position)) {
    frmPubMain.lblFrame.MouseMove(buttons);
  } else {
    frmPubMain.lblBorder.MouseMove(buttons);
  }
}

}  // namespace tavix::win32
