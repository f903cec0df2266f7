#include "platform/windows/library_search.h"

#include "platform/windows/system_programs.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

#include <delayimp.h>

namespace tavix::windows {
namespace {

// Called before a library is loaded late; what it returns is the library.
FARPROC WINAPI LoadFromSystemFolder(unsigned moment, DelayLoadInfo* info) {
  if (moment != dliNotePreLoadLibrary) return nullptr;
  const std::string_view name = info->szDll;
  const Text path = Concat(SystemFolder(), u"\\", Text(name.begin(), name.end()));
  const HMODULE library = LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(library));
}

}  // namespace

void SearchSystemFolderOnly() {
  // The current folder is left out.
  SetDllDirectoryW(L"");
  // Windows 7 has this routine only with an update.
  using SetDirectories = BOOL(WINAPI*)(DWORD);
  const auto setDirectories = reinterpret_cast<SetDirectories>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories")));
  if (setDirectories != nullptr) setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace tavix::windows

// The hook that the compiler's library for late loading looks for. It is in place without being set, since it
// is linked in together with the routine above.
PfnDliHook __pfnDliNotifyHook2 = tavix::windows::LoadFromSystemFolder;
