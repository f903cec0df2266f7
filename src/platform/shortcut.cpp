#include "platform/shortcut.h"

#include <algorithm>

#include "platform/byte_reader.h"
#include "platform/shortcut_format.h"
#include "platform/shortcut_items.h"
#include "platform/shortcut_location.h"

namespace tavix::platform {
namespace {

using namespace shortcut_format;

// Reads a shortcut part by part. Each Take returns the next part. Nothing when the file ends within it.
class Parts {
 public:
  explicit Parts(std::string_view bytes) : bytes_(bytes) {}

  // An item list. Its size, two bytes, stands before it.
  std::optional<std::string_view> TakeItems() {
    const std::optional<std::string_view> size = Take(2);
    return size ? Take(ByteReader(*size).U16(0)) : std::nullopt;
  }

  // A block whose first four bytes are its size.
  std::optional<std::string_view> TakeBlock(uint32_t smallest) {
    const uint32_t size = ByteReader(bytes_).U32(at_);
    return size < smallest ? std::nullopt : Take(size);
  }

  // A string. Its number of characters stands before it.
  bool SkipString(bool wide) {
    const std::optional<std::string_view> count = Take(2);
    return count && Take(size_t{ByteReader(*count).U16(0)} * (wide ? 2U : 1U));
  }

 private:
  std::optional<std::string_view> Take(size_t size) {
    if (!ByteReader(bytes_).Has(at_, size)) return std::nullopt;
    at_ += size;
    return bytes_.substr(at_ - size, size);
  }

  std::string_view bytes_;
  size_t at_ = kHeaderSize;
};

bool SkipStrings(Parts& parts, uint32_t flags) {
  for (uint32_t string = kFirstString; string <= kLastString; string <<= 1U) {
    if ((flags & string) != 0 && !parts.SkipString((flags & kWideStrings) != 0)) return false;
  }
  return true;
}

Text VariablePath(const ByteReader& block) {
  constexpr size_t kWideField = kVariablePathField + kVariablePathLength;
  Text path = block.Part(kWideField, 2 * kVariablePathLength).WideText(0);
  return path.empty() ? block.Part(kVariablePathField, kVariablePathLength).NarrowText(0) : path;
}

void AddPath(Shortcut& shortcut, Text path) {
  if (path.empty() || std::ranges::find(shortcut.paths, path) != shortcut.paths.end()) return;
  shortcut.paths.push_back(std::move(path));
}

}  // namespace

std::optional<Shortcut> ReadShortcut(std::string_view bytes, NarrowDecoder decode) {
  if (!bytes.starts_with(kBeginning) || bytes.size() < kHeaderSize) return std::nullopt;
  const uint32_t flags = ByteReader(bytes).U32(kFlagsField);
  Parts parts(bytes);

  std::optional<std::string_view> items = std::string_view();
  if ((flags & kHasItems) != 0) items = parts.TakeItems();
  if (!items) return std::nullopt;
  std::optional<std::string_view> location = std::string_view();
  constexpr uint32_t kSmallestLocation = 28;
  if ((flags & kHasLocation) != 0) location = parts.TakeBlock(kSmallestLocation);
  if (!location || !SkipStrings(parts, flags)) return std::nullopt;

  // The extra blocks end with one that is too small. A file cut off among them has already named its target.
  Shortcut shortcut;
  shortcut.others = (flags & kAdvertised) != 0;
  constexpr uint32_t kSmallestBlock = 8;
  while (const std::optional<std::string_view> block = parts.TakeBlock(kSmallestBlock)) {
    const ByteReader reader(*block, decode);
    const uint32_t kind = reader.U32(4);
    if (kind == kAdvertisedBlock) shortcut.others = true;
    if (kind == kVariablePathBlock && (flags & kHasVariablePath) != 0) {
      AddPath(shortcut, VariablePath(reader));
    }
  }

  if ((flags & kIgnoreLocation) == 0) {
    LocationPaths paths = ShortcutLocation(ByteReader(*location, decode));
    AddPath(shortcut, std::move(paths.onVolume));
    AddPath(shortcut, std::move(paths.onShare));
    if (!paths.named) shortcut.others = true;
  }
  if (const ByteReader list(*items, decode); list.U16(0) != 0) {
    Text path = ShortcutItemPath(list);
    if (path.empty()) shortcut.others = true;
    AddPath(shortcut, std::move(path));
  }
  return shortcut;
}

}  // namespace tavix::platform
