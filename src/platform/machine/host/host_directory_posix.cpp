#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>

#include "platform/clock.h"
#include "platform/machine/host/host_content_posix.h"
#include "platform/machine/host/host_directory.h"
#include "platform/machine/host/host_folders_posix.h"
#include "platform/machine/host/host_tree_posix.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

constexpr int kFolder = O_PATH | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;

timespec ToHostTime(int64_t milliseconds) {
  if (milliseconds == platform::kUnknownTime) return {0, UTIME_OMIT};
  const int64_t second = milliseconds / 1000 - (milliseconds % 1000 < 0 ? 1 : 0);
  return {second, static_cast<long>(milliseconds - second * 1000) * 1'000'000};
}

class PosixDirectory : public HostDirectory {
 public:
  explicit PosixDirectory(HostHandle folder) : folder_(std::move(folder)) {}

  std::unique_ptr<HostDirectory> OpenFolder(const fs::path& name) const override {
    HostHandle opened(::openat(Get(), name.c_str(), kFolder));
    return opened ? std::make_unique<PosixDirectory>(std::move(opened)) : nullptr;
  }

  bool Exists(const fs::path& name) const override {
    struct stat facts {};
    return ::fstatat(Get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
  }

  std::optional<std::vector<fs::path>> Names() const override {
    std::vector<fs::path> names;
    const bool read =
        ReadHostNames(Get(), [&names](const char* name, unsigned char) { names.emplace_back(name); });
    return read ? std::optional(std::move(names)) : std::nullopt;
  }

  bool IsSame(const HostDirectory& other) const override {
    const auto left = ReadFolderState(Get()), right = ReadFolderState(Of(other));
    return left && right && left->id == right->id;
  }

  bool MakeFolder(const fs::path& name) override { return ::mkdirat(Get(), name.c_str(), 0777) == 0; }

  bool WriteNewFile(const fs::path& name, std::string_view bytes) override {
    const HostHandle file = OpenHostFile(Get(), name.native(), O_WRONLY | O_CREAT | O_EXCL);
    return file && WriteHostContent(file.Get(), bytes) && ::fsync(file.Get()) == 0;
  }

  bool MakeSparseFile(const fs::path& name, uint64_t size) override {
    const HostHandle file = OpenHostFile(Get(), name.native(), O_WRONLY | O_CREAT | O_EXCL);
    if (!file) return false;
    if (size <= INT64_MAX && ::ftruncate(file.Get(), static_cast<off_t>(size)) == 0) return true;
    Remove(name);
    return false;
  }

  bool MakeLink(const fs::path& name, const fs::path& target, bool) override {
    return ::symlinkat(target.c_str(), Get(), name.c_str()) == 0;
  }

  bool SetTimes(const fs::path& name, int64_t modified, int64_t accessed) override {
    const timespec times[] = {ToHostTime(accessed), ToHostTime(modified)};
    return ::utimensat(Get(), name.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0;
  }

  void TakeRightsOf(const HostDirectory& other) override {
    struct stat facts {};
    if (::fstat(Of(other), &facts) != 0) return;
    static_cast<void>(!::fchmodat(Get(), ".", (facts.st_mode & 07777U) | S_IRWXU, 0));
  }

  bool Remove(const fs::path& name) override {
    return ::unlinkat(Get(), name.c_str(), 0) == 0 || errno == ENOENT;
  }

  bool RemoveEmptyFolder(const fs::path& name) override {
    return ::unlinkat(Get(), name.c_str(), AT_REMOVEDIR) == 0;
  }

  bool RemoveTree(const fs::path& name) override {
    if (Remove(name)) return true;
    const auto removeWith = [](int flag) {
      return [flag](int folder, const std::string& entry) {
        return ::unlinkat(folder, entry.c_str(), flag) == 0;
      };
    };
    return WalkHostTree(Get(), name.native(), removeWith(0), removeWith(AT_REMOVEDIR));
  }

  bool Rename(const fs::path& name, HostDirectory& to, const fs::path& newName) override {
    return RenameHostEntry(Get(), name.native(), Of(to), newName.native()) == 0;
  }

  bool Exchange(const fs::path& left, const fs::path& right) override {
    return ::renameat2(Get(), left.c_str(), Get(), right.c_str(), RENAME_EXCHANGE) == 0;
  }

  void Flush() override {
    const HostHandle opened(::openat(Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) ::fsync(opened.Get());
  }

 private:
  static int Of(const HostDirectory& folder) { return static_cast<const PosixDirectory&>(folder).Get(); }
  int Get() const { return folder_.Get(); }

  HostHandle folder_;
};

}  // namespace

std::unique_ptr<HostDirectory> HostDirectory::Open(const fs::path& path) {
  const HostHandle root(::open("/", kFolder));
  if (!root || !path.is_absolute()) return nullptr;
  HostHandle opened = OpenHostFolder(root.Get(), path.lexically_normal().relative_path().native());
  return opened ? std::make_unique<PosixDirectory>(std::move(opened)) : nullptr;
}

}  // namespace tavix::machine
