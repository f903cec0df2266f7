#include "export/shortcut_writer.h"

#include <algorithm>

#include "platform/shortcut_format.h"
#include "text/utf8.h"

namespace tavix::exporting {
namespace {

using namespace platform::shortcut_format;

void AddNumber(std::string& bytes, uint32_t number) {
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFFU);
}

std::string WideBytes(TextView text) {
  std::string bytes;
  for (const char16_t c : text) {
    bytes += static_cast<char>(c & 0xFFU);
    bytes += static_cast<char>(c >> 8U);
  }
  return bytes.append(2, '\0');
}

// A location block with a path on a volume, which may have any length. Narrow if that can express the path.
std::string LocationBlock(TextView path) {
  const bool narrow = std::ranges::all_of(path, [](char16_t c) { return c < 0x80; });
  const uint32_t header = narrow ? 28 : 36;
  std::string content = narrow ? ToUtf8(path).append(1, '\0') : WideBytes(path);
  const auto suffix = static_cast<uint32_t>(header + content.size());
  content.append(narrow ? 1 : 2, '\0');
  std::string bytes;
  // Size, header, "on a volume", no volume, narrow path, no network, narrow suffix.
  for (const uint32_t field : {static_cast<uint32_t>(header + content.size()), header, 1U, 0U,
                               narrow ? header : 0U, 0U, narrow ? suffix : 0U}) {
    AddNumber(bytes, field);
  }
  if (!narrow) {
    AddNumber(bytes, header);
    AddNumber(bytes, suffix);
  }
  return bytes + content;
}

std::string VariableBlock(TextView path) {
  std::string bytes;
  AddNumber(bytes, kVariablePathField + 3 * kVariablePathLength);
  AddNumber(bytes, kVariablePathBlock);
  bytes.append(kVariablePathLength, '\0').append(WideBytes(path));
  bytes.resize(kVariablePathField + 3 * kVariablePathLength, '\0');
  return bytes;
}

}  // namespace

std::string ShortcutBytes(const platform::Shortcut& shortcut, size_t size) {
  // One path has any length and takes the least space.
  const bool isLocated = !shortcut.paths.empty();
  bool others = shortcut.others;
  std::string blocks;
  for (size_t i = 0; i + 1 < shortcut.paths.size(); ++i) {
    if (shortcut.paths[i].size() < kVariablePathLength) {
      blocks += VariableBlock(shortcut.paths[i]);
    } else {
      others = true;
    }
  }
  std::string bytes(kBeginning);
  AddNumber(bytes, kWideStrings | (isLocated ? kHasLocation : 0) | (blocks.empty() ? 0 : kHasVariablePath) |
                       (others ? kAdvertised : 0));
  bytes.resize(kHeaderSize, '\0');
  if (isLocated) bytes += LocationBlock(shortcut.paths.back());
  bytes += blocks;
  bytes.resize(std::max(bytes.size(), size), '\0');
  return bytes;
}

}  // namespace tavix::exporting
