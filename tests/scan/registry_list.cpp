#include "scan/registry_list.h"

#include "platform/machine/services/machine_registry.h"
#include "scan/registry_test.h"
#include "scan/scan_watch.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kKey = u"Software\\K";

// Makes every entry a finding, named by the texts that the test gets.
std::optional<Text> ShowAll(const RegistryEntry& entry) {
  return Concat(entry.Name, u"=",
                entry.List.Entries == RegistryEntries::SubKeys ? entry.Value() : Text(entry.Data));
}

RegistryList ListOf(RegistryEntries entries) {
  return {.Status = u"status",
          .Hive = platform::Hive::CurrentUser,
          .Root = kKey,
          .Entries = entries,
          .Test = ShowAll,
          .Type = u"t",
          .Location = u"Registry: X"};
}

std::vector<RowFields> ScanLists(std::initializer_list<RegistryList> lists) {
  ClearResults();
  ScanRegistryLists(lists);
  return ResultRows();
}

class RegistryListTest : public RegistryScanTest {
 protected:
  void SeedValues(std::initializer_list<std::pair<TextView, TextView>> values) {
    machineRegistry.DeleteKey(Hive::CurrentUser, kKey);
    for (const auto& [name, data] : values) SeedUser(kKey, name, data);
  }
  // A scan over these values: of each row, the name and the end of the tag.
  std::vector<std::pair<Text, Text>> Values(std::initializer_list<std::pair<TextView, TextView>> values) {
    SeedValues(values);
    std::vector<std::pair<Text, Text>> found;
    for (const RowFields& row : ScanLists({ListOf(RegistryEntries::Values)})) {
      found.emplace_back(row.name, row.tag.substr(TextView(u"RI: HKEY_CURRENT_USER, Software\\K, ").size()));
    }
    return found;
  }
};

using Found = std::vector<std::pair<Text, Text>>;

TEST_F(RegistryListTest, KeysAndValuesAreNamedByTheirTags) {
  SeedUser(Concat(kKey, u"\\Sub"), u"", u"d");
  SeedUser(kKey, u"v", u"w");
  EXPECT_EQ(ScanLists({ListOf(RegistryEntries::SubKeys), ListOf(RegistryEntries::Values),
                       ListOf(RegistryEntries::ValueNames)}),
            (std::vector{RegistryRow(u"t", u"Sub=d", u"X", u"RK: HKEY_CURRENT_USER, Software\\K\\Sub"),
                         RegistryRow(u"t", u"v=w", u"X", u"RI: HKEY_CURRENT_USER, Software\\K, v"),
                         RegistryRow(u"t", u"v=", u"X", u"RI: HKEY_CURRENT_USER, Software\\K, v")}));
}

TEST_F(RegistryListTest, EveryHiveHasItsName) {
  const struct {
    Hive hive;
    TextView name;
  } table[] = {{Hive::CurrentUser, u"HKEY_CURRENT_USER"},
               {Hive::LocalMachine, u"HKEY_LOCAL_MACHINE"},
               {Hive::ClassesRoot, u"HKEY_CLASSES_ROOT"},
               {Hive::CurrentConfig, u"HKEY_CURRENT_CONFIG"}};
  for (const auto& row : table) {
    const TextView root = row.hive == Hive::ClassesRoot ? u"K" : kKey;
    if (row.hive == Hive::ClassesRoot) {
      SeedClass(u"K\\Sub", u"");
    } else {
      Seed(row.hive, u"Software\\K\\Sub", u"", u"");
    }
    RegistryList list = ListOf(RegistryEntries::SubKeys);
    list.Hive = row.hive;
    list.Root = root;
    EXPECT_EQ(Tags(ScanLists({list})), std::vector{Concat(u"RK: ", row.name, u", ", root, u"\\Sub")});
  }
}

TEST_F(RegistryListTest, EntriesComeInTheOrderOfTheRegistry) {
  for (const TextView name : {u"b", u"A", u"c"}) SeedUser(Concat(kKey, u"\\", name), u"", u"");
  for (const TextView name : {u"b", u"A", u"c"}) SeedUser(kKey, name, u"");
  EXPECT_EQ(Names(ScanLists({ListOf(RegistryEntries::SubKeys)})), (std::vector<Text>{u"A=", u"b=", u"c="}));
  EXPECT_EQ(Names(ScanLists({ListOf(RegistryEntries::Values)})), (std::vector<Text>{u"b=", u"A=", u"c="}));
}

TEST_F(RegistryListTest, ThePathBelowAnInnerListIsThatOfEachSubkeyOfTheRoot) {
  SeedUser(Concat(kKey, u"\\a\\in\\1\\v"), u"n", u"one");
  SeedUser(Concat(kKey, u"\\a\\in\\2"), u"", u"no key v");
  SeedUser(Concat(kKey, u"\\b\\other\\3"), u"", u"not looked at");
  SeedUser(Concat(kKey, u"\\c\\in\\4\\v"), u"n", u"four");
  RegistryList list = ListOf(RegistryEntries::SubKeys);
  list.Inner = u"\\in";
  list.ValueKey = u"\\v";
  list.ValueName = u"n";
  const auto rows = ScanLists({list});
  EXPECT_EQ(Names(rows), (std::vector<Text>{u"1=one", u"2=", u"4=four"}));
  EXPECT_EQ(rows[2].tag, u"RK: HKEY_CURRENT_USER, Software\\K\\c\\in\\4");
}

TEST_F(RegistryListTest, ASubkeyWithTheSeparatorInItsNameIsTakenForTwo) {
  SeedUser(Concat(kKey, u"\\a*SK*b"), u"", u"not read");
  SeedUser(Concat(kKey, u"\\c"), u"", u"read");
  EXPECT_EQ(Names(ScanLists({ListOf(RegistryEntries::SubKeys)})),
            (std::vector<Text>{u"a=", u"b=", u"c=read"}));
}

TEST_F(RegistryListTest, AKeyWithItsDefaultValueAloneHasNoValueNames) {
  SeedValues({{u"", u"d"}});
  EXPECT_TRUE(ScanLists({ListOf(RegistryEntries::ValueNames)}).empty());
  SeedValues({{u"", u"d"}, {u"a", u"d"}});
  EXPECT_EQ(Names(ScanLists({ListOf(RegistryEntries::ValueNames)})), (std::vector<Text>{u"=", u"a="}));
}

TEST_F(RegistryListTest, ADefaultValueHasAnEmptyName) {
  EXPECT_EQ(Values({{u"", u"d"}}), (Found{{u"=d", u""}}));
  EXPECT_EQ(Values({{u"", u""}}), (Found{{u"=", u""}}));
}

TEST_F(RegistryListTest, SeparatorsWithinNamesAndDataSplitTheText) {
  EXPECT_EQ(Values({{u"a*NDS*b", u"c"}}), (Found{{u"a=b", u"a"}}));
  EXPECT_EQ(Values({{u"a", u"b*NDS*c"}}), (Found{{u"a=b", u"a"}}));
  EXPECT_EQ(Values({{u"a", u"1*IS*b*NDS*2"}}), (Found{{u"a=1", u"a"}, {u"b=2", u"b"}}));
  EXPECT_EQ(Values({{u"a*IS*b", u"1"}}), (Found{{u"a=", u"a"}, {u"b=1", u"b"}}));
  EXPECT_EQ(Values({{u"a*SK*b", u"1*SK*2"}}), (Found{{u"a*SK*b=1*SK*2", u"a*SK*b"}}));
}

TEST_F(RegistryListTest, APieceThatLacksNameOrDataKeepsThoseOfThePieceBefore) {
  EXPECT_EQ(Values({{u"a", u"1*IS*b"}, {u"c", u"3"}}),
            (Found{{u"a=1", u"a"}, {u"b=1", u"b"}, {u"c=3", u"c"}}));
  EXPECT_EQ(Values({{u"a", u"1*IS*"}, {u"c", u"3"}}),
            (Found{{u"a=1", u"a"}, {u"a=1", u"a"}, {u"c=3", u"c"}}));
  EXPECT_EQ(Values({{u"*IS*a", u"1"}}), (Found{{u"=", u""}, {u"a=1", u"a"}}));
}

TEST_F(RegistryListTest, DataOfEveryTypeIsTestedAsText) {
  machineRegistry.SetValue(Hive::CurrentUser, kKey, u"n", 4, std::string("\x2A\0\0\0", 4));
  machineRegistry.SetValue(Hive::CurrentUser, kKey, u"b", 3, "\xAB\x01");
  EXPECT_EQ(Names(ScanLists({ListOf(RegistryEntries::Values)})), (std::vector<Text>{u"n=42", u"b=AB 01"}));
}

TEST_F(RegistryListTest, AKeyThatCannotBeReadHasNoEntries) {
  SeedValues({{u"a", u"1"}});
  machineRegistry.Deny(Hive::CurrentUser, kKey);
  EXPECT_TRUE(ScanLists({ListOf(RegistryEntries::Values)}).empty());
}

TEST_F(RegistryListTest, AStarInTheLocationStandsForTheEntry) {
  SeedUser(Concat(kKey, u"\\{1*2}"), u"", u"");
  RegistryList list = ListOf(RegistryEntries::SubKeys);
  list.Location = u"Registry: A\\*\\B";
  EXPECT_EQ(ScanLists({list})[0].location, u"Registry: A\\{1*2}\\B");
}

TEST_F(RegistryListTest, TheUserInterfaceRunsAfterEveryEntryWhetherOrNotItIsAFinding) {
  SeedValues({{u"a", u"1"}, {u"b", u"2"}, {u"c", u"3"}});
  RegistryList list = ListOf(RegistryEntries::Values);
  list.Test = [](const RegistryEntry& entry) {
    return entry.Name == u"b" ? std::optional<Text>(u"found") : std::nullopt;
  };
  list.Yields = true;
  ScanWatch watch;
  std::vector<int> rowsAtYield;
  watch.atYield = [&] { rowsAtYield.push_back(ResultCount()); };
  ScanLists({list});
  EXPECT_EQ(rowsAtYield, (std::vector{0, 1, 1}));
}

TEST_F(RegistryListTest, WhatTheUserDoesToTheRegistryMeanwhileDoesNotDisturbTheList) {
  for (const TextView name : {u"a", u"b", u"c"}) SeedUser(Concat(kKey, u"\\", name), u"", u"d");
  RegistryList list = ListOf(RegistryEntries::SubKeys);
  list.Yields = true;
  ScanWatch watch;
  watch.atYield = [this] { machineRegistry.DeleteKey(Hive::CurrentUser, kKey); };
  EXPECT_EQ(Names(ScanLists({list})), (std::vector<Text>{u"a=d", u"b=", u"c="}));
}

TEST_F(RegistryListTest, MoreEntriesThanASixteenBitNumberCountsAreAllTested) {
  constexpr int kEntries = 33'000;
  for (int i = 0; i < kEntries; ++i) SeedUser(Concat(kKey, u"\\", ToText(i)), u"", u"");
  ClearResults();
  ScanRegistryLists(std::initializer_list<RegistryList>{ListOf(RegistryEntries::SubKeys)});
  EXPECT_EQ(ResultCount(), kEntries);
}

TEST_F(RegistryListTest, UntickedRowsAreAddedSo) {
  SeedValues({{u"a", u"1"}});
  RegistryList list = ListOf(RegistryEntries::Values);
  list.Ticked = false;
  EXPECT_FALSE(ScanLists({list})[0].checked);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
