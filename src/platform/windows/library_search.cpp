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

// Called before a library is delay-loaded; the result is the library. After a null result it is loaded by its
// name, so that the manifest chooses the version of comctl32.dll, which is not in the system folder. Import
// libraries differ in the letter case of names.
FARPROC WINAPI OnDelayLoad(unsigned moment, DelayLoadInfo* info) {
  const std::string_view name = info->szDll;
  if (moment != dliNotePreLoadLibrary || lstrcmpiA(info->szDll, "comctl32.dll") == 0) return nullptr;
  return reinterpret_cast<FARPROC>(
      reinterpret_cast<void*>(LoadFromSystemFolder(Text(name.begin(), name.end()))));
}

}  // namespace

void SearchSystemFolderOnly() {
  // Leaves out the current folder.
  SetDllDirectoryW(L"");
  // Missing on Windows 7 without an update.
  using SetDirectories = BOOL(WINAPI*)(DWORD);
  const auto setDirectories = reinterpret_cast<SetDirectories>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories")));
  if (setDirectories != nullptr) setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  // comctl32 loads this one by its name alone, and under Wine the settings above don't affect that. Once it
  // is loaded, the name means the loaded one.
  LoadFromSystemFolder(u"uxtheme.dll");
}

}  // namespace tavix::windows

// The hook of the compiler's delay-load library. Linking it in installs it; SearchSystemFolderOnly is in the
// same file, so it is always linked. Some headers declare it const.
decltype(__pfnDliNotifyHook2) __pfnDliNotifyHook2 = tavix::windows::OnDelayLoad;
