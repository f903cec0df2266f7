#include "frame/data_folders.h"

#include <vector>

#include "frame/data_paths.h"
#include "frame/support/file_system_object.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr uint32_t kHiddenSystem = platform::kHidden | platform::kSystem;

void CreateIfMissing(TextView folder) {
  if (!fileSystemObject.FolderExists(folder)) fileSystemObject.CreateFolder(folder);
}

// The bucket folders in the order in which they are made: a letter in both stores, then the next; the
// folder for the rest at the end.
std::vector<Text> BucketFolders() {
  std::vector<Text> folders;
  const auto add = [&folders](TextView bucket) {
    folders.push_back(Concat(kScannedFolder, u"\\", bucket));
    folders.push_back(Concat(kComparedFolder, u"\\", bucket));
  };
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) add(TextView(&letter, 1));
  add(u"other");
  return folders;
}

}  // namespace

void PrepareDataFolders() {
  CreateIfMissing(kMakersFolder);
  CreateIfMissing(kDataFolder);
  CreateIfMissing(kDefaultBackupFolder);

  const std::vector<Text> buckets = BucketFolders();
  if (fileSystemObject.FolderExists(kDuplicateFolder)) fileSystemObject.DeleteFolder(kDuplicateFolder, true);
  for (const TextView folder : {kDuplicateFolder, kScannedFolder, kComparedFolder}) {
    fileSystemObject.CreateFolder(folder);
  }
  for (const Text& folder : buckets) fileSystemObject.CreateFolder(folder);

  for (const TextView file : {kBuiltInJunkFile, kUserJunkFile, kMarkerFile}) {
    if (!fileSystemObject.FileExists(file)) fileSystemObject.CreateTextFile(file, true);
  }

  for (const TextView folder : {kMakersFolder, kDataFolder, kDefaultBackupFolder, kDuplicateFolder,
                                kScannedFolder, kComparedFolder}) {
    fileSystemObject.SetAttributes(folder, kHiddenSystem);
  }
  for (const Text& folder : buckets) fileSystemObject.SetAttributes(folder, kHiddenSystem);
  const auto files = fileSystemObject.GetFolder(kDataFolder).and_then(&Folder::Files);
  for (const File& file : files.value_or(std::vector<File>())) {
    if (const auto path = file.Path()) fileSystemObject.SetAttributes(*path, kHiddenSystem);
  }
}

}  // namespace tavix::mdlPubSelf
