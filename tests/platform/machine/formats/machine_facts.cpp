#include "platform/machine/formats/machine_facts.h"

#include <gtest/gtest.h>

#include "doubles/memory_store.h"

namespace tavix::machine {
namespace {

MachineIni Ini(std::string_view bytes) {
  TextError error;
  return *MachineIni::Read(bytes, error);
}

TEST(MachineFacts, ListsDrivesInTheOrderOfTheirLetters) {
  const MachineFacts facts(Ini("[Drives]\ne=4,,not ready\nC=2, System \nd=1\nF=9,x\nname=2\nZ=5,,NOT READY\n"
                               "c=3,Other\nG=3,label,not ready\n"),
                           nullptr);
  const std::vector<platform::Drive> drives = facts.Drives();
  ASSERT_EQ(drives.size(), 6U);
  const auto expect = [&](size_t i, TextView path, int type, bool ready, TextView name) {
    EXPECT_EQ(drives[i].path, path);
    EXPECT_EQ(drives[i].type, type);
    EXPECT_EQ(drives[i].ready, ready);
    EXPECT_EQ(drives[i].volumeName, name);
  };
  expect(0, u"C:", 2, true, u"System");
  expect(1, u"D:", 1, true, u"");
  expect(2, u"E:", 4, false, u"");
  expect(3, u"F:", 0, true, u"x");
  expect(4, u"G:", 3, false, u"");
  expect(5, u"Z:", 5, false, u"");
  EXPECT_FALSE(facts.FindDrive(u'C')->volumeName.empty());
  EXPECT_FALSE(facts.FindDrive(u'X'));
}

TEST(MachineFacts, KeepAllElseOfTheFileWhenOneChanges) {
  MemoryStore store;
  const std::string before =
      "; facts\r\n[Event Logs]\r\nsystem = 12 \r\nApplication=-\r\n\r\n[Other]\r\nSystem=1\r\n";
  store.Root()->WriteFile(u"machine.ini", before);
  MachineFacts facts(Ini(before), &store);
  facts.Set(u"Event Logs", u"System", u"0");
  EXPECT_EQ(facts.Value(u"Event Logs", u"system"), u"0");
  std::string expected = before;
  expected.replace(expected.find("12"), 2, "0");
  EXPECT_EQ(store.Root()->ReadFile(u"machine.ini"), expected);
}

TEST(MachineFacts, MakeNoFileWhereThereIsNone) {
  MemoryStore store;
  MachineFacts facts({}, &store);
  facts.Set(u"Folders", u"32", u"C:\\Cache");
  EXPECT_EQ(facts.Value(u"folders", u"32"), u"C:\\Cache");
  EXPECT_FALSE(store.Root()->Find(u"machine.ini"));
}

}  // namespace
}  // namespace tavix::machine
