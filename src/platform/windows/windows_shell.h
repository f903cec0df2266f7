#pragma once

#include "platform/shell.h"

namespace tavix::windows {

// The shell of the running system. Objects of the system are used: the thread has a ComApartment. It takes no
// paths over 259 characters: for one that is longer the short form is tried where the disk keeps one;
// otherwise OpenPath, ShowFileProperties and DeleteToRecycleBin fail and nothing happens.
class WindowsShell : public platform::Shell {
 public:
  bool RunTarget(TextView target, int style) override;
  bool OpenPath(TextView path, int style) override;
  bool RunHidden(TextView target) override;
  bool ShowFileProperties(platform::WindowHandle owner, TextView path) override;
  // As recycling.h has it: the shell may ask in the end, and what it was refused stays whatever is answered.
  bool DeleteToRecycleBin(TextView path) override;
  // True as well when there is nothing in them; false when something stays.
  bool EmptyRecycleBin(platform::WindowHandle owner) override;
  std::optional<Text> RecycleBinInfo() override;
  // Needs the rights of an administrator.
  bool DeleteAtRestart(TextView path) override;

  std::optional<Text> SpecialFolderByNumber(int number) override;
  std::optional<Text> SpecialFolderByName(TextView name) override;
  std::optional<Text> UserTempFolder() override;
  std::optional<Text> SystemTempFolder() override;
  std::vector<Text> NamedFolders() override;
  std::optional<Text> EnvironmentVariable(TextView name) override;
  Text ExpandEnvironment(TextView text) override;
  std::optional<platform::Shortcut> OpenShortcut(TextView path) override;
};

}  // namespace tavix::windows
