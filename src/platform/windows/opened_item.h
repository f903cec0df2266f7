#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/windows/file_handle.h"
#include "text/text.h"

// Files, folders and links that are open, and what is done to them by their handles. It is done to what was
// opened, whatever stands at its path by then. Paths are normal ones (windows_path.h).
namespace tavix::windows {

struct OpenedItem {
  FileHandle handle;
  DWORD attributes = 0;
  bool link = false;

  // Also of a link to a folder.
  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsTree() const { return IsFolder() && !link; }
};

// What the listing of a folder says of something in it.
struct ListedItem {
  Text name;
  DWORD attributes = 0;
  bool link = false;
  uint64_t id = 0;  // 0 where the listing isn't asked for it
};

// Opens what stands at a path for deletion; of a link, the link itself. Nothing when it is missing or can't
// be opened so.
std::optional<OpenedItem> OpenItem(TextView path);

// The same of something in an open folder. Nothing also when it is not what was listed any more. `share` is
// what others may do with it meanwhile.
std::optional<OpenedItem> OpenItemIn(HANDLE folder, const ListedItem& listed, DWORD share = kShareAll);
// Opens a folder in an open folder, to look into it. Until it is closed it can't get another name nor be
// deleted, unless somebody has it open for that already. Nothing for a file and for a link.
std::optional<FileHandle> OpenFolderIn(HANDLE folder, const ListedItem& listed);
// The folder at a path, to look into it, links followed.
FileHandle OpenFolderAt(TextView path);

// The entry of a name in an open folder, letter case aside. Of one handle, only one name is to be asked for:
// the system goes on with the first one.
std::optional<ListedItem> FindIn(HANDLE folder, TextView name);
// Whether something can be reached by a name in an open folder.
bool StandsIn(HANDLE folder, TextView name);
// What lies in an open folder; false when the listing breaks off.
bool ListItems(HANDLE folder, std::vector<ListedItem>& items);

// Deletes a file, a link or an empty folder, a read-only one with `force`. It is gone when the handle is
// closed. False for a folder with something in it and where the system refuses; the item is as it was then.
bool DeleteItem(const OpenedItem& item, bool force);

enum class Renamed { Done, OtherVolume, Failed };
// Gives a file or link another path, at which nothing stands. The handle may be closed afterwards.
Renamed RenameItem(OpenedItem& item, TextView destination);

// Whether two handles are of one file or folder.
bool AreTheSame(HANDLE one, HANDLE other);

// How the system is asked and told by handle. Tests put the answers of drives here that they can't have.
struct HandleCalls {
  decltype(&GetFileInformationByHandleEx) ask = GetFileInformationByHandleEx;
  decltype(&SetFileInformationByHandle) tell = SetFileInformationByHandle;
};
inline HandleCalls handleCalls;

}  // namespace tavix::windows
