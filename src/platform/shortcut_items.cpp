#include "platform/shortcut_items.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/byte_reader.h"

namespace tavix::platform {
namespace {

using namespace std::string_view_literals;

// Items begin with their size, two bytes, and their kind, one byte.
constexpr size_t kKindField = 2;
constexpr uint8_t kKindMask = 0x70;
constexpr uint8_t kFolderOfShell = 0x10;
constexpr uint8_t kVolume = 0x20;
constexpr uint8_t kFile = 0x30;
constexpr uint8_t kNetwork = 0x40;

constexpr uint8_t kNamedVolume = 0x01;
constexpr uint8_t kWideFileName = 0x04;
constexpr uint8_t kNetworkKindMask = 0x0F;
constexpr uint8_t kServer = 0x02;
constexpr uint8_t kShare = 0x03;

constexpr size_t kClassField = 4;
constexpr size_t kDriveField = 3;
constexpr size_t kFileNameField = 14;
constexpr size_t kNetworkNameField = 5;

// The shell folders that hold drives and servers.
constexpr std::string_view kComputer = "\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\x00\x2B\x30\x30\x9D"sv;
constexpr std::string_view kNetworkPlaces =
    "\x60\x2C\x8D\x20\xEA\x3A\x69\x10\xA2\xD7\x08\x00\x2B\x30\x30\x9D"sv;

constexpr uint32_t kNameExtension = 0xBEEF0004;

// The offset of the long name in the extension of a file item. It depends on the extension's version; 0 when
// there is none.
size_t LongNameField(uint16_t version) {
  if (version >= 9) return 46;
  if (version >= 8) return 42;
  if (version >= 7) return 38;
  return version >= 3 ? 20 : 0;
}

// The long name in the extensions that follow the short name. Empty when there is none.
Text LongName(const ByteReader& item, size_t at) {
  constexpr uint16_t kSmallestExtension = 8;
  for (uint16_t size = 0; item.Has(at, kSmallestExtension); at += size) {
    size = item.U16(at);
    if (size < kSmallestExtension) return {};
    const size_t field = item.U32(at + 4) == kNameExtension ? LongNameField(item.U16(at + 2)) : 0;
    if (field != 0) return item.Part(at, size).WideText(field);
  }
  return {};
}

Text FileName(const ByteReader& item) {
  const bool wide = (item.U8(kKindField) & kWideFileName) != 0;
  Text name = wide ? item.WideText(kFileNameField) : item.NarrowText(kFileNameField);
  // The item's last two bytes are the offset of the extensions. Older items have a second, short name there
  // instead.
  const size_t extensions = item.U16(item.Size() - 2);
  if (extensions > kFileNameField) {
    Text longName = LongName(item.Part(0, item.Size() - 2), extensions);
    if (!longName.empty()) name = std::move(longName);
  }
  return name;
}

// Adds an item to the path. False when it can't be part of a path.
bool AddItem(const ByteReader& item, Text& path) {
  const uint8_t kind = item.U8(kKindField);
  switch (kind & kKindMask) {
    case kFolderOfShell: {
      const std::string_view folder = item.Part(kClassField, kComputer.size()).Bytes();
      return path.empty() && (folder == kComputer || folder == kNetworkPlaces);
    }
    case kVolume: {
      const char16_t letter = item.U8(kDriveField) & ~0x20U;
      if (!path.empty() || (kind & kNamedVolume) == 0 || letter < u'A' || letter > u'Z') return false;
      path = item.NarrowText(kDriveField).substr(0, 2);
      return path.size() == 2 && path[1] == u':';
    }
    case kFile: {
      const Text name = FileName(item);
      if (path.empty() || name.empty() || name.find_first_of(u"\\/:") != Text::npos) return false;
      path.append(u"\\").append(name);
      return true;
    }
    case kNetwork: {
      // A workgroup isn't part of a path. A server or a share holds its whole name.
      const int network = kind & kNetworkKindMask;
      if (network != kServer && network != kShare) return true;
      path = item.NarrowText(kNetworkNameField);
      return path.starts_with(u"\\\\");
    }
    default:
      return false;
  }
}

}  // namespace

Text ShortcutItemPath(const ByteReader& list) {
  constexpr uint16_t kSmallestItem = 3;
  Text path;
  for (size_t at = 0; list.U16(at) != 0;) {
    const uint16_t size = list.U16(at);
    if (size < kSmallestItem || !list.Has(at, size) || !AddItem(list.Part(at, size), path)) return {};
    at += size;
  }
  if (path.size() == 2) path += u'\\';
  return path;
}

}  // namespace tavix::platform
