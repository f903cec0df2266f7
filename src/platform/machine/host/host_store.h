#pragma once

#include <filesystem>
#include <memory>

#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

// Opens a folder of the host as a store. Null when it can't be opened. `root` contains no links. Times are
// the host's, in the time zone of TZ (UTC when unset). Names that aren't UTF-8, or are impossible on Windows,
// are left out. Nothing outside the folder is reached, whatever links are in it.
//
// On a Windows host, reparse points are listed as links and never followed: they have no target.
std::unique_ptr<FileStore> OpenHostStore(const std::filesystem::path& root);

}  // namespace tavix::machine
