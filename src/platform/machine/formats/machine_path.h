#pragma once

#include <optional>
#include <vector>

#include "text/text.h"

namespace tavix::machine {

// The path under which a machine that isn't a running system has its application folder.
inline constexpr TextView kApplicationFolder = u"\\\\tavix\\app";

// A path of the machine, read as Windows reads it.
struct MachinePath {
  char16_t drive = 0;       // a capital, or 0 for the application folder
  std::vector<Text> names;  // below its root; no `.` and `..`, no blanks and dots at the ends

  // "C:\" or "C:\a\b"; "\\tavix\app\a".
  Text ToText() const;
};

// Nothing for a path that is empty or relative, that leads to another computer, or that has a name in it
// which no file can have.
std::optional<MachinePath> ReadMachinePath(TextView path);

// Whether a path names a share of another computer: two separators, then the names of computer and share.
bool LeadsToAnotherComputer(TextView path);

// "C:\" or "C:\a\b" of a drive, or 0 for the application folder, and names below it.
Text MachinePathText(char16_t drive, const std::vector<Text>& names);

// Whether a file or folder can have this name on Windows: none of `<>:"|?*/\`, no control characters, no
// blank or dot at the end, 1 to 255 characters.
bool IsFileName(TextView name);

}  // namespace tavix::machine
