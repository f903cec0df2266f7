#include "advanced/file_names.h"

#include "frame/support/file_system_object.h"
#include "text/letter_case.h"

namespace tavix::mdlPubSelf {

bool FileNames::Contains(TextView folder, TextView name) {
  if (!read_ || folder_ != folder) Read(folder);
  if (capitals_ && !capitals_->contains(ToUpper(name))) return false;
  return fileSystemObject.FileExists(Concat(folder, u"\\", name)) == true;
}

void FileNames::Read(TextView folder) {
  folder_ = folder;
  read_ = true;
  capitals_.emplace();
  const bool listed = fileSystemObject.List(folder, [this](const platform::DirectoryEntry& entry) {
    if (!entry.folder) capitals_->insert(ToUpper(entry.name));
  });
  if (!listed) capitals_.reset();
}

}  // namespace tavix::mdlPubSelf
