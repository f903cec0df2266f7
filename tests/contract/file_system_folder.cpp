#include <algorithm>
#include <filesystem>

#include "contract/file_system_contract.h"
#include "platform/machine/formats/machine_path.h"
#include "platform/machine/host/host_store.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_file_system.h"
#include "platform/machine/services/machine_trust.h"

namespace tavix::contract {
namespace {

namespace fs = std::filesystem;

class FolderStage : public FileSystemStage {
 public:
  explicit FolderStage(bool readsAhead) {
    ahead_.Force();
    fs::create_directories(scratch_.Root() / "machine/drives/C/Contract/Place");
    scratch_.Write("outside/secret.txt", "secret");
    store_ = machine::OpenHostStore(fs::canonical(scratch_.Root() / "machine"));
    files_.emplace(*store_, facts_, readsAhead ? &ahead_ : nullptr);
    trust_.emplace(*files_, facts_);
  }
  platform::FileSystem& Use() override { return *files_; }
  platform::Trust& UseTrust() override { return *trust_; }
  Text Place() override { return u"C:\\Contract\\Place"; }
  bool Link(TextView path, TextView target, bool folder) override {
    fs::path to;
    if (machine::ReadMachinePath(target)) {
      to = HostPath(target);
    } else {
      Text slashes(target);
      std::replace(slashes.begin(), slashes.end(), u'\\', u'/');
      to = slashes;
    }
    return MakeLink(HostPath(path), to, folder);
  }
  bool Swap(TextView folder, TextView target) override {
    const fs::path there = HostPath(folder), aside = HostPath(Concat(folder, u" aside"));
    if (!MakeLink(aside, HostPath(target), true)) return false;
    fs::path third = aside;
    third += " link";
    fs::rename(aside, third);
    fs::rename(there, aside);
    fs::rename(third, there);
    return true;
  }
  bool LinkOut(TextView path) override {
    return MakeLink(HostPath(path), fs::canonical(scratch_.Root()) / "outside", true);
  }
  bool OutsideIsUntouched() override {
    const auto outside = fs::directory_iterator(scratch_.Root() / "outside");
    return std::distance(fs::begin(outside), fs::end(outside)) == 1 &&
           scratch_.Read("outside/secret.txt") == "secret";
  }
  // Works neither for the superuser, who may do everything, nor on a Windows host, where std::filesystem sets
  // no access lists.
  bool Refuse(TextView folder, bool refuse) override {
    fs::permissions(HostPath(folder), refuse ? fs::perms::none : fs::perms::owner_all);
    std::error_code failure;
    static_cast<void>(fs::symlink_status(HostPath(folder) / "any", failure));
    return !refuse || failure == std::errc::permission_denied;
  }
  Text OtherVolume() override { return {}; }

 private:
  // std::filesystem makes no links on a Windows host.
  static bool MakeLink(const fs::path& link, const fs::path& target, bool folder) {
    std::error_code failure;
    if (folder) {
      fs::create_directory_symlink(target, link, failure);
    } else {
      fs::create_symlink(target, link, failure);
    }
    return !failure;
  }
  fs::path HostPath(TextView path) const {
    fs::path host = fs::canonical(scratch_.Root() / "machine/drives") / path.substr(0, 1);
    for (const TextView name : Split(path.substr(3), u"\\")) host /= name;
    return host;
  }

  machine::ScratchFolder scratch_;
  machine::MachineFacts facts_;
  std::unique_ptr<machine::FileStore> store_;
  platform::ReadAhead ahead_;
  std::optional<machine::MachineFileSystem> files_;
  std::optional<machine::MachineTrust> trust_;
};

std::unique_ptr<FileSystemStage> Make() { return std::make_unique<FolderStage>(false); }
std::unique_ptr<FileSystemStage> MakeAhead() { return std::make_unique<FolderStage>(true); }

INSTANTIATE_TEST_SUITE_P(Folder, FileSystemContract,
                         testing::Values(FileSystemStageMaker{"folder", Make},
                                         FileSystemStageMaker{"folder, read ahead", MakeAhead}));
INSTANTIATE_TEST_SUITE_P(Folder, FoundItems,
                         testing::Values(FileSystemStageMaker{"folder", Make},
                                         FileSystemStageMaker{"folder, read ahead", MakeAhead}));

}  // namespace
}  // namespace tavix::contract
