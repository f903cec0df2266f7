#pragma once

#include "platform/shell.h"

namespace tavix::windows {

// The shell of the running system. Uses COM: the thread needs a ComApartment. The shell takes no paths over
// 259 characters. For a longer one its short form (8.3) is tried, where the disk keeps one; otherwise
// OpenPath, ShowFileProperties and DeleteToRecycleBin fail and nothing happens.
class WindowsShell : public platform::Shell {
 public:
  bool RunTarget(TextView target, int style) override;
  bool OpenPath(TextView path, int style) override;
  bool RunHidden(TextView target) override;
  bool ShowFileProperties(platform::WindowHandle owner, TextView path) override;
  // The shell may ask the user (recycling.h). Whatever the answer, an item that the bin can't take stays.
  bool DeleteToRecycleBin(TextView path) override;
  // True also when the bins are empty already. False when something stays.
  bool EmptyRecycleBin(platform::WindowHandle owner) override;
  std::optional<Text> RecycleBinInfo() override;
  // Needs administrator rights.
  bool DeleteAtRestart(TextView path) override;

  std::optional<Text> SpecialFolderByNumber(int number) override;
  std::optional<Text> SpecialFolderByName(TextView name) override;
  std::optional<Text> UserTempFolder() override;
  std::optional<Text> SystemTempFolder() override;
  std::optional<std::vector<Text>> NamedFolders() override;
  std::optional<Text> EnvironmentVariable(TextView name) override;
  Text ExpandEnvironment(TextView text) override;
  std::optional<platform::Shortcut> OpenShortcut(TextView path) override;
};

}  // namespace tavix::windows
