#include "platform/machine/host_files.h"

#include <algorithm>
#include <fstream>
#include <type_traits>

#include "text/utf8.h"

namespace tavix::machine {

namespace fs = std::filesystem;

Text HostName(const fs::path& path) {
  const fs::path::string_type& name = path.native();
  if constexpr (std::is_same_v<fs::path::value_type, char>) {
    if (std::optional<Text> text = FromUtf8(name)) return *std::move(text);
  }
  Text text;
  for (const auto c : name) {
    text.push_back(static_cast<char16_t>(static_cast<std::make_unsigned_t<fs::path::value_type>>(c)));
  }
  return text;
}

std::string HostNameUtf8(const fs::path& path) {
  std::string name = ToUtf8(HostName(path));
  if constexpr (fs::path::preferred_separator != '/') std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

std::optional<std::string> ReadHostFile(const fs::path& file) {
  std::error_code failure;
  if (!fs::is_regular_file(file, failure)) return std::nullopt;
  const uintmax_t size = fs::file_size(file, failure);
  std::ifstream in(file, std::ios::binary);
  if (failure || !in) return std::nullopt;
  std::string bytes(size, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(size));
  if (in.bad() || in.gcount() != static_cast<std::streamsize>(size)) return std::nullopt;
  return bytes;
}

}  // namespace tavix::machine
