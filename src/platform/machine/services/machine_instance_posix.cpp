#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/machine/services/machine_instance.h"

namespace tavix::machine {

FolderInstance::~FolderInstance() {
  if (lock_ >= 0) ::close(lock_);
}

bool FolderInstance::PreviousRuns() {
  if (lock_ >= 0) return false;
  const int folder = ::open(root_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
  if (folder < 0) return false;
  if (::flock(folder, LOCK_EX | LOCK_NB) == 0) {
    lock_ = folder;
    return false;
  }
  ::close(folder);
  return true;
}

}  // namespace tavix::machine
