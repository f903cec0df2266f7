#pragma once

#include <dirent.h>

#include <functional>
#include <string>

namespace tavix::machine {

// Calls `visit` with each name in an open folder, except `.` and `..`, and its type (DT_DIR, ...,
// DT_UNKNOWN). False when the folder can't be read to its end.
bool ReadHostNames(int folder, const std::function<void(const char* name, unsigned char type)>& visit);

// Walks a folder and everything below it, at any depth, with few open handles and without following links.
// Calls `file` with each entry that is no folder, and `leave` with each folder after its content; the top
// folder comes last. Continues after failures. False when a call returned false or something could not be
// read.
using HostAction = std::function<bool(int folder, const std::string& name)>;
bool WalkHostTree(int folder, const std::string& name, const HostAction& file, const HostAction& leave);

}  // namespace tavix::machine
