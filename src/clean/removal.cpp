#include "clean/removal.h"

#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_system.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kDelete = u"D";
constexpr TextView kRecycle = u"R";
constexpr TextView kSave = u"S";

Text InBackupFolder(TextView path) {
  return Concat(BackupFolder, u"\\", path.substr(path.find_last_of(u'\\') + 1));
}

}  // namespace

// The bin takes whatever stands there; what has become a folder since it was found isn't that file.
void RemoveFileByMethod(TextView path) {
  if (CleaningMethod == kRecycle) {
    if (fileSystemObject.FolderExists(path) == false) pubSystem.DeleteToRecycleBin(path);
  } else if (CleaningMethod == kDelete) {
    fileSystemObject.DeleteFile(path, true);
  } else if (CleaningMethod == kSave) {
    const Text saved = InBackupFolder(path);
    fileSystemObject.MoveFile(path, fileSystemObject.FileExists(saved) == true ? saved + u".1" : saved);
  }
}

void RemoveFolderByMethod(TextView path) {
  if (CleaningMethod == kRecycle) {
    if (fileSystemObject.FileExists(path) == false) pubSystem.DeleteToRecycleBin(path);
  } else if (CleaningMethod == kDelete) {
    fileSystemObject.DeleteFolder(path, true);
  } else if (CleaningMethod == kSave) {
    const Text saved = InBackupFolder(path);
    fileSystemObject.CreateFolder(fileSystemObject.FolderExists(saved) == true ? saved + u".1" : saved);
    fileSystemObject.DeleteFolder(path, true);
  }
}

}  // namespace tavix::mdlPubSelf
