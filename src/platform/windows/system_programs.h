#pragma once

#include <optional>

#include "text/text.h"

namespace tavix::windows {

// The folder of the system's programs and libraries, the 64-bit ones, whatever the environment says.
Text SystemFolder();

// The full path of a program that is named without a folder, with or without ".exe": where the system keeps
// it and nowhere else. Nothing when it isn't there, or the name is a path or no name of a file.
std::optional<Text> SystemProgram(TextView name);

}  // namespace tavix::windows
