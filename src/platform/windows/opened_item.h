#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/windows/file_handle.h"
#include "text/text.h"

// Open files, folders and links. Operations by handle act on what was opened, whatever is at its path by
// then. Paths are normal ones (windows_path.h).
namespace tavix::windows {

struct OpenedItem {
  FileHandle handle;
  DWORD attributes = 0;
  bool link = false;

  // Also true for a link to a folder.
  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsRealFolder() const { return IsFolder() && !link; }
};

// An entry of a folder's listing.
struct ListedItem {
  Text name;
  DWORD attributes = 0;
  bool link = false;
  uint64_t id = 0;  // 0 unless the listing was asked for ids
};

// Opens the item at a path for deletion; of a link, the link itself. Nothing when it is missing or can't be
// opened for deletion.
std::optional<OpenedItem> OpenItem(TextView path);

// Opens a listed item of an open folder in the same way. Nothing also when the name now belongs to something
// else. `share` is the share mode.
std::optional<OpenedItem> OpenItemIn(HANDLE folder, const ListedItem& listed, DWORD share = kShareAll);
// A folder that is open for listing.
struct OpenedFolder {
  FileHandle handle;
  // It can't be renamed or deleted while it is open. False when somebody already had it open for that.
  bool held = false;
};

// Opens a listed subfolder for listing. Nothing for a file or link, and when it can't be opened.
std::optional<OpenedFolder> OpenFolderIn(HANDLE folder, const ListedItem& listed);
// Opens the folder at a path for listing, following links. Nothing when it can't be opened.
std::optional<OpenedFolder> OpenFolderAt(TextView path);
// Another handle for listing of an open folder, whatever its path is by now. Empty when it can't be opened.
FileHandle OpenAgain(HANDLE folder);

// Finds an entry of an open folder by its name, ignoring letter case; not by its short name (8.3). Nothing
// when it is missing. Ask each handle for one name only: the system keeps using the first one.
std::optional<ListedItem> FindIn(HANDLE folder, TextView name);
// Whether an item of this name in an open folder can be opened.
bool StandsIn(HANDLE folder, TextView name);
// Adds the entries of an open folder to `items`. False when the listing fails part of the way.
bool ListItems(HANDLE folder, std::vector<ListedItem>& items);

// Deletes a file, a link or an empty folder; a read-only one only with `force`. It disappears when the handle
// is closed. False for a folder with content and when the system refuses; the item is unchanged then.
bool DeleteItem(const OpenedItem& item, bool force);

enum class Renamed { Done, OtherVolume, Failed };
// Moves a file or link to an unused path. The handle may be closed afterwards.
Renamed RenameItem(OpenedItem& item, TextView destination);

// Whether two handles refer to the same file or folder.
bool AreTheSame(HANDLE one, HANDLE other);

// The calls that get and set information by handle, paths included. Tests replace them to imitate drives that
// they don't have.
struct HandleCalls {
  decltype(&GetFileInformationByHandleEx) getInformation = GetFileInformationByHandleEx;
  decltype(&SetFileInformationByHandle) setInformation = SetFileInformationByHandle;
  decltype(&GetFinalPathNameByHandleW) getFinalPath = GetFinalPathNameByHandleW;
};
inline HandleCalls handleCalls;

}  // namespace tavix::windows
