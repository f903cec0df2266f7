#include "platform/windows/opened_item.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/windows/file_facts.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"
#include "text/letter_case.h"

extern "C" NTSTATUS NTAPI NtQueryDirectoryFile(HANDLE folder, HANDLE event, PVOID routine, PVOID context,
                                               PIO_STATUS_BLOCK status, PVOID buffer, ULONG size,
                                               ULONG informationClass, BOOLEAN single,
                                               PUNICODE_STRING pattern, BOOLEAN restart);

namespace tavix::windows {
namespace {

// A folder entry as NtQueryDirectoryFile writes it. In the second form an id comes before the name.
struct FullDirectoryInformation {
  ULONG nextOffset;
  ULONG index;
  LARGE_INTEGER times[4];
  LARGE_INTEGER size;
  LARGE_INTEGER allocated;
  ULONG attributes;
  ULONG nameBytes;
  ULONG reparseTag;
  char16_t name[1];
};
struct IdDirectoryInformation {
  FullDirectoryInformation full;
  uint64_t id;
  char16_t name[1];
};
constexpr size_t kListingBuffer = 64 * 1024;

// FILE_DISPOSITION_INFO_EX of newer systems. With POSIX semantics the name disappears at once, even while
// others have the file open.
struct DispositionFlags {
  DWORD flags;
};
constexpr auto kDispositionFlags = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr DWORD kFlagDelete = 0x01;
constexpr DWORD kFlagPosixSemantics = 0x02;
constexpr DWORD kFlagIgnoreReadOnly = 0x10;

constexpr auto kNoMoreFiles = static_cast<NTSTATUS>(0x80000006);
constexpr auto kNoSuchFile = static_cast<NTSTATUS>(0xC000000F);
constexpr auto kSharingViolation = static_cast<NTSTATUS>(0xC0000043);
constexpr auto kNameCollision = static_cast<NTSTATUS>(0xC0000035);
constexpr auto kNotSameDevice = static_cast<NTSTATUS>(0xC00000D4);

// Differences of Wine:
// - It always opens a link's target. Links to folders show only in listings, links to files not at all.
// - Deleting by handle deletes the item at the path, after checking that it is the opened file. A swap after
//   that check can't be prevented.
// - Renaming doesn't even check.
bool UnderWine() {
  static const bool wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return wine;
}

// A name in an open folder, for native calls.
class NameIn {
 public:
  NameIn(HANDLE folder, TextView name) : text_(name) {
    name_.Length = name_.MaximumLength = static_cast<USHORT>(text_.size() * sizeof(char16_t));
    name_.Buffer = WideBuffer(text_.data());
    attributes_.Length = sizeof(attributes_);
    attributes_.RootDirectory = folder;
    attributes_.ObjectName = &name_;
    attributes_.Attributes = OBJ_CASE_INSENSITIVE;
  }
  NameIn(const NameIn&) = delete;
  NameIn& operator=(const NameIn&) = delete;

  UNICODE_STRING* Name() { return &name_; }
  OBJECT_ATTRIBUTES* Attributes() { return &attributes_; }

 private:
  Text text_;
  UNICODE_STRING name_ = {};
  OBJECT_ATTRIBUTES attributes_ = {};
};

std::optional<BY_HANDLE_FILE_INFORMATION> FactsOf(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION facts;
  if (!GetFileInformationByHandle(file, &facts)) return std::nullopt;
  return facts;
}

uint64_t IdOf(const BY_HANDLE_FILE_INFORMATION& facts) {
  return static_cast<uint64_t>(facts.nFileIndexHigh) << 32 | facts.nFileIndexLow;
}

ACCESS_MASK AccessForDeletion(DWORD attributes, bool link) {
  ACCESS_MASK access = DELETE | FILE_READ_ATTRIBUTES | SYNCHRONIZE;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) access |= FILE_WRITE_ATTRIBUTES;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !link) access |= FILE_LIST_DIRECTORY;
  return access;
}

// Checks an opened item against its listing; `listed` are the attributes there. If the listing said link and
// the handle isn't one, it is the link's target: then the item isn't touched.
std::optional<OpenedItem> Examine(FileHandle handle, DWORD listed, bool listedAsLink) {
  if (!handle) return std::nullopt;
  FILE_ATTRIBUTE_TAG_INFO found = {};
  if (!handleCalls.getInformation(handle.Get(), FileAttributeTagInfo, &found, sizeof(found))) {
    // FAT has no reparse points and fails this query.
    const auto facts = FactsOf(handle.Get());
    if (!facts) return std::nullopt;
    found = {facts->dwFileAttributes, 0};
  }
  const bool link = IsLink(found.FileAttributes, found.ReparseTag);
  if (listedAsLink && !link) return std::nullopt;
  // Some attributes of an online file show only in the listing, not by handle.
  return OpenedItem{std::move(handle), found.FileAttributes | (listed & kKeptOnline), link};
}

NTSTATUS OpenByName(HANDLE folder, TextView listed, ACCESS_MASK access, DWORD share, FileHandle& handle) {
  NameIn name(folder, listed);
  IO_STATUS_BLOCK status;
  const NTSTATUS result =
      NtOpenFile(handle.Receive(), access, name.Attributes(), &status, share,
                 FILE_OPEN_REPARSE_POINT | FILE_OPEN_FOR_BACKUP_INTENT | FILE_SYNCHRONOUS_IO_NONALERT);
  if (!NT_SUCCESS(result)) (void)handle.Release();
  return result;
}

std::optional<OpenedItem> OpenIn(HANDLE folder, const ListedItem& listed, ACCESS_MASK access, DWORD share,
                                 NTSTATUS* why = nullptr) {
  FileHandle handle;
  const NTSTATUS result = OpenByName(folder, listed.name, access, share, handle);
  if (why != nullptr) *why = result;
  if (!handle) return std::nullopt;
  if (UnderWine()) {
    // If a link took the name after the listing, the handle is its target and has another id.
    const auto facts = FactsOf(handle.Get());
    if (!facts || IdOf(*facts) != listed.id) return std::nullopt;
  }
  return Examine(std::move(handle), listed.attributes, listed.link);
}

// Calls `visit` with each entry. With a name, only with the entry of that name.
template <class Visit>
bool ReadFolder(HANDLE folder, UNICODE_STRING* name, const Visit& visit) {
  // Only Wine needs the ids, and not every file system lists them.
  const bool ids = UnderWine();
  const ULONG kind = ids ? FileIdFullDirectoryInformation : FileFullDirectoryInformation;
  alignas(8) char nameBuffer[1024];
  std::vector<char> listingBuffer(name == nullptr ? kListingBuffer : 0);
  char* buffer = name == nullptr ? listingBuffer.data() : nameBuffer;
  const size_t size = name == nullptr ? listingBuffer.size() : sizeof(nameBuffer);
  for (BOOLEAN restart = TRUE;; restart = FALSE) {
    IO_STATUS_BLOCK block;
    const NTSTATUS status =
        NtQueryDirectoryFile(folder, nullptr, nullptr, nullptr, &block, buffer, static_cast<ULONG>(size),
                             kind, name != nullptr, name, restart);
    if (status == kNoMoreFiles || status == kNoSuchFile) return true;
    if (!NT_SUCCESS(status)) return false;
    for (size_t at = 0;;) {
      const auto* entry = reinterpret_cast<const FullDirectoryInformation*>(buffer + at);
      const auto* withId = reinterpret_cast<const IdDirectoryInformation*>(buffer + at);
      const TextView found(ids ? withId->name : entry->name, entry->nameBytes / sizeof(char16_t));
      if (found != u"." && found != u"..") {
        visit(ListedItem{Text(found), entry->attributes, IsLink(entry->attributes, entry->reparseTag),
                         ids ? withId->id : 0});
      }
      if (entry->nextOffset == 0) break;
      at += entry->nextOffset;
    }
    if (name != nullptr) return true;
  }
}

bool SetFileAttributes(HANDLE file, DWORD attributes) {
  FILE_BASIC_INFO info = {};
  info.FileAttributes = attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
  return handleCalls.setInformation(file, FileBasicInfo, &info, sizeof(info)) != 0;
}

// Gives an open file a path: its only one (rename) or one more (hard link). Fails when the path is taken.
NTSTATUS SetPath(HANDLE file, FILE_INFORMATION_CLASS how, TextView path) {
  struct PathInformation {
    ULONG flags;
    HANDLE root;
    ULONG nameBytes;
    char16_t name[1];
  };
  const Text name = Concat(u"\\??\\", TextView(ExtendedPath(path)).substr(4));
  const size_t bytes = name.size() * sizeof(char16_t);
  std::vector<char> buffer(sizeof(PathInformation) + bytes);
  auto* information = reinterpret_cast<PathInformation*>(buffer.data());
  information->nameBytes = static_cast<ULONG>(bytes);
  std::copy(name.begin(), name.end(), information->name);
  IO_STATUS_BLOCK status;
  return NtSetInformationFile(file, &status, buffer.data(), static_cast<ULONG>(buffer.size()), how);
}

// Moves a file safely under Wine: makes a hard link, checks that it is the opened file, deletes the old name.
Renamed LinkAndDelete(OpenedItem& item, TextView destination) {
  const auto before = FactsOf(item.handle.Get());
  const NTSTATUS status = before ? SetPath(item.handle.Get(), FileLinkInformation, destination) : kNoSuchFile;
  if (status == kNameCollision) return Renamed::Failed;
  if (!NT_SUCCESS(status)) return Renamed::OtherVolume;
  std::optional<OpenedItem> linked = OpenItem(destination);
  if (!linked) return Renamed::Failed;
  if (!AreTheSame(linked->handle.Get(), item.handle.Get())) {
    DeleteItem(*linked, true);
    return Renamed::Failed;
  }
  if (!DeleteItem(item, true)) {
    DeleteItem(*linked, true);
    return Renamed::Failed;
  }
  linked.reset();
  item.handle.Reset();
  // The old name is gone if the file has as many names as before. If not, it may disappear later, so
  // the new name stays.
  linked = OpenItem(destination);
  const auto after = linked ? FactsOf(linked->handle.Get()) : std::nullopt;
  if (!after || after->nNumberOfLinks != before->nNumberOfLinks) return Renamed::Failed;
  // Deleting the old name removed the read-only attribute.
  SetFileAttributesW(Wide(ExtendedPath(destination)), item.attributes);
  return Renamed::Done;
}

}  // namespace

std::optional<OpenedItem> OpenItem(TextView path) {
  const std::optional<Entry> entry = LookUp(path);
  if (!entry) return std::nullopt;
  const Text extended = ExtendedPath(path);
  return Examine(FileHandle(CreateFileW(Wide(extended), AccessForDeletion(entry->attributes, entry->link),
                                        kShareAll, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr)),
                 entry->attributes, entry->link);
}

std::optional<OpenedItem> OpenItemIn(HANDLE folder, const ListedItem& listed, DWORD share) {
  return OpenIn(folder, listed, AccessForDeletion(listed.attributes, listed.link), share);
}

std::optional<OpenedFolder> OpenFolderIn(HANDLE folder, const ListedItem& listed) {
  constexpr ACCESS_MASK kAccess = FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES | SYNCHRONIZE;
  if (listed.link) return std::nullopt;
  NTSTATUS why = 0;
  std::optional<OpenedItem> opened =
      OpenIn(folder, listed, kAccess, FILE_SHARE_READ | FILE_SHARE_WRITE, &why);
  const bool held = opened.has_value();
  if (!held && why == kSharingViolation) opened = OpenIn(folder, listed, kAccess, kShareAll);
  if (!opened || !opened->IsRealFolder()) return std::nullopt;
  return OpenedFolder{std::move(opened->handle), held};
}

std::optional<OpenedFolder> OpenFolderAt(TextView path) {
  const Text extended = ExtendedPath(path);
  const auto open = [&extended](DWORD share) {
    return FileHandle(CreateFileW(Wide(extended), FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES, share, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  };
  FileHandle folder = open(FILE_SHARE_READ | FILE_SHARE_WRITE);
  const bool held = static_cast<bool>(folder);
  if (!held && GetLastError() == ERROR_SHARING_VIOLATION) folder = open(kShareAll);
  if (!folder) return std::nullopt;
  return OpenedFolder{std::move(folder), held};
}

FileHandle OpenAgain(HANDLE folder) {
  FileHandle handle;
  OpenByName(folder, {}, FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES | SYNCHRONIZE, kShareAll, handle);
  return handle;
}

std::optional<ListedItem> FindIn(HANDLE folder, TextView name) {
  NameIn pattern(folder, name);
  std::optional<ListedItem> found;
  // The system also matches short names (8.3), and then lists another name.
  ReadFolder(folder, pattern.Name(), [&](ListedItem entry) {
    if (EqualIgnoringCase(entry.name, name)) found = std::move(entry);
  });
  return found;
}

bool StandsIn(HANDLE folder, TextView name) {
  FileHandle item;
  OpenByName(folder, name, FILE_READ_ATTRIBUTES | SYNCHRONIZE, kShareAll, item);
  return static_cast<bool>(item);
}

bool ListItems(HANDLE folder, std::vector<ListedItem>& items) {
  return ReadFolder(folder, nullptr, [&items](ListedItem entry) { items.push_back(std::move(entry)); });
}

bool DeleteItem(const OpenedItem& item, bool force) {
  const HANDLE file = item.handle.Get();
  const bool readOnly = (item.attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (readOnly && !force) return false;
  DispositionFlags flags = {kFlagDelete | kFlagPosixSemantics | (readOnly ? kFlagIgnoreReadOnly : 0)};
  if (handleCalls.setInformation(file, kDispositionFlags, &flags, sizeof(flags))) return true;
  if (readOnly && !SetFileAttributes(file, item.attributes & ~DWORD{FILE_ATTRIBUTE_READONLY})) return false;
  FILE_DISPOSITION_INFO disposition = {TRUE};
  if (handleCalls.setInformation(file, FileDispositionInfo, &disposition, sizeof(disposition))) return true;
  if (readOnly) SetFileAttributes(file, item.attributes);
  return false;
}

Renamed RenameItem(OpenedItem& item, TextView destination) {
  if (UnderWine()) return LinkAndDelete(item, destination);
  const NTSTATUS status = SetPath(item.handle.Get(), FileRenameInformation, destination);
  if (NT_SUCCESS(status)) return Renamed::Done;
  return status == kNotSameDevice ? Renamed::OtherVolume : Renamed::Failed;
}

bool AreTheSame(HANDLE one, HANDLE other) {
  const auto left = FactsOf(one), right = FactsOf(other);
  return left && right && left->dwVolumeSerialNumber == right->dwVolumeSerialNumber &&
         IdOf(*left) == IdOf(*right);
}

}  // namespace tavix::windows
