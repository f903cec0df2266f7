#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/machine/host/host_directory.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

bool WriteAll(int file, std::string_view bytes) {
  constexpr size_t kMaxBlock = size_t{1} << 20U;
  while (!bytes.empty()) {
    const int written = _write(file, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), kMaxBlock)));
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

class WindowsDirectory : public HostDirectory {
 public:
  explicit WindowsDirectory(fs::path path) : path_(std::move(path)) {}

  std::unique_ptr<HostDirectory> OpenFolder(const fs::path& name) const override {
    return Open(path_ / name);
  }

  bool Exists(const fs::path& name) const override {
    std::error_code failure;
    return fs::exists(fs::symlink_status(path_ / name, failure));
  }

  std::optional<std::vector<fs::path>> Names() const override {
    std::vector<fs::path> names;
    std::error_code failure;
    for (fs::directory_iterator entry(path_, failure), end; !failure && entry != end;
         entry.increment(failure)) {
      names.push_back(entry->path().filename());
    }
    return failure ? std::nullopt : std::optional(std::move(names));
  }

  bool IsSame(const HostDirectory&) const override { return true; }

  bool MakeFolder(const fs::path& name) override {
    std::error_code failure;
    return fs::create_directory(path_ / name, failure) && !failure;
  }

  bool WriteNewFile(const fs::path& name, std::string_view bytes) override {
    const int out = _wopen((path_ / name).c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                           _S_IREAD | _S_IWRITE);
    if (out < 0) return false;
    const bool written = WriteAll(out, bytes) && _commit(out) == 0;
    return _close(out) == 0 && written;
  }

  // Nothing to do: a new folder inherits its parent's rights.
  void TakeRightsOf(const HostDirectory&) override {}

  bool Remove(const fs::path& name) override {
    std::error_code failure;
    fs::remove(path_ / name, failure);
    return !failure;
  }

  bool RemoveEmptyFolder(const fs::path& name) override { return Exists(name) && Remove(name); }

  bool RemoveTree(const fs::path& name) override {
    std::error_code failure;
    fs::remove_all(path_ / name, failure);
    return !failure;
  }

  bool Rename(const fs::path& name, HostDirectory& to, const fs::path& newName) override {
    auto& target = static_cast<WindowsDirectory&>(to);
    return _wrename((path_ / name).c_str(), (target.path_ / newName).c_str()) == 0;
  }

  bool Exchange(const fs::path&, const fs::path&) override { return false; }

  // Nothing to do: the file system itself writes changes of names in their order.
  void Flush() override {}

 private:
  fs::path path_;
};

}  // namespace

std::unique_ptr<HostDirectory> HostDirectory::Open(const fs::path& path) {
  std::error_code failure;
  if (!fs::is_directory(fs::symlink_status(path, failure))) return nullptr;
  return std::make_unique<WindowsDirectory>(path);
}

}  // namespace tavix::machine
