#include "platform/machine/services/machine_event_logs.h"

#include <gtest/gtest.h>

namespace tavix::machine {
namespace {

class MachineEventLogsTest : public testing::Test {
 protected:
  MachineEventLogsTest() {
    facts.Set(u"Event Logs", u"System", u"12");
    facts.Set(u"Event Logs", u"Application", u"0");
    facts.Set(u"Event Logs", u"Security", u"-");
  }
  MachineFacts facts;
  Journal journal;
  MachineEventLogs logs{facts, journal};
};

TEST_F(MachineEventLogsTest, CountsTheRecordsOfALog) {
  const auto system = logs.Open(u"system");
  const auto application = logs.Open(u"Application");
  EXPECT_NE(system, 0);
  EXPECT_EQ(logs.Count(system), 12U);
  EXPECT_EQ(logs.Count(application), 0U);
  logs.Close(system);
  EXPECT_FALSE(logs.Count(system));
  EXPECT_EQ(logs.OpenLogs(), 1U);
  EXPECT_TRUE(journal.Entries().empty());
}

TEST_F(MachineEventLogsTest, OpensNoLogWithoutANumber) {
  facts.Set(u"Event Logs", u"Bad", u"12x");
  facts.Set(u"Event Logs", u"Large", u"4294967296");
  for (const TextView log : {u"Security", u"None", u"Bad", u"Large", u""}) EXPECT_EQ(logs.Open(log), 0);
  EXPECT_FALSE(logs.Count(0));
  EXPECT_TRUE(journal.Entries().empty());
}

TEST_F(MachineEventLogsTest, AClearOfALogThatCouldNotBeOpenedIsNotedAndDoesNothing) {
  logs.Open(u"Security");
  EXPECT_FALSE(logs.Clear(0));
  logs.Close(0);
  ASSERT_EQ(journal.Entries().size(), 1U);
  EXPECT_EQ(journal.Entries()[0].Json(), "{\"op\":\"ClearEventLog\",\"log\":\"Security\"}");
  logs.Close(logs.Open(u"System"));
  EXPECT_FALSE(logs.Clear(0));
  EXPECT_EQ(journal.Entries().size(), 1U);
}

TEST_F(MachineEventLogsTest, ClearsALogAndNotesIt) {
  const auto system = logs.Open(u"System");
  EXPECT_TRUE(logs.Clear(system));
  EXPECT_EQ(logs.Count(system), 0U);
  EXPECT_EQ(facts.Value(u"Event Logs", u"System"), u"0");
  logs.locked.insert(u"Application");
  EXPECT_FALSE(logs.Clear(logs.Open(u"Application")));
  ASSERT_EQ(journal.Entries().size(), 2U);
  EXPECT_EQ(journal.Entries()[0].Json(), "{\"op\":\"ClearEventLog\",\"log\":\"System\"}");
}

}  // namespace
}  // namespace tavix::machine
