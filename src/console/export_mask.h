#pragma once

#include <memory>

#include "export/name_mask.h"
#include "export/record.h"
#include "platform/file_system.h"

namespace tavix::console {

// A mask for what the record names, made while the program runs: it keeps what the settings and the junk
// types name, and every name of a file or folder that would otherwise come to fit another pattern of a scan.
// Reads the names below the record's trees. `files` is the plain file system.
std::unique_ptr<exporting::NameMask> MakeMask(const exporting::Record& record, platform::FileSystem& files);

}  // namespace tavix::console
