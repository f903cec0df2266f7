#include "clean/removal.h"

#include <memory>

#include "advanced/path_text.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_system.h"
#include "frame/trusted_data.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kDelete = u"D";
constexpr TextView kRecycle = u"R";
constexpr TextView kSave = u"S";

Text InBackupFolder(TextView name) { return Concat(BackupFolder, u"\\", name); }

// Release the open item only now: the bin takes whatever stands at the path.
void Recycle(platform::FoundItem& item, TextView path) {
  if (item.LeaveToShell()) pubSystem.DeleteToRecycleBin(path);
}

}  // namespace

platform::FoundFolder* Removal::Open(const FoundPlace& place) {
  const bool isOpen = folder_ != nullptr && startLength_ == place.startLength && path_ == place.folder;
  if (isOpen && folder_->Stands()) return folder_.get();
  LetGo();
  path_ = place.folder;
  startLength_ = place.startLength;
  TextView below = TextView(path_).substr(startLength_);
  if (below.starts_with(u'\\')) below.remove_prefix(1);
  folder_ = fileSystemObject.OpenFound(TextView(path_).substr(0, startLength_), below);
  return folder_.get();
}

bool Removal::RemoveFile(const FoundPlace& place) {
  platform::FoundFolder* const folder = Open(place);
  const auto item = folder != nullptr ? folder->Open(place.name) : nullptr;
  if (item == nullptr || !safeguard_.AllowsFile(place.folder, place.name)) return false;
  // Since the scan, a folder or a link to one may have taken the file's name. The open item refuses to be
  // deleted as one; the shell would delete it.
  if (item->IsFolder()) return false;
  if (CleaningMethod == kDelete) return item->DeleteFile();
  if (CleaningMethod == kRecycle) {
    const Text path = place.Path();
    if (fileSystemObject.FolderExists(path) != true) Recycle(*item, path);
  } else if (CleaningMethod == kSave && BackupFolderIsTrusted()) {
    const Text saved = InBackupFolder(place.name);
    return item->MoveFileTo(fileSystemObject.FileExists(saved) == true ? saved + u".1" : saved);
  }
  return false;
}

bool Removal::RemoveFolder(const FoundPlace& place) {
  // An open folder may be the one to be removed, or keep it from being listed.
  LetGo();
  if (!safeguard_.AllowsFolder(place.folder, place.name)) return false;
  platform::FoundFolder* const folder = Open(place);
  const auto item = folder != nullptr ? folder->Open(place.name) : nullptr;
  LetGo();
  if (item == nullptr) return false;
  if (CleaningMethod == kDelete) return item->DeleteEmptyFolder();
  if (CleaningMethod == kRecycle) {
    Recycle(*item, place.Path());
  } else if (CleaningMethod == kSave && BackupFolderIsTrusted()) {
    const Text saved = InBackupFolder(place.name);
    fileSystemObject.CreateFolder(fileSystemObject.FolderExists(saved) == true ? saved + u".1" : saved);
    return item->DeleteEmptyFolder();
  }
  return false;
}

}  // namespace tavix::mdlPubSelf
