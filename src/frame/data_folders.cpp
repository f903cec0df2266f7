#include "frame/data_folders.h"

#include <algorithm>
#include <vector>

#include "frame/data_paths.h"
#include "frame/support/file_system_object.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr uint32_t kHiddenSystem = platform::kHidden | platform::kSystem;

// Skipped if the folder can't be looked at.
void CreateIfMissing(TextView folder) {
  if (fileSystemObject.FolderExists(folder) == false) fileSystemObject.CreateFolder(folder);
}

// The bucket folders of a store, in the order in which they are made.
std::vector<Text> BucketNames() {
  std::vector<Text> names;
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) names.emplace_back(1, letter);
  names.emplace_back(u"other");
  return names;
}

// Makes each bucket in both stores before the next.
std::vector<Text> BucketFolders() {
  std::vector<Text> folders;
  for (const Text& bucket : BucketNames()) {
    for (const TextView store : {kScannedFolder, kComparedFolder})
      folders.push_back(Concat(store, u"\\", bucket));
  }
  return folders;
}

bool IsHiddenFolder(const platform::DirectoryEntry& entry) {
  constexpr uint32_t kSet = kHiddenSystem | platform::kReadOnly | platform::kArchive;
  return entry.folder && !entry.link && (entry.attributes & kSet) == kHiddenSystem;
}

// Whether the folder has hidden folders of exactly these names and nothing else.
bool HoldsOnly(TextView folder, const std::vector<Text>& names) {
  size_t found = 0;
  bool only = true;
  const bool listed = fileSystemObject.List(folder, [&](const platform::DirectoryEntry& entry) {
    only = only && IsHiddenFolder(entry) && std::ranges::find(names, entry.name) != names.end();
    ++found;
  });
  return listed && only && found == names.size();
}

bool IsPlainFolder(TextView parent, TextView name) {
  bool plain = false;
  fileSystemObject.List(parent, [&](const platform::DirectoryEntry& entry) {
    plain = plain || (entry.name == name && entry.folder && !entry.link);
  });
  return plain;
}

// Whether the scratch folders are as they would be made: then they can stay. Most runs leave them so.
bool ScratchIsFresh(const std::vector<Text>& buckets) {
  const std::vector<Text> names = BucketNames();
  return IsPlainFolder(kDataFolder, TextView(kDuplicateFolder).substr(kDataFolder.size() + 1)) &&
         HoldsOnly(kDuplicateFolder, {u"scanned", u"compared"}) && HoldsOnly(kScannedFolder, names) &&
         HoldsOnly(kComparedFolder, names) &&
         std::ranges::all_of(buckets, [](const Text& bucket) { return HoldsOnly(bucket, {}); });
}

void MakeScratch(const std::vector<Text>& buckets) {
  if (fileSystemObject.FolderExists(kDuplicateFolder) == true) {
    fileSystemObject.DeleteFolder(kDuplicateFolder, true);
  }
  for (const TextView folder : {kDuplicateFolder, kScannedFolder, kComparedFolder}) {
    fileSystemObject.CreateFolder(folder);
  }
  for (const Text& folder : buckets) fileSystemObject.CreateFolder(folder);
}

}  // namespace

void PrepareDataFolders() {
  CreateIfMissing(kMakersFolder);
  CreateIfMissing(kDataFolder);
  CreateIfMissing(kDefaultBackupFolder);

  const std::vector<Text> buckets = BucketFolders();
  const bool fresh = ScratchIsFresh(buckets);
  if (!fresh) MakeScratch(buckets);

  for (const TextView file : {kBuiltInJunkFile, kUserJunkFile, kMarkerFile}) {
    // CreateTextFile would empty a file that can't be looked at just now.
    if (fileSystemObject.FileExists(file) == false) fileSystemObject.CreateTextFile(file, true);
  }

  for (const TextView folder : {kMakersFolder, kDataFolder, kDefaultBackupFolder, kDuplicateFolder,
                                kScannedFolder, kComparedFolder}) {
    fileSystemObject.SetAttributes(folder, kHiddenSystem);
  }
  if (!fresh) {
    for (const Text& folder : buckets) fileSystemObject.SetAttributes(folder, kHiddenSystem);
  }
  std::vector<Text> files;
  fileSystemObject.List(kDataFolder, [&files](const platform::DirectoryEntry& entry) {
    if (!entry.folder) files.push_back(Concat(kDataFolder, u"\\", entry.name));
  });
  for (const Text& file : files) fileSystemObject.SetAttributes(file, kHiddenSystem);
}

}  // namespace tavix::mdlPubSelf
