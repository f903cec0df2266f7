#include "export/recording_registry.h"

#include <gtest/gtest.h>

#include "platform/machine/services/machine_registry.h"
#include "platform/merged_registry.h"
#include "platform/registry_data.h"

namespace tavix::exporting {
namespace {

using platform::Hive;

class RecordingRegistryTest : public testing::Test {
 protected:
  // The data noted for a value. Nothing if it wasn't noted.
  std::optional<Text> Noted(Hive hive, TextView key, TextView name) {
    const machine::RegistryKey* noted = record.registry.Find(hive, key);
    const machine::RegistryValue* value = noted != nullptr ? noted->FindValue(name) : nullptr;
    return value == nullptr ? std::nullopt : std::optional(platform::RenderData(value->Type, value->Data));
  }
  bool HasNoted(Hive hive, TextView key) { return record.registry.Find(hive, key) != nullptr; }

  machine::MachineRegistry plain;
  platform::MergedRegistry merged{plain};
  Record record;
  RecordingRegistry registry{merged, record};
};

TEST_F(RecordingRegistryTest, NotesWhatIsReadAndNothingElse) {
  plain.WriteString(Hive::CurrentUser, u"A\\B", u"read", u"1");
  plain.WriteString(Hive::CurrentUser, u"A\\B", u"unread", u"2");
  plain.WriteString(Hive::CurrentUser, u"A\\C", u"x", u"3");
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"a\\b", u"READ"), u"1");
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"A\\B", u"none"), std::nullopt);
  EXPECT_EQ(Noted(Hive::CurrentUser, u"A\\B", u"read"), u"1");
  EXPECT_EQ(Noted(Hive::CurrentUser, u"A\\B", u"unread"), std::nullopt);
  EXPECT_FALSE(HasNoted(Hive::CurrentUser, u"A\\C"));
}

TEST_F(RecordingRegistryTest, NotesTheKeysThatAreListedAndThoseThatExist) {
  plain.WriteString(Hive::LocalMachine, u"A\\B\\C", u"x", u"1");
  EXPECT_TRUE(registry.VisitSubKeys(Hive::LocalMachine, u"A", [](TextView) {}));
  EXPECT_TRUE(HasNoted(Hive::LocalMachine, u"A\\B"));
  EXPECT_FALSE(HasNoted(Hive::LocalMachine, u"A\\B\\C"));
  EXPECT_EQ(registry.KeyExists(Hive::LocalMachine, u"A\\B\\C"), true);
  EXPECT_EQ(registry.KeyExists(Hive::LocalMachine, u"A\\B\\D"), false);
  EXPECT_TRUE(HasNoted(Hive::LocalMachine, u"A\\B\\C"));
  EXPECT_FALSE(HasNoted(Hive::LocalMachine, u"A\\B\\D"));
}

TEST_F(RecordingRegistryTest, NotesValuesInTheirOrderAlsoIfOneWasReadBefore) {
  for (const TextView name : {u"z", u"", u"a"}) plain.WriteString(Hive::Users, u"K", name, u"1");
  registry.ReadValue(Hive::Users, u"K", u"a");
  registry.VisitValues(Hive::Users, u"K", [](TextView, TextView) {});
  std::vector<Text> names;
  for (const auto& value : record.registry.Find(Hive::Users, u"K")->AllValues()) names.push_back(value.Name);
  EXPECT_EQ(names, (std::vector<Text>{u"z", u"", u"a"}));
}

// Both of them also stand below Software, where other functions read them.
TEST_F(RecordingRegistryTest, NotesClassesInTheHivesThatTheyComeFrom) {
  plain.WriteString(Hive::CurrentUser, u"Software\\Classes\\.a", u"", u"of the user");
  plain.WriteString(Hive::LocalMachine, u"Software\\Classes\\.a", u"", u"of the machine");
  plain.WriteString(Hive::LocalMachine, u"Software\\Classes\\.b\\c", u"d", u"1");
  EXPECT_EQ(registry.ReadValue(Hive::ClassesRoot, u".a", u""), u"of the user");
  EXPECT_EQ(Noted(Hive::CurrentUser, u"Software\\Classes\\.a", u""), u"of the user");
  EXPECT_EQ(Noted(Hive::LocalMachine, u"Software\\Classes\\.a", u""), u"of the machine");
  const auto below = registry.Below(Hive::ClassesRoot, u".b");
  ASSERT_NE(below, nullptr);
  EXPECT_EQ(below->ReadValue(u"c", u"d"), u"1");
  EXPECT_EQ(Noted(Hive::LocalMachine, u"Software\\Classes\\.b\\c", u"d"), u"1");
  EXPECT_FALSE(HasNoted(Hive::CurrentUser, u"Software\\Classes\\.b"));
}

}  // namespace
}  // namespace tavix::exporting
