#pragma once

namespace tavix::windows {

// From here on the system's libraries come from the system folder alone, and not from the folder of the
// program or the current one, where others may have put a library of such a name. It is called first of all
// in a program.
//
// Libraries of the import table are loaded before this call. So the table names only libraries that Windows
// finds without a search, its known ones: KERNEL32, USER32, GDI32, ADVAPI32, ole32, msvcrt and ntdll. Every
// other library is loaded at its first call (CMakeLists.txt, late/), by its full path or, where the manifest
// names it, from the place that the manifest gives.
void SearchSystemFolderOnly();

}  // namespace tavix::windows
