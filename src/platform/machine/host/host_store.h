#pragma once

#include <filesystem>
#include <memory>

#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

// The store that is a folder of the host; null when it can't be opened. `root` without links. Times are the
// host's, in the time zone of TZ (UTC when unset). Names that are no UTF-8, or that no file can have on
// Windows, are left out. Nothing outside the folder is reached, whatever links lie in it.
//
// On a Windows host reparse points are seen and never followed: they lead to nothing.
std::unique_ptr<FileStore> OpenHostStore(const std::filesystem::path& root);

}  // namespace tavix::machine
