#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix::machine {

// Files of the host, where the standard library doesn't suffice. Nothing throws.

// A path as text. In a name that isn't valid UTF-8, each byte becomes one character.
Text HostName(const std::filesystem::path& path);
// The same in UTF-8, with slashes.
std::string HostNameUtf8(const std::filesystem::path& path);

// The content of an ordinary file. Nothing when it is missing, not ordinary, larger than `maxBytes` or can't
// be read; `reason` then says why in plain words.
std::optional<std::string> ReadHostFile(const std::filesystem::path& file, uint64_t maxBytes,
                                        std::string& reason);

}  // namespace tavix::machine
