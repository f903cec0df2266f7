#include "text/attempt.h"

#include <gtest/gtest.h>

#include "text/text.h"

namespace tavix {
namespace {

TEST(Set, AssignsAValueAndSkipsAFailure) {
  Text target = u"before";
  Set(target, std::optional<Text>());
  EXPECT_EQ(target, u"before");
  Set(target, std::optional<Text>(u"after"));
  EXPECT_EQ(target, u"after");
}

}  // namespace
}  // namespace tavix
