#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// The parts of a shortcut (.lnk) file that are read and written here: a header, the location block, blocks of
// further data.
namespace tavix::platform::shortcut_format {

using namespace std::string_view_literals;

// Every shortcut begins with the size of its header and the class of the shell's link object.
constexpr std::string_view kBeginning = "\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"sv;
constexpr size_t kHeaderSize = 0x4C;
constexpr size_t kFlagsField = 20;

constexpr uint32_t kHasItems = 0x1;
constexpr uint32_t kHasLocation = 0x2;
constexpr uint32_t kFirstString = 0x4;  // name, relative path, working folder, arguments, icon
constexpr uint32_t kLastString = 0x40;
constexpr uint32_t kWideStrings = 0x80;
constexpr uint32_t kIgnoreLocation = 0x100;
constexpr uint32_t kHasVariablePath = 0x200;
constexpr uint32_t kAdvertised = 0x1000;

// A path with environment variables: size and kind of the block, a narrow text, then the same path in UTF-16.
constexpr uint32_t kVariablePathBlock = 0xA0000001;
constexpr size_t kVariablePathField = 8;
constexpr size_t kVariablePathLength = 260;  // characters, a NUL included
constexpr uint32_t kAdvertisedBlock = 0xA0000006;

}  // namespace tavix::platform::shortcut_format
