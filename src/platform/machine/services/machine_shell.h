#pragma once

#include "platform/machine/services/recycle_bin.h"
#include "platform/shell.h"

namespace tavix::machine {

class Journal;
class MachineFacts;
class MachineFileSystem;

// The shell of a machine that isn't the running Windows. Nothing is started. Calls are recorded in the
// journal and take effect on files and machine.ini.
class MachineShell : public platform::Shell {
 public:
  // All must outlive this.
  MachineShell(FileStore& store, MachineFileSystem& files, MachineFacts& facts, Journal& journal)
      : store_(store), files_(files), facts_(facts), journal_(journal), bin_(store) {}

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

 protected:
  // Whether a call fails before it has any effect; it is recorded all the same. Always false here. A test
  // double overrides it. `operation` is the routine's name.
  virtual bool Refuses([[maybe_unused]] TextView operation, [[maybe_unused]] TextView argument) {
    return false;
  }

 private:
  bool Exists(TextView path);
  std::optional<Text> Folder(TextView section, TextView key) const;

  FileStore& store_;
  MachineFileSystem& files_;
  MachineFacts& facts_;
  Journal& journal_;
  RecycleBin bin_;
};

}  // namespace tavix::machine
