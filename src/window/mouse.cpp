#include "window/mouse.h"

#include "forms/main_form.h"
#include "frame/support/pub_system.h"
#include "platform/desktop.h"
#include "window/icons.h"

namespace tavix::mdlPubSelf {
namespace {

// A press of the left button on the title bar of a window.
constexpr uint32_t kFramePressMessage = 161;
constexpr intptr_t kOnTitleBar = 2;

}  // namespace

void MoveWindowByMouse(int buttons) {
  if ((buttons & kLeftButton) == 0) return;
  platform::desktop->ReleaseCapture();
  pubSystem.SendWindowMessage(frmPubMain.hWnd, kFramePressMessage, kOnTitleBar, 0);
}

void lblBorder_MouseMove(int buttons) {
  PutIconsToRest();
  MoveWindowByMouse(buttons);
}

}  // namespace tavix::mdlPubSelf
