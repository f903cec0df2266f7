#include "contract/file_system_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

TEST_P(FileSystemContract, WhatThisUserMadeBelongsToNobodyElse) {
  Write(u"file");
  Make(u"folder");
  EXPECT_FALSE(stage->UseTrust().OwnedByOthers(In(u"FILE")));
  EXPECT_FALSE(stage->UseTrust().OwnedByOthers(In(u"folder")));
  EXPECT_FALSE(stage->UseTrust().OwnedByOthers(In(u"missing")));
  EXPECT_FALSE(stage->UseTrust().OwnedByOthers(In(u"missing\\too")));
  EXPECT_FALSE(stage->UseTrust().OwnedByOthers(u""));
}

TEST_P(FileSystemContract, ProtectedFilesAndFoldersStayInUse) {
  Make(u"folder");
  Write(u"folder\\a", "a");
  stage->UseTrust().Protect(In(u"folder"));
  stage->UseTrust().Protect(In(u"folder\\a"));
  EXPECT_NE(stage->UseTrust().Protect(In(u"FOLDER")), platform::Protection::Set) << "once is enough";
  EXPECT_EQ(files.ReadFile(In(u"folder\\a")), "a");
  EXPECT_TRUE(files.WriteFile(In(u"folder\\a"), "b"));
  EXPECT_TRUE(files.CreateFolder(In(u"folder\\new")));
  EXPECT_TRUE(files.WriteFile(In(u"folder\\new\\c"), "c"));
  EXPECT_TRUE(files.DeleteFolder(In(u"folder"), true));
  EXPECT_EQ(stage->UseTrust().Protect(In(u"folder")), platform::Protection::Failed);
  EXPECT_EQ(stage->UseTrust().Protect(u""), platform::Protection::Failed);
}

TEST_P(FileSystemContract, ALinkIsNotProtected) {
  Make(u"folder");
  if (!stage->Link(In(u"link"), In(u"folder"), true)) GTEST_SKIP() << "no such links on this machine";
  EXPECT_EQ(stage->UseTrust().Protect(In(u"link")), platform::Protection::Failed);
}

TEST_P(FileSystemContract, RenamesInPlace) {
  Make(u"Folder");
  Write(u"Folder\\a", "a");
  Write(u"b", "b");
  ASSERT_TRUE(files.SetAttributes(In(u"Folder"), platform::kHidden | platform::kSystem));
  ASSERT_TRUE(files.SetAttributes(In(u"b"), platform::kReadOnly));
  EXPECT_TRUE(stage->UseTrust().Rename(In(u"folder"), u"Other.aside"));
  EXPECT_TRUE(stage->UseTrust().Rename(In(u"b"), u"c"));
  EXPECT_EQ(Names(), (std::vector<Text>{u"c", u"Other.aside\\"}));
  EXPECT_EQ(files.ReadFile(In(u"Other.aside\\a")), "a");
  EXPECT_EQ(files.ReadFile(In(u"c")), "b");
  EXPECT_EQ(files.Look(In(u"Other.aside"))->attributes & 7U, platform::kHidden | platform::kSystem);
  EXPECT_EQ(files.Look(In(u"c"))->attributes & 7U, platform::kReadOnly);
}

TEST_P(FileSystemContract, RenamesOntoNothingThatStands) {
  Make(u"folder");
  Write(u"folder\\x");
  Make(u"empty");
  Write(u"a", "a");
  Write(u"b", "b");
  const std::string before = Everything();
  for (const TextView name : {u"B", u"empty", u"folder"}) {
    EXPECT_FALSE(stage->UseTrust().Rename(In(u"a"), name)) << ToText(name.size()).size();
  }
  EXPECT_FALSE(stage->UseTrust().Rename(In(u"folder"), u"empty"));
  EXPECT_FALSE(stage->UseTrust().Rename(In(u"folder"), u"a"));
  EXPECT_FALSE(stage->UseTrust().Rename(In(u"missing"), u"new"));
  for (const TextView name : {u"", u"x\\y", u"..", u"x:y", u"*", u"a/b"}) {
    SCOPED_TRACE(Case(name));
    EXPECT_FALSE(stage->UseTrust().Rename(In(u"a"), name));
  }
  EXPECT_FALSE(stage->UseTrust().Rename(stage->Place().substr(0, 3), u"new"));
  EXPECT_EQ(Everything(), before);
}

TEST_P(FileSystemContract, RenamesALinkAlone) {
  Make(u"folder");
  Write(u"folder\\a", "a");
  Write(u"file", "f");
  if (!stage->Link(In(u"to folder"), In(u"folder"), true)) GTEST_SKIP() << "no such links on this machine";
  ASSERT_TRUE(stage->Link(In(u"to file"), In(u"file"), false));
  ASSERT_TRUE(stage->Link(In(u"to nothing"), In(u"none"), true));
  if (!stage->RenamesLinks()) {
    const std::string before = Everything();
    EXPECT_FALSE(stage->UseTrust().Rename(In(u"to folder"), u"x"));
    EXPECT_EQ(Everything(), before);
    return;
  }
  EXPECT_TRUE(stage->UseTrust().Rename(In(u"to folder"), u"x"));
  EXPECT_TRUE(stage->UseTrust().Rename(In(u"to file"), u"y"));
  EXPECT_TRUE(stage->UseTrust().Rename(In(u"to nothing"), u"z"));
  EXPECT_EQ(files.Look(In(u"x"))->link, true);
  EXPECT_EQ(files.Look(In(u"y"))->link, true);
  EXPECT_EQ(files.Look(In(u"z"))->link, true);
  EXPECT_FALSE(files.Look(In(u"to folder")));
  EXPECT_EQ(Names(u"folder"), std::vector<Text>{u"a"});
  EXPECT_EQ(files.ReadFile(In(u"file")), "f");
  EXPECT_EQ(files.ReadFile(In(u"x\\a")), "a");
}

}  // namespace
}  // namespace tavix::contract
