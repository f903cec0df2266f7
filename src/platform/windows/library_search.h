#pragma once

namespace tavix::windows {

// From this call on, the system's libraries are loaded only from the system folder, never from the program's
// folder or the current one, where somebody could have put a library of the same name. main calls it first.
//
// Libraries in the import table are loaded before this call. So the table names only known DLLs, which
// Windows finds without a search: KERNEL32, USER32, GDI32, ADVAPI32, ole32, msvcrt and ntdll. Every other
// library is delay-loaded at its first call (CMakeLists.txt, late/): by its full path or, for the one that
// the manifest names, from the place the manifest gives.
void SearchSystemFolderOnly();

}  // namespace tavix::windows
