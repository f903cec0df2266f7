#include <algorithm>

#include "contract/registry_contract.h"
#include "support/case.h"
#include "text/letter_case.h"

namespace tavix::contract {
namespace {

using namespace std::string_literals;

constexpr Hive kBoth[] = {Hive::CurrentUser, Hive::LocalMachine};

TEST_P(RegistryContract, MissingKeyHasNothing) {
  for (const Hive hive : kBoth) {
    SCOPED_TRACE(Case(hive));
    EXPECT_FALSE(Exists(hive, kPlace));
    EXPECT_TRUE(SubKeys(hive, kPlace).empty());
    EXPECT_TRUE(Values(hive, kPlace).empty());
    EXPECT_EQ(Read(hive, kPlace, u""), std::nullopt);
    EXPECT_EQ(Read(hive, In(u"A\\B"), u"name"), std::nullopt);
  }
}

TEST_P(RegistryContract, EmptyKeyExistsAndHasNothing) {
  for (const Hive hive : kBoth) {
    SCOPED_TRACE(Case(hive));
    ASSERT_TRUE(stage->MakeKey(hive, kPlace));
    EXPECT_TRUE(Exists(hive, kPlace));
    EXPECT_TRUE(SubKeys(hive, kPlace).empty());
    EXPECT_TRUE(Values(hive, kPlace).empty());
    EXPECT_EQ(Read(hive, kPlace, u""), std::nullopt);
    EXPECT_EQ(Read(hive, kPlace, u"name"), std::nullopt);
  }
}

TEST_P(RegistryContract, HivesAreApart) {
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"whose", u"user's"));
  ASSERT_TRUE(Write(Hive::LocalMachine, kPlace, u"whose", u"machine's"));
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, u"whose"), u"user's");
  EXPECT_EQ(Read(Hive::LocalMachine, kPlace, u"whose"), u"machine's");
}

TEST_P(RegistryContract, HiveItselfExistsAndListsItsKeys) {
  for (const Hive hive : kBoth) {
    SCOPED_TRACE(Case(hive));
    ASSERT_TRUE(stage->MakeKey(hive, kPlace));
    EXPECT_TRUE(Exists(hive, u""));
    bool found = false;
    for (const Text& name : SubKeys(hive, u"")) found = found || EqualIgnoringCase(name, u"Software");
    EXPECT_TRUE(found);
  }
}

TEST_P(RegistryContract, WhatIsNoHiveHasNothing) {
  for (const uint32_t number : {0U, 0x80000004U, 0x80000006U, 0xFFFFFFFFU}) {
    SCOPED_TRACE(Case(number));
    const auto hive = static_cast<Hive>(number);
    EXPECT_FALSE(Exists(hive, u""));
    EXPECT_FALSE(Exists(hive, u"Software"));
    EXPECT_TRUE(SubKeys(hive, u"").empty());
    EXPECT_FALSE(Write(hive, kPlace, u"name", u"data"));
    EXPECT_FALSE(stage->Use().DeleteKey(hive, kPlace));
    EXPECT_FALSE(stage->Use().DeleteValue(hive, kPlace, u"name"));
  }
}

TEST_P(RegistryContract, PathOfAnotherFormIsNoKey) {
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"A\\B"), u"name", u"data"));
  for (const Text& path : {Concat(u"\\", kPlace), Concat(kPlace, u"\\"), In(u"A\\\\B"), In(u"\\A"),
                           In(u"A\\B\\"), Text(u"\\"), Text(u"\\\\")}) {
    SCOPED_TRACE(Case(path));
    EXPECT_FALSE(Exists(Hive::CurrentUser, path));
    EXPECT_TRUE(SubKeys(Hive::CurrentUser, path).empty());
    EXPECT_EQ(Read(Hive::CurrentUser, path, u"name"), std::nullopt);
    EXPECT_FALSE(Write(Hive::CurrentUser, path, u"name", u"other"));
    EXPECT_FALSE(stage->Use().DeleteValue(Hive::CurrentUser, path, u"name"));
    EXPECT_FALSE(stage->Use().DeleteKey(Hive::CurrentUser, path));
  }
  EXPECT_EQ(Read(Hive::CurrentUser, In(u"A\\B"), u"name"), u"data");
}

TEST_P(RegistryContract, MatchesNamesWithoutRegardToLetterCase) {
  const struct {
    TextView made, asked;
  } kCases[] = {{u"Run", u"rUN"}, {u"Ärger", u"äRGER"}, {u"ЖУК", u"жук"}, {u"σίγμα", u"ΣΊΓΜΑ"}, {u"ő", u"Ő"}};
  for (const auto& [made, asked] : kCases) {
    SCOPED_TRACE(Case(made));
    ASSERT_TRUE(Write(Hive::CurrentUser, In(made), made, u"data"));
    EXPECT_TRUE(Exists(Hive::CurrentUser, In(asked)));
    EXPECT_EQ(Read(Hive::CurrentUser, ToUpper(In(asked)), asked), u"data");
    ASSERT_TRUE(Write(Hive::CurrentUser, In(asked), asked, u"again"));
    EXPECT_EQ(Values(Hive::CurrentUser, In(made)), (NamesAndData{{Text(made), u"again"}}));
  }
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace).size(), std::size(kCases));
}

TEST_P(RegistryContract, KeepsLookAlikesApart) {
  // These pairs look alike, but neither is the capital of the other: ß and SS, micro sign and mu, ı and i.
  for (const TextView name : {u"ß", u"SS", u"\u00B5", u"\u03BC", u"\u0131", u"i"}) {
    SCOPED_TRACE(Case(name));
    ASSERT_TRUE(Write(Hive::CurrentUser, In(name), u"", name));
  }
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace).size(), 6U);
}

TEST_P(RegistryContract, ListsSubKeysByUpperCasedNames) {
  for (const TextView name :
       {u"b", u"a2", u"_c", u"Z", u"é", u"A", u"9", u"a", u"[d]", u"10", u"É1", u"жук", u"a b"}) {
    SCOPED_TRACE(Case(name));
    ASSERT_TRUE(stage->MakeKey(Hive::LocalMachine, In(name)));
  }
  // `_` and `[` sort after the capitals; compared with small letters they would sort before them.
  EXPECT_EQ(
      SubKeys(Hive::LocalMachine, kPlace),
      (std::vector<Text>{u"10", u"9", u"A", u"a b", u"a2", u"b", u"Z", u"[d]", u"_c", u"é", u"É1", u"жук"}));
}

TEST_P(RegistryContract, ListsDirectSubKeysOnly) {
  ASSERT_TRUE(stage->MakeKey(Hive::LocalMachine, In(u"A\\Deep\\Deeper")));
  ASSERT_TRUE(stage->MakeKey(Hive::LocalMachine, In(u"B")));
  EXPECT_EQ(SubKeys(Hive::LocalMachine, kPlace), (std::vector<Text>{u"A", u"B"}));
  EXPECT_EQ(SubKeys(Hive::LocalMachine, In(u"A")), (std::vector<Text>{u"Deep"}));
}

TEST_P(RegistryContract, ListsThousandsOfKeysAndValues) {
  constexpr int kCount = 3000;
  for (int i = kCount; i-- > 0;) {
    SCOPED_TRACE(Case(i));
    // 7 and 3,000 have no common divisor, so every number comes once, in scrambled order.
    const Text number = ToText(10'000 + i * 7 % kCount);
    ASSERT_TRUE(stage->SetValue(Hive::CurrentUser, kPlace, number, 1, Bytes(number)));
  }
  for (const TextView name : {u"z", u"m", u"a"})
    ASSERT_TRUE(stage->MakeKey(Hive::CurrentUser, In(name))) << Case(name);
  NamesAndData values = Values(Hive::CurrentUser, kPlace);
  std::sort(values.begin(), values.end());
  ASSERT_EQ(values.size(), size_t{kCount});
  for (int i = 0; i < kCount; ++i) {
    EXPECT_EQ(values[i], std::pair(ToText(10'000 + i), ToText(10'000 + i)));
  }
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace), (std::vector<Text>{u"a", u"m", u"z"}));
}

TEST_P(RegistryContract, ListsValuesInTheOrderMade) {
  if (!stage->KeepsOrderOfValues()) GTEST_SKIP() << "this system lists values by name";
  for (const TextView name : {u"m", u"z", u"", u"a", u"Q"}) {
    SCOPED_TRACE(Case(name));
    ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, name, u"1"));
  }
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"Z", u"2"));  // keeps its position and its spelling
  ASSERT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, u"m"));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"m", u"3"));  // moves to the end
  EXPECT_EQ(Values(Hive::CurrentUser, kPlace),
            (NamesAndData{{u"z", u"2"}, {u"", u"1"}, {u"a", u"1"}, {u"Q", u"1"}, {u"m", u"3"}}));
}

TEST_P(RegistryContract, DefaultValueHasTheEmptyName) {
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"", u"default"));
  EXPECT_EQ(Values(Hive::CurrentUser, kPlace), (NamesAndData{{u"", u"default"}}));
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, u""), u"default");
}

TEST_P(RegistryContract, ShowsDataOfAnyTypeAsText) {
  const struct {
    uint32_t type;
    std::string bytes;
    TextView text;
  } kCases[] = {
      {0, "", u""},
      {0, "\x01\xAB"s, u"01 AB"},
      {1, "", u""},
      {1, Bytes(u"with end\0"s), u"with end"},
      {1, Bytes(u"without end"), u"without end"},
      {1, Bytes(u"many ends\0\0\0"s), u"many ends"},
      {1, Bytes(u"in\0side\0"s), TextView(u"in\0side", 7)},
      {1, Bytes(u"odd") + "x", u"odd"},
      {1, "x", u""},
      {1, Bytes(u"\0"s), u""},
      {1, Bytes(u" blanks \r\n\0"s), u" blanks \r\n"},
      {1, Bytes(u"\"quoted\" \\ \u00E4\u0436\u4E2D \U0001F600\0"s),
       u"\"quoted\" \\ \u00E4\u0436\u4E2D \U0001F600"},
      {1, Bytes(Text{0xD83D, u'x', 0xDE00}), TextView(u"\xD83Dx\xDE00", 3)},
      {2, Bytes(u"%SystemRoot%\\x\0"s), u"%SystemRoot%\\x"},
      {3, "", u""},
      {3, "\x00\x7F\x80\xFF"s, u"00 7F 80 FF"},
      {4, "\x00\x00\x00\x00"s, u"0"},
      {4, "\xFF\xFF\xFF\xFF"s, u"4294967295"},
      {4, "\x2A\x01\x00\x00"s, u"298"},
      {4, "", u""},
      {4, "\x2A\x01"s, u"2A 01"},
      {4, "\x2A\x01\x00\x00\x00"s, u"2A 01 00 00 00"},
      {5, "\x00\x00\x01\x2A"s, u"00 00 01 2A"},
      {6, Bytes(u"a"), u"61 00"},
      {7, "", u""},
      {7, Bytes(u"\0"s), u""},
      {7, Bytes(u"one\0two three\0four\0\0"s), u"one two three four"},
      {7, Bytes(u"one\0\0two\0\0"s), u"one  two"},
      {7, Bytes(u"no end"), u"no end"},
      {8, "\x0A"s, u"0A"},
      {9, "\x0B"s, u"0B"},
      {10, "\x0C"s, u"0C"},
      {11, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s, u"18446744073709551615"},
      {11, "\x00\x00\x00\x00\x01\x00\x00\x00"s, u"4294967296"},
      {11, "\x01\x00\x00\x00"s, u"01 00 00 00"},
      {12, "\x0D"s, u"0D"},
      {0xFFFF0012, "\x0E"s, u"0E"},
  };
  for (size_t i = 0; i < std::size(kCases); ++i) {
    SCOPED_TRACE(Case(i));
    ASSERT_TRUE(stage->SetValue(Hive::CurrentUser, kPlace, ToText(100 + i), kCases[i].type, kCases[i].bytes));
  }
  const NamesAndData listed = Values(Hive::CurrentUser, kPlace);
  ASSERT_EQ(listed.size(), std::size(kCases));
  for (size_t i = 0; i < std::size(kCases); ++i) {
    const Text name = ToText(100 + i);
    EXPECT_EQ(listed[i], std::pair(name, Text(kCases[i].text)))
        << "type " << kCases[i].type << ", case " << i;
    EXPECT_EQ(Read(Hive::CurrentUser, kPlace, name), kCases[i].text) << "case " << i;
  }
}

TEST_P(RegistryContract, ReadsSmallAndLargeDataInTurn) {
  const Text large(400'000, u'L');
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"1", u"small"));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"2", large));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"3", u"small again"));
  EXPECT_EQ(Values(Hive::CurrentUser, kPlace),
            (NamesAndData{{u"1", u"small"}, {u"2", large}, {u"3", u"small again"}}));
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, u"2"), large);
}

TEST_P(RegistryContract, ReadingTellsThatItWasWholeOrThatNothingIsThere) {
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"name", u"data"));
  for (const TextView key :
       {TextView(kPlace), TextView(u"Software\\Tavix Contract\\none"), TextView(u"a\\\\b")}) {
    SCOPED_TRACE(Case(key));
    EXPECT_TRUE(stage->Use().VisitSubKeys(Hive::CurrentUser, key, [](TextView) {}));
    EXPECT_TRUE(stage->Use().VisitValues(Hive::CurrentUser, key, [](TextView, TextView) {}));
  }
  EXPECT_EQ(stage->Use().KeyExists(Hive::CurrentUser, In(u"none")), false);
  EXPECT_TRUE(stage->Use().VisitSubKeys(static_cast<Hive>(1), {}, [](TextView) {}));
}

TEST_P(RegistryContract, KeysBelowAKeyAreReadByTheirPathsFromIt) {
  EXPECT_EQ(stage->Use().Below(Hive::CurrentUser, kPlace), nullptr);
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"a\\b"), u"name", u"data"));
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"a"), u"", u"of a"));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"", u"of the place"));
  platform::Registry& registry = stage->Use();
  const auto below = registry.Below(Hive::CurrentUser, kPlace);
  ASSERT_NE(below, nullptr);
  EXPECT_EQ(below->ReadValue(u"a\\b", u"name"), u"data");
  EXPECT_EQ(below->ReadValue(u"A", u""), u"of a");
  EXPECT_EQ(below->ReadValue(u"a", u"name"), std::nullopt);
  EXPECT_EQ(below->ReadValue(u"c", u""), std::nullopt);
  // The key itself isn't below it.
  for (const TextView path : {u"", u"\\", u"a\\", u"\\a", u"a\\\\b"}) {
    EXPECT_EQ(below->ReadValue(path, u""), std::nullopt);
  }
  registry.WriteString(Hive::CurrentUser, In(u"new"), u"", u"later");
  EXPECT_EQ(below->ReadValue(u"new", u""), u"later");
  registry.DeleteKey(Hive::CurrentUser, kPlace);
  EXPECT_EQ(below->ReadValue(u"a", u""), std::nullopt);
  const auto hive = registry.Below(Hive::CurrentUser, u"");
  ASSERT_NE(hive, nullptr);
  EXPECT_EQ(hive->ReadValue(kPlace, u""), std::nullopt);
}

TEST_P(RegistryContract, KeysBelowAKeyThatMayNotBeReadCanBeRead) {
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"Denied\\below"), u"", u"data"));
  if (!stage->Deny(Hive::CurrentUser, In(u"Denied"))) GTEST_SKIP() << "no rights on keys here";
  const auto below = stage->Use().Below(Hive::CurrentUser, In(u"Denied"));
  ASSERT_NE(below, nullptr);
  EXPECT_EQ(below->ReadValue(u"below", u""), u"data");
}

TEST_P(RegistryContract, KeyThatMayNotBeReadIsEmpty) {
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"Denied"), u"name", u"data"));
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"Denied\\Below"), u"name", u"data"));
  if (!stage->Deny(Hive::CurrentUser, In(u"Denied"))) GTEST_SKIP() << "no rights on keys here";
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace), (std::vector<Text>{u"Denied"}));
  EXPECT_TRUE(SubKeys(Hive::CurrentUser, In(u"Denied")).empty());
  EXPECT_TRUE(Values(Hive::CurrentUser, In(u"Denied")).empty());
  EXPECT_FALSE(stage->Use().VisitSubKeys(Hive::CurrentUser, In(u"Denied"), [](TextView) {}));
  EXPECT_FALSE(stage->Use().VisitValues(Hive::CurrentUser, In(u"Denied"), [](TextView, TextView) {}));
  EXPECT_EQ(stage->Use().KeyExists(Hive::CurrentUser, In(u"Denied")), true);
  EXPECT_EQ(Read(Hive::CurrentUser, In(u"Denied"), u"name"), std::nullopt);
  EXPECT_EQ(Read(Hive::CurrentUser, In(u"Denied\\Below"), u"name"), u"data");
}

}  // namespace
}  // namespace tavix::contract
