#pragma once

#include <optional>
#include <vector>

#include "text/text.h"

namespace tavix::windows {

// The normal form of an absolute path: single backslashes; `.` and `..` resolved, not above the root; no
// blanks or dots at the end of a name; a capital drive letter; no backslash at the end, except for a drive's
// root. "C:" is the drive's root. The extended form (`\\?\`) is accepted too, if the rest is already normal.
//
// Nothing for a relative or empty path, a device, and a path with a character that no name can have: the
// system would read that as something else (a pattern, a stream of a file).
std::optional<Text> NormalPath(TextView path);

// Splits a path below a folder into its names. Nothing when it has none, or a name that a normal path can't
// have: `..`, or one that ends with a blank or a dot.
std::optional<std::vector<Text>> NormalNames(TextView below);

// Whether a normal path is the root of a drive or of a network share.
bool IsRoot(TextView normal);

// The extended form of a normal path (`\\?\`), which the system takes literally and at any length.
Text ExtendedPath(TextView normal);

// The folder of a normal path, which must not be a root. A drive's root keeps its backslash.
TextView FolderOf(TextView normal);
// The last name of a normal path. Empty for a drive's root.
TextView NameOf(TextView normal);
// Joins a folder and a name.
Text PathIn(TextView folder, TextView name);

}  // namespace tavix::windows
