#include "platform/windows/file_move.h"

#include <optional>
#include <vector>

#include "platform/windows/file_content.h"
#include "platform/windows/file_copy.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

bool IsTaken(TextView path) {
  return GetFileAttributesW(Wide(ExtendedPath(path))) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

bool MoveOneFile(TextView source, TextView destination) {
  if (IsRoot(source)) return false;
  std::optional<OpenedItem> item = OpenItem(source);
  return item && MoveItem(*item, destination);
}

bool MoveItem(OpenedItem& item, TextView destination) {
  if (item.IsFolder() || IsRoot(destination) || IsTaken(destination)) return false;
  const Renamed renamed = RenameItem(item, destination);
  return renamed == Renamed::Done || (renamed == Renamed::OtherVolume && MoveByCopy(item, destination));
}

bool MoveByCopy(OpenedItem& item, TextView destination) {
  if (item.link || IsKeptOnline(item.attributes) || IsTaken(destination)) return false;
  // Nobody may write to the file while it is copied and deleted.
  const FileHandle source(ReOpenFile(item.handle.Get(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                     FILE_FLAG_SEQUENTIAL_SCAN));
  if (!source || !AreTheSame(source.Get(), item.handle.Get())) return false;

  const Text copy = TemporaryPath(FolderOf(destination)), to = ExtendedPath(destination);
  if (!CopyOpenFile(source.Get(), copy)) return false;
  if (!MoveFileExW(Wide(copy), Wide(to), MOVEFILE_WRITE_THROUGH)) {
    DeleteFileW(Wide(copy));
    return false;
  }
  if (DeleteItem(item, true)) {
    SetFileAttributesW(Wide(to), item.attributes & kOwnAttributes);
    return true;
  }
  DeleteFileW(Wide(to));
  return false;
}

}  // namespace tavix::windows
