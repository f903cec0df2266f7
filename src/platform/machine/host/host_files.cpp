#include "platform/machine/host/host_files.h"

#include <algorithm>
#include <fstream>

#include "text/utf8.h"

namespace tavix::machine {

namespace fs = std::filesystem;

namespace {

// One for hosts whose names are bytes, one for hosts whose names are UTF-16.
[[maybe_unused]] Text Decoded(std::string_view name) {
  if (std::optional<Text> text = FromUtf8(name)) return *std::move(text);
  Text text;
  for (const char c : name) text.push_back(static_cast<unsigned char>(c));
  return text;
}
[[maybe_unused]] Text Decoded(std::wstring_view name) { return {name.begin(), name.end()}; }

}  // namespace

Text HostName(const fs::path& path) { return Decoded(path.native()); }

std::string HostNameUtf8(const fs::path& path) {
  std::string name = ToUtf8(HostName(path));
  if constexpr (fs::path::preferred_separator != '/') std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

std::optional<std::string> ReadHostFile(const fs::path& file, uint64_t maxBytes, std::string& reason) {
  reason = "can't be read";
  std::error_code failure;
  if (!fs::is_regular_file(file, failure)) return std::nullopt;
  const uintmax_t size = fs::file_size(file, failure);
  if (failure) return std::nullopt;
  if (size > maxBytes) {
    reason = "is bigger than " + std::to_string(maxBytes >> 20U) + " MiB";
    return std::nullopt;
  }
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  std::string bytes(static_cast<size_t>(size), '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(size));
  if (in.bad() || in.gcount() != static_cast<std::streamsize>(size)) return std::nullopt;
  return bytes;
}

}  // namespace tavix::machine
