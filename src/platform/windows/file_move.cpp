#include "platform/windows/file_move.h"

#include <optional>

#include "platform/windows/delete_tree.h"
#include "platform/windows/file_content.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

bool IsWholeOnDisk(const Text& copy, LARGE_INTEGER expected) {
  const FileHandle file(CreateFileW(Wide(copy), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER size;
  return file && FlushFileBuffers(file.Get()) && GetFileSizeEx(file.Get(), &size) &&
         size.QuadPart == expected.QuadPart;
}

}  // namespace

bool MoveOneFile(TextView source, TextView destination) {
  if (IsRoot(source) || IsRoot(destination)) return false;
  const std::optional<Entry> entry = LookUp(source);
  if (!entry || entry->IsFolder()) return false;
  const Text from = ExtendedPath(source), to = ExtendedPath(destination);
  if (MoveFileExW(Wide(from), Wide(to), 0)) return true;
  return GetLastError() == ERROR_NOT_SAME_DEVICE && MoveByCopy(source, destination);
}

bool MoveByCopy(TextView source, TextView destination) {
  const Text from = ExtendedPath(source), to = ExtendedPath(destination);
  if (GetFileAttributesW(Wide(to)) != INVALID_FILE_ATTRIBUTES) return false;
  // Nobody writes to the source while it is being copied.
  FileHandle held(CreateFileW(Wide(from), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER size;
  BY_HANDLE_FILE_INFORMATION facts;
  if (!held || !GetFileSizeEx(held.Get(), &size) || !GetFileInformationByHandle(held.Get(), &facts))
    return false;

  const Text copy = TemporaryPath(FolderOf(destination));
  const bool moved =
      CopyFileExW(Wide(from), Wide(copy), nullptr, nullptr, nullptr, COPY_FILE_FAIL_IF_EXISTS) &&
      SetFileAttributesW(Wide(copy), FILE_ATTRIBUTE_NORMAL) && IsWholeOnDisk(copy, size) &&
      MoveFileExW(Wide(copy), Wide(to), MOVEFILE_WRITE_THROUGH);
  held.Reset();
  if (!moved) {
    SetFileAttributesW(Wide(copy), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(Wide(copy));
    return false;
  }
  if (DeleteOneFile(source, true)) {
    SetFileAttributesW(Wide(to), facts.dwFileAttributes);
    return true;
  }
  DeleteFileW(Wide(to));
  return false;
}

}  // namespace tavix::windows
