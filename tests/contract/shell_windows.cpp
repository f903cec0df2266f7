#include "contract/shell_contract.h"
#include "platform/windows/com.h"
#include "platform/windows/restart_list.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/windows_event_logs.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_shell.h"

namespace tavix::contract {
namespace {

// The running system, under Wine only: there the recycle bin and the event logs belong to no user.
class WindowsStage : public ShellStage {
 public:
  WindowsStage() { windows::ClearBin(); }
  ~WindowsStage() override { windows::ClearBin(); }
  platform::Shell& Use() override { return shell_; }
  platform::EventLogs& Logs() override { return logs_; }
  platform::FileSystem& Files() override { return files_; }
  Text Place() override { return place_.Path(); }
  bool EmptiesTheBinOfFolders() override { return !windows::IsWine(); }

 private:
  const windows::ComApartment apartment_;
  const windows::RestartList restartList_;
  windows::ScratchPlace place_;
  windows::WindowsFileSystem files_;
  windows::WindowsShell shell_;
  windows::WindowsEventLogs logs_;
};

std::vector<ShellStageMaker> Makers() {
  if (!windows::HasBinOfItsOwn()) return {};
  return {{"windows", []() -> std::unique_ptr<ShellStage> { return std::make_unique<WindowsStage>(); }}};
}

INSTANTIATE_TEST_SUITE_P(Windows, ShellContract, testing::ValuesIn(Makers()));

}  // namespace
}  // namespace tavix::contract
