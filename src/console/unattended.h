#pragma once

#include "platform/dialogs.h"

namespace tavix::console {

// Dialogs for a run without a user. Each returns at once: Yes/No questions with Yes, OK/Cancel offers (such
// as an update) with Cancel, input boxes and folder choosers as cancelled.
class UnattendedDialogs : public platform::Dialogs {
 public:
  int MsgBox(TextView text, int style) override;
  std::optional<Text> InputBox(TextView prompt, TextView offered) override;
  std::optional<Text> BrowseForFolder(platform::WindowHandle owner, TextView title) override;
};

}  // namespace tavix::console
