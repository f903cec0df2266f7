#pragma once

namespace tavix::windows {

// From here on the system's libraries come from the system folder alone, and not from the folder of the
// program or the current one, where others may have put a library of such a name. It is called first of all
// in a program.
//
// What is loaded before that, together with the program, is told by its import table, which therefore names
// no library but those that the system finds without a search: KERNEL32, USER32, GDI32, ADVAPI32, ole32,
// msvcrt and ntdll are its known ones. All others are loaded when they are first called (CMakeLists.txt,
// late/), by their full path, or where the manifest tells it, by that.
void SearchSystemFolderOnly();

}  // namespace tavix::windows
