#include "platform/windows/wide.h"

#include <gtest/gtest.h>

namespace tavix::windows {
namespace {

TEST(Wide, KeepsEachCodeUnit) {
  const Text text(u"a\u00E4\u4E2D\xD83D\xDE00 half \xDE00\0x", 15);
  EXPECT_EQ(FromWide(std::wstring_view(ToWide(text))), text);
}

TEST(Wide, EndsAtTheTerminator) {
  const Text text(u"a\0b", 3);
  EXPECT_EQ(std::wstring(Wide(text)), L"a");
  EXPECT_EQ(FromWide(L"a\0b"), u"a");
}

TEST(Wide, NullIsEmpty) {
  const wchar_t* none = nullptr;
  EXPECT_EQ(FromWide(none), u"");
}

}  // namespace
}  // namespace tavix::windows
