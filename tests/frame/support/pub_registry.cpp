#include "frame/support/pub_registry.h"

#include <gtest/gtest.h>

#include "platform/machine/services/machine_registry.h"
#include "text/pattern.h"

namespace tavix {
namespace {

using platform::Hive;

constexpr Hive kUser = Hive::CurrentUser;
constexpr TextView kKey = u"Software\\Key";

class PubRegistry : public testing::Test {
 protected:
  void Write(TextView name, TextView data) { ASSERT_TRUE(machine.WriteString(kUser, kKey, name, data)); }
  Text Values(TextView key = kKey) {
    Text folded = u"before";
    registry.EnumValues(kUser, key, folded);
    return folded;
  }
  Text ValueNames(TextView key = kKey) {
    Text folded = u"before";
    registry.EnumValueNames(kUser, key, folded);
    return folded;
  }
  Text SubKeys(TextView key = kKey) {
    Text folded = u"before";
    registry.EnumSubKeys(kUser, key, folded);
    return folded;
  }

  machine::MachineRegistry machine;
  const clsPubRegistry registry{&machine};
};

TEST_F(PubRegistry, FoldsSubKeys) {
  for (const TextView name : {u"One", u"Two", u"Three"}) machine.MakeKey(kUser, Concat(kKey, u"\\", name));
  EXPECT_EQ(SubKeys(), u"One*SK*Three*SK*Two");
}

TEST_F(PubRegistry, FoldsValues) {
  Write(u"one", u"1");
  Write(u"two", u"2");
  EXPECT_EQ(Values(), u"one*NDS*1*IS*two*NDS*2");
  EXPECT_EQ(ValueNames(), u"one*IS*two");
}

TEST_F(PubRegistry, PutsNoSeparatorAtTheEndsOfASingleItem) {
  Write(u"one", u"1");
  machine.MakeKey(kUser, Concat(kKey, u"\\One"));
  EXPECT_EQ(Values(), u"one*NDS*1");
  EXPECT_EQ(ValueNames(), u"one");
  EXPECT_EQ(SubKeys(), u"One");
}

TEST_F(PubRegistry, EmptyAndMissingKeysFoldToTheEmptyText) {
  machine.MakeKey(kUser, kKey);
  for (const TextView key : {kKey, TextView(u"Software\\Missing"), TextView(u"Missing\\Key")}) {
    EXPECT_EQ(SubKeys(key), u"");
    EXPECT_EQ(Values(key), u"");
    EXPECT_EQ(ValueNames(key), u"");
  }
}

TEST_F(PubRegistry, KeyThatMayNotBeReadFoldsToTheEmptyText) {
  Write(u"one", u"1");
  machine.Deny(kUser, kKey);
  EXPECT_EQ(Values(), u"");
}

TEST_F(PubRegistry, ReportsWhetherAKeyCanBeRead) {
  EXPECT_TRUE(registry.IsReadable(kUser, kKey)) << "missing";
  Write(u"one", u"1");
  EXPECT_TRUE(registry.IsReadable(kUser, kKey));
  machine.Deny(kUser, kKey);
  EXPECT_FALSE(registry.IsReadable(kUser, kKey));
  EXPECT_FALSE(clsPubRegistry().IsReadable(kUser, kKey));
}

TEST_F(PubRegistry, CountOfAKeyThatMayNotBeReadStaysAsItWas) {
  Write(u"one", u"1");
  machine.Deny(kUser, kKey);
  int16_t count = 7;
  registry.CountValues(kUser, kKey, count);
  EXPECT_EQ(count, 7);
}

TEST_F(PubRegistry, LoneDefaultValueBeginsWithTheSeparator) {
  Write(u"", u"data");
  EXPECT_EQ(Values(), u"*NDS*data");
  EXPECT_TRUE(MatchesPattern(Values(), u"?NDS?*"));
  Write(u"", u"");
  EXPECT_EQ(Values(), u"*NDS*");
  EXPECT_TRUE(MatchesPattern(Values(), u"?NDS?*"));
}

TEST_F(PubRegistry, NamedValueDoesNotPassForALoneDefaultValue) {
  Write(u"name", u"data");
  EXPECT_FALSE(MatchesPattern(Values(), u"?NDS?*"));
}

TEST_F(PubRegistry, DefaultValueAmongOthersHasAnEmptyName) {
  Write(u"one", u"1");
  Write(u"", u"data");
  Write(u"two", u"2");
  EXPECT_EQ(Values(), u"one*NDS*1*IS**NDS*data*IS*two*NDS*2");
  EXPECT_EQ(ValueNames(), u"one*IS**IS*two");
}

TEST_F(PubRegistry, LoneDefaultValuesNameFoldsToTheEmptyText) {
  Write(u"", u"data");
  EXPECT_EQ(ValueNames(), u"");
}

TEST_F(PubRegistry, EachItemHasItsSeparatorWhereDataIsEmpty) {
  Write(u"one", u"");
  Write(u"two", u"");
  EXPECT_EQ(Values(), u"one*NDS**IS*two*NDS*");
  const Text folded = Values();
  for (const TextView item : Split(folded, clsPubRegistry::kItemSeparator)) {
    EXPECT_EQ(Split(item, clsPubRegistry::kDataSeparator).size(), 2U);
  }
}

TEST_F(PubRegistry, RendersDataOfAnyTypeAsText) {
  ASSERT_TRUE(machine.SetValue(kUser, kKey, u"number", 4, {'\x10', '\0', '\0', '\0'}));
  ASSERT_TRUE(machine.SetValue(kUser, kKey, u"bytes", 3, "\xAB\x01"));
  EXPECT_EQ(Values(), u"number*NDS*16*IS*bytes*NDS*AB 01");
}

TEST_F(PubRegistry, SubKeyNameWithTheSeparatorIsSplitInTwo) {
  machine.MakeKey(kUser, Concat(kKey, u"\\a*SK*b"));
  machine.MakeKey(kUser, Concat(kKey, u"\\c"));
  EXPECT_EQ(SubKeys(), u"a*SK*b*SK*c");
  const Text folded = SubKeys();
  EXPECT_EQ(Split(folded, clsPubRegistry::kSubKeySeparator), (std::vector<TextView>{u"a", u"b", u"c"}));
}

TEST_F(PubRegistry, ReadsAValueOrTheFallback) {
  Write(u"name", u"data");
  Write(u"", u"default");
  Write(u"empty", u"");
  const struct {
    TextView key, name, expected;
  } kCases[] = {{kKey, u"NAME", u"data"},
                {kKey, u"", u"default"},
                {kKey, u"empty", u""},
                {kKey, u"missing", u"fallback"},
                {u"Missing", u"name", u"fallback"}};
  for (const auto& [key, name, expected] : kCases) {
    Text value = u"before";
    registry.ReadValue(kUser, key, name, u"fallback", value);
    EXPECT_EQ(value, expected);
  }
}

TEST_F(PubRegistry, WritesAStringAndReturnsTheStatus) {
  int status = -1;
  registry.WriteValue(1, kUser, kKey, u"name", u"data", status);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(machine.ReadValue(kUser, kKey, u"name"), u"data");
  machine.Deny(kUser, kKey);
  registry.WriteValue(1, kUser, kKey, u"name", u"other", status);
  EXPECT_NE(status, 0);
}

TEST_F(PubRegistry, WritesNoOtherType) {
  int status = -1;
  registry.WriteValue(4, kUser, kKey, u"name", u"1", status);
  EXPECT_EQ(status, -1);
  EXPECT_EQ(machine.KeyExists(kUser, kKey), false);
}

TEST_F(PubRegistry, DeletesAValueAndReturnsTheStatus) {
  Write(u"name", u"data");
  int status = -1;
  registry.DeleteValue(kUser, kKey, u"name", status);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Values(), u"");
  registry.DeleteValue(kUser, kKey, u"name", status);
  EXPECT_NE(status, 0);
}

TEST_F(PubRegistry, DeletesAKeyWithWhatIsUnderIt) {
  machine.MakeKey(kUser, Concat(kKey, u"\\a\\b"));
  registry.DeleteKey(kUser, kKey);
  EXPECT_EQ(machine.KeyExists(kUser, kKey), false);
  registry.DeleteKey(kUser, kKey);
  EXPECT_EQ(machine.KeyExists(kUser, u"Software"), true);
}

TEST_F(PubRegistry, CountsValues) {
  int16_t count = -1;
  registry.CountValues(kUser, kKey, count);
  EXPECT_EQ(count, 0);
  Write(u"", u"data");
  Write(u"one", u"");
  registry.CountValues(kUser, kKey, count);
  EXPECT_EQ(count, 2);
}

TEST_F(PubRegistry, CountThatIsTooLargeFails) {
  for (int i = 0; i < INT16_MAX; ++i) Write(ToText(i), u"");
  int16_t count = -1;
  registry.CountValues(kUser, kKey, count);
  EXPECT_EQ(count, INT16_MAX);
  Write(u"one more", u"");
  count = -1;
  registry.CountValues(kUser, kKey, count);
  EXPECT_EQ(count, -1);
}

TEST(PubRegistryWithoutRegistry, LeavesEveryOutputAsItWas) {
  const clsPubRegistry registry;
  Text text = u"before";
  int status = -1;
  int16_t count = -1;
  registry.ReadValue(kUser, kKey, u"name", u"fallback", text);
  registry.EnumSubKeys(kUser, kKey, text);
  registry.EnumValues(kUser, kKey, text);
  registry.EnumValueNames(kUser, kKey, text);
  registry.WriteValue(1, kUser, kKey, u"name", u"data", status);
  registry.DeleteValue(kUser, kKey, u"name", status);
  registry.DeleteKey(kUser, kKey);
  registry.CountValues(kUser, kKey, count);
  EXPECT_EQ(text, u"before");
  EXPECT_EQ(status, -1);
  EXPECT_EQ(count, -1);
}

}  // namespace
}  // namespace tavix
