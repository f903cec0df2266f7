#include "platform/windows/handle.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavix::windows {
namespace {

// Handles that are plain numbers; closing one records it.
struct NotedTraits {
  using Handle = int;
  static Handle Null() { return -1; }
  static void Close(Handle handle) { closed.push_back(handle); }
  static inline std::vector<int> closed;
};
using Noted = Owned<NotedTraits>;

class OwnedHandle : public testing::Test {
 protected:
  OwnedHandle() { NotedTraits::closed.clear(); }
  std::vector<int>& closed = NotedTraits::closed;
};

TEST_F(OwnedHandle, ClosesOnceAtTheEnd) {
  { const Noted owner(1); }
  EXPECT_EQ(closed, std::vector{1});
}

TEST_F(OwnedHandle, OfNothingClosesNothing) {
  {
    Noted owner;
    EXPECT_FALSE(owner);
    owner.Reset();
  }
  EXPECT_TRUE(closed.empty());
}

TEST_F(OwnedHandle, ZeroIsAHandleWhereNullIsAnother) { EXPECT_TRUE(Noted(0)); }

TEST_F(OwnedHandle, MovesAlong) {
  {
    Noted one(1), two(2);
    two = std::move(one);
    EXPECT_EQ(closed, std::vector{2});
    EXPECT_EQ(two.Get(), 1);
    Noted three(std::move(two));
    EXPECT_TRUE(three);
  }
  EXPECT_EQ(closed, (std::vector{2, 1}));
}

TEST_F(OwnedHandle, ReleasedStaysOpen) {
  {
    Noted owner(1);
    EXPECT_EQ(owner.Release(), 1);
    EXPECT_FALSE(owner);
  }
  EXPECT_TRUE(closed.empty());
}

TEST_F(OwnedHandle, ReceivesAnother) {
  {
    Noted owner(1);
    *owner.Receive() = 2;
    EXPECT_EQ(closed, std::vector{1});
  }
  EXPECT_EQ(closed, (std::vector{1, 2}));
}

}  // namespace
}  // namespace tavix::windows
