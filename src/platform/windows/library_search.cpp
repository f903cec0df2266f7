#include "platform/windows/library_search.h"

#include "platform/windows/system_programs.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

#include <delayimp.h>

namespace tavix::windows {
namespace {

HMODULE LoadFromSystemFolder(TextView name) {
  const Text path = Concat(SystemFolder(), u"\\", name);
  return LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

// Called before a library is loaded late; what it returns is the library. For nothing it is loaded by its
// name: so the manifest tells the place of the controls, which is not the system folder.
FARPROC WINAPI OnLateLibrary(unsigned moment, DelayLoadInfo* info) {
  const std::string_view name = info->szDll;
  if (moment != dliNotePreLoadLibrary || name == "comctl32.dll") return nullptr;
  return reinterpret_cast<FARPROC>(
      reinterpret_cast<void*>(LoadFromSystemFolder(Text(name.begin(), name.end()))));
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
  // The system's controls load this one by its name alone, and under Wine without regard to the above. Once
  // it is loaded, its name means the one that is.
  LoadFromSystemFolder(u"uxtheme.dll");
}

}  // namespace tavix::windows

// The hook that the compiler's library for late loading looks for. It is in place without being set, since it
// is linked in together with the routine above.
PfnDliHook __pfnDliNotifyHook2 = tavix::windows::OnLateLibrary;
