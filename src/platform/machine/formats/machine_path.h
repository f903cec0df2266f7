#pragma once

#include <optional>
#include <vector>

#include "text/text.h"

namespace tavix::machine {

// The application folder of a machine that isn't the running Windows.
inline constexpr TextView kApplicationFolder = u"\\\\tavix\\app";

// An absolute path of the machine, split into names.
struct MachinePath {
  char16_t drive = 0;       // upper-case, or 0 for the application folder
  std::vector<Text> names;  // below the root; `.` and `..` resolved, no blanks or dots at their ends

  // "C:\" or "C:\a\b"; "\\tavix\app\a".
  Text ToText() const;
};

// Reads a path as Windows does. Nothing for an empty or relative path, a path on another computer, and a path
// with an impossible name.
std::optional<MachinePath> ReadMachinePath(TextView path);

// Whether a path is on another computer: two separators, then the names of the computer and the share.
bool LeadsToAnotherComputer(TextView path);

// The text of a path: "C:\" or "C:\a\b". A drive of 0 is the application folder.
Text MachinePathText(char16_t drive, const std::vector<Text>& names);

// Whether a file or folder can have this name on Windows: none of `<>:"|?*/\`, no control characters, no
// blank or dot at the end, 1 to 255 characters.
bool IsFileName(TextView name);

}  // namespace tavix::machine
