#include "platform/shortcut_location.h"

#include <gtest/gtest.h>

#include "platform/shortcut_bytes.h"
#include "support/case.h"

namespace tavix::platform {
namespace {

using namespace shortcut_bytes;

LocationPaths Read(const std::string& block) { return ShortcutLocation(ByteReader(block)); }

TEST(ShortcutLocation, ReadsEachForm) {
  const struct {
    Location location;
    TextView onVolume, onShare = {};
  } kCases[] = {
      {{.flags = 1, .path = u"C:\\a.txt"}, u"C:\\a.txt"},
      {{.flags = 1, .path = u"C:\\a\\", .suffix = u"b.txt"}, u"C:\\a\\b.txt"},
      {{.flags = 1, .path = u"C:\\a", .suffix = u"b.txt"}, u"C:\\a\\b.txt"},
      {{.flags = 1, .path = u"C:\\\u00C9t\u00E9"}, u"C:\\\u00C9t\u00E9"},
      {{.flags = 2, .share = u"\\\\server\\share"}, u"", u"\\\\server\\share"},
      {{.flags = 2, .suffix = u"a\\b.txt", .share = u"\\\\server\\share"},
       u"",
       u"\\\\server\\share\\a\\b.txt"},
      {{.flags = 2, .suffix = u"a", .share = u"\\\\s\\x", .wideShare = u"\\\\s\\\u8BF4"},
       u"",
       u"\\\\s\\\u8BF4\\a"},
      {{.flags = 3, .path = u"C:\\Users\\", .suffix = u"Ann", .share = u"\\\\PC\\Users"},
       u"C:\\Users\\Ann",
       u"\\\\PC\\Users\\Ann"},
      {{.flags = 3, .path = u"", .suffix = u"Ann", .share = u"\\\\PC\\Users"}, u"", u"\\\\PC\\Users\\Ann"},
      {{.flags = 1, .path = u"C:\\?", .widePath = u"C:\\\u8BF4"}, u"C:\\\u8BF4"},
      {{.flags = 1, .path = u"C:\\?", .suffix = u"?", .widePath = u"C:\\\u8BF4", .wideSuffix = u"\u660E"},
       u"C:\\\u8BF4\\\u660E"},
      {{.flags = 1, .path = u"C:\\a", .suffix = u"?", .wideSuffix = u"\u660E"}, u"C:\\a\\\u660E"},
      {{.flags = 0, .path = u"", .suffix = u"b"}, u""},
  };
  for (const auto& [location, onVolume, onShare] : kCases) {
    SCOPED_TRACE(Case(onVolume));
    const LocationPaths paths = Read(LocationBlock(location));
    EXPECT_EQ(paths.onVolume, onVolume);
    EXPECT_EQ(paths.onShare, onShare);
    EXPECT_TRUE(paths.named);
  }
}

TEST(ShortcutLocation, BlockWithoutContentHasNoPath) {
  for (const std::string& block : {std::string(), std::string(28, '\0')}) {
    SCOPED_TRACE(Case(block));
    EXPECT_EQ(Read(block).onVolume, u"");
    EXPECT_EQ(Read(block).onShare, u"");
    EXPECT_TRUE(Read(block).named);
  }
}

TEST(ShortcutLocation, TextWithoutItsEndIsNone) {
  std::string block = LocationBlock({.flags = 1, .path = u"C:\\a.txt"});
  while (block.back() == '\0') block.pop_back();
  EXPECT_EQ(Read(block).onVolume, u"");
}

TEST(ShortcutLocation, TellsOfAShareThatItDoesntName) {
  std::string block = LocationBlock({.flags = 3, .path = u"C:\\a", .share = u"\\\\s\\x"});
  block.replace(20, 4, U32(0));
  EXPECT_FALSE(Read(block).named);
  EXPECT_EQ(Read(block).onVolume, u"C:\\a");
}

TEST(ShortcutLocation, OffsetsBeyondTheBlockAreNoTexts) {
  const std::string good = LocationBlock(
      {.flags = 3, .path = u"C:\\a", .share = u"\\\\s\\x", .widePath = u"C:\\b", .wideShare = u"\\\\s\\y"});
  for (size_t field = 0; field + 4 <= good.size(); field += 4) {
    for (const unsigned wrong : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFCU, 0xFFFFFFFFU}) {
      std::string bad = good;
      bad.replace(field, 4, U32(wrong));
      const LocationPaths paths = Read(bad);
      EXPECT_LE(paths.onVolume.size() + paths.onShare.size(), 2 * good.size());
    }
  }
}

}  // namespace
}  // namespace tavix::platform
