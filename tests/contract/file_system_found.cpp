#include "contract/file_system_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

using platform::FoundItem;

// Like MAKE_LINK, but for links to folders only.
#define MAKE_FOLDER_LINK(path, target) \
  if (!stage->FolderLink(In(path), In(target))) GTEST_SKIP() << "no such links on this machine"

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FoundItems);

TEST_P(FoundItems, AreFilesAndFolders) {
  Make(u"f");
  Make(u"f\\g");
  Write(u"f\\g\\a");
  ASSERT_NE(Open(u"f\\g\\a"), nullptr);
  EXPECT_FALSE(Open(u"f\\g\\a")->IsFolder());
  ASSERT_NE(Open(u"f"), nullptr);
  EXPECT_TRUE(Open(u"f")->IsFolder());
  EXPECT_TRUE(Open(u"f\\g")->IsFolder());
  const auto belowFolder = OpenFoundItem(files, In(u"f"), u"g\\a");
  ASSERT_NE(belowFolder, nullptr);
  EXPECT_FALSE(belowFolder->IsFolder());
}

TEST_P(FoundItems, AreMissingWhereNothingStands) {
  Make(u"f");
  Write(u"f\\a");
  const std::string before = Everything();
  for (const TextView below : {u"", u"none", u"f\\none", u"none\\a", u"f\\a\\b", u"f\\b?", u"*"}) {
    EXPECT_EQ(Open(below), nullptr) << testing::PrintToString(Text(below));
  }
  EXPECT_EQ(OpenFoundItem(files, In(u"none"), u"a"), nullptr);
  EXPECT_EQ(OpenFoundItem(files, In(u"f\\a"), u"a"), nullptr);
  EXPECT_EQ(OpenFoundItem(files, u"", u"a"), nullptr);
  EXPECT_EQ(OpenFoundItem(files, u"f", u"a"), nullptr);
  EXPECT_EQ(Everything(), before);
}

TEST_P(FoundItems, LieBelowTheStart) {
  Make(u"f");
  Make(u"g");
  Write(u"g\\a");
  for (const TextView below : {u"..", u".", u"..\\g", u"..\\g\\a", u"..\\f"}) {
    EXPECT_EQ(OpenFoundItem(files, In(u"f"), below), nullptr) << testing::PrintToString(Text(below));
  }
}

TEST_P(FoundItems, AreFoundWithoutRegardToLetterCase) {
  Make(u"Größe");
  Make(u"Größe\\\u4E16\u754C");
  Write(u"Größe\\\u4E16\u754C\\Файл.TXT");
  const auto item = OpenFoundItem(files, In(u"gRÖSSE\\..\\GRÖßE"), u"\u4E16\u754C\\фАЙЛ.txt");
  ASSERT_NE(item, nullptr);
  EXPECT_TRUE(item->DeleteFile());
  EXPECT_EQ(Names(u"Größe\\\u4E16\u754C"), std::vector<Text>());
}

TEST_P(FoundItems, DeleteThemselves) {
  Make(u"f");
  Write(u"f\\a");
  Write(u"f\\b");
  Write(u"f\\c");
  ASSERT_TRUE(files.SetAttributes(In(u"f\\a"), platform::kReadOnly | platform::kHidden));
  ASSERT_TRUE(files.SetAttributes(In(u"f\\b"), platform::kSystem));
  for (const TextView name : {u"f\\a", u"f\\b"}) {
    SCOPED_TRACE(Case(name));
    const auto item = Open(name);
    ASSERT_NE(item, nullptr);
    EXPECT_TRUE(item->DeleteFile());
    EXPECT_EQ(files.FileExists(In(name)), false);
    EXPECT_FALSE(item->DeleteFile());
  }
  EXPECT_EQ(Names(u"f"), std::vector<Text>{u"c"});
}

TEST_P(FoundItems, DoWhatTheirKindCan) {
  Make(u"f");
  Make(u"f\\folder");
  Write(u"f\\file");
  const std::string before = Everything();
  const auto folder = Open(u"f\\folder"), file = Open(u"f\\file");
  ASSERT_TRUE(folder && file);
  EXPECT_FALSE(folder->DeleteFile());
  EXPECT_FALSE(folder->MoveFileTo(In(u"moved")));
  EXPECT_FALSE(file->DeleteEmptyFolder());
  EXPECT_EQ(Everything(), before);
}

TEST_P(FoundItems, TakeEmptyFoldersAndFilesOfNoBytesAlong) {
  for (const TextView name : {u"f", u"f\\g", u"f\\g\\h", u"f\\i"}) Make(name);
  Write(u"f\\none", "");
  Write(u"f\\g\\h\\read-only", "");
  ASSERT_TRUE(files.SetAttributes(In(u"f\\g\\h\\read-only"), platform::kReadOnly));
  ASSERT_TRUE(files.SetAttributes(In(u"f\\g"), platform::kReadOnly));
  Write(u"other");
  const auto item = Open(u"f");
  ASSERT_NE(item, nullptr);
  EXPECT_TRUE(item->DeleteEmptyFolder());
  EXPECT_EQ(Names(), std::vector<Text>{u"other"});
}

TEST_P(FoundItems, LeaveContentAndTheFoldersAroundIt) {
  for (const TextView name : {u"f", u"f\\g", u"f\\g\\h", u"f\\i"}) Make(name);
  Write(u"f\\g\\h\\content", "x");
  Write(u"f\\g\\h\\none", "");
  const auto item = Open(u"f");
  ASSERT_NE(item, nullptr);
  EXPECT_FALSE(item->DeleteEmptyFolder());
  EXPECT_EQ(files.ReadFile(In(u"f\\g\\h\\content")), "x");
  EXPECT_EQ(files.FolderExists(In(u"f\\g\\h")), true);
}

TEST_P(FoundItems, SeeWhatCameIntoAFolderSinceTheyWereOpened) {
  Make(u"f");
  Make(u"f\\g");
  const auto item = Open(u"f\\g");
  ASSERT_NE(item, nullptr);
  Write(u"f\\g\\late", "x");
  EXPECT_FALSE(item->DeleteEmptyFolder());
  EXPECT_EQ(files.ReadFile(In(u"f\\g\\late")), "x");
}

TEST_P(FoundItems, LeaveLinksInAFolderAndWhatTheyLeadTo) {
  for (const TextView name : {u"f", u"f\\g", u"target"}) Make(name);
  MAKE_FOLDER_LINK(u"f\\g\\link", u"target");
  const auto item = Open(u"f");
  ASSERT_NE(item, nullptr);
  EXPECT_FALSE(item->DeleteEmptyFolder());
  EXPECT_EQ(Names(u"f\\g"), std::vector<Text>{u"link\\>"});
  EXPECT_EQ(files.FolderExists(In(u"target")), true);
}

TEST_P(FoundItems, MayStartAtALinkAndBelowOne) {
  for (const TextView name : {u"f", u"f\\g"}) Make(name);
  Write(u"f\\g\\a");
  Write(u"f\\g\\b");
  MAKE_FOLDER_LINK(u"link", u"f");
  const auto first = OpenFoundItem(files, In(u"link"), u"g\\a");
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(first->DeleteFile());
  const auto second = OpenFoundItem(files, In(u"link\\g"), u"b");
  ASSERT_NE(second, nullptr);
  EXPECT_TRUE(second->DeleteFile());
  EXPECT_EQ(Names(u"f\\g"), std::vector<Text>());
}

TEST_P(FoundItems, AreNotReachedThroughALink) {
  for (const TextView name : {u"f", u"victim", u"victim\\empty"}) Make(name);
  Write(u"victim\\a");
  MAKE_FOLDER_LINK(u"f\\link", u"victim");
  for (const TextView below : {u"f\\link\\a", u"f\\link\\empty", u"f\\LINK\\a"}) {
    EXPECT_EQ(Open(below), nullptr) << testing::PrintToString(Text(below));
  }
  EXPECT_EQ(OpenFoundItem(files, In(u"f"), u"link\\a"), nullptr);
  EXPECT_EQ(Names(u"victim"), (std::vector<Text>{u"a", u"empty\\"}));
}

TEST_P(FoundItems, AreLinksThatGoWhileTheirTargetsStay) {
  for (const TextView name : {u"f", u"empty"}) Make(name);
  Write(u"file");
  if (!stage->Link(In(u"f\\to file"), In(u"file"), false) ||
      !stage->Link(In(u"f\\to folder"), In(u"empty"), true)) {
    GTEST_SKIP() << "no links that can be deleted on this machine";
  }
  const auto file = Open(u"f\\to file"), folder = Open(u"f\\to folder");
  ASSERT_TRUE(file && folder);
  EXPECT_FALSE(folder->IsFolder());
  EXPECT_FALSE(folder->DeleteFile());
  EXPECT_FALSE(file->DeleteEmptyFolder());
  EXPECT_TRUE(folder->DeleteEmptyFolder());
  EXPECT_TRUE(file->DeleteFile());
  EXPECT_EQ(Names(), (std::vector<Text>{u"empty\\", u"f\\", u"file"}));
  EXPECT_EQ(Names(u"f"), std::vector<Text>());
}

// Wine opens the target of a link, so the file system refuses to open such an item there.
TEST_P(FoundItems, NeverTakeWhatALinkLeadsTo) {
  for (const TextView name : {u"f", u"empty"}) Make(name);
  MAKE_FOLDER_LINK(u"f\\link", u"empty");
  const auto item = Open(u"f\\link");
  if (item != nullptr) {
    EXPECT_TRUE(item->DeleteEmptyFolder());
  }
  EXPECT_EQ(Names(u"f").empty(), item != nullptr);
  EXPECT_EQ(files.FolderExists(In(u"empty")), true);
}

TEST_P(FoundItems, DeleteNothingThroughASwappedFolder) {
  MakeAlike();
  const auto item = Open(u"f\\g\\a");
  ASSERT_NE(item, nullptr);
  if (!stage->Swap(In(u"f\\g"), In(u"victim"))) GTEST_SKIP() << "no folder can be swapped on this machine";
  const bool gone = item->DeleteFile();
  ExpectVictimUntouched();
  EXPECT_EQ(files.FileExists(In(u"f\\g aside\\a")), !gone);
  EXPECT_EQ(Open(u"f\\g\\a"), nullptr);
  ExpectVictimUntouched();
}

TEST_P(FoundItems, DeleteNoFolderThroughASwappedOne) {
  MakeAlike();
  const auto item = Open(u"f\\g\\empty");
  ASSERT_NE(item, nullptr);
  if (!stage->Swap(In(u"f\\g"), In(u"victim"))) GTEST_SKIP() << "no folder can be swapped on this machine";
  item->DeleteEmptyFolder();
  ExpectVictimUntouched();
}

TEST_P(FoundItems, MoveNothingThroughASwappedFolder) {
  MakeAlike();
  const auto item = Open(u"f\\g\\a");
  ASSERT_NE(item, nullptr);
  if (!stage->Swap(In(u"f\\g"), In(u"victim"))) GTEST_SKIP() << "no folder can be swapped on this machine";
  const bool moved = item->MoveFileTo(In(u"moved"));
  ExpectVictimUntouched();
  EXPECT_EQ(files.FileExists(In(u"f\\g aside\\a")), !moved);
  if (moved) {
    EXPECT_EQ(files.ReadFile(In(u"moved")), "mine");
  }
}

TEST_P(FoundItems, TakeNothingWhenTheItemItselfIsSwapped) {
  MakeAlike();
  const auto item = Open(u"f\\g\\empty");
  ASSERT_NE(item, nullptr);
  if (!stage->Swap(In(u"f\\g\\empty"), In(u"victim"))) GTEST_SKIP() << "no folder can be swapped here";
  item->DeleteEmptyFolder();
  ExpectVictimUntouched();
}

TEST_P(FoundItems, Move) {
  Make(u"f");
  Make(u"Backup");
  Write(u"f\\a", "content");
  ASSERT_TRUE(files.SetAttributes(In(u"f\\a"), platform::kReadOnly | platform::kHidden));
  const auto before = files.Look(In(u"f\\a"));
  const auto item = Open(u"f\\a");
  ASSERT_NE(item, nullptr);
  EXPECT_TRUE(item->MoveFileTo(In(u"Backup\\A b.txt")));
  EXPECT_EQ(files.ReadFile(In(u"Backup\\A b.txt")), "content");
  const auto after = files.Look(In(u"Backup\\A b.txt"));
  ASSERT_TRUE(after);
  EXPECT_EQ(after->name, u"A b.txt");
  EXPECT_EQ(after->modified, before->modified);
  EXPECT_EQ(after->attributes & 7U, platform::kReadOnly | platform::kHidden);
  EXPECT_EQ(Names(u"f"), std::vector<Text>());
}

TEST_P(FoundItems, MoveOntoNothingThatStands) {
  Make(u"f");
  Make(u"folder");
  Write(u"f\\a", "content");
  Write(u"taken", "other");
  const std::string before = Everything();
  for (const TextView to : {u"taken", u"TAKEN", u"folder", u"none\\a", u"f\\a", u"b?"}) {
    const auto item = Open(u"f\\a");
    ASSERT_NE(item, nullptr);
    EXPECT_FALSE(item->MoveFileTo(In(to))) << testing::PrintToString(Text(to));
  }
  EXPECT_FALSE(Open(u"f\\a")->MoveFileTo(u"relative"));
  EXPECT_EQ(Everything(), before);
}

TEST_P(FoundItems, MoveToAnotherVolume) {
  const Text other = stage->OtherVolume();
  if (other.empty()) GTEST_SKIP() << "the machine has one volume";
  const std::string content(3'000'000, 'c');
  Make(u"f");
  Write(u"f\\a", content);
  Write(u"f\\b", "second");
  ASSERT_TRUE(files.SetAttributes(In(u"f\\a"), platform::kReadOnly | platform::kSystem));
  const auto before = files.Look(In(u"f\\a"));
  EXPECT_TRUE(Open(u"f\\a")->MoveFileTo(Concat(other, u"\\found")));
  EXPECT_EQ(files.ReadFile(Concat(other, u"\\found")), content);
  const auto after = files.Look(Concat(other, u"\\found"));
  ASSERT_TRUE(after);
  EXPECT_EQ(after->modified, before->modified);
  EXPECT_EQ(after->attributes & 7U, platform::kReadOnly | platform::kSystem);
  EXPECT_FALSE(Open(u"f\\b")->MoveFileTo(Concat(other, u"\\FOUND")));
  EXPECT_FALSE(Open(u"f\\b")->MoveFileTo(Concat(other, u"\\none\\b")));
  EXPECT_EQ(Names(u"f"), std::vector<Text>{u"b"});
  EXPECT_EQ(files.ReadFile(Concat(other, u"\\found")), content);
  EXPECT_TRUE(files.DeleteFile(Concat(other, u"\\found"), true));
}

TEST_P(FoundItems, WorkAtAnyDepth) {
  Text below = u"deep";
  Make(below);
  while (below.size() < 1500) {
    below.append(u"\\").append(Text(60, u'd'));
    Make(below);
  }
  Write(below + u"\\a", "x");
  Write(below + u"\\b", "x");
  const auto first = Open(below + u"\\a"), second = Open(below + u"\\b");
  ASSERT_TRUE(first && second);
  EXPECT_TRUE(first->MoveFileTo(In(below + u"\\c")));
  EXPECT_TRUE(second->DeleteFile());
  EXPECT_EQ(Names(below), std::vector<Text>{u"c"});
  const auto third = Open(below + u"\\c");
  ASSERT_NE(third, nullptr);
  EXPECT_TRUE(third->DeleteFile());
  const auto top = Open(u"deep");
  ASSERT_NE(top, nullptr);
  EXPECT_TRUE(top->DeleteEmptyFolder());
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FoundItems, LeftToTheShellCanBeTakenByTheirPath) {
  Make(u"f");
  Make(u"f\\g");
  Write(u"f\\a");
  const auto file = Open(u"f\\a"), folder = Open(u"f\\g");
  ASSERT_TRUE(file && folder);
  EXPECT_TRUE(file->LeaveToShell());
  EXPECT_TRUE(folder->LeaveToShell());
  EXPECT_TRUE(files.DeleteFile(In(u"f\\a"), false));
  EXPECT_TRUE(files.DeleteFolder(In(u"f\\g"), false));
}

TEST_P(FoundItems, LetTheirFolderGoAtTheirEnd) {
  Make(u"f");
  Write(u"f\\a");
  const auto open = [this](TextView below) {
    auto item = Open(below);
    EXPECT_NE(item, nullptr);
    return item;
  };
  EXPECT_TRUE(open(u"f\\a")->DeleteFile());
  EXPECT_TRUE(open(u"f")->DeleteEmptyFolder());
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FoundItems, OfOneFolderAreOpenedOneAfterAnother) {
  Make(u"f");
  Make(u"f\\g");
  Make(u"f\\g\\h");
  for (const TextView name : {u"f\\g\\a", u"f\\g\\b", u"f\\g\\c", u"f\\g\\h\\d"}) Write(name);
  auto folder = files.OpenFound(stage->Place(), u"f\\g");
  ASSERT_NE(folder, nullptr);
  for (const TextView name : {u"a", u"none", u"B", u"late"}) {
    SCOPED_TRACE(Case(name));
    Write(u"f\\g\\late");
    const auto item = folder->Open(name);
    ASSERT_EQ(item != nullptr, name != u"none");
    if (item != nullptr) {
      EXPECT_TRUE(item->DeleteFile());
    }
  }
  for (const TextView name : {u"", u".", u"..", u"h\\d", u"..\\g\\c", u"c.", u"c ", u"*", u"c?"}) {
    EXPECT_EQ(folder->Open(name), nullptr) << testing::PrintToString(Text(name));
  }
  const auto outliving = folder->Open(u"c");
  folder = nullptr;
  ASSERT_NE(outliving, nullptr);
  EXPECT_TRUE(outliving->DeleteFile());
  EXPECT_EQ(Names(u"f\\g"), std::vector<Text>{u"h\\"});
}

TEST_P(FoundItems, LieInFoldersAlone) {
  for (const TextView name : {u"f", u"f\\g"}) Make(name);
  Write(u"f\\a");
  const auto start = files.OpenFound(In(u"f"), u"");
  ASSERT_NE(start, nullptr);
  EXPECT_NE(start->Open(u"a"), nullptr);
  for (const TextView below : {u"f\\a", u"none", u"f\\none", u".."}) {
    EXPECT_EQ(files.OpenFound(stage->Place(), below), nullptr) << testing::PrintToString(Text(below));
  }
  EXPECT_EQ(files.OpenFound(In(u"none"), u""), nullptr);
  MAKE_FOLDER_LINK(u"link", u"f");
  EXPECT_EQ(files.OpenFound(stage->Place(), u"link"), nullptr);
  EXPECT_EQ(files.OpenFound(stage->Place(), u"link\\g"), nullptr);
  EXPECT_NE(files.OpenFound(In(u"link"), u"g"), nullptr) << "the start of a walk may be a link";
}

// A folder that another program can swap no longer stands then. What was opened before stays what it was.
TEST_P(FoundItems, LieInAFolderThatStandsUntilItIsSwapped) { SwapAFolderThatIsOpen(u"f\\g"); }

TEST_P(FoundItems, LieInAFolderThatStandsUntilOneAboveIsSwapped) { SwapAFolderThatIsOpen(u"f"); }

TEST_P(FileSystemContract, TellsTheFoldersThatAFolderLiesIn) {
  Make(u"f");
  Make(u"f\\g");
  Write(u"f\\a");
  const std::vector<Text> lineage = files.Lineage(In(u"F\\g"));
  ASSERT_GE(lineage.size(), 4U);
  EXPECT_EQ(lineage[0], files.FolderIdentity(In(u"f\\g")));
  EXPECT_EQ(lineage[1], files.FolderIdentity(In(u"f")));
  EXPECT_EQ(lineage[2], files.FolderIdentity(stage->Place()));
  const Text drive = stage->Place().substr(0, 3);
  EXPECT_EQ(lineage.back(), files.FolderIdentity(drive));
  EXPECT_EQ(files.Lineage(drive), std::vector<Text>{*files.FolderIdentity(drive)});
  EXPECT_EQ(files.Lineage(In(u"f")), std::vector<Text>(lineage.begin() + 1, lineage.end()));
  for (const Text& path : {In(u"none"), In(u"f\\a"), Text(), Text(u"f")}) {
    EXPECT_EQ(files.Lineage(path), std::vector<Text>());
  }
}

TEST_P(FileSystemContract, TellsTheFoldersAroundWhatALinkLeadsTo) {
  for (const TextView name : {u"f", u"f\\g", u"h"}) Make(name);
  MAKE_FOLDER_LINK(u"h\\link", u"f\\g");
  EXPECT_EQ(files.Lineage(In(u"h\\link")), files.Lineage(In(u"f\\g")));
}

}  // namespace
}  // namespace tavix::contract
