#pragma once

#include "platform/windows/handle.h"

namespace tavix::windows {

// A file or folder.
struct FileHandleTraits {
  using Handle = HANDLE;
  static Handle Null() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using FileHandle = Owned<FileHandleTraits>;

// A search through a folder.
struct FindHandleTraits {
  using Handle = HANDLE;
  static Handle Null() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { FindClose(handle); }
};
using FindHandle = Owned<FindHandleTraits>;

// The share mode that lets others do anything with a file while we have it open.
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace tavix::windows
