#include "platform/windows/file_facts.h"

#include <algorithm>
#include <vector>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_path.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

constexpr uint32_t kShownAttributes =
    platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive;

uint64_t Joined(DWORD high, DWORD low) { return static_cast<uint64_t>(high) << 32 | low; }

uint64_t SizeOf(DWORD attributes, DWORD high, DWORD low) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? 0 : Joined(high, low);
}

FindHandle FindFirst(TextView path, WIN32_FIND_DATAW& data, DWORD flags = 0) {
  const Text extended = ExtendedPath(path);
  return FindHandle(
      FindFirstFileExW(Wide(extended), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, flags));
}

// dwReserved0 is the reparse tag of a reparse point. For other entries it is undefined.
bool FoundLink(const WIN32_FIND_DATAW& data) { return IsLink(data.dwFileAttributes, data.dwReserved0); }

// Looks at the item without listing its folder: for roots, and where listing is denied.
std::optional<Entry> LookUpDirectly(TextView path) {
  const Text extended = ExtendedPath(path);
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(Wide(extended), GetFileExInfoStandard, &data)) return std::nullopt;
  const DWORD attributes = data.dwFileAttributes;
  Entry entry;
  entry.attributes = attributes;
  entry.link = !IsRoot(path) && IsLink(attributes, 0);
  entry.size = SizeOf(attributes, data.nFileSizeHigh, data.nFileSizeLow);
  entry.modified = data.ftLastWriteTime;
  entry.accessed = data.ftLastAccessTime;
  if (!IsRoot(path)) entry.name = NameOf(path);
  return entry;
}

// The path with its names as on the disk. A name that can't be looked up stays as given.
Text DiskPath(TextView path) {
  if (IsRoot(path)) return Text(path);
  std::vector<Text> names;
  for (; !IsRoot(path); path = FolderOf(path)) {
    WIN32_FIND_DATAW data;
    names.push_back(FindFirst(path, data) ? FromWide(data.cFileName) : Text(NameOf(path)));
  }
  Text result(path);
  for (auto name = names.rbegin(); name != names.rend(); ++name) result = PathIn(result, *name);
  return result;
}

}  // namespace

bool IsStandIn(DWORD attributes, DWORD reparseTag) {
  // An alias, a socket, a pipe, a device of characters, one of blocks.
  constexpr DWORD kTags[] = {0x8000001B, 0x80000023, 0x80000024, 0x80000025, 0x80000026};
  return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         std::ranges::find(kTags, reparseTag) != std::end(kTags);
}

bool IsLink(DWORD attributes, DWORD reparseTag) {
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  return reparseTag == 0 || IsStandIn(attributes, reparseTag) || IsReparseTagNameSurrogate(reparseTag);
}

std::optional<Entry> LookUp(TextView path) {
  if (IsRoot(path)) return LookUpDirectly(path);
  WIN32_FIND_DATAW data;
  if (!FindFirst(path, data)) {
    return GetLastError() == ERROR_ACCESS_DENIED ? LookUpDirectly(path) : std::nullopt;
  }
  return Entry{data.dwFileAttributes,
               FoundLink(data),
               SizeOf(data.dwFileAttributes, data.nFileSizeHigh, data.nFileSizeLow),
               data.ftLastWriteTime,
               data.ftLastAccessTime,
               FromWide(data.cFileName),
               IsStandIn(data.dwFileAttributes, data.dwReserved0)};
}

std::optional<bool> IsLinkAt(TextView path) {
  const Text extended = ExtendedPath(path);
  const DWORD attributes = GetFileAttributesW(Wide(extended));
  const bool plain =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
  if (plain) return false;
  return LookUp(path).transform([](const Entry& entry) { return entry.link; });
}

std::optional<DWORD> AttributesOf(HANDLE file) {
  FILE_BASIC_INFO facts;
  if (!GetFileInformationByHandleEx(file, FileBasicInfo, &facts, sizeof(facts))) return std::nullopt;
  return facts.FileAttributes;
}

bool IsNotFound(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:  // a file where a folder should be
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_NO_MEDIA_IN_DRIVE:
      return true;
    default:
      return false;
  }
}

std::optional<DWORD> FollowedAttributes(TextView path, bool& sure) {
  const Text extended = ExtendedPath(path);
  const DWORD attributes = GetFileAttributesW(Wide(extended));
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = GetLastError();
    // A file that the system has locked shows its attributes only in the listing.
    if (error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED) {
      if (const std::optional<Entry> entry = LookUp(path)) return entry->attributes;
      sure = false;
    } else {
      sure = IsNotFound(error);
    }
    return std::nullopt;
  }
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return attributes;
  const std::optional<Entry> entry = LookUp(path);
  // A stand-in can't be opened as a file.
  if (entry && (!entry->link || entry->standIn)) return attributes;
  const FileHandle target(CreateFileW(Wide(extended), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (const auto found = target ? AttributesOf(target.Get()) : std::nullopt) return found;
  sure = !target && IsNotFound(GetLastError());
  return std::nullopt;
}

std::optional<platform::FileFacts> ReadFacts(TextView path) {
  std::optional<Entry> entry = LookUp(path);
  if (!entry) return std::nullopt;
  LocalTimes times;
  platform::FileFacts facts;
  facts.path = IsRoot(path) ? Text(path) : PathIn(DiskPath(FolderOf(path)), entry->name);
  facts.name = std::move(entry->name);
  facts.size = entry->size;
  facts.modified = times.Of(entry->modified);
  facts.accessed = times.Of(entry->accessed);
  facts.attributes = entry->attributes & kShownAttributes;
  facts.folder = entry->IsFolder();
  facts.link = entry->link;
  return facts;
}

bool ReadFolder(TextView folder, platform::FolderListing& listing, const platform::NameFilter& wanted) {
  WIN32_FIND_DATAW data;
  const FindHandle found = FindFirst(PathIn(folder, u"*"), data, FIND_FIRST_EX_LARGE_FETCH);
  // Every folder has the entries "." and "..", except the root of an empty drive.
  if (!found) return GetLastError() == ERROR_FILE_NOT_FOUND && LookUp(folder).has_value();
  LocalTimes times;
  do {
    if (!listing.Continue()) return false;
    platform::DirectoryEntry entry;
    entry.name = reinterpret_cast<const char16_t*>(data.cFileName);
    entry.folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (entry.name == u"." || entry.name == u"..") continue;
    if (!entry.folder && wanted && !wanted(entry.name)) continue;
    entry.size = SizeOf(data.dwFileAttributes, data.nFileSizeHigh, data.nFileSizeLow);
    entry.modified = times.Of(data.ftLastWriteTime);
    entry.accessed = times.Of(data.ftLastAccessTime);
    entry.attributes = data.dwFileAttributes & kShownAttributes;
    entry.link = FoundLink(data);
    listing.Add(entry);
  } while (FindNextFileW(found.Get(), &data));
  return GetLastError() == ERROR_NO_MORE_FILES;
}

platform::DateTime LocalTimes::Of(const FILETIME& time) {
  constexpr uint64_t kTicks = 10'000;  // in a millisecond
  constexpr uint64_t kQuarter = 15 * 60 * 1000 * kTicks;
  const uint64_t ticks = Joined(time.dwHighDateTime, time.dwLowDateTime);
  const uint64_t number = ticks / kQuarter;
  if (ticks == 0) return platform::kUnknownTime;
  Quarter& quarter = known_[number % known_.size()];
  if (quarter.number != number || number == 0) {
    const uint64_t start = number * kQuarter;
    const FILETIME whole = {static_cast<DWORD>(start), static_cast<DWORD>(start >> 32U)};
    SYSTEMTIME universal, local;
    if (!FileTimeToSystemTime(&whole, &universal)) return platform::kUnknownTime;
    if (!SystemTimeToTzSpecificLocalTime(&zone_, &universal, &local)) return platform::kUnknownTime;
    quarter = {number, ToDateTime(local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute,
                                  local.wSecond, local.wMilliseconds)};
  }
  return quarter.start + static_cast<platform::DateTime>((ticks - number * kQuarter) / kTicks);
}

}  // namespace tavix::windows
