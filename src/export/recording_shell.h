#pragma once

#include "export/record.h"
#include "platform/shell.h"

namespace tavix::exporting {

// A shell that does as another one does and notes the shortcuts that are read and the environment variables
// that are asked for.
class RecordingShell : public platform::Shell {
 public:
  // Both must outlive this.
  RecordingShell(platform::Shell& source, Record& record) : source_(source), record_(record) {}

  bool RunTarget(TextView target, int style) override;
  bool OpenPath(TextView path, int style) override;
  bool RunHidden(TextView target) override;
  bool ShowFileProperties(platform::WindowHandle owner, TextView path) override;
  bool DeleteToRecycleBin(TextView path) override;
  bool EmptyRecycleBin(platform::WindowHandle owner) override;
  std::optional<Text> RecycleBinInfo() override;
  bool DeleteAtRestart(TextView path) override;
  std::optional<Text> SpecialFolderByNumber(int number) override;
  std::optional<Text> SpecialFolderByName(TextView name) override;
  std::optional<Text> UserTempFolder() override;
  std::optional<Text> SystemTempFolder() override;
  std::optional<std::vector<Text>> NamedFolders() override;
  std::optional<Text> EnvironmentVariable(TextView name) override;
  Text ExpandEnvironment(TextView text) override;
  std::optional<platform::Shortcut> OpenShortcut(TextView path) override;

 private:
  platform::Shell& source_;
  Record& record_;
};

}  // namespace tavix::exporting
