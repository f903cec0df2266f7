#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/machine/services/machine_instance.h"

namespace tavix::machine {

FolderInstance::~FolderInstance() {
  if (lock_ >= 0) _close(lock_);
}

bool FolderInstance::PreviousRuns() {
  if (lock_ >= 0) return false;
  const std::filesystem::path file = root_ / ".lock";
  // The system deletes the file when it is closed, even by a crash.
  lock_ = _wsopen(file.c_str(), _O_RDWR | _O_CREAT | _O_EXCL | _O_TEMPORARY | _O_NOINHERIT, _SH_DENYRW,
                  _S_IREAD | _S_IWRITE);
  return lock_ < 0 && (errno == EEXIST || errno == EACCES);
}

}  // namespace tavix::machine
