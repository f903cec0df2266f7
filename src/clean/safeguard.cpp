#include "clean/safeguard.h"

#include <algorithm>

#include "advanced/folder_reader.h"
#include "advanced/path_text.h"
#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_system.h"
#include "platform/shell.h"
#include "text/letter_case.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kSystemFolder = 9966;

bool IsLibrary(TextView name) { return ToLower(name).ends_with(u".dll"); }

// The folder's content adds up to nothing, as the scan judges it: a link in it is content.
bool IsEmptyFolder(const Text& path) {
  const auto list = [&path](const platform::EntryVisitor& see) { return fileSystemObject.List(path, see); };
  return FolderReader().Read(path, list, true).empty;
}

}  // namespace

bool Safeguard::AllowsFile(TextView folder, TextView name) {
  ReadOwnFolders();
  if (KeepsContent(folder)) return false;
  if (!IsLibrary(name)) return true;
  return systemTold_ && (!systemFolder_ || LineageOf(folder).front() != *systemFolder_);
}

bool Safeguard::AllowsFolder(TextView folder, TextView name) {
  ReadOwnFolders();
  ReadNamedFolders();
  if (KeepsContent(folder)) return false;
  const Text path = PathBelow(folder, name);
  const std::vector<Text> lineage = fileSystemObject.Lineage(path);
  const bool isRoot = lineage.size() < 2;
  return namedTold_ && !isRoot && !holding_->contains(lineage.front()) && IsEmptyFolder(path);
}

std::vector<Text> Safeguard::LineageOfKept(const Text& folder, bool& told) {
  std::vector<Text> lineage = fileSystemObject.Lineage(folder);
  told = told && !(lineage.empty() && fileSystemObject.FolderExists(folder));
  return lineage;
}

void Safeguard::ReadOwnFolders() {
  if (own_) return;
  own_.emplace();
  holding_.reset();
  for (const TextView folder : {kMakersFolder, kDataFolder}) {
    const std::vector<Text> lineage = LineageOfKept(Text(folder), ownTold_);
    if (!lineage.empty()) own_->insert(lineage.front());
  }
  for (const TextView folder : {kDefaultBackupFolder, TextView(BackupFolder)}) {
    const std::vector<Text> lineage = LineageOfKept(Text(folder), ownTold_);
    const bool isRoot = lineage.size() < 2;
    if (!isRoot) own_->insert(lineage.front());
  }
  Text system;
  pubSystem.GetSpecialFolder(kSystemFolder, system);
  const std::vector<Text> lineage = LineageOfKept(system, systemTold_);
  if (!lineage.empty()) systemFolder_ = lineage.front();
}

void Safeguard::ReadNamedFolders() {
  if (holding_) return;
  holding_.emplace();
  std::vector<Text> named = {Text(kMakersFolder), Text(kDataFolder), Text(kDefaultBackupFolder),
                             BackupFolder};
  if (platform::shell != nullptr) {
    std::ranges::move(platform::shell->NamedFolders(), std::back_inserter(named));
  }
  for (const Text& folder : named) {
    for (Text& identity : LineageOfKept(folder, namedTold_)) holding_->insert(std::move(identity));
  }
}

bool Safeguard::KeepsContent(TextView folder) {
  const std::vector<Text>& lineage = LineageOf(folder);
  return !ownTold_ || lineage.empty() ||
         std::ranges::any_of(lineage, [this](const Text& identity) { return own_->contains(identity); });
}

const std::vector<Text>& Safeguard::LineageOf(TextView folder) {
  if (folder_ != folder) {
    folder_ = folder;
    lineage_ = fileSystemObject.Lineage(folder);
  }
  return lineage_;
}

}  // namespace tavix::mdlPubSelf
