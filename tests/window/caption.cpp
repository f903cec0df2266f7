#include "window/caption.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(PlainCaption, TakesTheMarksOfLettersAway) {
  struct {
    TextView caption, plain;
  } constexpr kCases[] = {
      {u"", u""},
      {u"Plain", u"Plain"},
      {u"Sa&ve", u"Save"},
      {u"Save && Close", u"Save & Close"},
      {u"&&&Both", u"&Both"},
      {u"At the end&", u"At the end"},
  };
  for (const auto& c : kCases) EXPECT_EQ(PlainCaption(c.caption), c.plain);
}

}  // namespace
}  // namespace tavix
