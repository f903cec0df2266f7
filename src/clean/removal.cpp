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

std::unique_ptr<platform::FoundItem> Open(const FoundPlace& place) {
  TextView below = TextView(place.folder).substr(place.startLength);
  if (below.starts_with(u'\\')) below.remove_prefix(1);
  return fileSystemObject.OpenFound(TextView(place.folder).substr(0, place.startLength),
                                    below.empty() ? place.name : PathBelow(below, place.name));
}

// Release the open item only now: the bin takes whatever stands at the path.
void Recycle(platform::FoundItem& item, TextView path) {
  if (item.LeaveToShell()) pubSystem.DeleteToRecycleBin(path);
}

}  // namespace

void Removal::RemoveFile(const FoundPlace& place) {
  const auto item = Open(place);
  if (item == nullptr || !safeguard_.AllowsFile(place.folder, place.name)) return;
  // Since the scan, a folder or a link to one may have taken the file's name. The open item refuses to be
  // deleted as one; the shell would delete it.
  if (item->IsFolder()) return;
  if (CleaningMethod == kRecycle) {
    const Text path = place.Path();
    if (fileSystemObject.FolderExists(path) != true) Recycle(*item, path);
  } else if (CleaningMethod == kDelete) {
    item->DeleteFile();
  } else if (CleaningMethod == kSave && BackupFolderIsTrusted()) {
    const Text saved = InBackupFolder(place.name);
    item->MoveFileTo(fileSystemObject.FileExists(saved) == true ? saved + u".1" : saved);
  }
}

void Removal::RemoveFolder(const FoundPlace& place) {
  // Ask the safeguard first: an open item may keep its folder from being listed.
  if (!safeguard_.AllowsFolder(place.folder, place.name)) return;
  const auto item = Open(place);
  if (item == nullptr) return;
  if (CleaningMethod == kRecycle) {
    Recycle(*item, place.Path());
  } else if (CleaningMethod == kDelete) {
    item->DeleteEmptyFolder();
  } else if (CleaningMethod == kSave && BackupFolderIsTrusted()) {
    const Text saved = InBackupFolder(place.name);
    fileSystemObject.CreateFolder(fileSystemObject.FolderExists(saved) == true ? saved + u".1" : saved);
    item->DeleteEmptyFolder();
  }
}

}  // namespace tavix::mdlPubSelf
