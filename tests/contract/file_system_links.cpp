#include "contract/file_system_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

#define MAKE_LINK(path, target, folder) \
  if (!stage->Link(In(path), target, folder)) GTEST_SKIP() << "no such links on this machine"

TEST_P(FileSystemContract, TellsLinksFromWhatTheyLeadTo) {
  Make(u"folder");
  Write(u"file", "12345");
  MAKE_LINK(u"to folder", In(u"folder"), true);
  MAKE_LINK(u"to file", In(u"file"), false);
  EXPECT_EQ(Names(), (std::vector<Text>{u"file", u"folder\\", u"to file>", u"to folder\\>"}));
  const auto link = files.Look(In(u"to folder"));
  ASSERT_TRUE(link);
  EXPECT_TRUE(link->link);
  EXPECT_TRUE(link->folder);
  EXPECT_EQ(link->path, In(u"to folder"));
  const auto fileLink = files.Look(In(u"to file"));
  ASSERT_TRUE(fileLink);
  EXPECT_TRUE(fileLink->link);
  EXPECT_FALSE(fileLink->folder);
  for (const TextView name : {u"to folder", u"to file", u"folder", u"file"}) {
    EXPECT_EQ(files.IsLink(In(name)), name.starts_with(u"to ")) << Case(name);
  }
  EXPECT_EQ(files.FolderExists(In(u"to folder")), true);
  EXPECT_EQ(files.FileExists(In(u"to folder")), false);
  EXPECT_EQ(files.FileExists(In(u"to file")), true);
  EXPECT_EQ(files.FolderExists(In(u"to file")), false);
}

TEST_P(FileSystemContract, TellsWhereALinkLeadsTo) {
  Make(u"Folder");
  Make(u"Folder\\Inner");
  Write(u"Folder\\File", "12345");
  MAKE_LINK(u"to folder", In(u"folder\\inner"), true);
  EXPECT_EQ(files.ResolveLink(In(u"TO folder")), In(u"Folder\\Inner"));
  for (const TextView path : {u"Folder", u"Folder\\File", u"none", u"", u"to folder\\none"}) {
    EXPECT_EQ(files.ResolveLink(path.empty() ? Text() : In(path)), std::nullopt) << Case(path);
  }
  MAKE_LINK(u"to link", In(u"to folder"), true);
  EXPECT_EQ(files.ResolveLink(In(u"to link")), In(u"Folder\\Inner"));
  MAKE_LINK(u"to nothing", In(u"none"), true);
  EXPECT_EQ(files.ResolveLink(In(u"to nothing")), std::nullopt);
  MAKE_LINK(u"to file", In(u"folder\\file"), false);
  EXPECT_EQ(files.ResolveLink(In(u"to file")), In(u"Folder\\File"));
}

TEST_P(FileSystemContract, GoesThroughLinksToFolders) {
  Make(u"folder");
  Write(u"folder\\a", "a");
  MAKE_LINK(u"link", In(u"folder"), true);
  EXPECT_EQ(Names(u"link"), std::vector<Text>{u"a"});
  EXPECT_EQ(files.ReadFile(In(u"LINK\\A")), "a");
  const auto found = files.Look(In(u"LINK\\A"));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->path, In(u"link\\a"));
  EXPECT_FALSE(found->link);
  EXPECT_TRUE(files.WriteFile(In(u"link\\b"), "b"));
  EXPECT_TRUE(files.SetAttributes(In(u"link\\b"), platform::kHidden));
  EXPECT_EQ(files.Look(In(u"folder\\b"))->attributes & 7U, platform::kHidden);
  EXPECT_TRUE(files.DeleteFile(In(u"link\\a"), false));
  EXPECT_EQ(Names(u"folder"), std::vector<Text>{u"b"});
}

TEST_P(FileSystemContract, ReadsAndWritesThroughLinksToFiles) {
  Write(u"file", "one");
  MAKE_LINK(u"link", In(u"file"), false);
  EXPECT_EQ(files.ReadFile(In(u"link")), "one");
  EXPECT_TRUE(files.AppendToFile(In(u"link"), " two"));
  EXPECT_EQ(files.ReadFile(In(u"file")), "one two");
  EXPECT_TRUE(files.WriteFile(In(u"link"), "three"));
  EXPECT_EQ(files.ReadFile(In(u"file")), "three");
  EXPECT_EQ(Names(), (std::vector<Text>{u"file", u"link>"}));
}

TEST_P(FileSystemContract, DeletesLinksAndNotTheirTargets) {
  Make(u"folder");
  Write(u"folder\\a");
  Write(u"file");
  MAKE_LINK(u"to folder", In(u"folder"), true);
  MAKE_LINK(u"to file", In(u"file"), false);
  EXPECT_FALSE(files.DeleteFile(In(u"to folder"), true));
  EXPECT_FALSE(files.DeleteFolder(In(u"to file"), true));
  EXPECT_TRUE(files.DeleteFolder(In(u"to folder"), true));
  EXPECT_TRUE(files.DeleteFile(In(u"to file"), true));
  EXPECT_EQ(Names(), (std::vector<Text>{u"file", u"folder\\"}));
  EXPECT_EQ(Names(u"folder"), std::vector<Text>{u"a"});
}

TEST_P(FileSystemContract, DeletesLinksInAFolderAndNotTheirTargets) {
  Make(u"folder");
  Write(u"folder\\a");
  Write(u"file");
  Make(u"doomed");
  Make(u"doomed\\below");
  MAKE_LINK(u"doomed\\to folder", In(u"folder"), true);
  MAKE_LINK(u"doomed\\below\\to file", In(u"file"), false);
  MAKE_LINK(u"doomed\\below\\to parent", In(u"doomed"), true);
  EXPECT_TRUE(files.DeleteFolder(In(u"doomed"), true));
  EXPECT_EQ(Names(), (std::vector<Text>{u"file", u"folder\\"}));
  EXPECT_EQ(Names(u"folder"), std::vector<Text>{u"a"});
}

TEST_P(FileSystemContract, FollowsALinkToItsOwnFolder) {
  Make(u"f");
  Write(u"f\\a");
  MAKE_LINK(u"f\\self", In(u"f"), true);
  EXPECT_EQ(files.FileExists(In(u"f\\self\\self\\self\\a")), true);
  EXPECT_EQ(Names(u"f\\self"), (std::vector<Text>{u"a", u"self\\>"}));
  EXPECT_TRUE(files.DeleteFolder(In(u"f"), false));
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FileSystemContract, TellsTheFolderThatALinkLeadsTo) {
  Make(u"f");
  MAKE_LINK(u"link", In(u"f"), true);
  EXPECT_EQ(files.FolderIdentity(In(u"link")), files.FolderIdentity(In(u"f")));
}

TEST_P(FileSystemContract, FollowsRelativeLinks) {
  Make(u"f");
  Make(u"f\\g");
  Write(u"a", "a");
  MAKE_LINK(u"f\\up", u"..", true);
  MAKE_LINK(u"f\\g\\file", u"..\\..\\a", false);
  EXPECT_EQ(files.ReadFile(In(u"f\\up\\a")), "a");
  EXPECT_EQ(files.ReadFile(In(u"f\\up\\f\\g\\file")), "a");
}

TEST_P(FileSystemContract, ListsAndDeletesLinksToNothing) {
  MAKE_LINK(u"dangling", In(u"none"), false);
  EXPECT_EQ(Names(), std::vector<Text>{u"dangling>"});
  EXPECT_TRUE(files.Look(In(u"dangling")));
  EXPECT_EQ(files.FileExists(In(u"dangling")), false);
  EXPECT_EQ(files.FolderExists(In(u"dangling")), false);
  EXPECT_FALSE(files.ReadFile(In(u"dangling")));
  EXPECT_FALSE(files.CreateFolder(In(u"dangling")));
  EXPECT_FALSE(files.List(In(u"dangling"), [](const platform::DirectoryEntry&) { ADD_FAILURE(); }));
  Write(u"a");
  EXPECT_FALSE(files.MoveFile(In(u"a"), In(u"dangling")));
  EXPECT_TRUE(files.DeleteFile(In(u"dangling"), false));
  EXPECT_EQ(Names(), std::vector<Text>{u"a"});
}

TEST_P(FileSystemContract, SurvivesLinksInCircles) {
  MAKE_LINK(u"a", In(u"b"), false);
  MAKE_LINK(u"b", In(u"a"), false);
  EXPECT_EQ(files.FileExists(In(u"a")), std::nullopt);
  EXPECT_EQ(files.FolderExists(In(u"a\\x")), std::nullopt);
  EXPECT_FALSE(files.WriteFile(In(u"a"), "x"));
  EXPECT_EQ(Names(), (std::vector<Text>{u"a>", u"b>"}));
  EXPECT_TRUE(files.DeleteFile(In(u"a"), false));
  EXPECT_TRUE(files.DeleteFile(In(u"b"), false));
}

TEST_P(FileSystemContract, NeverGoesOutOfTheMachine) {
  Make(u"f");
  if (!stage->LinkOut(In(u"f\\out"))) GTEST_SKIP() << "there is no outside";
  Write(u"a");
  EXPECT_EQ(Names(u"f"), std::vector<Text>{u"out>"});
  EXPECT_EQ(files.FolderExists(In(u"f\\out")), false);
  EXPECT_FALSE(files.List(In(u"f\\out"), [](const platform::DirectoryEntry&) { ADD_FAILURE(); }));
  EXPECT_FALSE(files.Look(In(u"f\\out\\secret.txt")));
  EXPECT_EQ(files.FileExists(In(u"f\\out\\secret.txt")), false);
  EXPECT_FALSE(files.ReadFile(In(u"f\\out\\secret.txt")));
  EXPECT_FALSE(files.WriteFile(In(u"f\\out\\secret.txt"), "x"));
  EXPECT_FALSE(files.WriteFile(In(u"f\\out\\new"), "x"));
  EXPECT_FALSE(files.AppendToFile(In(u"f\\out\\secret.txt"), "x"));
  EXPECT_FALSE(files.CreateTextFile(In(u"f\\out\\new"), true));
  EXPECT_FALSE(files.CreateFolder(In(u"f\\out\\new")));
  EXPECT_FALSE(files.MoveFile(In(u"a"), In(u"f\\out\\a")));
  EXPECT_FALSE(files.MoveFile(In(u"f\\out\\secret.txt"), In(u"b")));
  EXPECT_FALSE(files.DeleteFile(In(u"f\\out\\secret.txt"), true));
  EXPECT_FALSE(files.DeleteFolder(In(u"f\\out\\."), true) && !stage->OutsideIsUntouched());
  EXPECT_TRUE(stage->OutsideIsUntouched());
  EXPECT_TRUE(files.DeleteFolder(In(u"f"), true));
  EXPECT_TRUE(stage->OutsideIsUntouched());
}

}  // namespace
}  // namespace tavix::contract
