#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix::machine {

// Files of the host, as far as the standard library's own calls don't suffice. Nothing throws.

// A path as text; bytes of a name that are no UTF-8 are taken as one character each.
Text HostName(const std::filesystem::path& path);
// The same in UTF-8, with slashes.
std::string HostNameUtf8(const std::filesystem::path& path);

// The content of a file of `most` bytes at most. Nothing where it is missing, is no ordinary file, is bigger
// or can't be read; `reason` then says why in plain words.
std::optional<std::string> ReadHostFile(const std::filesystem::path& file, uint64_t most,
                                        std::string& reason);

}  // namespace tavix::machine
