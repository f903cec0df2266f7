#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/machine/host_files.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

}  // namespace

bool WriteHostFile(const fs::path& file, std::string_view bytes) {
  const int out = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666);
  if (out < 0) return false;
  const bool written = WriteAll(out, bytes) && ::fsync(out) == 0;
  return ::close(out) == 0 && written;
}

void FlushHostFolder(const fs::path& folder) {
  const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return;
  ::fsync(opened);
  ::close(opened);
}

bool ExchangeHostNames(const fs::path& left, const fs::path& right) {
  return ::renameat2(AT_FDCWD, left.c_str(), AT_FDCWD, right.c_str(), RENAME_EXCHANGE) == 0;
}

}  // namespace tavix::machine
