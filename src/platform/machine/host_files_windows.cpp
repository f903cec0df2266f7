#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/machine/host_files.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

bool WriteAll(int file, std::string_view bytes) {
  constexpr size_t kMost = size_t{1} << 20U;
  while (!bytes.empty()) {
    const int written = _write(file, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), kMost)));
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

}  // namespace

bool WriteHostFile(const fs::path& file, std::string_view bytes) {
  const int out =
      _wopen(file.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
  if (out < 0) return false;
  const bool written = WriteAll(out, bytes) && _commit(out) == 0;
  return _close(out) == 0 && written;
}

// The file system keeps the order of its names itself.
void FlushHostFolder(const fs::path&) {}

bool ExchangeHostNames(const fs::path&, const fs::path&) { return false; }

}  // namespace tavix::machine
