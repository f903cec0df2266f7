#pragma once

#include "platform/dialogs.h"

namespace tavix::console {

// Dialogs of a program that nobody sits at, answered at once: a question with Yes. An offer, to be taken
// with OK or cancelled, is declined, such as that of an update; input boxes and choosers are cancelled.
class UnattendedDialogs : public platform::Dialogs {
 public:
  int MsgBox(TextView text, int style) override;
  std::optional<Text> InputBox(TextView prompt, TextView offered) override;
  std::optional<Text> BrowseForFolder(platform::WindowHandle owner, TextView title) override;
};

}  // namespace tavix::console
