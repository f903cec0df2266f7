#include "window/win32/ground.h"

#include "forms/main_form.h"
#include "window/win32/paint.h"

namespace tavix::win32 {

bool Ground::Covers(const Control& control, POINT position) const {
  const RECT area = context_.Area(control);
  return PtInRect(&area, position) != FALSE;
}

void Ground::Paint(HDC screen, const RECT& area) const {
  const Canvas canvas(screen, area);
  const Palette& colors = context_.colors;
  RECT border;
  GetClientRect(context_.window, &border);
  const RECT title = context_.Area(frmPubMain.picTitle);
  const RECT panel = context_.Area(frmPubMain.lblFrame);
  FillArea(canvas.Get(), border, colors.ground);
  FillArea(canvas.Get(), title, colors.title);
  context_.skin->Draw(canvas.Get(), {title.left, title.top}, frmPubMain.picTitle.Picture.Get());
  FrameArea(canvas.Get(), border, colors.title);
  FillArea(canvas.Get(), panel, colors.panel);
  FrameArea(canvas.Get(), panel, colors.line);
}

// Labels and disabled controls let the mouse through, and are no ground all the same.
bool Ground::IsBare(POINT position) const {
  const HWND at = ChildWindowFromPointEx(context_.window, position, CWP_SKIPINVISIBLE);
  return (at == context_.window || at == nullptr) && !Covers(frmPubMain.lblProdLogo, position) &&
         !Covers(frmPubMain.lblCompLogo, position);
}

void Ground::MouseMove(POINT position, int buttons) {
  if (!context_.HasMoved(context_.window, position) || !IsBare(position)) return;
  if (Covers(frmPubMain.picTitle, position)) {
    frmPubMain.picTitle.MouseMove(buttons);
  } else if (Covers(frmPubMain.lblFrame, position)) {
    frmPubMain.lblFrame.MouseMove(buttons);
  } else {
    frmPubMain.lblBorder.MouseMove(buttons);
  }
}

void Ground::MouseUp(POINT position, int button) const {
  for (const Label* logo : {&frmPubMain.lblProdLogo, &frmPubMain.lblCompLogo}) {
    if (Covers(*logo, position)) logo->MouseUp(button);
  }
}

}  // namespace tavix::win32
