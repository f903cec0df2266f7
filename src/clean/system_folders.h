#pragma once

#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Folders that Windows keeps although they are usually empty: it needs them, makes them anew, or asks to keep
// them. They stand at the root of its drive, in the Windows folder and in the common program data. The shell
// names none of them. Some may be missing.
std::vector<Text> FoldersThatWindowsKeeps();

}  // namespace tavix::mdlPubSelf
