#include "platform/windows/windows_instance.h"

#include <gtest/gtest.h>

namespace tavix::windows {
namespace {

TEST(InstanceOfWindows, TheSecondFindsTheFirstAsLongAsItRuns) {
  {
    WindowsInstance first;
    EXPECT_FALSE(first.PreviousRuns());
    EXPECT_FALSE(first.PreviousRuns());
    WindowsInstance second;
    EXPECT_TRUE(second.PreviousRuns());
    EXPECT_TRUE(second.PreviousRuns());
    EXPECT_FALSE(first.PreviousRuns());
  }
  WindowsInstance third;
  EXPECT_FALSE(third.PreviousRuns());
}

}  // namespace
}  // namespace tavix::windows
