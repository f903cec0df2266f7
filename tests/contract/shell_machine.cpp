#include <filesystem>

#include "contract/shell_contract.h"
#include "doubles/memory_file_system.h"
#include "doubles/memory_host.h"
#include "doubles/memory_shell.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_event_logs.h"
#include "platform/machine/services/machine_host.h"

namespace tavix::contract {
namespace {

const std::string kFacts =
    "[Environment]\nWinDir=C:\\Windows\n"
    "[Folders]\n32=C:\\Cache\n33=C:\\Cookies\n34=C:\\History\n9966=C:\\Windows\\System32\n"
    "[Special Folders]\nRecent=C:\\Recent\nFonts=C:\\Fonts\nAllUsersPrograms=C:\\AllPrograms\n"
    "Programs=C:\\Programs\n0=C:\\F0\n1=C:\\F1\n5=C:\\F5\n10=C:\\F10\n11=C:\\F11\n"
    "[Temporary Folders]\nUser=C:\\Temp\nSystem=C:\\Windows\\Temp\n"
    "[Event Logs]\nApplication=12\n";

class MemoryStage : public ShellStage {
 public:
  MemoryStage() {
    TextError error;
    host_.facts = machine::MachineFacts(*machine::MachineIni::Read(kFacts, error), nullptr);
    host_.files.AddFolder(Place());
  }
  platform::Shell& Use() override { return host_.shell; }
  platform::EventLogs& Logs() override { return host_.eventLogs; }
  platform::FileSystem& Files() override { return host_.fileSystem; }
  Text Place() override { return u"C:\\Contract\\Place"; }

 private:
  using TextError = machine::TextError;
  machine::MemoryHost host_;
};

class FolderStage : public ShellStage {
 public:
  FolderStage() {
    scratch_.Write("machine.ini", kFacts);
    std::filesystem::create_directories(scratch_.Root() / "drives/C/Contract/Place");
    std::string error;
    host_ = machine::MachineHost::Open(scratch_.Root(), std::nullopt, error);
    if (host_ == nullptr) throw std::runtime_error(error);
  }
  platform::Shell& Use() override { return *platform::shell; }
  platform::EventLogs& Logs() override { return *platform::eventLogs; }
  platform::FileSystem& Files() override { return *platform::fileSystem; }
  Text Place() override { return u"C:\\Contract\\Place"; }

 private:
  machine::ScratchFolder scratch_;
  std::unique_ptr<machine::MachineHost> host_;
};

INSTANTIATE_TEST_SUITE_P(Memory, ShellContract,
                         testing::Values(ShellStageMaker{"memory", []() -> std::unique_ptr<ShellStage> {
                                                           return std::make_unique<MemoryStage>();
                                                         }}));
INSTANTIATE_TEST_SUITE_P(Folder, ShellContract,
                         testing::Values(ShellStageMaker{"folder", []() -> std::unique_ptr<ShellStage> {
                                                           return std::make_unique<FolderStage>();
                                                         }}));

}  // namespace
}  // namespace tavix::contract
