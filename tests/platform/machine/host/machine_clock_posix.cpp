#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>
#include <string>

#include "platform/machine/host/machine_clock.h"

namespace tavix::machine {
namespace {

// Sets or unsets TZ for the lifetime of the object.
class Zone {
 public:
  explicit Zone(const char* zone) {
    if (const char* old = getenv("TZ")) old_ = old;
    zone != nullptr ? setenv("TZ", zone, 1) : unsetenv("TZ");
  }
  ~Zone() { old_ ? setenv("TZ", old_->c_str(), 1) : unsetenv("TZ"); }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

 private:
  std::optional<std::string> old_;
};

constexpr int64_t kWinter = 1'700'000'000'123;  // 2023-11-14
constexpr int64_t kSummer = 1'690'000'000'123;  // 2023-07-22
constexpr int64_t kHour = 3'600'000;

TEST(LocalTime, IsUtcWithoutAZone) {
  const Zone zone(nullptr);
  EXPECT_EQ(ToLocalTime(kWinter), kWinter);
}

TEST(LocalTime, FollowsTheZoneAndItsSummerTime) {
  const Zone zone("CET-1CEST,M3.5.0,M10.5.0/3");
  EXPECT_EQ(ToLocalTime(kWinter), kWinter + kHour);
  EXPECT_EQ(ToLocalTime(kSummer), kSummer + 2 * kHour);
}

TEST(LocalTime, IsRightBefore1970) {
  const Zone zone("XXX+5");
  EXPECT_EQ(ToLocalTime(-1), -1 - 5 * kHour);
  EXPECT_EQ(ToLocalTime(-1500), -1500 - 5 * kHour);
}

}  // namespace
}  // namespace tavix::machine
