#include "platform/merged_registry.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/machine/services/machine_registry.h"

namespace tavix::platform {
namespace {

class MergedRegistryTest : public testing::Test {
 protected:
  // Writes a value below Software\Classes of a hive.
  void Seed(Hive hive, TextView key, TextView name, TextView data) {
    ASSERT_TRUE(plain.WriteString(hive, Concat(u"Software\\Classes\\", key), name, data));
  }
  std::vector<Text> Keys(TextView key) {
    std::vector<Text> names;
    merged.VisitSubKeys(Hive::ClassesRoot, key, [&](TextView name) { names.emplace_back(name); });
    return names;
  }
  std::vector<Text> Values(TextView key) {
    std::vector<Text> values;
    merged.VisitValues(Hive::ClassesRoot, key,
                       [&](TextView name, TextView data) { values.push_back(Concat(name, u"=", data)); });
    return values;
  }

  machine::MachineRegistry plain;
  MergedRegistry merged{plain};
};

using Texts = std::vector<Text>;

TEST_F(MergedRegistryTest, ListsKeysOfBothHivesInOrderWithTheUsersSpelling) {
  Seed(Hive::LocalMachine, u"b", u"", u"");
  Seed(Hive::LocalMachine, u"D", u"", u"");
  Seed(Hive::LocalMachine, u"_", u"", u"");
  Seed(Hive::CurrentUser, u"A", u"", u"");
  Seed(Hive::CurrentUser, u"d", u"", u"");
  Seed(Hive::CurrentUser, u"e", u"", u"");
  EXPECT_EQ(Keys(u""), (Texts{u"A", u"b", u"d", u"e", u"_"}));
  EXPECT_EQ(Keys(u"missing"), Texts{});
}

TEST_F(MergedRegistryTest, ListsTheUsersValuesFirstAndOnce) {
  Seed(Hive::LocalMachine, u"k", u"one", u"machine");
  Seed(Hive::LocalMachine, u"k", u"two", u"machine");
  Seed(Hive::LocalMachine, u"k", u"", u"machine");
  Seed(Hive::CurrentUser, u"K", u"three", u"user");
  Seed(Hive::CurrentUser, u"K", u"TWO", u"user");
  EXPECT_EQ(Values(u"k"), (Texts{u"three=user", u"TWO=user", u"one=machine", u"=machine"}));
}

TEST_F(MergedRegistryTest, ReadsTheUsersValueFirst) {
  Seed(Hive::LocalMachine, u"k", u"both", u"machine");
  Seed(Hive::LocalMachine, u"k", u"machine", u"machine");
  Seed(Hive::CurrentUser, u"k", u"both", u"user");
  EXPECT_EQ(merged.ReadValue(Hive::ClassesRoot, u"k", u"both"), u"user");
  EXPECT_EQ(merged.ReadValue(Hive::ClassesRoot, u"k", u"machine"), u"machine");
  EXPECT_EQ(merged.ReadValue(Hive::ClassesRoot, u"k", u"none"), std::nullopt);
  EXPECT_EQ(merged.KeyExists(Hive::ClassesRoot, u"K"), true);
  EXPECT_EQ(merged.KeyExists(Hive::ClassesRoot, u"none"), false);
}

TEST_F(MergedRegistryTest, DeletesTheUsersKeyAndThenTheMachines) {
  Seed(Hive::LocalMachine, u"k\\machine", u"", u"");
  Seed(Hive::CurrentUser, u"k\\user", u"", u"");
  EXPECT_TRUE(merged.DeleteKey(Hive::ClassesRoot, u"k"));
  EXPECT_EQ(Keys(u"k"), Texts{u"machine"});
  EXPECT_TRUE(merged.DeleteKey(Hive::ClassesRoot, u"k"));
  EXPECT_EQ(merged.KeyExists(Hive::ClassesRoot, u"k"), false);
  EXPECT_FALSE(merged.DeleteKey(Hive::ClassesRoot, u"k"));
}

TEST_F(MergedRegistryTest, DeletesNoHive) {
  Seed(Hive::LocalMachine, u"k", u"", u"");
  EXPECT_FALSE(merged.DeleteKey(Hive::ClassesRoot, u""));
  EXPECT_EQ(plain.KeyExists(Hive::LocalMachine, u"Software\\Classes"), true);
}

TEST_F(MergedRegistryTest, DeletesTheUsersValueAndThenTheMachines) {
  Seed(Hive::LocalMachine, u"k", u"v", u"machine");
  Seed(Hive::CurrentUser, u"k", u"v", u"user");
  EXPECT_TRUE(merged.DeleteValue(Hive::ClassesRoot, u"k", u"V"));
  EXPECT_EQ(merged.ReadValue(Hive::ClassesRoot, u"k", u"v"), u"machine");
  EXPECT_TRUE(merged.DeleteValue(Hive::ClassesRoot, u"k", u"V"));
  EXPECT_FALSE(merged.DeleteValue(Hive::ClassesRoot, u"k", u"V"));
}

TEST_F(MergedRegistryTest, DeletesTheMachinesValueInAKeyOfBoth) {
  Seed(Hive::LocalMachine, u"k", u"v", u"machine");
  Seed(Hive::CurrentUser, u"k", u"other", u"user");
  EXPECT_TRUE(merged.DeleteValue(Hive::ClassesRoot, u"k", u"v"));
  EXPECT_EQ(Values(u"k"), Texts{u"other=user"});
}

TEST_F(MergedRegistryTest, DeletesNoValueOfTheMachineWhereTheUsersCantBeRead) {
  Seed(Hive::LocalMachine, u"k", u"v", u"machine");
  Seed(Hive::CurrentUser, u"k", u"v", u"user");
  plain.Deny(Hive::CurrentUser, u"Software\\Classes\\k");
  EXPECT_FALSE(merged.DeleteValue(Hive::ClassesRoot, u"k", u"v"));
  EXPECT_EQ(plain.ReadValue(Hive::LocalMachine, u"Software\\Classes\\k", u"v"), u"machine");
}

TEST_F(MergedRegistryTest, WritesWhereTheKeyStands) {
  Seed(Hive::CurrentUser, u"user", u"", u"");
  EXPECT_TRUE(merged.WriteString(Hive::ClassesRoot, u"user", u"v", u"1"));
  EXPECT_TRUE(merged.WriteString(Hive::ClassesRoot, u"new", u"v", u"2"));
  EXPECT_EQ(plain.ReadValue(Hive::CurrentUser, u"Software\\Classes\\user", u"v"), u"1");
  EXPECT_EQ(plain.ReadValue(Hive::LocalMachine, u"Software\\Classes\\new", u"v"), u"2");
}

TEST_F(MergedRegistryTest, LeavesTheOtherHivesAsTheyAre) {
  EXPECT_TRUE(merged.WriteString(Hive::Users, u"k", u"v", u"1"));
  EXPECT_EQ(merged.ReadValue(Hive::Users, u"k", u"v"), u"1");
  EXPECT_TRUE(merged.DeleteValue(Hive::Users, u"k", u"v"));
  EXPECT_TRUE(merged.DeleteKey(Hive::Users, u"k"));
  EXPECT_EQ(merged.KeyExists(static_cast<Hive>(1), u""), false);
}

}  // namespace
}  // namespace tavix::platform
