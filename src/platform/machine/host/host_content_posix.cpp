#include "platform/machine/host/host_content_posix.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <vector>

#include "platform/machine/host/host_tree_posix.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

// Larger files aren't read.
constexpr off_t kMaxRead = off_t{1} << 30U;
constexpr size_t kBlock = size_t{256} << 10U;

std::optional<struct stat> FileFacts(int file) {
  struct stat facts {};
  if (::fstat(file, &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
  return facts;
}

// Reads up to `size` bytes; fewer only at the end of the file. Negative on failure.
ssize_t ReadBlock(int file, char* bytes, size_t size) {
  size_t done = 0;
  while (done < size) {
    const ssize_t read = ::read(file, bytes + done, size - done);
    if (read < 0 && errno != EINTR) return -1;
    if (read == 0) break;
    if (read > 0) done += static_cast<size_t>(read);
  }
  return static_cast<ssize_t>(done);
}

}  // namespace

HostHandle OpenHostFile(int folder, const std::string& name, int flags) {
  // O_NONBLOCK: opening a pipe would otherwise wait for its other end.
  flags |= O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
  constexpr mode_t kRights = 0666;
  HostHandle file;
  if ((flags & O_ACCMODE) == O_RDONLY) file = HostHandle(::openat(folder, name.c_str(), flags | O_NOATIME));
  if (!file) file = HostHandle(::openat(folder, name.c_str(), flags, kRights));
  return file && FileFacts(file.Get()) ? std::move(file) : HostHandle();
}

std::optional<std::string> ReadHostContent(int file) {
  const std::optional<struct stat> facts = FileFacts(file);
  if (!facts || facts->st_size > kMaxRead) return std::nullopt;
  // One more byte shows whether the file has grown meanwhile.
  std::string content(static_cast<size_t>(facts->st_size) + 1, '\0');
  size_t size = 0;
  for (;;) {
    const ssize_t read = ReadBlock(file, content.data() + size, content.size() - size);
    if (read < 0) return std::nullopt;
    size += static_cast<size_t>(read);
    if (size < content.size()) break;
    if (size > static_cast<size_t>(kMaxRead)) return std::nullopt;
    content.resize(content.size() + kBlock);
  }
  content.resize(size);
  return content;
}

bool WriteHostContent(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

bool CopyHostContent(int from, int to) {
  const std::optional<struct stat> source = FileFacts(from);
  if (!source) return false;
  std::vector<char> block(kBlock);
  for (;;) {
    const ssize_t read = ReadBlock(from, block.data(), block.size());
    if (read < 0 || !WriteHostContent(to, {block.data(), static_cast<size_t>(read)})) return false;
    if (static_cast<size_t>(read) < block.size()) break;
  }
  const std::optional<struct stat> copy = FileFacts(to);
  if (!copy || copy->st_size != source->st_size) return false;
  ::fchmod(to, source->st_mode & 07777U);
  const struct timespec times[] = {source->st_atim, source->st_mtim};
  return ::futimens(to, times) == 0;
}

void RemoveHostTemporaries(int folder) {
  std::vector<std::string> names;
  ReadHostNames(folder, [&names](const char* name, unsigned char) {
    const std::optional<Text> text = FromUtf8(name);
    if (text && kHostTemporaries.ProcessOf(*text)) names.emplace_back(name);
  });
  for (const std::string& name : names) {
    struct stat facts {};
    const bool file =
        ::fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(facts.st_mode);
    if (file) ::unlinkat(folder, name.c_str(), 0);
  }
}

NewHostFile::NewHostFile(int folder) : folder_(folder) {
  static uint32_t count = 0;
  constexpr int kTries = 100;
  for (int i = 0; i < kTries && !file_; ++i) {
    temporary_ = ToUtf8(kHostTemporaries.Make(static_cast<uint32_t>(::getpid()), ++count));
    file_ = HostHandle(
        ::openat(folder, temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (!file_ && errno != EEXIST) break;
  }
  if (!file_) temporary_.clear();
}

NewHostFile::~NewHostFile() {
  if (!temporary_.empty()) ::unlinkat(folder_, temporary_.c_str(), 0);
}

bool NewHostFile::Replace(const std::string& name) {
  if (!file_ || ::fsync(file_.Get()) != 0) return false;
  struct stat old {};
  if (::fstatat(folder_, name.c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0) {
    if (!S_ISREG(old.st_mode)) return false;
    ::fchmod(file_.Get(), old.st_mode & 07777U);
  }
  if (::renameat(folder_, temporary_.c_str(), folder_, name.c_str()) != 0) return false;
  temporary_.clear();
  return true;
}

bool NewHostFile::Name(const std::string& name) {
  if (!file_ || ::fsync(file_.Get()) != 0) return false;
  if (RenameHostEntry(folder_, temporary_, folder_, name) != 0) return false;
  temporary_.clear();
  return true;
}

int RenameHostEntry(int fromFolder, const std::string& from, int toFolder, const std::string& to) {
  if (::renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // This file system lacks RENAME_NOREPLACE. A hard link for a file, and a new empty folder to rename a
  // folder onto, also fail when the name is taken.
  struct stat facts {};
  if (::fstatat(fromFolder, from.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) return errno;
  if (S_ISDIR(facts.st_mode)) {
    if (::mkdirat(toFolder, to.c_str(), facts.st_mode & 07777U) != 0) return errno;
    if (::renameat(fromFolder, from.c_str(), toFolder, to.c_str()) == 0) return 0;
    const int failure = errno;
    ::unlinkat(toFolder, to.c_str(), AT_REMOVEDIR);
    return failure;
  }
  if (::linkat(fromFolder, from.c_str(), toFolder, to.c_str(), 0) != 0) return errno;
  if (::unlinkat(fromFolder, from.c_str(), 0) == 0) return 0;
  const int failure = errno;
  ::unlinkat(toFolder, to.c_str(), 0);
  return failure;
}

}  // namespace tavix::machine
