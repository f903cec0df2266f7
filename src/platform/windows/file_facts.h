#pragma once

#include <array>
#include <optional>
#include <vector>

#include "platform/file_system.h"
#include "platform/windows/windows_api.h"
#include "text/text.h"

// What the system tells of a file or folder. Paths are normal ones (windows_path.h).
namespace tavix::windows {

// The content is somewhere else, and reading calls it in.
constexpr DWORD kKeptOnline = FILE_ATTRIBUTE_OFFLINE | 0x00040000 | 0x00400000;

// The attributes that a file keeps when it is written anew or copied.
constexpr DWORD kOwnAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;

// Whether an entry with these attributes and this tag is the alias of a store app: a file of no bytes that
// leads to a program, which only the start of a program follows.
bool IsAlias(DWORD attributes, DWORD reparseTag);
// Whether it stands for something else, as aliases and links do. Other reparse points, such as a file that is
// kept online, are what they seem to be. A tag that isn't known counts as a link.
bool IsLink(DWORD attributes, DWORD reparseTag);

// Of the entry itself; a link is not followed.
struct Entry {
  DWORD attributes = 0;
  bool link = false;
  uint64_t size = 0;
  FILETIME modified = {};
  FILETIME accessed = {};
  Text name;  // as the disk has it; empty for a root
  bool alias = false;

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsReadOnly() const { return (attributes & FILE_ATTRIBUTE_READONLY) != 0; }
};
// Nothing when it is missing or can't be looked at.
std::optional<Entry> LookUp(TextView path);

// The attributes of a file or folder; of a link, those of its target. Nothing when it is missing. Nothing
// as well when it can't be looked at, and `sure` becomes false.
std::optional<DWORD> FollowedAttributes(TextView path, bool& sure);

// Whether a failure of the system's file calls says that there is nothing of the name: no such file, folder
// or drive, nothing in the drive, or a name that nothing can have. A network that doesn't answer says so of
// nothing, nor does a refusal.
bool IsNotFound(DWORD error);

// The whole facts, as platform::FileSystem::Look gives them.
std::optional<platform::FileFacts> ReadFacts(TextView path);

// As platform::FileSystem::List and FolderIdentity.
bool ListFolder(TextView folder, const platform::FileSystem::EntryVisitor& visit,
                const platform::FileSystem::NameFilter& wanted);
std::optional<Text> ReadFolderIdentity(TextView path);
// As platform::FileSystem::Lineage.
std::vector<Text> ReadLineage(TextView path);

// The normal path of what is open, no link in it. Nothing when the system can't tell.
std::optional<Text> FinalPath(HANDLE file);

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
