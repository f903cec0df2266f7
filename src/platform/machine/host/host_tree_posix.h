#pragma once

#include <dirent.h>

#include <functional>
#include <string>

namespace tavix::machine {

// Calls with each name in an open folder, `.` and `..` left out, and its type as the folder has it (DT_DIR,
// ..., DT_UNKNOWN). False when it can't be read to the end.
bool ReadHostNames(int folder, const std::function<void(const char* name, unsigned char type)>& visit);

// Goes through a folder and all below, at any depth, with a few open handles and no link followed. Calls
// `file` with each thing that is no folder, and `leave` with each folder after all in it, the named one as
// the last. False when a call was, or when something could not be read; it goes on nevertheless.
using HostAction = std::function<bool(int folder, const std::string& name)>;
bool WalkHostTree(int folder, const std::string& name, const HostAction& file, const HostAction& leave);

}  // namespace tavix::machine
