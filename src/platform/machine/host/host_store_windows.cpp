#include <direct.h>
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <utility>
#include <vector>

#include "platform/machine/formats/machine_path.h"
#include "platform/machine/host/host_store.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/temporary_name.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

constexpr size_t kBlock = size_t{256} << 10U;
constexpr int64_t kMaxRead = int64_t{1} << 30U;
// A file attribute as listings give it.
constexpr unsigned kReparsePoint = 0x400;

// Built from the listing, so a reparse point shows as itself and not as its target.
std::optional<StoreEntry> ToEntry(const _wfinddata64_t& found) {
  StoreEntry entry;
  const std::wstring_view name = found.name;
  entry.name.assign(name.begin(), name.end());
  if (entry.name == u"." || entry.name == u".." || !IsFileName(entry.name)) return std::nullopt;
  const bool link = (found.attrib & kReparsePoint) != 0;
  const bool folder = (found.attrib & _A_SUBDIR) != 0;
  entry.kind = link ? EntryKind::Link : folder ? EntryKind::Folder : EntryKind::File;
  if (entry.kind == EntryKind::File) entry.size = static_cast<uint64_t>(found.size);
  entry.modified = ToLocalTime(found.time_write * 1000);
  // Some file systems keep no access time.
  if (found.time_access != -1) entry.accessed = ToLocalTime(found.time_access * 1000);
  return entry;
}

// Owns an open file.
class HostFile {
 public:
  explicit HostFile(const std::wstring& path, int flags)
      : file_(_wopen(path.c_str(), flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE)) {}
  ~HostFile() { Close(); }
  HostFile(const HostFile&) = delete;
  HostFile& operator=(const HostFile&) = delete;

  explicit operator bool() const { return file_ >= 0; }
  int Get() const { return file_; }
  bool Close() {
    const int file = std::exchange(file_, -1);
    return file < 0 || _close(file) == 0;
  }

 private:
  int file_;
};

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const int written = _write(file, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), kBlock)));
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

class HostFolder : public StoreFolder {
 public:
  // `path` has the prefix `\\?\`, which allows any length.
  explicit HostFolder(std::wstring path) : path_(std::move(path)) {}

  using StoreFolder::Find;
  std::optional<StoreEntry> Find(TextView name, bool& sure) override {
    if (!IsFileName(name)) return std::nullopt;
    _wfinddata64_t found;
    const intptr_t search = _wfindfirst64(Path(name).c_str(), &found);
    if (search == -1) {
      if (errno != ENOENT) sure = false;
      return std::nullopt;
    }
    _findclose(search);
    return ToEntry(found);
  }

  bool Read(std::vector<StoreEntry>& entries) override {
    _wfinddata64_t found;
    const intptr_t search = _wfindfirst64((path_ + L"\\*").c_str(), &found);
    if (search == -1) return false;
    do {
      if (auto entry = ToEntry(found)) entries.push_back(*std::move(entry));
    } while (_wfindnext64(search, &found) == 0);
    _findclose(search);
    return true;
  }

  std::unique_ptr<StoreFolder> Open(TextView name) override {
    return Is(name, EntryKind::Folder) ? std::make_unique<HostFolder>(Path(name)) : nullptr;
  }

  std::optional<LinkTarget> ReadLink(TextView) override { return std::nullopt; }

  std::optional<std::string> ReadFile(TextView name) override {
    if (!Is(name, EntryKind::File)) return std::nullopt;
    const HostFile file(Path(name), _O_RDONLY);
    const int64_t size = file ? _filelengthi64(file.Get()) : -1;
    if (size < 0 || size > kMaxRead) return std::nullopt;
    std::string content(static_cast<size_t>(size), '\0');
    for (size_t done = 0; done < content.size();) {
      const auto chunk = static_cast<unsigned>(std::min(content.size() - done, kBlock));
      const int read = _read(file.Get(), content.data() + done, chunk);
      if (read <= 0) return std::nullopt;
      done += static_cast<size_t>(read);
    }
    return content;
  }

  bool MakeFolder(TextView name) override { return _wmkdir(Path(name).c_str()) == 0; }

  bool MakeFile(TextView name) override {
    return static_cast<bool>(HostFile(Path(name), _O_WRONLY | _O_CREAT | _O_EXCL));
  }

  bool WriteFile(TextView name, std::string_view content) override {
    if (Find(name) && !Is(name, EntryKind::File)) return false;
    return WriteNew([content](int file) { return WriteAll(file, content); },
                    [&](const std::wstring& temporary) {
                      std::error_code failure;
                      fs::rename(temporary, Path(name), failure);
                      return !failure;
                    });
  }

  bool Append(TextView name, std::string_view content) override {
    const bool made = !Find(name);
    if (!made && !Is(name, EntryKind::File)) return false;
    HostFile file(Path(name), _O_WRONLY | _O_APPEND | (made ? _O_CREAT | _O_EXCL : 0));
    const int64_t size = file ? _filelengthi64(file.Get()) : -1;
    if (size < 0) return false;
    if (WriteAll(file.Get(), content)) return true;
    _chsize_s(file.Get(), size);
    file.Close();
    if (made) _wunlink(Path(name).c_str());
    return false;
  }

  bool Remove(TextView name) override {
    const std::optional<StoreEntry> entry = Find(name);
    if (!entry || entry->kind == EntryKind::Folder) return false;
    // A link is a file or a folder to these calls; both delete only the link.
    return RemoveFile(Path(name)) || (entry->kind == EntryKind::Link && _wrmdir(Path(name).c_str()) == 0);
  }

  bool RemoveTree(TextView name) override {
    return RemoveTree(name, [](const StoreEntry&) { return true; });
  }

  bool RemoveEmptyTree(TextView name) override {
    return RemoveTree(
        name, [](const StoreEntry& entry) { return entry.kind == EntryKind::File && entry.size == 0; });
  }

  std::optional<uint64_t> TreeSize(TextView name) override {
    const std::optional<StoreEntry> entry = Find(name);
    if (!entry) return std::nullopt;
    if (entry->kind != EntryKind::Folder) return entry->size;
    uint64_t size = 0;
    for (std::vector<std::wstring> pending{Path(name)}; !pending.empty();) {
      HostFolder folder(std::move(pending.back()));
      pending.pop_back();
      std::vector<StoreEntry> entries;
      if (!folder.Read(entries)) return std::nullopt;
      for (const StoreEntry& below : entries) {
        size += below.size;
        if (below.kind == EntryKind::Folder) pending.push_back(folder.Path(below.name));
      }
    }
    return size;
  }

  // _wrename itself copies a file to another volume.
  MoveResult Move(TextView name, StoreFolder& to, TextView newName) override {
    const auto& target = static_cast<HostFolder&>(to);
    const bool moved = _wrename(Path(name).c_str(), target.Path(newName).c_str()) == 0;
    return moved ? MoveResult::Done : MoveResult::Failed;
  }

  bool Copy(TextView name, StoreFolder& to, TextView newName) override {
    auto& target = static_cast<HostFolder&>(to);
    if (!Is(name, EntryKind::File)) return false;
    const HostFile source(Path(name), _O_RDONLY);
    if (!source) return false;
    return target.WriteNew(
        [&source](int file) {
          std::vector<char> block(kBlock);
          int read = 0;
          while ((read = _read(source.Get(), block.data(), kBlock)) > 0) {
            if (!WriteAll(file, {block.data(), static_cast<size_t>(read)})) return false;
          }
          return read == 0 && _filelengthi64(file) == _filelengthi64(source.Get());
        },
        [&](const std::wstring& temporary) {
          return _wrename(temporary.c_str(), target.Path(newName).c_str()) == 0;
        });
  }

  void RemoveTemporaries() override {
    std::vector<StoreEntry> entries;
    Read(entries);
    for (const StoreEntry& entry : entries) {
      const bool ours = entry.kind == EntryKind::File && platform::kTemporaryFiles.ProcessOf(entry.name);
      if (ours) RemoveFile(Path(entry.name));
    }
  }

 private:
  std::wstring Path(TextView name) const { return path_ + L'\\' + std::wstring(name.begin(), name.end()); }
  // Removes a folder. `shouldRemove` chooses among its files and links.
  bool RemoveTree(TextView name, const std::function<bool(const StoreEntry& entry)>& shouldRemove) {
    bool gone = true;
    std::vector<std::wstring> pending{Path(name)};
    std::vector<std::wstring> folders;
    while (!pending.empty()) {
      const std::wstring path = std::move(pending.back());
      pending.pop_back();
      HostFolder folder(path);
      std::vector<StoreEntry> entries;
      gone = folder.Read(entries) && gone;
      for (const StoreEntry& entry : entries) {
        if (entry.kind == EntryKind::Folder) {
          pending.push_back(folder.Path(entry.name));
        } else {
          gone = shouldRemove(entry) && folder.Remove(entry.name) && gone;
        }
      }
      folders.push_back(path);
    }
    while (!folders.empty()) {
      gone = _wrmdir(folders.back().c_str()) == 0 && gone;
      folders.pop_back();
    }
    return gone;
  }

  bool Is(TextView name, EntryKind kind) {
    const std::optional<StoreEntry> entry = Find(name);
    return entry && entry->kind == kind;
  }
  // The host's read-only attribute doesn't count here.
  static bool RemoveFile(const std::wstring& path) {
    return _wunlink(path.c_str()) == 0 ||
           (_wchmod(path.c_str(), _S_IREAD | _S_IWRITE) == 0 && _wunlink(path.c_str()) == 0);
  }
  // Writes a file under a temporary name, flushes it and renames it with `name`.
  bool WriteNew(const std::function<bool(int file)>& write,
                const std::function<bool(const std::wstring& temporary)>& name) {
    static uint32_t count = 0;
    std::wstring temporary;
    do {
      temporary = Path(platform::kTemporaryFiles.Make(static_cast<uint32_t>(_getpid()), ++count));
    } while (_waccess(temporary.c_str(), 0) == 0);
    HostFile file(temporary, _O_WRONLY | _O_CREAT | _O_EXCL);
    if (!file) return false;
    const bool written = write(file.Get()) && _commit(file.Get()) == 0;
    if (file.Close() && written && name(temporary)) return true;
    RemoveFile(temporary);
    return false;
  }

  std::wstring path_;
};

class HostStore : public FileStore {
 public:
  explicit HostStore(std::wstring root) : root_(std::move(root)) {}

  std::unique_ptr<StoreFolder> Root() override { return std::make_unique<HostFolder>(root_); }

  std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) override {
    std::unique_ptr<StoreFolder> folder = Root();
    for (const Text& name : names) {
      const std::optional<StoreEntry> entry = folder->Find(name);
      if (!entry || entry->kind != EntryKind::Folder || entry->name != name) return nullptr;
      folder = folder->Open(name);
      if (folder == nullptr) return nullptr;
    }
    return folder;
  }

 private:
  std::wstring root_;
};

}  // namespace

std::unique_ptr<FileStore> OpenHostStore(const fs::path& root) {
  std::error_code failure;
  if (!fs::is_directory(root, failure)) return nullptr;
  fs::path whole = fs::absolute(root, failure);
  if (failure) return nullptr;
  std::wstring path = whole.make_preferred().native();
  // Without the prefix a path is limited to 260 characters.
  if (!path.starts_with(L"\\\\")) path.insert(0, L"\\\\?\\");
  while (path.ends_with(L'\\')) path.pop_back();
  return std::make_unique<HostStore>(std::move(path));
}

}  // namespace tavix::machine
