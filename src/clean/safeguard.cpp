#include "clean/safeguard.h"

#include <algorithm>

#include "advanced/folder_reader.h"
#include "advanced/path_text.h"
#include "clean/system_folders.h"
#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_system.h"
#include "platform/file_system.h"
#include "platform/shell.h"
#include "scan/folder_chain.h"
#include "text/letter_case.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kSystemFolder = 9966;
constexpr size_t kDriveRootLength = 3;

bool IsLibrary(TextView name) { return ToLower(name).ends_with(u".dll"); }

// Whether the folder counts as empty, by the rule of the scan: no file with a size and no link in it or
// below.
bool IsEmptyFolder(const Text& path) {
  FolderChain chain;
  chain.Enter(path);
  return FolderReader().Read(chain, true, {}).empty;
}

// Whether a path lies on another computer. If that doesn't answer, nothing in it can be looked at.
bool LiesOnTheNetwork(TextView path) {
  return path.starts_with(u"\\\\") || (path.size() > 1 && path[1] == u':' &&
                                       platform::fileSystem->DriveType(path[0]) == platform::kNetworkDrive);
}

}  // namespace

bool Safeguard::AllowsFile(TextView folder, TextView name) {
  ReadOwnFolders();
  LookAt(folder);
  return !liesInOwn_ && !(isSystem_ && IsLibrary(name));
}

bool Safeguard::AllowsFolder(TextView folder, TextView name) {
  ReadOwnFolders();
  ReadNamedFolders();
  LookAt(folder);
  if (!namesAreKnown_ || liesInOwn_ || LiesIn(closed_)) return false;
  const Text path = PathBelow(folder, name);
  const std::vector<Text> lineage = fileSystemObject.Lineage(path);
  const bool isRoot = lineage.size() < 2;
  return !isRoot && !holding_->contains(lineage.front()) && IsEmptyFolder(path);
}

std::vector<Text> Safeguard::LineageOfKept(TextView folder, Identities& closed) {
  std::vector<Text> lineage = fileSystemObject.Lineage(folder);
  if (!lineage.empty() || LiesOnTheNetwork(folder) || fileSystemObject.FolderExists(folder) == false)
    return lineage;
  for (Text above(folder); lineage.empty() && above.size() > kDriveRootLength;) {
    above = FolderOf(above);
    lineage = fileSystemObject.Lineage(above);
  }
  if (!lineage.empty()) closed.insert(lineage.front());
  return lineage;
}

void Safeguard::ReadOwnFolders() {
  if (own_) return;
  own_.emplace();
  for (const TextView folder : {kMakersFolder, kDataFolder}) {
    const std::vector<Text> lineage = LineageOfKept(folder, *own_);
    if (!lineage.empty()) own_->insert(lineage.front());
  }
  for (const TextView folder : {kDefaultBackupFolder, TextView(BackupFolder)}) {
    const std::vector<Text> lineage = LineageOfKept(folder, *own_);
    const bool isRoot = lineage.size() < 2;
    if (!isRoot) own_->insert(lineage.front());
  }
  Text system;
  pubSystem.GetSpecialFolder(kSystemFolder, system);
  const std::vector<Text> lineage = LineageOfKept(system, *own_);
  if (!lineage.empty()) system_ = lineage.front();
}

void Safeguard::ReadNamedFolders() {
  if (holding_) return;
  holding_.emplace();
  std::vector<Text> named = {Text(kMakersFolder), Text(kDataFolder), Text(kDefaultBackupFolder),
                             BackupFolder};
  std::optional<std::vector<Text>> systems = platform::shell->NamedFolders();
  namesAreKnown_ = systems.has_value();
  if (systems) std::ranges::move(*systems, std::back_inserter(named));
  for (const Text& folder : named) {
    for (Text& identity : LineageOfKept(folder, closed_)) holding_->insert(std::move(identity));
  }
  // One of these that can't be looked at needs no closed folder around it: it can't be removed either.
  for (const Text& folder : FoldersThatWindowsKeeps()) {
    for (Text& identity : fileSystemObject.Lineage(folder)) holding_->insert(std::move(identity));
  }
}

bool Safeguard::LiesIn(const Identities& kept) const {
  return lineage_.empty() ||
         std::ranges::any_of(lineage_, [&kept](const Text& identity) { return kept.contains(identity); });
}

void Safeguard::LookAt(TextView folder) {
  if (folder_ == folder) return;
  folder_ = folder;
  lineage_ = fileSystemObject.Lineage(folder);
  liesInOwn_ = LiesIn(*own_);
  isSystem_ = !lineage_.empty() && lineage_.front() == system_;
}

}  // namespace tavix::mdlPubSelf
