#include <string>

#include "contract/file_system_contract.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_trust.h"

namespace tavix::contract {
namespace {

class WindowsStage : public FileSystemStage {
 public:
  ~WindowsStage() override {
    if (!otherVolume_.empty()) files_.DeleteFolder(otherVolume_, true);
  }
  platform::FileSystem& Use() override { return files_; }
  platform::Trust& UseTrust() override { return trust_; }
  Text Place() override { return place_.Path(); }
  // Wine makes no links, and deletes the target instead of the link.
  bool Link(TextView path, TextView target, bool folder) override {
    if (windows::IsWine()) return false;
    const DWORD flags = folder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
    return CreateSymbolicLinkW(windows::Wide(Text(path)), windows::Wide(Text(target)), flags) != 0;
  }
  bool FolderLink(TextView path, TextView target) override {
    place_.FolderLink(NameOf(path), target);
    return true;
  }
  bool Swap(TextView folder, TextView target) override { return place_.Swap(NameOf(folder), target); }
  bool SwapsWhatIsHeld() override { return windows::IsWine(); }
  // The file system of a running Windows reaches everything.
  bool LinkOut(TextView) override { return false; }
  bool OutsideIsUntouched() override { return true; }
  bool KeepsReadOnlyFolders() override { return !windows::IsWine(); }
  // Wine has no access lists, and Windows lets most users traverse folders without rights on them.
  bool Refuse(TextView, bool) override { return false; }
  bool KeepsArchiveBit() override { return !windows::IsWine(); }
  bool RenamesLinks() override { return !windows::IsWine(); }
  Text OtherVolume() override {
    const Text other = windows::OtherVolume();
    const Text folder = other.empty() ? Text() : Concat(other, u"\\Tavix Contract");
    if (otherVolume_.empty() && !folder.empty() && files_.CreateFolder(folder)) otherVolume_ = folder;
    return otherVolume_;
  }

 private:
  TextView NameOf(TextView path) const { return path.substr(place_.Path().size() + 1); }

  windows::ScratchPlace place_;
  windows::WindowsFileSystem files_;
  windows::WindowsTrust trust_;
  Text otherVolume_;
};

std::unique_ptr<FileSystemStage> Make() { return std::make_unique<WindowsStage>(); }

INSTANTIATE_TEST_SUITE_P(Windows, FileSystemContract, testing::Values(FileSystemStageMaker{"windows", Make}));
INSTANTIATE_TEST_SUITE_P(Windows, FoundItems, testing::Values(FileSystemStageMaker{"windows", Make}));

}  // namespace
}  // namespace tavix::contract
