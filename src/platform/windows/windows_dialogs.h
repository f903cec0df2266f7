#pragma once

#include "platform/dialogs.h"

namespace tavix::windows {

// Dialogs on the screen. They belong to the program's window, even while another program is active.
class WindowsDialogs : public platform::Dialogs {
 public:
  int MsgBox(TextView text, int style) override;
  std::optional<Text> InputBox(TextView prompt, TextView offered) override;
  std::optional<Text> BrowseForFolder(platform::WindowHandle owner, TextView title) override;
};

}  // namespace tavix::windows
