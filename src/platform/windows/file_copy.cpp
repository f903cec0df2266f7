#include "platform/windows/file_copy.h"

#include <optional>
#include <vector>

#include "platform/windows/opened_item.h"
#include "platform/windows/wide.h"

namespace tavix::windows {
namespace {

constexpr DWORD kBlock = 1 << 20;
constexpr TextView kContentStream = u"::$DATA";

// Copies from the current positions to the end of the source. False unless `expected` bytes were copied.
bool CopyBytes(HANDLE from, HANDLE to, LONGLONG expected) {
  std::vector<char> block(kBlock);
  LONGLONG copied = 0;
  for (;;) {
    DWORD count = 0, written = 0;
    if (!ReadFile(from, block.data(), kBlock, &count, nullptr)) return false;
    if (count == 0) return copied == expected;
    if (!WriteFile(to, block.data(), count, &written, nullptr) || written != count) return false;
    copied += count;
  }
}

// The names of all streams but the content. Most file systems have no others.
std::vector<Text> NamedStreams(HANDLE file) {
  std::vector<char> buffer(4096);
  while (
      !handleCalls.getInformation(file, FileStreamInfo, buffer.data(), static_cast<DWORD>(buffer.size()))) {
    if (GetLastError() != ERROR_MORE_DATA) return {};
    buffer.resize(buffer.size() * 2);
  }
  std::vector<Text> names;
  for (size_t at = 0;;) {
    const auto* stream = reinterpret_cast<const FILE_STREAM_INFO*>(buffer.data() + at);
    Text name = FromWide(std::wstring_view(stream->StreamName, stream->StreamNameLength / sizeof(wchar_t)));
    if (name != kContentStream) names.push_back(std::move(name));
    if (stream->NextEntryOffset == 0) return names;
    at += stream->NextEntryOffset;
  }
}

bool HasNamedStreams(HANDLE file) {
  DWORD flags = 0;
  return GetVolumeInformationByHandleW(file, nullptr, 0, nullptr, nullptr, &flags, nullptr, 0) &&
         (flags & FILE_NAMED_STREAMS) != 0;
}

bool CopyStream(HANDLE source, const Text& copy, Text name) {
  UNICODE_STRING text;
  text.Length = text.MaximumLength = static_cast<USHORT>(name.size() * sizeof(char16_t));
  text.Buffer = WideBuffer(name.data());
  OBJECT_ATTRIBUTES attributes = {};
  attributes.Length = sizeof(attributes);
  attributes.RootDirectory = source;
  attributes.ObjectName = &text;
  IO_STATUS_BLOCK status;
  FileHandle from;
  if (!NT_SUCCESS(NtOpenFile(from.Receive(), FILE_READ_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE, &attributes,
                             &status, kShareAll, FILE_SYNCHRONOUS_IO_NONALERT))) {
    (void)from.Release();
    return false;
  }
  const FileHandle to(CreateFileW(Wide(Concat(copy, name)), GENERIC_WRITE, kShareAll, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER size;
  return to && GetFileSizeEx(from.Get(), &size) && CopyBytes(from.Get(), to.Get(), size.QuadPart);
}

bool CopyAll(HANDLE source, HANDLE copy, const Text& path, const BY_HANDLE_FILE_INFORMATION& facts) {
  LARGE_INTEGER expected, size;
  if (!GetFileSizeEx(source, &expected) || !CopyBytes(source, copy, expected.QuadPart)) return false;
  if (HasNamedStreams(copy)) {
    for (const Text& name : NamedStreams(source)) {
      if (!CopyStream(source, path, name)) return false;
    }
  }
  return SetFileTime(copy, &facts.ftCreationTime, &facts.ftLastAccessTime, &facts.ftLastWriteTime) &&
         FlushFileBuffers(copy) && GetFileSizeEx(copy, &size) && size.QuadPart == expected.QuadPart;
}

}  // namespace

bool CopyOpenFile(HANDLE source, const Text& path) {
  BY_HANDLE_FILE_INFORMATION facts, made;
  if (!GetFileInformationByHandle(source, &facts)) return false;
  const DWORD encrypted = facts.dwFileAttributes & FILE_ATTRIBUTE_ENCRYPTED;
  // Shared for writing: the named streams are written through other handles.
  FileHandle copy(CreateFileW(Wide(path), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, CREATE_NEW, encrypted != 0 ? encrypted : FILE_ATTRIBUTE_NORMAL,
                              nullptr));
  if (!copy) return false;
  const bool complete = GetFileInformationByHandle(copy.Get(), &made) &&
                        (encrypted == 0 || (made.dwFileAttributes & encrypted) != 0) &&
                        CopyAll(source, copy.Get(), path, facts);
  copy.Reset();
  if (!complete) DeleteFileW(Wide(path));
  return complete;
}

}  // namespace tavix::windows
