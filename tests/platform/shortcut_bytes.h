#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "text/text.h"
#include "text/windows_1252.h"

namespace tavix::platform {

// Builds the bytes of shortcut files, piece by piece.
namespace shortcut_bytes {

using namespace std::string_view_literals;

inline std::string U16(unsigned number) {
  return {static_cast<char>(number), static_cast<char>(number >> 8U)};
}
inline std::string U32(unsigned number) { return U16(number & 0xFFFFU) + U16(number >> 16U); }

inline std::string Narrow(TextView text) { return ToWindows1252(text).value() + '\0'; }
inline std::string Wide(TextView text) {
  std::string bytes;
  for (const char16_t c : text) bytes += U16(c);
  return bytes + U16(0);
}

inline std::string Header(unsigned flags) {
  std::string header = U32(0x4C);
  header += "\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"sv;
  header += U32(flags);
  header.resize(0x4C);
  return header;
}

// `content` is the part of the item after its size; it starts with the kind.
inline std::string Item(std::string_view content) {
  return U16(static_cast<unsigned>(content.size()) + 2).append(content);
}
inline std::string Items(std::initializer_list<std::string> items) {
  std::string list;
  for (const std::string& item : items) list += item;
  list += U16(0);
  return U16(static_cast<unsigned>(list.size())) + list;
}

constexpr std::string_view kComputer = "\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\x00\x2B\x30\x30\x9D"sv;
constexpr std::string_view kNetworkPlaces =
    "\x60\x2C\x8D\x20\xEA\x3A\x69\x10\xA2\xD7\x08\x00\x2B\x30\x30\x9D"sv;
constexpr std::string_view kControlPanel =
    "\x20\x20\xEC\x21\xEA\x3A\x69\x10\xA2\xDD\x08\x00\x2B\x30\x30\x9D"sv;

inline std::string ShellFolderItem(std::string_view folder) {
  return Item(std::string("\x1F\x50"sv).append(folder));
}
inline std::string DriveItem(TextView drive) {
  std::string content = "\x2F" + Narrow(drive);
  content.resize(23);
  return Item(content);
}
inline std::string NetworkItem(char kind, TextView name) {
  return Item(std::string{kind, '\0', '\0'} + Narrow(name));
}

// A file or folder item of old systems: two names and no extension block.
inline std::string OldFileItem(TextView name, TextView shortName) {
  std::string content = std::string("\x32\0", 2) + U32(0) + U32(0) + U16(0) + Narrow(name);
  return Item(content + Narrow(shortName) + std::string(2, '\0'));
}

// A file or folder item with the long name in an extension block of version 3, 7, 8 or 9.
inline std::string FileItem(unsigned version, TextView shortName, TextView name) {
  std::string content = std::string("\x32\0", 2) + U32(0) + U32(0) + U16(0) + Narrow(shortName);
  if (content.size() % 2 != 0) content += '\0';
  std::string extension = U16(version) + U32(0xBEEF0004) + U32(0) + U32(0) + U16(0);
  if (version >= 7) extension += std::string(18, '\0');
  extension += U16(0);
  if (version >= 8) extension += U32(0);
  if (version >= 9) extension += U32(0);
  extension += Wide(name);
  const auto at = static_cast<unsigned>(content.size()) + 2;
  return Item(content + U16(static_cast<unsigned>(extension.size()) + 4) + extension + U16(at));
}

struct Location {
  unsigned flags = 0;  // 1: has a volume, 2: has a share
  TextView path = {}, suffix = {}, share = {};
  TextView widePath = {}, wideSuffix = {}, wideShare = {};  // if any is set, the header has the wide fields
};

inline std::string LocationBlock(const Location& location) {
  const bool wide = !location.widePath.empty() || !location.wideSuffix.empty();
  const unsigned headerSize = wide ? 36 : 28;
  std::string texts;
  const auto put = [&](const std::string& text) {
    const size_t at = headerSize + texts.size();
    texts += text;
    return U32(static_cast<unsigned>(at));
  };
  std::string fields = U32(headerSize) + U32(location.flags) + U32(0);
  fields += (location.flags & 1U) != 0 ? put(Narrow(location.path)) : U32(0);
  if ((location.flags & 2U) != 0) {
    const bool wideShare = !location.wideShare.empty();
    const unsigned shareAt = wideShare ? 28 : 20;
    std::string network = U32(2) + U32(shareAt) + U32(0) + U32(0x20000);
    const std::string name = Narrow(location.share);
    if (wideShare) network += U32(shareAt + static_cast<unsigned>(name.size())) + U32(0);
    network += name;
    if (wideShare) network += Wide(location.wideShare);
    fields += put(U32(static_cast<unsigned>(network.size()) + 4) + network);
  } else {
    fields += U32(0);
  }
  fields += put(Narrow(location.suffix));
  if (wide) {
    fields += location.widePath.empty() ? U32(0) : put(Wide(location.widePath));
    fields += put(Wide(location.wideSuffix));
  }
  return U32(static_cast<unsigned>(4 + fields.size() + texts.size())) + fields + texts;
}

// An extra block by its kind: a path with variables, or an advertised program.
inline std::string ExtraBlock(unsigned kind, TextView narrow, TextView wide) {
  std::string content = Narrow(narrow);
  content.resize(260);
  content += Wide(wide);
  content.resize(780);
  return U32(static_cast<unsigned>(content.size()) + 8) + U32(kind) + content;
}
constexpr unsigned kVariablePath = 0xA0000001;
constexpr unsigned kAdvertised = 0xA0000006;

// Flags of the header.
constexpr unsigned kHasItems = 0x1;
constexpr unsigned kHasLocation = 0x2;
constexpr unsigned kHasName = 0x4;
constexpr unsigned kHasArguments = 0x20;
constexpr unsigned kWideStrings = 0x80;
constexpr unsigned kIgnoreLocation = 0x100;
constexpr unsigned kHasVariablePath = 0x200;
constexpr unsigned kIsAdvertised = 0x1000;

}  // namespace shortcut_bytes
}  // namespace tavix::platform
