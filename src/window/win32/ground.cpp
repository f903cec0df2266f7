#include "window/win32/ground.h"

#include "forms/main_form.h"
#include "window/win32/paint.h"
#include "window/win32/palette.h"

namespace tavix::win32 {

RECT Ground::Area(const Control& control) const {
  return {context_.Pixels(control.Left), context_.Pixels(control.Top),
          context_.Pixels(control.Left + control.Width), context_.Pixels(control.Top + control.Height)};
}

void Ground::Paint(HDC context) const {
  const RECT border = Area(frmPubMain.lblBorder);
  FillArea(context, border, kGroundColor);
  FrameArea(context, border, kTitleColor);
  FillArea(context, Area(frmPubMain.picTitle), kTitleColor);
  WriteText(context, u"Tavix", Area(frmPubMain.lblProdLogo), context_.largeFont.Get(), kTitleTextColor,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE);
  const RECT frame = Area(frmPubMain.lblFrame);
  FillArea(context, frame, kPanelColor);
  FrameArea(context, frame, kLineColor);
}

void Ground::MouseMove(POINT position, int buttons) const {
  const RECT title = Area(frmPubMain.picTitle);
  const RECT frame = Area(frmPubMain.lblFrame);
  if (PtInRect(&title, position) != FALSE) {
    frmPubMain.picTitle.MouseMove(buttons);
  } else if (PtInRect(&frame, position) != FALSE) {
    frmPubMain.lblFrame.MouseMove(buttons);
  } else {
    frmPubMain.lblBorder.MouseMove(buttons);
  }
}

}  // namespace tavix::win32
