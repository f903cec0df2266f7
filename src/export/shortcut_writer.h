#pragma once

#include <string>

#include "platform/shortcut.h"

namespace tavix::exporting {

// A shortcut file from which platform::ReadShortcut reads these targets, of `size` bytes unless they need
// more. If several targets are longer than 259 characters, one stays and `others` stands for the rest.
// Windows needn't be able to follow it.
std::string ShortcutBytes(const platform::Shortcut& shortcut, size_t size);

}  // namespace tavix::exporting
