#pragma once

#include <memory>

#include "platform/file_system.h"

namespace tavix {

// Opens the item at the path `below` under a folder, as a clean does for the first row of a folder.
inline std::unique_ptr<platform::FoundItem> OpenFoundItem(platform::FileSystem& files, TextView start,
                                                          TextView below) {
  const size_t cut = below.rfind(u'\\');
  const bool deeper = cut != TextView::npos;
  const auto folder = files.OpenFound(start, below.substr(0, deeper ? cut : 0));
  return folder != nullptr ? folder->Open(below.substr(deeper ? cut + 1 : 0)) : nullptr;
}

}  // namespace tavix
