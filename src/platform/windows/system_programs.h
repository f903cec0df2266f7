#pragma once

#include <optional>

#include "text/text.h"

namespace tavix::windows {

// The system folder, always the 64-bit one, whatever the environment variables say.
Text SystemFolder();

// The full path of a system program named without a folder, with or without ".exe". Only the place where the
// system keeps it is looked at. Nothing when it isn't there, or when `name` has a folder or can't be a file's
// name.
std::optional<Text> SystemProgram(TextView name);

}  // namespace tavix::windows
