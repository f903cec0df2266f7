#include "platform/machine/shortcut_location.h"

#include <gtest/gtest.h>

#include "platform/machine/shortcut_bytes.h"

namespace tavix::machine {
namespace {

using namespace shortcut_bytes;

TEST(ShortcutLocation, ReadsEachForm) {
  const struct {
    Location location;
    TextView expected;
  } kCases[] = {
      {{.flags = 1, .path = u"C:\\a.txt"}, u"C:\\a.txt"},
      {{.flags = 1, .path = u"C:\\a\\", .suffix = u"b.txt"}, u"C:\\a\\b.txt"},
      {{.flags = 1, .path = u"C:\\a", .suffix = u"b.txt"}, u"C:\\a\\b.txt"},
      {{.flags = 1, .path = u"C:\\\u00C9t\u00E9"}, u"C:\\\u00C9t\u00E9"},
      {{.flags = 2, .share = u"\\\\server\\share"}, u"\\\\server\\share"},
      {{.flags = 2, .suffix = u"a\\b.txt", .share = u"\\\\server\\share"}, u"\\\\server\\share\\a\\b.txt"},
      {{.flags = 2, .suffix = u"a", .share = u"\\\\s\\x", .wideShare = u"\\\\s\\\u8BF4"},
       u"\\\\s\\\u8BF4\\a"},
      {{.flags = 3, .path = u"C:\\Users\\", .suffix = u"Ann", .share = u"\\\\PC\\Users"}, u"C:\\Users\\Ann"},
      {{.flags = 3, .path = u"", .suffix = u"Ann", .share = u"\\\\PC\\Users"}, u"\\\\PC\\Users\\Ann"},
      {{.flags = 1, .path = u"C:\\?", .widePath = u"C:\\\u8BF4"}, u"C:\\\u8BF4"},
      {{.flags = 1, .path = u"C:\\?", .suffix = u"?", .widePath = u"C:\\\u8BF4", .wideSuffix = u"\u660E"},
       u"C:\\\u8BF4\\\u660E"},
      {{.flags = 1, .path = u"C:\\a", .suffix = u"?", .wideSuffix = u"\u660E"}, u"C:\\a\\\u660E"},
      {{.flags = 0, .path = u"", .suffix = u"b"}, u""},
  };
  for (const auto& [location, expected] : kCases) {
    EXPECT_EQ(ShortcutLocation(LocationBlock(location)), expected);
  }
}

TEST(ShortcutLocation, BlockWithoutContentHasNoPath) {
  EXPECT_EQ(ShortcutLocation({}), u"");
  EXPECT_EQ(ShortcutLocation(std::string(28, '\0')), u"");
}

TEST(ShortcutLocation, TextWithoutItsEndIsNone) {
  std::string block = LocationBlock({.flags = 1, .path = u"C:\\a.txt"});
  while (block.back() == '\0') block.pop_back();
  EXPECT_EQ(ShortcutLocation(block), u"");
}

TEST(ShortcutLocation, OffsetsBeyondTheBlockAreNoTexts) {
  const std::string good = LocationBlock(
      {.flags = 3, .path = u"C:\\a", .share = u"\\\\s\\x", .widePath = u"C:\\b", .wideShare = u"\\\\s\\y"});
  for (size_t field = 0; field + 4 <= good.size(); field += 4) {
    for (const unsigned wrong : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFCU, 0xFFFFFFFFU}) {
      std::string bad = good;
      bad.replace(field, 4, U32(wrong));
      EXPECT_LE(ShortcutLocation(bad).size(), good.size());
    }
  }
}

}  // namespace
}  // namespace tavix::machine
