#include "forms/about_form.h"
#include "window/layout.h"
#include "window/win32/buttons.h"
#include "window/win32/control_ids.h"
#include "window/win32/dialogs.h"
#include "window/win32/labels.h"
#include "window/win32/paint.h"

namespace tavix::win32 {

AboutWindow::AboutWindow()
    : DialogWindow({.form = frmPubAbout,
                    .windowClass = kAboutWindowClass,
                    .first = frmPubAbout.sbtClose,
                    .enter = &frmPubAbout.sbtClose,
                    .escape = frmPubAbout.sbtClose,
                    .layOut = LayOutAboutForm,
                    .extendedStyle = WS_EX_DLGMODALFRAME}) {}

void AboutWindow::AddControls(BindingList& controls) {
  AboutForm& form = frmPubAbout;
  controls.Add<LabelBinding>(form.lblProduct, kIdProduct, kPanelLabel);
  controls.Add<LabelBinding>(form.lblCopyright, kIdCopyright, kPanelLabel);
  controls.Add<ButtonBinding>(form.sbtMailer, kIdMailer);
  controls.Add<ButtonBinding>(form.sbtWeb, kIdWeb);
  controls.Add<ButtonBinding>(form.sbtClose, kIdCloseAbout, true);
}

void AboutWindow::OnPaint(HDC canvas, const RECT& area) {
  FillArea(canvas, area, Context().colors.panel);
  const RECT logo = Context().Area(frmPubAbout.picLogo);
  const LONG width = logo.right - logo.left, height = logo.bottom - logo.top;
  const auto icon = static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, width, height, LR_SHARED));
  DrawIconEx(canvas, logo.left, logo.top, icon, width, height, 0, nullptr, DI_NORMAL);
}

}  // namespace tavix::win32
