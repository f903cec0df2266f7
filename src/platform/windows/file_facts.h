#pragma once

#include <array>
#include <optional>

#include "platform/file_system.h"
#include "platform/windows/windows_api.h"
#include "text/text.h"

// What the system tells of a file or folder. Paths are normal ones (windows_path.h).
namespace tavix::windows {

// Whether an entry with these attributes and this tag stands for another place. Other reparse points, such
// as a file that is kept online, are what they seem to be. A tag that isn't known counts as a link.
bool IsLink(DWORD attributes, DWORD reparseTag);

// Of the entry itself; a link is not followed.
struct Entry {
  DWORD attributes = 0;
  bool link = false;
  uint64_t size = 0;
  FILETIME modified = {};
  FILETIME accessed = {};
  Text name;  // as the disk has it; empty for a root

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsReadOnly() const { return (attributes & FILE_ATTRIBUTE_READONLY) != 0; }
};
// Nothing when it is missing or can't be looked at.
std::optional<Entry> LookUp(TextView path);

// The attributes of what stands there, or of what a link leads to; nothing when that is missing.
std::optional<DWORD> FollowedAttributes(TextView path);

// The whole facts, as platform::FileSystem::Look gives them.
std::optional<platform::FileFacts> ReadFacts(TextView path);

// As platform::FileSystem::List and FolderIdentity.
bool ListFolder(TextView folder, const platform::FileSystem::EntryVisitor& visit,
                const platform::FileSystem::NameFilter& wanted);
std::optional<Text> ReadFolderIdentity(TextView path);

// Local dates and times, as the system shows them for files, in the time zone that was set at its making.
class LocalTimes {
 public:
  LocalTimes() { GetTimeZoneInformation(&zone_); }
  // kUnknownTime for none.
  platform::DateTime Of(const FILETIME& time);

 private:
  // No time zone changes its clocks within such a piece of time, so one answer of the system serves all of
  // it. Of the times of a folder's files many lie in the same ones.
  struct Quarter {
    uint64_t number = 0;           // quarters of an hour since 1601
    platform::DateTime start = 0;  // local
  };

  TIME_ZONE_INFORMATION zone_ = {};
  std::array<Quarter, 16> known_ = {};
};

}  // namespace tavix::windows
