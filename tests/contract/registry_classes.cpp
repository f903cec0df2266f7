#include <algorithm>

#include "contract/registry_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

// HKEY_CLASSES_ROOT merges Software\Classes of the user and of the machine.

constexpr Hive kUser = Hive::CurrentUser;
constexpr Hive kMachine = Hive::LocalMachine;
constexpr Hive kClasses = Hive::ClassesRoot;

Text InClass(TextView key) { return Concat(kClass, u"\\", key); }
Text Below(TextView key) { return Concat(kClassPlace, u"\\", key); }

TEST_P(RegistryContract, ClassesShowKeysOfEither) {
  EXPECT_FALSE(Exists(kClasses, kClass));
  ASSERT_TRUE(Write(kUser, Below(u"User"), u"", u"user's"));
  EXPECT_TRUE(Exists(kClasses, kClass));
  ASSERT_TRUE(Write(kMachine, Below(u"Machine"), u"", u"machine's"));
  EXPECT_TRUE(Exists(kClasses, InClass(u"user")));
  EXPECT_TRUE(Exists(kClasses, InClass(u"MACHINE")));
  EXPECT_FALSE(Exists(kClasses, InClass(u"Neither")));
  EXPECT_EQ(Read(kClasses, InClass(u"User"), u""), u"user's");
  EXPECT_EQ(Read(kClasses, InClass(u"Machine"), u""), u"machine's");
}

TEST_P(RegistryContract, ClassesListSubKeysOfBothInOneOrder) {
  for (const TextView name : {u"b", u"D", u"_u"})
    ASSERT_TRUE(stage->MakeKey(kUser, Below(name))) << Case(name);
  for (const TextView name : {u"a", u"C", u"e", u"Z"})
    ASSERT_TRUE(stage->MakeKey(kMachine, Below(name))) << Case(name);
  EXPECT_EQ(SubKeys(kClasses, kClass), (std::vector<Text>{u"a", u"b", u"C", u"D", u"e", u"Z", u"_u"}));
}

TEST_P(RegistryContract, ClassesListAKeyOfBothOnceInTheUsersSpelling) {
  ASSERT_TRUE(stage->MakeKey(kUser, Below(u"sHELL")));
  ASSERT_TRUE(stage->MakeKey(kMachine, Below(u"Shell")));
  EXPECT_EQ(SubKeys(kClasses, kClass), std::vector<Text>{u"sHELL"});
}

TEST_P(RegistryContract, ClassesListTheRoot) {
  ASSERT_TRUE(stage->MakeKey(kUser, kClassPlace));
  ASSERT_TRUE(stage->MakeKey(kMachine, Concat(kClassPlace, u".2")));
  std::vector<Text> names = SubKeys(kClasses, u"");
  EXPECT_EQ(std::count(names.begin(), names.end(), Text(kClass)), 1);
  EXPECT_EQ(std::count(names.begin(), names.end(), Concat(kClass, u".2")), 1);
  ASSERT_TRUE(stage->Use().DeleteKey(kMachine, Concat(kClassPlace, u".2")));
}

TEST_P(RegistryContract, KeysBelowAClassAreThoseOfEither) {
  EXPECT_EQ(stage->Use().Below(kClasses, kClass), nullptr);
  ASSERT_TRUE(Write(kMachine, Below(u"a"), u"", u"machine's"));
  ASSERT_TRUE(Write(kMachine, Below(u"b"), u"", u"machine's"));
  const auto machines = stage->Use().Below(kClasses, kClass);
  ASSERT_NE(machines, nullptr);
  EXPECT_EQ(machines->ReadValue(u"a", u""), u"machine's");
  ASSERT_TRUE(Write(kUser, Below(u"A"), u"", u"user's"));
  ASSERT_TRUE(Write(kUser, Below(u"c"), u"", u"user's"));
  const auto both = stage->Use().Below(kClasses, kClass);
  ASSERT_NE(both, nullptr);
  EXPECT_EQ(both->ReadValue(u"a", u""), u"user's");
  EXPECT_EQ(both->ReadValue(u"b", u""), u"machine's");
  EXPECT_EQ(both->ReadValue(u"c", u""), u"user's");
  EXPECT_EQ(both->ReadValue(u"d", u""), std::nullopt);
  ASSERT_TRUE(stage->Use().DeleteKey(kMachine, kClassPlace));
  const auto users = stage->Use().Below(kClasses, kClass);
  ASSERT_NE(users, nullptr);
  EXPECT_EQ(users->ReadValue(u"a", u""), u"user's");
  EXPECT_EQ(users->ReadValue(u"b", u""), std::nullopt);
}

TEST_P(RegistryContract, ClassesTakeTheUsersValueFirst) {
  ASSERT_TRUE(Write(kMachine, kClassPlace, u"", u"machine's"));
  ASSERT_TRUE(Write(kMachine, kClassPlace, u"A", u"machine's"));
  ASSERT_TRUE(Write(kMachine, kClassPlace, u"Both", u"machine's"));
  ASSERT_TRUE(Write(kUser, kClassPlace, u"BOTH", u"user's"));
  ASSERT_TRUE(Write(kUser, kClassPlace, u"User", u"user's"));
  EXPECT_EQ(
      Values(kClasses, kClass),
      (NamesAndData{{u"BOTH", u"user's"}, {u"User", u"user's"}, {u"", u"machine's"}, {u"A", u"machine's"}}));
  EXPECT_EQ(Read(kClasses, kClass, u"both"), u"user's");
  EXPECT_EQ(Read(kClasses, kClass, u""), u"machine's");
  ASSERT_TRUE(Write(kUser, kClassPlace, u"", u"user's"));
  EXPECT_EQ(Read(kClasses, kClass, u""), u"user's");
  EXPECT_EQ(Read(kClasses, kClass, u"neither"), std::nullopt);
}

TEST_P(RegistryContract, ClassesDeleteTheUsersKeyThenTheMachines) {
  ASSERT_TRUE(Write(kUser, Below(u"Key\\Of user"), u"", u"user's"));
  ASSERT_TRUE(Write(kMachine, Below(u"Key\\Of machine"), u"", u"machine's"));
  EXPECT_TRUE(stage->Use().DeleteKey(kClasses, InClass(u"Key")));
  EXPECT_FALSE(Exists(kUser, Below(u"Key")));
  EXPECT_EQ(SubKeys(kClasses, InClass(u"Key")), std::vector<Text>{u"Of machine"});
  EXPECT_TRUE(stage->Use().DeleteKey(kClasses, InClass(u"Key")));
  EXPECT_FALSE(Exists(kMachine, Below(u"Key")));
  EXPECT_FALSE(stage->Use().DeleteKey(kClasses, InClass(u"Key")));
}

TEST_P(RegistryContract, ClassesDeleteTheUsersValueThenTheMachines) {
  ASSERT_TRUE(Write(kUser, kClassPlace, u"Name", u"user's"));
  ASSERT_TRUE(Write(kMachine, kClassPlace, u"Name", u"machine's"));
  ASSERT_TRUE(Write(kMachine, kClassPlace, u"Machine", u"machine's"));
  EXPECT_TRUE(stage->Use().DeleteValue(kClasses, kClass, u"NAME"));
  EXPECT_EQ(Read(kClasses, kClass, u"Name"), u"machine's");
  EXPECT_TRUE(stage->Use().DeleteValue(kClasses, kClass, u"NAME"));
  EXPECT_FALSE(stage->Use().DeleteValue(kClasses, kClass, u"NAME"));
  // The user's key lacks the value, so the machine's value is deleted.
  EXPECT_TRUE(stage->Use().DeleteValue(kClasses, kClass, u"Machine"));
  EXPECT_TRUE(Values(kMachine, kClassPlace).empty());
}

TEST_P(RegistryContract, ClassesWriteWhereTheKeyStands) {
  ASSERT_TRUE(Write(kClasses, kClass, u"new", u"1"));
  EXPECT_EQ(Read(kMachine, kClassPlace, u"new"), u"1");
  EXPECT_FALSE(Exists(kUser, kClassPlace));
  ASSERT_TRUE(stage->MakeKey(kUser, kClassPlace));
  ASSERT_TRUE(Write(kClasses, kClass, u"new", u"2"));
  EXPECT_EQ(Read(kUser, kClassPlace, u"new"), u"2");
  EXPECT_EQ(Read(kMachine, kClassPlace, u"new"), u"1");
}

TEST_P(RegistryContract, ClassesPassOverAUsersKeyThatMayNotBeRead) {
  ASSERT_TRUE(Write(kUser, Below(u"Key"), u"", u"user's"));
  ASSERT_TRUE(Write(kMachine, Below(u"Key"), u"", u"machine's"));
  if (!stage->Deny(kUser, Below(u"Key"))) GTEST_SKIP() << "no rights on keys here";
  EXPECT_EQ(Read(kClasses, InClass(u"Key"), u""), u"machine's");
  EXPECT_EQ(SubKeys(kClasses, kClass), std::vector<Text>{u"Key"});
}

TEST_P(RegistryContract, ClassesLeaveTheMachinesKeyWhileTheUsersCannotGo) {
  ASSERT_TRUE(Write(kUser, Below(u"Key"), u"", u"user's"));
  ASSERT_TRUE(Write(kMachine, Below(u"Key"), u"", u"machine's"));
  if (!stage->Deny(kUser, Below(u"Key"))) GTEST_SKIP() << "no rights on keys here";
  EXPECT_FALSE(stage->Use().DeleteKey(kClasses, InClass(u"Key")));
  EXPECT_EQ(Read(kMachine, Below(u"Key"), u""), u"machine's");
}

}  // namespace
}  // namespace tavix::contract
