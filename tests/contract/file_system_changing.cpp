#include "contract/file_system_contract.h"
#include "support/case.h"

namespace tavix::contract {
namespace {

TEST_P(FileSystemContract, CreatesAFolderWhereThereIsNone) {
  EXPECT_TRUE(files.CreateFolder(In(u"New. ")));
  EXPECT_EQ(Names(), std::vector<Text>{u"New\\"});
  EXPECT_FALSE(files.CreateFolder(In(u"new")));
  EXPECT_FALSE(files.CreateFolder(In(u"none\\below")));
  Write(u"file");
  EXPECT_FALSE(files.CreateFolder(In(u"FILE")));
  EXPECT_FALSE(files.CreateFolder(In(u"file\\below")));
  EXPECT_FALSE(files.CreateFolder(stage->Place().substr(0, 3)));
  EXPECT_EQ(Names(), (std::vector<Text>{u"file", u"New\\"}));
}

TEST_P(FileSystemContract, CreatesAnEmptyTextFile) {
  EXPECT_TRUE(files.CreateTextFile(In(u"a.txt"), false));
  EXPECT_EQ(files.ReadFile(In(u"a.txt")), "");
  Write(u"A.txt", "content");
  EXPECT_FALSE(files.CreateTextFile(In(u"A.TXT"), false));
  EXPECT_EQ(files.ReadFile(In(u"a.txt")), "content");
  EXPECT_TRUE(files.CreateTextFile(In(u"A.TXT"), true));
  EXPECT_EQ(files.ReadFile(In(u"a.txt")), "");
  EXPECT_TRUE(files.CreateTextFile(In(u"new.txt"), true));
  Make(u"folder");
  EXPECT_FALSE(files.CreateTextFile(In(u"folder"), true));
  EXPECT_FALSE(files.CreateTextFile(In(u"none\\a.txt"), true));
  EXPECT_EQ(Names(), (std::vector<Text>{u"a.txt", u"folder\\", u"new.txt"}));
}

TEST_P(FileSystemContract, WritesTheWholeContent) {
  EXPECT_TRUE(files.WriteFile(In(u"a"), "first, longer"));
  EXPECT_TRUE(files.WriteFile(In(u"A"), "second"));
  EXPECT_EQ(files.ReadFile(In(u"a")), "second");
  Make(u"folder");
  EXPECT_FALSE(files.WriteFile(In(u"folder"), "x"));
  EXPECT_FALSE(files.WriteFile(In(u"none\\a"), "x"));
  EXPECT_FALSE(files.WriteFile(In(u"a\\below"), "x"));
  // No temporary file is left.
  EXPECT_EQ(Names(), (std::vector<Text>{u"a", u"folder\\"}));
}

TEST_P(FileSystemContract, TakesAwayNoFileThatAnybodyElseMayHaveMadeAsATemporaryOne) {
  for (const TextView name : {u"a", u"~tvx", u"~tvx.tmp", u"~tvx1.tmp", u"~tvx1-x.tmp", u"b.tmp"})
    Write(name);
  Make(u"~tvx1-1.tmp");
  Write(u"~tvx1-1.tmp\\a");
  const std::string before = Everything();
  files.RemoveTemporaries(stage->Place());
  files.RemoveTemporaries(In(u"none"));
  files.RemoveTemporaries(In(u"a"));
  files.RemoveTemporaries({});
  EXPECT_EQ(Everything(), before);
}

TEST_P(FileSystemContract, KeepsTheAttributesOfAFileThatIsWritten) {
  Write(u"a");
  constexpr uint32_t kBoth = platform::kHidden | platform::kSystem;
  ASSERT_TRUE(files.SetAttributes(In(u"a"), kBoth));
  EXPECT_TRUE(files.WriteFile(In(u"a"), "new"));
  EXPECT_EQ(files.Look(In(u"a"))->attributes & 7U, kBoth);
  EXPECT_TRUE(files.AppendToFile(In(u"a"), "er"));
  EXPECT_EQ(files.Look(In(u"a"))->attributes & 7U, kBoth);
  EXPECT_EQ(files.ReadFile(In(u"a")), "newer");
  EXPECT_TRUE(files.CreateTextFile(In(u"a"), true));
  EXPECT_EQ(files.ReadFile(In(u"a")), "");
}

TEST_P(FileSystemContract, WritesNothingIntoAReadOnlyFile) {
  Write(u"a", "old");
  ASSERT_TRUE(files.SetAttributes(In(u"a"), platform::kReadOnly));
  EXPECT_FALSE(files.WriteFile(In(u"a"), "new"));
  EXPECT_FALSE(files.AppendToFile(In(u"a"), "new"));
  EXPECT_FALSE(files.CreateTextFile(In(u"a"), true));
  EXPECT_EQ(files.ReadFile(In(u"a")), "old");
  EXPECT_EQ(files.Look(In(u"a"))->attributes & 7U, platform::kReadOnly);
  EXPECT_EQ(Names(), std::vector<Text>{u"a"});
}

TEST_P(FileSystemContract, AppendsAfterTheOldContent) {
  EXPECT_TRUE(files.AppendToFile(In(u"a"), "one"));
  EXPECT_TRUE(files.AppendToFile(In(u"A"), ""));
  EXPECT_TRUE(files.AppendToFile(In(u"A"), "\r\ntwo"));
  EXPECT_EQ(files.ReadFile(In(u"a")), "one\r\ntwo");
  Make(u"folder");
  EXPECT_FALSE(files.AppendToFile(In(u"folder"), "x"));
  EXPECT_FALSE(files.AppendToFile(In(u"none\\a"), "x"));
}

TEST_P(FileSystemContract, DeletesAFile) {
  Write(u"a");
  Make(u"folder");
  EXPECT_TRUE(files.DeleteFile(In(u"A"), false));
  EXPECT_FALSE(files.DeleteFile(In(u"a"), false));
  EXPECT_FALSE(files.DeleteFile(In(u"folder"), true));
  EXPECT_EQ(Names(), std::vector<Text>{u"folder\\"});
}

TEST_P(FileSystemContract, DeletesReadOnlyFilesWithForceOnly) {
  Write(u"read");
  Write(u"hidden");
  ASSERT_TRUE(files.SetAttributes(In(u"read"), platform::kReadOnly | platform::kHidden));
  ASSERT_TRUE(files.SetAttributes(In(u"hidden"), platform::kHidden | platform::kSystem));
  EXPECT_TRUE(files.DeleteFile(In(u"hidden"), false));
  EXPECT_FALSE(files.DeleteFile(In(u"read"), false));
  EXPECT_EQ(files.Look(In(u"read"))->attributes & 7U, platform::kReadOnly | platform::kHidden);
  EXPECT_TRUE(files.DeleteFile(In(u"read"), true));
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FileSystemContract, GivesANewFileNoAttributesOfAnOldOne) {
  Write(u"a");
  ASSERT_TRUE(files.SetAttributes(In(u"a"), platform::kHidden));
  ASSERT_TRUE(files.DeleteFile(In(u"a"), false));
  Write(u"a");
  EXPECT_EQ(files.Look(In(u"a"))->attributes & 7U, 0U);
}

TEST_P(FileSystemContract, SetsAttributes) {
  Write(u"a");
  Make(u"folder");
  for (const uint32_t attributes : {1U, 2U, 4U, 7U, 0U}) {
    SCOPED_TRACE(Case(attributes));
    EXPECT_TRUE(files.SetAttributes(In(u"A"), attributes));
    EXPECT_EQ(files.Look(In(u"a"))->attributes & 7U, attributes);
    EXPECT_EQ(files.ReadFile(In(u"a")), "x");
    EXPECT_TRUE(files.SetAttributes(In(u"FOLDER"), attributes));
    const uint32_t kept = stage->KeepsReadOnlyFolders() ? 7U : platform::kHidden | platform::kSystem;
    EXPECT_EQ(files.Look(In(u"folder"))->attributes & kept, attributes & kept);
    EXPECT_TRUE(files.Look(In(u"folder"))->folder);
  }
}

TEST_P(FileSystemContract, SetsExactlyTheAttributesThatItIsToldTheArchiveBitIncluded) {
  if (!stage->KeepsArchiveBit()) GTEST_SKIP() << "the archive bit can't be changed on this system";
  constexpr uint32_t kHiddenSystem = platform::kHidden | platform::kSystem;
  Write(u"a");
  Make(u"folder");
  for (const TextView name : {u"a", u"folder"}) {
    for (const uint32_t attributes :
         {kHiddenSystem | platform::kArchive, kHiddenSystem, platform::kArchive}) {
      SCOPED_TRACE(Case(attributes));
      EXPECT_TRUE(files.SetAttributes(In(name), attributes));
      EXPECT_EQ(files.Look(In(name))->attributes, attributes);
    }
  }
}

TEST_P(FileSystemContract, DeletesAFolderWithAllItsContent) {
  Make(u"f");
  Make(u"f\\g");
  Make(u"f\\empty");
  Write(u"f\\a");
  Write(u"f\\g\\b");
  ASSERT_TRUE(files.SetAttributes(In(u"f\\a"), platform::kHidden | platform::kSystem));
  Write(u"f2");
  EXPECT_FALSE(files.DeleteFolder(In(u"f2"), true));
  EXPECT_TRUE(files.DeleteFolder(In(u"F"), false));
  EXPECT_EQ(Names(), std::vector<Text>{u"f2"});
  EXPECT_FALSE(files.DeleteFolder(In(u"f"), false));
}

TEST_P(FileSystemContract, DeletesReadOnlyContentWithForceOnly) {
  Make(u"f");
  Make(u"f\\g");
  Write(u"f\\g\\b");
  ASSERT_TRUE(files.SetAttributes(In(u"f\\g\\b"), platform::kReadOnly));
  ASSERT_TRUE(files.SetAttributes(In(u"f\\g"), platform::kReadOnly));
  EXPECT_FALSE(files.DeleteFolder(In(u"f"), false));
  EXPECT_EQ(files.ReadFile(In(u"f\\g\\b")), "x");
  EXPECT_EQ(files.Look(In(u"f\\g\\b"))->attributes & 7U, platform::kReadOnly);
  EXPECT_TRUE(files.DeleteFolder(In(u"f"), true));
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FileSystemContract, NeverDeletesADrive) {
  Write(u"a");
  const Text drive = stage->Place().substr(0, 2);
  for (const Text& path :
       {drive, Concat(drive, u"\\"), Concat(drive, u"\\..\\"), Concat(drive, u"\\a\\..")}) {
    SCOPED_TRACE(Case(path));
    EXPECT_FALSE(files.DeleteFolder(path, true));
    EXPECT_FALSE(files.DeleteFile(path, true));
  }
  EXPECT_EQ(files.FileExists(In(u"a")), true);
}

TEST_P(FileSystemContract, DeletesDeepFolders) {
  Text path = In(u"f");
  ASSERT_TRUE(files.CreateFolder(path));
  for (int i = 0; i < 100; ++i) {
    SCOPED_TRACE(Case(i));
    path += u"\\d";
    ASSERT_TRUE(files.CreateFolder(path));
  }
  EXPECT_TRUE(files.WriteFile(Concat(path, u"\\a"), "x"));
  EXPECT_TRUE(files.DeleteFolder(In(u"f"), false));
  EXPECT_EQ(Names(), std::vector<Text>());
}

TEST_P(FileSystemContract, MovesAFile) {
  Make(u"to");
  Write(u"a", "content");
  ASSERT_TRUE(files.SetAttributes(In(u"a"), platform::kReadOnly | platform::kSystem));
  const auto before = files.Look(In(u"a"));
  EXPECT_TRUE(files.MoveFile(In(u"A"), In(u"TO\\B.txt")));
  EXPECT_EQ(files.ReadFile(In(u"to\\b.txt")), "content");
  const auto after = files.Look(In(u"to\\b.txt"));
  ASSERT_TRUE(after);
  EXPECT_EQ(after->path, In(u"to\\B.txt"));
  EXPECT_EQ(after->attributes, before->attributes);
  EXPECT_EQ(after->modified, before->modified);
  EXPECT_EQ(Names(), std::vector<Text>{u"to\\"});
}

TEST_P(FileSystemContract, MovesOntoNothingThatStands) {
  Write(u"a", "a");
  Write(u"b", "b");
  Make(u"folder");
  Make(u"other");
  const std::string before = Everything();
  EXPECT_FALSE(files.MoveFile(In(u"a"), In(u"B")));
  EXPECT_FALSE(files.MoveFile(In(u"a"), In(u"folder")));
  EXPECT_FALSE(files.MoveFile(In(u"a"), In(u"none\\a")));
  EXPECT_FALSE(files.MoveFile(In(u"a"), u""));
  EXPECT_FALSE(files.MoveFile(In(u"none"), In(u"c")));
  EXPECT_FALSE(files.MoveFile(In(u"folder"), In(u"c")));
  EXPECT_FALSE(files.MoveFile(In(u"folder"), In(u"other\\c")));
  EXPECT_EQ(Everything(), before);
}

TEST_P(FileSystemContract, MovesToAnotherVolume) {
  const Text other = stage->OtherVolume();
  if (other.empty()) GTEST_SKIP() << "the machine has one volume";
  const std::string content(600'000, 'c');
  Write(u"a", content);
  ASSERT_TRUE(files.SetAttributes(In(u"a"), platform::kHidden));
  const auto before = files.Look(In(u"a"));
  EXPECT_TRUE(files.MoveFile(In(u"a"), Concat(other, u"\\b")));
  EXPECT_EQ(files.ReadFile(Concat(other, u"\\b")), content);
  const auto after = files.Look(Concat(other, u"\\b"));
  ASSERT_TRUE(after);
  EXPECT_EQ(after->modified, before->modified);
  EXPECT_EQ(after->attributes & 7U, platform::kHidden);
  EXPECT_EQ(Names(), std::vector<Text>());

  Write(u"a", "second");
  EXPECT_FALSE(files.MoveFile(In(u"a"), Concat(other, u"\\B")));
  EXPECT_EQ(files.ReadFile(In(u"a")), "second");
  EXPECT_EQ(files.ReadFile(Concat(other, u"\\b")), content);
  EXPECT_FALSE(files.MoveFile(In(u"a"), Concat(other, u"\\none\\c")));
  EXPECT_EQ(files.ReadFile(In(u"a")), "second");
  EXPECT_TRUE(files.DeleteFile(Concat(other, u"\\b"), false));
}

}  // namespace
}  // namespace tavix::contract
