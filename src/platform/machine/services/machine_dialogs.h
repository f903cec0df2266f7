#pragma once

#include <deque>
#include <vector>

#include "platform/dialogs.h"
#include "platform/machine/services/journal.h"

namespace tavix::machine {

// Dialogs that nobody sees. Message boxes and input boxes are recorded in the journal. The lists below hold
// the answers, in order. When a list is empty, a question is answered with Yes, everything else that can be
// cancelled is cancelled, and a plain message is answered with OK.
class MachineDialogs : public platform::Dialogs {
 public:
  explicit MachineDialogs(Journal& journal) : journal_(journal) {}

  int MsgBox(TextView text, int style) override;
  std::optional<Text> InputBox(TextView prompt, TextView offered) override;
  // Not recorded: it is a window of the program, not of the shell.
  std::optional<Text> BrowseForFolder(platform::WindowHandle owner, TextView title) override;

  std::deque<int> answers;
  std::deque<std::optional<Text>> inputs;
  std::deque<std::optional<Text>> folders;

  // The offered texts of the input boxes, and the titles of the folder dialogs, in order.
  std::vector<Text> offered;
  std::vector<Text> folderTitles;

 private:
  Journal& journal_;
};

}  // namespace tavix::machine
