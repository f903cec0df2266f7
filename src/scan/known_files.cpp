#include "scan/known_files.h"

#include "frame/support/file_system_object.h"

namespace tavix::mdlPubSelf {

platform::Existence KnownFiles::FileExists(TextView path) {
  if (const auto known = answers_.find(path); known != answers_.end()) return known->second;
  const platform::Existence exists = fileSystemObject.FileExists(path);
  if (exists != std::nullopt && answers_.size() < kMost) answers_.emplace(path, exists == true);
  return exists;
}

}  // namespace tavix::mdlPubSelf
