#include "doubles/memory_file_system.h"

#include <gtest/gtest.h>

#include "platform/machine/host/machine_clock.h"

namespace tavix::machine {
namespace {

class MemoryFiles : public testing::Test {
 protected:
  MemoryStore store;
  MachineFacts facts;
  MemoryFileSystem files{store, facts};
};

TEST_F(MemoryFiles, HaveWhatTheyWereSeededWith) {
  files.AddFile(u"C:\\a\\b.txt", {"content", {}, 1000, 2000, platform::kHidden});
  const auto found = files.Look(u"c:\\A\\B.TXT");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->path, u"C:\\a\\b.txt");
  EXPECT_EQ(found->size, 7U);
  EXPECT_EQ(found->modified, 1000);
  EXPECT_EQ(found->accessed, 2000);
  EXPECT_EQ(found->attributes, platform::kHidden);
  EXPECT_EQ(files.Drives().size(), 1U);
  EXPECT_EQ(files.Drives()[0].path, u"C:");
}

TEST_F(MemoryFiles, HaveSizesWithoutContent) {
  constexpr uint64_t kHuge = uint64_t{5} << 40U;
  files.AddFile(u"C:\\huge", {"", kHuge});
  files.AddFile(u"C:\\padded", {"ab", 4});
  EXPECT_EQ(files.Look(u"C:\\huge")->size, kHuge);
  EXPECT_FALSE(files.ReadFile(u"C:\\huge"));
  EXPECT_EQ(files.ReadFile(u"C:\\padded"), std::string("ab\0\0", 4));
}

TEST_F(MemoryFiles, FailOnDemand) {
  files.AddFile(u"C:\\a", {"old"});
  files.AddFile(u"C:\\b");
  for (const TextView operation : {u"Look", u"FileExists", u"ReadFile", u"WriteFile", u"AppendToFile",
                                   u"DeleteFile", u"MoveFile", u"SetAttributes", u"CreateTextFile"}) {
    files.faults.Fail(operation, u"c:\\A");
  }
  for (const TextView operation : {u"List", u"FolderExists", u"CreateFolder", u"DeleteFolder"}) {
    files.faults.Fail(operation);
  }
  EXPECT_FALSE(files.Look(u"C:\\a"));
  EXPECT_EQ(files.FileExists(u"C:\\a"), std::nullopt);
  EXPECT_FALSE(files.ReadFile(u"C:\\a"));
  EXPECT_FALSE(files.WriteFile(u"C:\\a", "new"));
  EXPECT_FALSE(files.AppendToFile(u"C:\\a", "new"));
  EXPECT_FALSE(files.DeleteFile(u"C:\\a", true));
  EXPECT_FALSE(files.MoveFile(u"C:\\a", u"C:\\c"));
  EXPECT_FALSE(files.SetAttributes(u"C:\\a", 1));
  EXPECT_FALSE(files.CreateTextFile(u"C:\\a", true));
  EXPECT_FALSE(files.List(u"C:\\", [](const platform::DirectoryEntry&) {}));
  EXPECT_EQ(files.FolderExists(u"C:\\"), std::nullopt);
  EXPECT_FALSE(files.CreateFolder(u"C:\\f"));
  EXPECT_FALSE(files.DeleteFolder(u"C:\\f", true));
  EXPECT_EQ(files.FileExists(u"C:\\b"), true);
  files.faults.Clear();
  EXPECT_EQ(files.ReadFile(u"C:\\a"), "old");
  EXPECT_EQ(files.Look(u"C:\\a")->attributes, 0U);
}

TEST_F(MemoryFiles, LeaveSourceAndNoHalfFileWhenACopyToAnotherVolumeFails) {
  files.AddFile(u"C:\\a", {"content"});
  files.AddFolder(u"D:\\");
  store.faults.Fail(u"Copy");
  EXPECT_FALSE(files.MoveFile(u"C:\\a", u"D:\\a"));
  EXPECT_EQ(files.FileExists(u"D:\\a"), false);
  EXPECT_EQ(files.ReadFile(u"C:\\a"), "content");
  store.faults.Clear();
  // If the source can't be deleted, the copy is removed.
  store.faults.FailCall(3);
  EXPECT_FALSE(files.MoveFile(u"C:\\a", u"D:\\a"));
  EXPECT_EQ(files.FileExists(u"D:\\a"), false);
  EXPECT_EQ(files.ReadFile(u"C:\\a"), "content");
  store.faults.Clear();
  EXPECT_TRUE(files.MoveFile(u"C:\\a", u"D:\\a"));
  EXPECT_EQ(files.ReadFile(u"D:\\a"), "content");
}

TEST_F(MemoryFiles, StayWhereAMoveOnTheirVolumeFails) {
  files.AddFile(u"C:\\a", {"content"});
  store.faults.Fail(u"Move");
  EXPECT_FALSE(files.MoveFile(u"C:\\a", u"C:\\b"));
  EXPECT_EQ(files.FileExists(u"C:\\b"), false);
  EXPECT_EQ(files.ReadFile(u"C:\\a"), "content");
}

TEST_F(MemoryFiles, HaveTheTimeOfTheClockWhenTheyAreWritten) {
  StandingClock clock(5000);
  platform::clock = &clock;
  files.AddFile(u"C:\\a", {"old", {}, 1, 2});
  EXPECT_TRUE(files.WriteFile(u"C:\\a", "new"));
  EXPECT_TRUE(files.CreateTextFile(u"C:\\b", false));
  platform::clock = platform::noClock;
  EXPECT_EQ(files.Look(u"C:\\a")->modified, 5000);
  EXPECT_EQ(files.Look(u"C:\\b")->modified, 5000);
  EXPECT_EQ(files.Look(u"C:\\b")->accessed, 5000);
}

TEST_F(MemoryFiles, GoToAnyDepth) {
  Text path = u"C:";
  std::vector<Text> names{u"drives", u"C"};
  for (int i = 0; i < 5000; ++i) {
    path += u"\\d";
    names.emplace_back(u"d");
  }
  store.Make(names, EntryKind::Folder);
  EXPECT_TRUE(files.WriteFile(path + u"\\a", "x"));
  EXPECT_EQ(files.Look(path + u"\\A")->path, path + u"\\a");
  EXPECT_TRUE(files.DeleteFolder(u"C:\\d", false));
  EXPECT_EQ(files.FolderExists(u"C:\\d"), false);
}

}  // namespace
}  // namespace tavix::machine
