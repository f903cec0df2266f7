#pragma once

#include <deque>
#include <vector>

#include "platform/dialogs.h"
#include "platform/machine/services/journal.h"

namespace tavix::machine {

// Dialogs that nobody sees: they are noted in the journal and answered from the lists below, in order; when
// a list is used up, a question is answered with Yes, what can only be accepted or cancelled is cancelled,
// and so are the others.
class MachineDialogs : public platform::Dialogs {
 public:
  explicit MachineDialogs(Journal& journal) : journal_(journal) {}

  int MsgBox(TextView text, int style) override;
  std::optional<Text> InputBox(TextView prompt, TextView offered) override;
  // Not noted: it is a window of the program, nothing of the shell's.
  std::optional<Text> BrowseForFolder(platform::WindowHandle owner, TextView title) override;

  std::deque<int> answers;
  std::deque<std::optional<Text>> inputs;
  std::deque<std::optional<Text>> folders;

  // What the input boxes began with, and the titles of the folder choosers, in order.
  std::vector<Text> offered;
  std::vector<Text> folderTitles;

 private:
  Journal& journal_;
};

}  // namespace tavix::machine
