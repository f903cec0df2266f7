#pragma once

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

// The content of a file. Nothing where it is missing, is no ordinary file or can't be read.
std::optional<std::string> ReadHostFile(const std::filesystem::path& file);

// Makes a file, or replaces one, and returns when it lies on the disk. False on failure; a part of it may
// be there then.
bool WriteHostFile(const std::filesystem::path& file, std::string_view bytes);
// Returns when the names in a folder lie on the disk, as far as the host can tell.
void FlushHostFolder(const std::filesystem::path& folder);
// Lets two names change places in one step. False, and nothing changed, where the host has no such step.
bool ExchangeHostNames(const std::filesystem::path& left, const std::filesystem::path& right);

}  // namespace tavix::machine
