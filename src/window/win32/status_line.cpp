#include "window/win32/status_line.h"

#include "forms/main_form.h"
#include "window/win32/accessible_name.h"

namespace tavix::win32 {
namespace {

// EVENT_OBJECT_LIVEREGIONCHANGED; systems before Windows 8 have no use for it.
constexpr DWORD kLiveRegionChanged = 0x8019;

}  // namespace

StatusLineBinding::StatusLineBinding(Label& model, WindowContext& context, int id)
    : LabelBinding(model, context, id, kStatusLine), model_(model), said_(model.Caption.Get()) {
  SetLive(Window());
}

void StatusLineBinding::Show() {
  LabelBinding::Show();
  if (frmPubMain.IsJobRunning() || model_.Caption.Get() == said_) return;
  said_ = model_.Caption.Get();
  NotifyWinEvent(kLiveRegionChanged, Window(), OBJID_CLIENT, CHILDID_SELF);
}

std::optional<LRESULT> StatusLineBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) ClearLive(Window());
  return LabelBinding::OnMessage(message, wParam, lParam);
}

}  // namespace tavix::win32
