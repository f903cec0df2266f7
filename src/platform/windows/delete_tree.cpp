#include "platform/windows/delete_tree.h"

#include <optional>
#include <utility>
#include <vector>

#include "platform/windows/file_facts.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

extern "C" NTSTATUS NTAPI NtQueryDirectoryFile(HANDLE folder, HANDLE event, PVOID routine, PVOID context,
                                               PIO_STATUS_BLOCK status, PVOID buffer, ULONG size,
                                               ULONG informationClass, BOOLEAN single,
                                               PUNICODE_STRING pattern, BOOLEAN restart);

namespace tavix::windows {
namespace {

// What the system writes of an entry of a folder.
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
constexpr ULONG kFullDirectoryInformation = 2;
constexpr auto kNoMoreFiles = static_cast<NTSTATUS>(0x80000006);
constexpr auto kNoSuchFile = static_cast<NTSTATUS>(0xC000000F);
constexpr size_t kListingBuffer = 64 * 1024;

// The deletion that newer systems know: the name goes at once, though others may have the file open.
struct DispositionFlags {
  DWORD flags;
};
constexpr auto kDispositionFlags = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr DWORD kFlagDelete = 0x01;
constexpr DWORD kFlagAtOnce = 0x02;
constexpr DWORD kFlagIgnoreReadOnly = 0x10;

// What is known of something before it is opened.
struct Child {
  Text name;
  DWORD attributes;
  bool link;
};

struct Opened {
  FileHandle handle;
  DWORD attributes = 0;
  bool link = false;

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsTree() const { return IsFolder() && !link; }
};

ACCESS_MASK AccessFor(DWORD attributes, bool link) {
  ACCESS_MASK access = DELETE | FILE_READ_ATTRIBUTES | SYNCHRONIZE;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) access |= FILE_WRITE_ATTRIBUTES;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !link) access |= FILE_LIST_DIRECTORY;
  return access;
}

// `listedAsLink` is what the listing said. A handle that isn't one then is of what the link leads to, which
// some systems open whatever they are asked for: nothing is to be deleted through it.
std::optional<Opened> Examine(FileHandle handle, bool listedAsLink) {
  if (!handle) return std::nullopt;
  FILE_ATTRIBUTE_TAG_INFO found;
  if (!GetFileInformationByHandleEx(handle.Get(), FileAttributeTagInfo, &found, sizeof(found)))
    return std::nullopt;
  const bool link = IsLink(found.FileAttributes, found.ReparseTag);
  if (listedAsLink && !link) return std::nullopt;
  return Opened{std::move(handle), found.FileAttributes, link};
}

std::optional<Opened> Open(TextView path) {
  const std::optional<Entry> entry = LookUp(path);
  if (!entry) return std::nullopt;
  const Text extended = ExtendedPath(path);
  return Examine(FileHandle(CreateFileW(Wide(extended), AccessFor(entry->attributes, entry->link), kShareAll,
                                        nullptr, OPEN_EXISTING,
                                        FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr)),
                 entry->link);
}

std::optional<Opened> OpenIn(HANDLE folder, Child& child) {
  UNICODE_STRING name;
  name.Length = name.MaximumLength = static_cast<USHORT>(child.name.size() * sizeof(char16_t));
  name.Buffer = WideBuffer(child.name.data());
  OBJECT_ATTRIBUTES attributes = {};
  attributes.Length = sizeof(attributes);
  attributes.RootDirectory = folder;
  attributes.ObjectName = &name;
  IO_STATUS_BLOCK status;
  FileHandle handle;
  const NTSTATUS result =
      NtOpenFile(handle.Receive(), AccessFor(child.attributes, child.link), &attributes, &status, kShareAll,
                 FILE_OPEN_REPARSE_POINT | FILE_OPEN_FOR_BACKUP_INTENT | FILE_SYNCHRONOUS_IO_NONALERT);
  if (!NT_SUCCESS(result)) {
    (void)handle.Release();
    return std::nullopt;
  }
  return Examine(std::move(handle), child.link);
}

bool SetFileAttributes(HANDLE file, DWORD attributes) {
  FILE_BASIC_INFO info = {};
  info.FileAttributes = attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
  return SetFileInformationByHandle(file, FileBasicInfo, &info, sizeof(info)) != 0;
}

// Deletes what is open: a file, a link or an empty folder. It is gone when the handle is closed.
bool Delete(const Opened& opened, bool force) {
  const HANDLE file = opened.handle.Get();
  const bool readOnly = (opened.attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (readOnly && !force) return false;
  DispositionFlags flags = {kFlagDelete | kFlagAtOnce | (readOnly ? kFlagIgnoreReadOnly : 0)};
  if (SetFileInformationByHandle(file, kDispositionFlags, &flags, sizeof(flags))) return true;
  if (readOnly && !SetFileAttributes(file, opened.attributes & ~DWORD{FILE_ATTRIBUTE_READONLY})) return false;
  FILE_DISPOSITION_INFO disposition = {TRUE};
  if (SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof(disposition))) return true;
  if (readOnly) SetFileAttributes(file, opened.attributes);
  return false;
}

// What lies in an open folder, which is read through its handle. False when the listing breaks off.
bool List(HANDLE folder, std::vector<Child>& children) {
  std::vector<char> buffer(kListingBuffer);
  for (;;) {
    IO_STATUS_BLOCK block;
    const NTSTATUS status = NtQueryDirectoryFile(folder, nullptr, nullptr, nullptr, &block, buffer.data(),
                                                 static_cast<ULONG>(buffer.size()), kFullDirectoryInformation,
                                                 FALSE, nullptr, FALSE);
    if (status == kNoMoreFiles || status == kNoSuchFile) return true;
    if (!NT_SUCCESS(status)) return false;
    for (size_t at = 0;;) {
      const auto* entry = reinterpret_cast<const FullDirectoryInformation*>(buffer.data() + at);
      const TextView name(entry->name, entry->nameBytes / sizeof(char16_t));
      if (name != u"." && name != u"..") {
        children.push_back({Text(name), entry->attributes, IsLink(entry->attributes, entry->reparseTag)});
      }
      if (entry->nextOffset == 0) break;
      at += entry->nextOffset;
    }
  }
}

struct Level {
  Opened folder;
  std::vector<Child> rest;
};

bool Enter(Opened folder, std::vector<Level>& levels) {
  Level& level = levels.emplace_back(std::move(folder), std::vector<Child>());
  return List(level.folder.handle.Get(), level.rest);
}

}  // namespace

bool DeleteOneFile(TextView path, bool force) {
  const std::optional<Opened> file = Open(path);
  return file && !file->IsFolder() && Delete(*file, force);
}

bool DeleteTree(TextView path, bool force) {
  if (IsRoot(path)) return false;
  std::optional<Opened> top = Open(path);
  if (!top || !top->IsFolder()) return false;
  if (top->link) return Delete(*top, force);
  std::vector<Level> levels;
  bool whole = Enter(*std::move(top), levels);
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.rest.empty()) {
      whole = Delete(level.folder, force) && whole;
      levels.pop_back();
      continue;
    }
    Child child = std::move(level.rest.back());
    level.rest.pop_back();
    std::optional<Opened> opened = OpenIn(level.folder.handle.Get(), child);
    if (!opened) {
      whole = false;
    } else if (opened->IsTree()) {
      // An empty folder goes without being listed; the system refuses any other.
      if (!Delete(*opened, force)) whole = Enter(*std::move(opened), levels) && whole;
    } else {
      whole = Delete(*opened, force) && whole;
    }
  }
  return whole;
}

}  // namespace tavix::windows
