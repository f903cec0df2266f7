#include "contract/registry_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

TEST_P(RegistryContract, WriteStringMakesTheKeyAndThoseOnTheWay) {
  ASSERT_TRUE(Write(Hive::LocalMachine, In(u"A\\B\\C"), u"name", u"data"));
  EXPECT_TRUE(Exists(Hive::LocalMachine, In(u"A")));
  EXPECT_TRUE(Exists(Hive::LocalMachine, In(u"A\\B")));
  EXPECT_TRUE(Values(Hive::LocalMachine, In(u"A\\B")).empty());
  EXPECT_EQ(Read(Hive::LocalMachine, In(u"A\\B\\C"), u"name"), u"data");
}

TEST_P(RegistryContract, WriteStringReplacesDataOfAnotherType) {
  ASSERT_TRUE(stage->SetValue(Hive::CurrentUser, kPlace, u"Name", 4, std::string(4, '\x01')));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"nAME", u"16843009 no more"));
  EXPECT_EQ(Values(Hive::CurrentUser, kPlace), (NamesAndData{{u"Name", u"16843009 no more"}}));
}

TEST_P(RegistryContract, WriteStringKeepsTheText) {
  for (const TextView data :
       {TextView(u""), TextView(u" "), TextView(u"%PATH%"), TextView(u"\"a\\b\""), TextView(u"line\r\nend"),
        TextView(u"in\0side", 7), TextView(u"\U0001F600"), TextView(u"\xDE00", 1)}) {
    SCOPED_TRACE(Case(data));
    ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"name", data));
    EXPECT_EQ(Read(Hive::CurrentUser, kPlace, u"name"), data);
  }
}

TEST_P(RegistryContract, DeletesAValueOnce) {
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"Name", u"data"));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"Other", u"data"));
  EXPECT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, u"nAME"));
  EXPECT_FALSE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, u"Name"));
  EXPECT_EQ(Values(Hive::CurrentUser, kPlace), (NamesAndData{{u"Other", u"data"}}));
}

TEST_P(RegistryContract, DeletesTheDefaultValueByTheEmptyName) {
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"", u"data"));
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"other", u"data"));
  EXPECT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, u""));
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, u""), std::nullopt);
  EXPECT_FALSE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, u""));
  EXPECT_EQ(Read(Hive::CurrentUser, kPlace, u"other"), u"data");
}

TEST_P(RegistryContract, DeletingTheLastValueLeavesTheKey) {
  ASSERT_TRUE(Write(Hive::CurrentUser, kPlace, u"name", u"data"));
  ASSERT_TRUE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, u"name"));
  EXPECT_TRUE(Exists(Hive::CurrentUser, kPlace));
}

TEST_P(RegistryContract, DeletesNoValueOfAMissingKey) {
  EXPECT_FALSE(stage->Use().DeleteValue(Hive::CurrentUser, kPlace, u""));
  EXPECT_FALSE(stage->Use().DeleteValue(Hive::CurrentUser, In(u"A"), u"name"));
  EXPECT_FALSE(Exists(Hive::CurrentUser, kPlace));
}

TEST_P(RegistryContract, DeletesAKeyWithEverythingBelow) {
  for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
    SCOPED_TRACE(Case(hive));
    for (const TextView key :
         {u"Tree", u"Tree\\A", u"Tree\\A\\B\\C", u"Tree\\D", u"Tree2", u"Tre", u"Tree 3\\Tree"}) {
      SCOPED_TRACE(Case(key));
      ASSERT_TRUE(Write(hive, In(key), u"name", key));
    }
    EXPECT_TRUE(stage->Use().DeleteKey(hive, In(u"tREE")));
    EXPECT_FALSE(Exists(hive, In(u"Tree")));
    EXPECT_FALSE(Exists(hive, In(u"Tree\\A\\B\\C")));
    EXPECT_EQ(SubKeys(hive, kPlace), (std::vector<Text>{u"Tre", u"Tree 3", u"Tree2"}));
    EXPECT_EQ(Read(hive, In(u"Tree 3\\Tree"), u"name"), u"Tree 3\\Tree");
    EXPECT_FALSE(stage->Use().DeleteKey(hive, In(u"Tree")));
  }
}

TEST_P(RegistryContract, DeletesADeepKey) {
  Text path = Text(kPlace);
  for (int i = 0; i < 300; ++i) path += u"\\d";
  ASSERT_TRUE(Write(Hive::CurrentUser, path, u"name", u"data"));
  EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, In(u"d")));
  EXPECT_TRUE(SubKeys(Hive::CurrentUser, kPlace).empty());
}

TEST_P(RegistryContract, DeletesAKeyWithManyBelow) {
  for (int i = 0; i < 2000; ++i) {
    SCOPED_TRACE(Case(i));
    ASSERT_TRUE(stage->SetValue(Hive::CurrentUser, In(Concat(ToText(i), u"\\Below")), u"", 1, ""));
  }
  EXPECT_TRUE(stage->Use().DeleteKey(Hive::CurrentUser, kPlace));
  EXPECT_FALSE(Exists(Hive::CurrentUser, kPlace));
}

TEST_P(RegistryContract, DeletesNoMissingKey) {
  EXPECT_FALSE(stage->Use().DeleteKey(Hive::CurrentUser, kPlace));
  ASSERT_TRUE(stage->MakeKey(Hive::CurrentUser, kPlace));
  EXPECT_FALSE(stage->Use().DeleteKey(Hive::CurrentUser, In(u"A")));
  EXPECT_FALSE(stage->Use().DeleteKey(Hive::CurrentUser, In(u"A\\B")));
  EXPECT_TRUE(Exists(Hive::CurrentUser, kPlace));
}

TEST_P(RegistryContract, NeverDeletesAHive) {
  ASSERT_TRUE(stage->MakeKey(Hive::CurrentUser, kPlace));
  ASSERT_TRUE(stage->MakeKey(Hive::LocalMachine, kPlace));
  ASSERT_TRUE(stage->MakeKey(Hive::LocalMachine, kClassPlace));
  for (const Hive hive :
       {Hive::ClassesRoot, Hive::CurrentUser, Hive::LocalMachine, Hive::Users, Hive::CurrentConfig}) {
    SCOPED_TRACE(Case(hive));
    EXPECT_FALSE(stage->Use().DeleteKey(hive, u""));
  }
  EXPECT_TRUE(Exists(Hive::CurrentUser, kPlace));
  EXPECT_TRUE(Exists(Hive::LocalMachine, kPlace));
  EXPECT_TRUE(Exists(Hive::LocalMachine, kClassPlace));
}

TEST_P(RegistryContract, ChangesNothingWithoutTheRightTo) {
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"Denied"), u"name", u"data"));
  if (!stage->Deny(Hive::CurrentUser, In(u"Denied"))) GTEST_SKIP() << "no rights on keys here";
  EXPECT_FALSE(Write(Hive::CurrentUser, In(u"Denied"), u"name", u"other"));
  EXPECT_FALSE(Write(Hive::CurrentUser, In(u"Denied\\New\\Newer"), u"name", u"other"));
  EXPECT_FALSE(stage->Use().DeleteValue(Hive::CurrentUser, In(u"Denied"), u"name"));
  EXPECT_FALSE(stage->Use().DeleteKey(Hive::CurrentUser, In(u"Denied")));
  EXPECT_FALSE(Exists(Hive::CurrentUser, In(u"Denied\\New")));
  EXPECT_EQ(SubKeys(Hive::CurrentUser, kPlace), std::vector<Text>{u"Denied"});
}

TEST_P(RegistryContract, DeletingFailsWhereAKeyBelowStays) {
  ASSERT_TRUE(Write(Hive::CurrentUser, In(u"A\\B\\Denied"), u"name", u"data"));
  if (!stage->Deny(Hive::CurrentUser, In(u"A\\B\\Denied"))) GTEST_SKIP() << "no rights on keys here";
  EXPECT_FALSE(stage->Use().DeleteKey(Hive::CurrentUser, In(u"A")));
  EXPECT_EQ(SubKeys(Hive::CurrentUser, In(u"A\\B")), std::vector<Text>{u"Denied"});
}

}  // namespace
}  // namespace tavix::contract
