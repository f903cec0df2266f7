#include "platform/windows/file_content.h"

#include <algorithm>

#include "platform/temporary_name.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

// Larger files aren't read. Also the most bytes written at a time.
constexpr uint64_t kLargestFile = uint64_t{1} << 30;

FileHandle OpenFile(TextView path, DWORD access, DWORD share, DWORD disposition, DWORD flags = 0) {
  const Text extended = ExtendedPath(path);
  return FileHandle(CreateFileW(Wide(extended), access, share, nullptr, disposition,
                                FILE_ATTRIBUTE_NORMAL | flags, nullptr));
}

bool Write(HANDLE file, std::string_view content) {
  while (!content.empty()) {
    const auto size = static_cast<DWORD>(std::min<uint64_t>(content.size(), kLargestFile));
    DWORD written = 0;
    if (!WriteFile(file, content.data(), size, &written, nullptr) || written == 0) return false;
    content.remove_prefix(written);
  }
  return true;
}

// Checked before opening: some systems let an administrator write to a read-only file.
bool IsReadOnly(TextView path) {
  bool sure = true;
  const std::optional<DWORD> attributes = FollowedAttributes(path, sure);
  return attributes && (*attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool Truncate(HANDLE file, LARGE_INTEGER size) {
  return SetFilePointerEx(file, size, nullptr, FILE_BEGIN) && SetEndOfFile(file);
}

bool ReplacePlainFile(TextView path, DWORD attributes, std::string_view content) {
  const Text temporary = TemporaryPath(FolderOf(path)), destination = ExtendedPath(path);
  FileHandle file(CreateFileW(Wide(temporary), GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr));
  if (!file) return false;
  const bool written = Write(file.Get(), content) && FlushFileBuffers(file.Get());
  file.Reset();
  constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (written && MoveFileExW(Wide(temporary), Wide(destination), kFlags)) return true;
  DeleteFileW(Wide(temporary));
  return false;
}

}  // namespace

std::optional<std::string> ReadContent(TextView path) {
  const std::optional<Entry> entry = LookUp(path);
  if (entry && IsKeptOnline(entry->attributes)) return std::nullopt;
  const FileHandle file = OpenFile(path, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
  const std::optional<DWORD> attributes = file ? AttributesOf(file.Get()) : std::nullopt;
  // Check again: `path` may be a link to an online file.
  if (!attributes || IsKeptOnline(*attributes)) return std::nullopt;
  LARGE_INTEGER size;
  if (!GetFileSizeEx(file.Get(), &size)) return std::nullopt;
  if (static_cast<uint64_t>(size.QuadPart) > kLargestFile) return std::nullopt;
  std::string content(static_cast<size_t>(size.QuadPart), '\0');
  size_t filled = 0;
  while (filled < content.size()) {
    DWORD count = 0;
    if (!ReadFile(file.Get(), content.data() + filled, static_cast<DWORD>(content.size() - filled), &count,
                  nullptr))
      return std::nullopt;
    if (count == 0) break;
    filled += count;
  }
  content.resize(filled);
  return content;
}

bool ReplaceContent(TextView path, std::string_view content) {
  if (IsRoot(path)) return false;
  const std::optional<Entry> entry = LookUp(path);
  if (!entry) return ReplacePlainFile(path, FILE_ATTRIBUTE_NORMAL, content);
  if (!entry->link) {
    if (entry->IsFolder() || entry->IsReadOnly()) return false;
    return ReplacePlainFile(path, entry->attributes & kOwnAttributes, content);
  }
  const std::optional<Text> target = ReadResolvedLink(path);
  const std::optional<Entry> found = target.and_then([](const Text& real) { return LookUp(real); });
  if (!found || found->link || found->IsFolder() || found->IsReadOnly()) return false;
  return ReplacePlainFile(*target, found->attributes & kOwnAttributes, content);
}

bool AppendContent(TextView path, std::string_view content) {
  if (IsReadOnly(path)) return false;
  const FileHandle file = OpenFile(path, GENERIC_WRITE | DELETE, FILE_SHARE_READ, OPEN_ALWAYS);
  if (!file) return false;
  const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
  LARGE_INTEGER end;
  if (!GetFileSizeEx(file.Get(), &end) || !SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN))
    return false;
  if (Write(file.Get(), content)) return true;
  Truncate(file.Get(), end);
  if (isNew) {
    FILE_DISPOSITION_INFO disposition = {TRUE};
    SetFileInformationByHandle(file.Get(), FileDispositionInfo, &disposition, sizeof(disposition));
  }
  return false;
}

bool CreateEmptyFile(TextView path, bool overwrite) {
  if (IsReadOnly(path)) return false;
  // Truncate: CREATE_ALWAYS fails on hidden files.
  const FileHandle file =
      OpenFile(path, GENERIC_WRITE, FILE_SHARE_READ, overwrite ? OPEN_ALWAYS : CREATE_NEW);
  return file && Truncate(file.Get(), {});
}

Text TemporaryPath(TextView folder) {
  static uint32_t count = 0;
  for (;;) {
    const Text name = platform::kTemporaryFiles.Make(GetCurrentProcessId(), ++count);
    Text path = ExtendedPath(PathIn(folder, name));
    if (GetFileAttributesW(Wide(path)) == INVALID_FILE_ATTRIBUTES) return path;
  }
}

}  // namespace tavix::windows
