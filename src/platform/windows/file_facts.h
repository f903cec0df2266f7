#pragma once

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

// As platform::FileSystem::List.
bool ListFolder(TextView folder, const platform::FileSystem::EntryVisitor& visit);

// Local dates and times, as the system shows them for files, in the time zone that was set at its making.
class LocalTimes {
 public:
  LocalTimes() { GetTimeZoneInformation(&zone_); }
  // 0 for none.
  platform::DateTime Of(const FILETIME& time) const;

 private:
  TIME_ZONE_INFORMATION zone_ = {};
};

}  // namespace tavix::windows
