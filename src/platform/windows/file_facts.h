#pragma once

#include <array>
#include <optional>
#include <vector>

#include "platform/file_system.h"
#include "platform/folder_listing.h"
#include "platform/windows/windows_api.h"
#include "text/text.h"

// Facts about files and folders. Paths are normal ones (windows_path.h).
namespace tavix::windows {

// The content is kept online or archived; reading it would download it. 0x00040000 is RECALL_ON_OPEN,
// 0x00400000 is RECALL_ON_DATA_ACCESS.
constexpr DWORD kKeptOnline = FILE_ATTRIBUTE_OFFLINE | 0x00040000 | 0x00400000;
constexpr bool IsKeptOnline(DWORD attributes) { return (attributes & kKeptOnline) != 0; }

// The attributes that a file keeps when it is replaced or copied.
constexpr DWORD kOwnAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;

// Whether an entry is an empty file that stands for something else: the alias of a store app, or a socket,
// pipe or device of a Linux program. It can't be opened as a file.
bool IsStandIn(DWORD attributes, DWORD reparseTag);
// Whether an entry is a link or a stand-in. Other reparse points, such as an online file, are ordinary files.
// An unknown tag (0) counts as a link.
bool IsLink(DWORD attributes, DWORD reparseTag);

// A file, folder or link. Links are not followed.
struct Entry {
  DWORD attributes = 0;
  bool link = false;
  uint64_t size = 0;
  FILETIME modified = {};
  FILETIME accessed = {};
  Text name;  // as on the disk; empty for a root
  bool standIn = false;

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsReadOnly() const { return (attributes & FILE_ATTRIBUTE_READONLY) != 0; }
};
// Nothing when it is missing or can't be read.
std::optional<Entry> LookUp(TextView path);

// Whether the item at a path is a link. Nothing when LookUp gives nothing. Mostly lists no folder.
std::optional<bool> IsLinkAt(TextView path);

// The attributes of an open file or folder. Nothing when the system can't tell. Asks only for what is needed:
// all facts at once would also ask the volume.
std::optional<DWORD> AttributesOf(HANDLE file);

// The attributes of a file or folder, or of a link's target. Nothing when it is missing. Also nothing when
// that can't be told; `sure` is then set to false.
std::optional<DWORD> FollowedAttributes(TextView path, bool& sure);

// Whether the error of a file call means that the item is known to be missing: no such file, folder or drive,
// no medium in the drive, or an impossible name. False for a network that doesn't answer and for denied
// access.
bool IsNotFound(DWORD error);

// As platform::FileSystem::Look.
std::optional<platform::FileFacts> ReadFacts(TextView path);

// As platform::FolderSource::Read. Any thread may call it.
bool ReadFolder(TextView folder, platform::FolderListing& listing, const platform::NameFilter& wanted);
// As platform::FileSystem::FolderIdentity.
std::optional<Text> ReadFolderIdentity(TextView path);
// As platform::FileSystem::Lineage.
std::vector<Text> ReadLineage(TextView path);
// As platform::FileSystem::ResolveLink.
std::optional<Text> ReadResolvedLink(TextView path);

// The normal path of an open file or folder, with all links resolved. Nothing when the system can't tell.
std::optional<Text> FinalPath(HANDLE file);

// Converts file times to local time, in the time zone set when the object was made.
class LocalTimes {
 public:
  LocalTimes() { GetTimeZoneInformation(&zone_); }
  // kUnknownTime for a zero time and when the conversion fails.
  platform::DateTime Of(const FILETIME& time);

 private:
  // No time zone changes its offset within a quarter of an hour, so one conversion serves the whole quarter.
  // Files of a folder often share quarters, so a few are cached.
  struct Quarter {
    uint64_t number = 0;           // quarters of an hour since 1601
    platform::DateTime start = 0;  // local
  };

  TIME_ZONE_INFORMATION zone_ = {};
  std::array<Quarter, 16> known_ = {};
};

}  // namespace tavix::windows
