#include "platform/windows/windows_event_logs.h"

#include <gtest/gtest.h>

#include "platform/windows/scratch_place.h"
#include "support/case.h"

namespace tavix::windows {
namespace {

TEST(EventLogsOfWindows, AreOpenedAndCounted) {
  WindowsEventLogs logs;
  for (const TextView name : {u"System", u"application"}) {
    SCOPED_TRACE(Case(name));
    const auto log = logs.Open(name);
    ASSERT_NE(log, 0);
    EXPECT_TRUE(logs.Count(log));
    logs.Close(log);
  }
}

TEST(EventLogsOfWindows, AreClearedWhereTheyAreNobodys) {
  if (!IsWine()) GTEST_SKIP() << "the logs are the user's own";
  WindowsEventLogs logs;
  for (const TextView name : {u"System", u"Application", u"Security"}) {
    SCOPED_TRACE(Case(name));
    const auto log = logs.Open(name);
    ASSERT_NE(log, 0);
    EXPECT_TRUE(logs.Clear(log));
    EXPECT_EQ(logs.Count(log), 0U);
    logs.Close(log);
  }
}

TEST(EventLogsOfWindows, AnUnknownNameOpensNoOtherLog) {
  WindowsEventLogs logs;
  for (const TextView name : {u"", u"Tavix", u"System "}) EXPECT_EQ(logs.Open(name), 0);
}

TEST(EventLogsOfWindows, NoLogHasNoRecordsAndIsNotCleared) {
  WindowsEventLogs logs;
  EXPECT_EQ(logs.Count(0), std::nullopt);
  EXPECT_FALSE(logs.Clear(0));
  logs.Close(0);
}

}  // namespace
}  // namespace tavix::windows
