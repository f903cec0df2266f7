#pragma once

#include "window/win32/labels.h"

namespace tavix::win32 {

// A long path breaks anywhere. What has no room ends in dots.
constexpr LabelStyle kStatusLine{.back = &Palette::panel,
                                 .format = DT_LEFT | DT_WORDBREAK | DT_EDITCONTROL | DT_END_ELLIPSIS};

// The status line. Screen readers say what it tells about a row or a command; the many lines of a running job
// are not said.
class StatusLineBinding : public LabelBinding {
 public:
  StatusLineBinding(Label& model, WindowContext& context, int id);

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Label& model_;
  Text said_;
};

}  // namespace tavix::win32
