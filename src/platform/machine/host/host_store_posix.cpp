#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <iterator>
#include <utility>

#include "platform/machine/formats/machine_path.h"
#include "platform/machine/host/host_content_posix.h"
#include "platform/machine/host/host_folders_posix.h"
#include "platform/machine/host/host_names_posix.h"
#include "platform/machine/host/host_store.h"
#include "platform/machine/host/host_tree_posix.h"
#include "platform/machine/host/machine_clock.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

// O_PATH needs no right to read the folder.
constexpr int kFolder = O_PATH | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;
constexpr int kReadFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;
constexpr unsigned kFacts = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_ATIME;

platform::DateTime ToLocal(const struct statx_timestamp& time, bool hasZone) {
  return ToLocalTime(time.tv_sec * 1000 + time.tv_nsec / 1'000'000, hasZone);
}

// Nothing for pipes, sockets and devices, which a machine can't have.
std::optional<StoreEntry> ToEntry(const struct statx& facts, Text name, bool hasZone) {
  StoreEntry entry;
  const unsigned type = facts.stx_mode & static_cast<unsigned>(S_IFMT);
  if (type != S_IFREG && type != S_IFDIR && type != S_IFLNK) return std::nullopt;
  entry.name = std::move(name);
  entry.kind = type == S_IFREG ? EntryKind::File : type == S_IFDIR ? EntryKind::Folder : EntryKind::Link;
  if (type == S_IFREG) entry.size = facts.stx_size;
  entry.modified = ToLocal(facts.stx_mtime, hasZone);
  // Some file systems keep no access time.
  if ((facts.stx_mask & STATX_ATIME) != 0) entry.accessed = ToLocal(facts.stx_atime, hasZone);
  return entry;
}

// A name that is too long can't exist.
bool IsNotFound(int failure) { return failure == ENOENT || failure == ENAMETOOLONG; }

bool ReadFacts(int folder, const char* raw, struct statx& facts) {
  return ::statx(folder, raw, AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC, kFacts, &facts) == 0;
}

std::optional<StoreEntry> ReadEntry(int folder, const char* raw, Text name) {
  struct statx facts {};
  if (!ReadFacts(folder, raw, facts)) return std::nullopt;
  return ToEntry(facts, std::move(name), HasZone());
}

// The text of a name, and whether Windows could have it. ASCII, which most names are, takes no memory.
class HostName {
 public:
  explicit HostName(std::string_view raw) {
    size_t size = 0;
    for (; size < raw.size() && size < std::size(ascii_) && raw[size] > 0; ++size) {
      ascii_[size] = static_cast<char16_t>(raw[size]);
    }
    if (size == raw.size()) {
      text_ = {ascii_, size};
    } else if ((other_ = FromUtf8(raw))) {
      text_ = *other_;
    }
  }
  HostName(const HostName&) = delete;
  HostName& operator=(const HostName&) = delete;

  TextView Get() const { return text_; }
  bool IsValid() const { return IsFileName(text_); }

 private:
  char16_t ascii_[256];
  std::optional<Text> other_;
  TextView text_;
};

// Adds an entry, unless its name is impossible on Windows or it is nothing that a machine can have. One
// system call at most.
void AddEntry(int folder, const dirent64& raw, bool hasZone, platform::FolderListing& listing,
              const platform::NameFilter& wanted) {
  const HostName name(raw.d_name);
  if (!name.IsValid() || (raw.d_type == DT_REG && wanted && !wanted(name.Get()))) return;
  platform::DirectoryEntry entry;
  entry.name = name.Get();
  struct statx facts {};
  entry.known = ReadFacts(folder, raw.d_name, facts);
  const unsigned mode = entry.known ? facts.stx_mode : DTTOIF(raw.d_type);
  const bool file = S_ISREG(mode);
  entry.folder = S_ISDIR(mode);
  entry.link = S_ISLNK(mode);
  if (!file && !entry.folder && !entry.link) return;
  if (entry.known) {
    if (file) entry.size = facts.stx_size;
    entry.modified = ToLocal(facts.stx_mtime, hasZone);
    // Some file systems keep no access time.
    if ((facts.stx_mask & STATX_ATIME) != 0) entry.accessed = ToLocal(facts.stx_atime, hasZone);
    if (raw.d_type == DT_UNKNOWN && file && wanted && !wanted(entry.name)) return;
  }
  listing.Add(entry);
}

// Lists a folder that is open for reading and hasn't been listed by this handle.
bool ListHostFolder(int folder, platform::FolderListing& listing, const platform::NameFilter& wanted) {
  const bool hasZone = HasZone();
  alignas(dirent64) char buffer[size_t{32} << 10U];
  for (;;) {
    const ssize_t size = ::getdents64(folder, buffer, sizeof(buffer));
    if (size <= 0) return size == 0;
    for (ssize_t at = 0; at < size;) {
      const auto& entry = *reinterpret_cast<const dirent64*>(buffer + at);
      at += entry.d_reclen;
      if (!listing.Continue()) return false;
      AddEntry(folder, entry, hasZone, listing, wanted);
    }
  }
}

// Data shared by all folders of a store.
struct Shared {
  std::string root;  // the path of the store
  HostNames names;
};

class HostFolder : public StoreFolder {
 public:
  HostFolder(std::shared_ptr<HostOpenFolder> folder, std::shared_ptr<Shared> shared)
      : folder_(std::move(folder)), shared_(std::move(shared)) {}

  bool Stands() override { return folder_->Stands(); }

  using StoreFolder::Find;
  std::optional<StoreEntry> Find(TextView name, bool& sure) override {
    if (folder_->Lacks(name)) return std::nullopt;
    struct statx facts {};
    if (ReadFacts(Get(), ToUtf8(name).c_str(), facts)) return ToEntry(facts, Text(name), HasZone());
    sure = IsNotFound(errno);
    const std::optional<std::string> other = sure ? OtherCase(name, sure) : std::nullopt;
    std::optional<Text> text = other ? FromUtf8(*other) : std::nullopt;
    if (!text) return std::nullopt;
    if (ReadFacts(Get(), other->c_str(), facts)) return ToEntry(facts, *std::move(text), HasZone());
    sure = IsNotFound(errno);
    return std::nullopt;
  }

  bool Read(std::vector<StoreEntry>& entries) override {
    platform::FolderListing listing;
    if (!List(listing, {})) return false;
    entries.reserve(entries.size() + listing.Count());
    listing.Visit(
        [&entries](const platform::DirectoryEntry& entry) {
          const EntryKind kind = entry.folder ? EntryKind::Folder
                                 : entry.link ? EntryKind::Link
                                              : EntryKind::File;
          entries.push_back(
              {Text(entry.name), kind, entry.size, entry.modified, entry.accessed, entry.known});
        },
        {});
    return true;
  }

  bool List(platform::FolderListing& listing, const platform::NameFilter& wanted) override {
    if (!readable_ || std::exchange(listed_, true)) {
      const HostHandle again(::openat(Get(), ".", kReadFolder));
      return again && ListHostFolder(again.Get(), listing, wanted);
    }
    return ListHostFolder(Get(), listing, wanted);
  }

  // A folder that is opened for reading can be listed without opening it again.
  std::unique_ptr<StoreFolder> Open(TextView name) override {
    const std::string raw = ToUtf8(name);
    HostHandle opened(::openat(Get(), raw.c_str(), kReadFolder));
    const bool readable = static_cast<bool>(opened);
    if (!readable && errno == EACCES) opened = HostHandle(::openat(Get(), raw.c_str(), kFolder));
    if (!opened) return nullptr;
    auto folder = std::make_unique<HostFolder>(std::make_shared<HostOpenFolder>(std::move(opened)), shared_);
    folder->readable_ = readable;
    return folder;
  }

  std::optional<LinkTarget> ReadLink(TextView name) override {
    char bytes[PATH_MAX];
    const ssize_t size = ::readlinkat(Get(), ToUtf8(name).c_str(), bytes, sizeof(bytes));
    if (size <= 0 || static_cast<size_t>(size) == sizeof(bytes)) return std::nullopt;
    return ToTarget({bytes, static_cast<size_t>(size)});
  }

  std::optional<std::string> ReadFile(TextView name) override {
    const HostHandle file = OpenHostFile(Get(), ToUtf8(name), O_RDONLY);
    return file ? ReadHostContent(file.Get()) : std::nullopt;
  }

  bool MakeFolder(TextView name) override {
    const std::string raw = ToUtf8(name);
    if (::mkdirat(Get(), raw.c_str(), 0777) != 0) return false;
    Added(raw);
    return true;
  }

  bool MakeFile(TextView name) override {
    const std::string raw = ToUtf8(name);
    if (!OpenHostFile(Get(), raw, O_WRONLY | O_CREAT | O_EXCL)) return false;
    Added(raw);
    return true;
  }

  bool WriteFile(TextView name, std::string_view content) override {
    const std::string raw = ToUtf8(name);
    NewHostFile file(Get());
    if (!WriteHostContent(file.Get(), content) || !file.Replace(raw)) return false;
    Added(raw);
    return true;
  }

  bool Append(TextView name, std::string_view content) override {
    const std::string raw = ToUtf8(name);
    HostHandle file = OpenHostFile(Get(), raw, O_WRONLY | O_APPEND);
    const bool made = !file;
    if (made) file = OpenHostFile(Get(), raw, O_WRONLY | O_APPEND | O_CREAT | O_EXCL);
    if (!file) return false;
    const off_t size = ::lseek(file.Get(), 0, SEEK_END);
    const bool written = WriteHostContent(file.Get(), content);
    if (made) Added(raw);
    if (written) return true;
    if (made) {
      Remove(name);
    } else if (size >= 0) {
      static_cast<void>(!::ftruncate(file.Get(), size));
    }
    return false;
  }

  bool Remove(TextView name) override {
    const std::string raw = ToUtf8(name);
    if (::unlinkat(Get(), raw.c_str(), 0) != 0) return false;
    Removed(raw, name);
    return true;
  }

  bool RemoveTree(TextView name) override {
    return RemoveTree(
        name, [](int folder, const std::string& entry) { return ::unlinkat(folder, entry.c_str(), 0) == 0; });
  }

  bool RemoveEmptyTree(TextView name) override {
    return RemoveTree(name, [](int folder, const std::string& entry) {
      struct statx facts {};
      return ReadFacts(folder, entry.c_str(), facts) && S_ISREG(facts.stx_mode) && facts.stx_size == 0 &&
             ::unlinkat(folder, entry.c_str(), 0) == 0;
    });
  }

  std::optional<uint64_t> TreeSize(TextView name) override {
    const std::optional<StoreEntry> entry = Find(name);
    if (!entry) return std::nullopt;
    if (entry->kind != EntryKind::Folder) return entry->size;
    uint64_t size = 0;
    const auto add = [&size](int folder, const std::string& raw) {
      if (const auto file = ReadEntry(folder, raw.c_str(), {})) size += file->size;
      return true;
    };
    const bool read = WalkHostTree(Get(), ToUtf8(name), add, [](int, const std::string&) { return true; });
    return read ? std::optional(size) : std::nullopt;
  }

  MoveResult Move(TextView name, StoreFolder& to, TextView newName) override {
    auto& target = static_cast<HostFolder&>(to);
    const std::string raw = ToUtf8(name);
    const std::string rawNew = ToUtf8(newName);
    const int failure = RenameHostEntry(Get(), raw, target.Get(), rawNew);
    if (failure == EXDEV) return MoveResult::OtherVolume;
    if (failure != 0) return MoveResult::Failed;
    Removed(raw, name);
    target.Added(rawNew);
    return MoveResult::Done;
  }

  bool Copy(TextView name, StoreFolder& to, TextView newName) override {
    auto& target = static_cast<HostFolder&>(to);
    const std::string rawNew = ToUtf8(newName);
    const HostHandle source = OpenHostFile(Get(), ToUtf8(name), O_RDONLY);
    if (!source) return false;
    NewHostFile copy(target.Get());
    if (copy.Get() < 0 || !CopyHostContent(source.Get(), copy.Get()) || !copy.Name(rawNew)) return false;
    target.Added(rawNew);
    return true;
  }

  void RemoveTemporaries() override { RemoveHostTemporaries(Get()); }

 private:
  int Get() const { return folder_->Get(); }

  // `file` removes an entry that is no folder, or leaves it.
  bool RemoveTree(TextView name, const HostAction& file) {
    const std::string raw = ToUtf8(name);
    // Refuse when the folder holds names that listings leave out: the user can't know of them.
    const auto isShown = [](int, const std::string& entry) {
      const std::optional<Text> text = FromUtf8(entry);
      return text && IsFileName(*text);
    };
    if (!WalkHostTree(Get(), raw, isShown, isShown)) return false;
    const bool gone = WalkHostTree(Get(), raw, file, [](int folder, const std::string& entry) {
      return ::unlinkat(folder, entry.c_str(), AT_REMOVEDIR) == 0;
    });
    // The host may reuse a removed folder's inode number.
    shared_->names.Forget();
    if (gone) folder_->Removed(name);
    return gone;
  }

  // The stored name that equals `name` ignoring letter case. `sure` is set to false when the folder can't be
  // read.
  std::optional<std::string> OtherCase(TextView name, bool& sure) {
    if (!folder_->Watched()) return shared_->names.Find(Get(), name, sure);
    const std::string* other = folder_->FindName(name, sure);
    return other != nullptr ? std::optional(*other) : std::nullopt;
  }

  void Added(const std::string& raw) {
    folder_->Added(raw);
    shared_->names.Added(Get(), raw);
  }

  void Removed(const std::string& raw, TextView name) {
    folder_->Removed(name);
    // A leftover name in the shared table is harmless: its entry is always looked up.
    if (!folder_->Watched()) shared_->names.Removed(Get(), raw);
  }

  // The names of a link's target. Nothing when an absolute path doesn't begin with that of the store.
  std::optional<LinkTarget> ToTarget(std::string_view path) const {
    LinkTarget target;
    if (path.starts_with('/')) {
      const std::string& root = shared_->root;
      if (!path.starts_with(root) || (path.size() > root.size() && path[root.size()] != '/')) {
        return std::nullopt;
      }
      path.remove_prefix(root.size());
      target.fromRoot = true;
    }
    while (!path.empty()) {
      const size_t end = std::min(path.find('/'), path.size());
      const std::string_view raw = path.substr(0, end);
      path.remove_prefix(std::min(end + 1, path.size()));
      if (raw.empty() || raw == ".") continue;
      std::optional<Text> name = FromUtf8(raw);
      if (!name || !(raw == ".." || IsFileName(*name))) return std::nullopt;
      target.names.push_back(*std::move(name));
    }
    return target;
  }

  std::shared_ptr<HostOpenFolder> folder_;
  std::shared_ptr<Shared> shared_;
  bool readable_ = false;  // opened for reading
  bool listed_ = false;
};

class HostStore : public FileStore {
 public:
  HostStore(HostHandle root, std::shared_ptr<Shared> shared)
      : folders_(std::move(root)), shared_(std::move(shared)) {}

  std::unique_ptr<StoreFolder> Root() override { return Open({}); }

  std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) override {
    std::string path;
    for (const Text& name : names) {
      if (!path.empty()) path += '/';
      path += ToUtf8(name);
    }
    auto folder = folders_.Open(path);
    return folder != nullptr ? std::make_unique<HostFolder>(std::move(folder), shared_) : nullptr;
  }

  // A quarter of what the system lets this process open.
  size_t MostSpareFolders() const override {
    struct rlimit limit {};
    return getrlimit(RLIMIT_NOFILE, &limit) == 0 ? static_cast<size_t>(limit.rlim_cur / 4) : 0;
  }

 private:
  HostFolders folders_;
  std::shared_ptr<Shared> shared_;
};

}  // namespace

std::unique_ptr<FileStore> OpenHostStore(const std::filesystem::path& root) {
  HostHandle opened(::open(root.c_str(), kFolder));
  if (!opened) return nullptr;
  auto shared = std::make_shared<Shared>();
  shared->root = root.native();
  return std::make_unique<HostStore>(std::move(opened), std::move(shared));
}

}  // namespace tavix::machine
