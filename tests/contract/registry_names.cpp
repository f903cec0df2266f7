#include "contract/registry_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

constexpr TextView kValueNames[] = {
    u"",
    u" ",
    u"  blanks at both ends  ",
    u"\"quoted\"",
    u"\"",
    u"back\\slash\\",
    u"\\\"",
    u"@",
    u"=",
    u"a=b;c",
    u"[key]",
    u"one*IS*two*NDS*three",
    u"tab\tand\r\nline end",
    u"ж中é",
    u"\U0001F600",
    TextView(u"half \xD83D pair", 11),
    TextView(u"nul\0inside", 10),
    u"-",
    u"dword:1",
};

constexpr TextView kKeyNames[] = {
    u" ",
    u"  blanks at both ends  ",
    u"\"quoted\"",
    u"a*SK*b",
    u"[brackets]",
    u"]",
    u"-minus",
    u"semi;colon",
    u"a/b",
    u".",
    u"..",
    u"ж中é",
    u"\U0001F600",
    TextView(u"half \xD83D pair", 11),
    TextView(u"nul\0inside", 10),
};

TEST_P(RegistryContract, TakesAnyValueName) {
  for (const TextView name : kValueNames) {
    SCOPED_TRACE(Case(name));
    ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, name, Concat(u"data of ", name)))
        << testing::PrintToString(Text(name));
    ASSERT_EQ(Values(Hive::CurrentUser, kPlace), (NamesAndData{{Text(name), Concat(u"data of ", name)}}));
    EXPECT_EQ(Read(Hive::CurrentUser, kPlace, name), Concat(u"data of ", name));
    EXPECT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, name))
        << testing::PrintToString(Text(name));
    EXPECT_TRUE(Values(Hive::CurrentUser, kPlace).empty());
  }
}

TEST_P(RegistryContract, TakesAnyKeyName) {
  for (const TextView name : kKeyNames) {
    SCOPED_TRACE(Case(name));
    ASSERT_TRUE(Write(Hive::CurrentUser, Concat(In(name), u"\\Below"), u"", name))
        << testing::PrintToString(Text(name));
    ASSERT_EQ(SubKeys(Hive::CurrentUser, kPlace), (std::vector<Text>{Text(name)}));
    EXPECT_EQ(Read(Hive::CurrentUser, Concat(In(name), u"\\Below"), u""), name);
    EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, In(name))) << testing::PrintToString(Text(name));
    EXPECT_TRUE(SubKeys(Hive::CurrentUser, kPlace).empty());
  }
}

TEST_P(RegistryContract, DeletesAKeyWithAnyNameBelow) {
  for (const TextView name : kKeyNames)
    ASSERT_TRUE(stage->MakeKey(Hive::CurrentUser, In(name))) << Case(name);
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace).size(), std::size(kKeyNames));
  EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, kPlace));
  EXPECT_FALSE(Exists(Hive::CurrentUser, kPlace));
}

TEST_P(RegistryContract, TellsNamesApartThatDifferAfterANul) {
  const Text one(u"a\0one", 5), two(u"a\0two", 5);
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, one, u"1"));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, two, u"2"));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"a", u"3"));
  ASSERT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, two));
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, one), u"1");
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, two), std::nullopt);
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, u"a"), u"3");
  ASSERT_TRUE(stage->MakeKey(Hive::CurrentUser, In(one)));
  ASSERT_TRUE(stage->MakeKey(Hive::CurrentUser, In(u"a")));
  EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, In(one)));
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace), std::vector<Text>{u"a"});
}

TEST_P(RegistryContract, TakesNamesUpToTheirLimits) {
  const Text longest(255, u'k');
  ASSERT_TRUE(Write(Hive::CurrentUser, In(longest), u"", u"data"));
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace), std::vector<Text>{longest});
  EXPECT_EQ(Read(Hive::CurrentUser, In(longest), u""), u"data");
  for (const size_t length : {2'000U, 16'000U, 16'383U}) {
    const Text name(length, u'v');
    ASSERT_TRUE(Write(Hive::CurrentUser, In(longest), name, u"data")) << length;
    EXPECT_EQ(Read(Hive::CurrentUser, In(longest), name), u"data") << length;
  }
  EXPECT_EQ(Values(Hive::CurrentUser, In(longest)).size(), 4U);
  EXPECT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, In(longest), Text(16'383, u'V')));
  EXPECT_EQ(Values(Hive::CurrentUser, In(longest)).size(), 3U);
  EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, In(longest)));
}

TEST_P(RegistryContract, RefusesNamesOverTheirLimitsAndChangesNothing) {
  ASSERT_TRUE(stage->MakeKey(Hive::CurrentUser, kPlace));
  for (const size_t length : {257U, 300U, 40'000U}) {
    SCOPED_TRACE(Case(length));
    EXPECT_FALSE(Write(Hive::CurrentUser, In(Concat(u"New\\", Text(length, u'k'))), u"name", u"data"))
        << length;
    EXPECT_FALSE(Exists(Hive::CurrentUser, In(Text(length, u'k'))));
  }
  for (const size_t length : {16'384U, 40'000U, 100'000U}) {
    SCOPED_TRACE(Case(length));
    const Text name(length, u'v');
    EXPECT_FALSE(Write(Hive::CurrentUser, In(u"New\\Newer"), name, u"data")) << length;
    EXPECT_FALSE(Write(Hive::CurrentUser, kPlace, name, u"data")) << length;
    EXPECT_EQ(Read(Hive::CurrentUser, kPlace, name), std::nullopt);
    EXPECT_FALSE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, name));
  }
  EXPECT_TRUE(SubKeys(Hive::CurrentUser, kPlace).empty());
  EXPECT_TRUE(Values(Hive::CurrentUser, kPlace).empty());
}

TEST_P(RegistryContract, ReachesKeysWithAVeryLongPath) {
  // 200 levels of 240 characters: too long for one counted string (UNICODE_STRING) of the system.
  Text path = In(Text(240, u'p'));
  for (int i = 1; i < 200; ++i) path += Concat(u"\\", Text(240, u'p'));
  ASSERT_TRUE(Write(Hive::CurrentUser, path, u"name", u"data"));
  EXPECT_TRUE(Exists(Hive::CurrentUser, path));
  EXPECT_EQ(Read(Hive::CurrentUser, path, u"name"), u"data");
  EXPECT_FALSE(Exists(Hive::CurrentUser, Concat(path, u"p")));
  EXPECT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, path, u"name"));
  EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, path));
  EXPECT_FALSE(Exists(Hive::CurrentUser, path));
  EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, kPlace));
  EXPECT_FALSE(Exists(Hive::CurrentUser, kPlace));
}

}  // namespace
}  // namespace tavix::contract
