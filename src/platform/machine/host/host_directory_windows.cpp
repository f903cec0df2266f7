#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <algorithm>
#include <utility>

#include "platform/clock.h"
#include "platform/machine/host/host_directory.h"
#include "platform/windows/windows_api.h"

#include <winioctl.h>

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

// SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE: in developer mode no right is needed.
constexpr DWORD kUnprivileged = 2;

FILETIME ToFileTime(int64_t milliseconds) {
  constexpr int64_t kFrom1601To1970 = 11'644'473'600'000;
  const auto ticks = static_cast<uint64_t>(std::max<int64_t>(milliseconds + kFrom1601To1970, 1)) * 10'000;
  return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
}

DWORD AttributesOf(const fs::path& path) { return GetFileAttributesW(path.c_str()); }

bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

// The names in a folder. Nothing when it can't be read.
std::optional<std::vector<fs::path>> NamesIn(const fs::path& folder) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW((folder / L"*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return std::nullopt;
  std::vector<fs::path> names;
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") names.emplace_back(name);
  } while (FindNextFileW(search, &found) != 0);
  const bool complete = GetLastError() == ERROR_NO_MORE_FILES;
  FindClose(search);
  return complete ? std::optional(std::move(names)) : std::nullopt;
}

// Removes a file, a link or an empty folder; also a read-only one.
bool RemoveOne(const fs::path& path) {
  const DWORD attributes = AttributesOf(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return true;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
    SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return (folder ? RemoveDirectoryW(path.c_str()) : DeleteFileW(path.c_str())) != 0;
}

// Its path has the prefix `\\?\`, which allows any length. The library's own routines don't take such a path.
class WindowsDirectory : public HostDirectory {
 public:
  explicit WindowsDirectory(fs::path path) : path_(std::move(path)) {}

  std::unique_ptr<HostDirectory> OpenFolder(const fs::path& name) const override {
    if (!IsFolder(AttributesOf(path_ / name))) return nullptr;
    return std::make_unique<WindowsDirectory>(path_ / name);
  }

  bool Exists(const fs::path& name) const override {
    return AttributesOf(path_ / name) != INVALID_FILE_ATTRIBUTES;
  }

  std::optional<std::vector<fs::path>> Names() const override { return NamesIn(path_); }

  bool IsSame(const HostDirectory&) const override { return true; }

  bool MakeFolder(const fs::path& name) override {
    return CreateDirectoryW((path_ / name).c_str(), nullptr) != 0;
  }

  bool WriteNewFile(const fs::path& name, std::string_view bytes) override {
    const int out = _wopen((path_ / name).c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                           _S_IREAD | _S_IWRITE);
    if (out < 0) return false;
    const bool written = WriteAll(out, bytes) && _commit(out) == 0;
    return _close(out) == 0 && written;
  }

  bool MakeSparseFile(const fs::path& name, uint64_t size) override {
    const HANDLE file =
        CreateFileW((path_ / name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    LARGE_INTEGER end;
    end.QuadPart = static_cast<LONGLONG>(size);
    DWORD returned = 0;
    const bool made =
        size == 0 || (size <= INT64_MAX &&
                      DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &returned, nullptr) &&
                      SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && SetEndOfFile(file));
    CloseHandle(file);
    if (!made) Remove(name);
    return made;
  }

  bool MakeLink(const fs::path& name, const fs::path& target, bool toFolder) override {
    const fs::path link = path_ / name;
    if (GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES) return false;
    const DWORD flags = kUnprivileged | (toFolder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0);
    fs::path windowsTarget = target;
    if (!CreateSymbolicLinkW(link.c_str(), windowsTarget.make_preferred().c_str(), flags)) return false;
    // Some systems report a link that they didn't make.
    return GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  bool SetTimes(const fs::path& name, int64_t modified, int64_t accessed) override {
    const HANDLE item = CreateFileW(
        (path_ / name).c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (item == INVALID_HANDLE_VALUE) return false;
    const FILETIME write = ToFileTime(modified), access = ToFileTime(accessed);
    const bool set = SetFileTime(item, nullptr, accessed != platform::kUnknownTime ? &access : nullptr,
                                 modified != platform::kUnknownTime ? &write : nullptr) != 0;
    CloseHandle(item);
    return set;
  }

  // Nothing to do: a new folder inherits its parent's rights.
  void TakeRightsOf(const HostDirectory&) override {}

  bool Remove(const fs::path& name) override {
    return !IsFolder(AttributesOf(path_ / name)) && RemoveOne(path_ / name);
  }

  bool RemoveEmptyFolder(const fs::path& name) override { return Exists(name) && RemoveOne(path_ / name); }

  bool RemoveTree(const fs::path& name) override {
    std::vector<fs::path> paths = {path_ / name};
    // Folders come before what is in them, so the removal goes from the end.
    for (size_t i = 0; i < paths.size(); ++i) {
      if (!IsFolder(AttributesOf(paths[i]))) continue;
      const auto names = NamesIn(paths[i]);
      if (!names) return false;
      for (const fs::path& inner : *names) paths.push_back(paths[i] / inner);
    }
    return std::all_of(paths.rbegin(), paths.rend(), RemoveOne);
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
  const fs::path absolute = fs::absolute(path, failure);
  if (failure) return nullptr;
  std::wstring name = absolute.lexically_normal().make_preferred().native();
  while (name.size() > 3 && name.back() == L'\\') name.pop_back();
  if (!name.starts_with(L"\\\\")) name.insert(0, L"\\\\?\\");
  if (!IsFolder(AttributesOf(name))) return nullptr;
  return std::make_unique<WindowsDirectory>(std::move(name));
}

}  // namespace tavix::machine
