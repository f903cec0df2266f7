#pragma once

namespace tavix::windows {

// From here on the system's libraries come from the system folder alone, and not from the folder of the
// program or the current one, where others may have put a library of such a name. It is called first of all
// in a program.
//
// What is loaded before that, together with the program, is told by its import table, which therefore names
// no library but those that the system finds without a search (KERNEL32, USER32, GDI32, ADVAPI32, ole32,
// msvcrt, ntdll: its known ones) and COMCTL32, whose place the manifest tells. All others are loaded when
// they are first called (CMakeLists.txt, late/), by their full path.
void SearchSystemFolderOnly();

}  // namespace tavix::windows
