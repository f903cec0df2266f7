#pragma once

#include <optional>
#include <vector>

#include "text/text.h"

namespace tavix::windows {

// The normal form of an absolute path: backslashes, each once; `.` and `..` resolved, no higher than the
// root; no blanks and dots at the end of a name; a capital drive letter; no backslash at the end but that of
// a drive's root. "C:" is the drive's root. The form of any length that begins with `\\?\` is taken too
// where what follows is in its normal form already.
//
// Nothing for a path that is relative or empty, names a device, or has a character that no name can have:
// such a path would mean something else to the system (a pattern, a stream of a file).
std::optional<Text> NormalPath(TextView path);

// The names of a path below a folder, one or more. Nothing where there is none, or one that stands otherwise
// in a normal path: `..`, one that ends with a blank or a dot.
std::optional<std::vector<Text>> NormalNames(TextView below);

// Whether a normal path is the root of a drive or of a network share.
bool IsRoot(TextView normal);

// The form in which the system takes a normal path as it stands, at any length.
Text ExtendedPath(TextView normal);

// The folder of a normal path that is no root; a drive's with its backslash.
TextView FolderOf(TextView normal);
// The part after the last backslash. Empty for a drive's root.
TextView NameOf(TextView normal);
// The path of something in a folder.
Text PathIn(TextView folder, TextView name);

}  // namespace tavix::windows
