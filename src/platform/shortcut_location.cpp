#include "platform/shortcut_location.h"

#include "platform/byte_reader.h"

namespace tavix::platform {
namespace {

constexpr size_t kHeaderSizeField = 4;
constexpr size_t kFlagsField = 8;
constexpr size_t kLocalPathField = 16;
constexpr size_t kNetworkField = 20;
constexpr size_t kSuffixField = 24;
constexpr size_t kWideLocalPathField = 28;
constexpr size_t kWideSuffixField = 32;
constexpr uint32_t kHeaderWithWideTexts = 36;

constexpr uint32_t kOnVolume = 1;
constexpr uint32_t kOnNetwork = 2;

// Fields of the network part.
constexpr size_t kShareField = 8;
constexpr size_t kWideShareField = 20;
constexpr uint32_t kNetworkHeader = 20;

// An offset of 0 means no text.
Text NarrowAt(const ByteReader& block, size_t field) {
  const uint32_t offset = block.U32(field);
  return offset == 0 ? Text() : block.NarrowText(offset);
}

Text WideAt(const ByteReader& block, size_t field) {
  const uint32_t offset = block.U32(field);
  return offset == 0 ? Text() : block.WideText(offset);
}

Text ShareName(const ByteReader& network) {
  // A longer header also holds the offsets of wide texts. The first text then begins after the plain header.
  const bool hasWide = network.U32(kShareField) > kNetworkHeader;
  Text name = hasWide ? WideAt(network, kWideShareField) : Text();
  return name.empty() ? NarrowAt(network, kShareField) : name;
}

Text Join(Text base, TextView suffix) {
  if (base.empty() || suffix.empty()) return base;
  if (base.back() != u'\\') base += u'\\';
  return base.append(suffix);
}

}  // namespace

LocationPaths ShortcutLocation(const ByteReader& block) {
  LocationPaths paths;
  const bool hasWide = block.U32(kHeaderSizeField) >= kHeaderWithWideTexts;
  Text suffix = hasWide ? WideAt(block, kWideSuffixField) : Text();
  if (suffix.empty()) suffix = NarrowAt(block, kSuffixField);
  const uint32_t flags = block.U32(kFlagsField);
  if ((flags & kOnVolume) != 0) {
    Text path = hasWide ? WideAt(block, kWideLocalPathField) : Text();
    if (path.empty()) path = NarrowAt(block, kLocalPathField);
    paths.onVolume = Join(std::move(path), suffix);
  }
  if ((flags & kOnNetwork) != 0) {
    const uint32_t network = block.U32(kNetworkField);
    if (network != 0) paths.onShare = Join(ShareName(block.Part(network, block.U32(network))), suffix);
    paths.named = !paths.onShare.empty();
  }
  return paths;
}

}  // namespace tavix::platform
