// Host folders that are asked for often stay open. These tests change their paths meanwhile.
#include "platform/machine/host/host_folders_posix.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <functional>

#include "platform/machine/host/host_store.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_file_system.h"
#include "support/case.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

HostHandle OpenRoot(const fs::path& root) { return HostHandle(::open(root.c_str(), O_PATH | O_DIRECTORY)); }

class HostFoldersTest : public testing::Test {
 protected:
  HostFoldersTest() {
    for (const char* name : {"work", "other", "deep/er"}) fs::create_directories(Host(name));
    scratch.Write("machine/drives/C/Desk/keep", "work");
    files.emplace(*store, facts);
  }
  fs::path Host(const std::string& path) const { return scratch.Root() / "machine" / path; }
  fs::path Drive(const std::string& path) const { return Host("drives/C/" + path); }
  // Asks often enough for the folder to be kept open.
  void AskOften() {
    for (int i = 0; i < 20; ++i) EXPECT_EQ(files->FileExists(u"C:\\Desk\\keep"), true);
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\none"), false);
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\none"), false);
  }

  ScratchFolder scratch;
  fs::path made = (fs::create_directories(scratch.Root() / "machine" / "drives" / "C" / "Desk"),
                   fs::create_directories(scratch.Root() / "outside"), scratch.Root());
  MachineFacts facts;
  std::unique_ptr<FileStore> store = OpenHostStore(fs::canonical(scratch.Root() / "machine"));
  std::optional<MachineFileSystem> files;
};

TEST_F(HostFoldersTest, AFolderThatIsAskedForOftenStaysOpenAndOthersDoNot) {
  HostFolders folders(OpenRoot(Host("")));
  EXPECT_NE(folders.Open("work"), folders.Open("work"));
  std::shared_ptr<HostOpenFolder> kept;
  for (int i = 0; i < 20; ++i) kept = folders.Open("work");
  if (!kept->Watched()) GTEST_SKIP() << "this host tells no changes of folders";
  EXPECT_EQ(folders.Open("work"), kept);
  EXPECT_FALSE(folders.Open("other")->Watched());
  EXPECT_EQ(folders.Open("work"), kept);
  EXPECT_EQ(folders.Open("missing"), nullptr);
}

TEST_F(HostFoldersTest, AKeptFolderIsOpenedAnewAfterAnyChangeOfItsPath) {
  const struct {
    const char* what;
    std::function<void()> change;
    bool there;
  } table[] = {
      {"renamed", [&] { fs::rename(Host("deep/er"), Host("deep/gone")); }, false},
      {"folder above renamed", [&] { fs::rename(Host("deep"), Host("gone")); }, false},
      {"removed", [&] { fs::remove_all(Host("deep/er")); }, false},
      {"all removed", [&] { fs::remove_all(Host("deep")); }, false},
      {"replaced", [&] { fs::rename(Host("deep/er"), Host("x")), fs::create_directory(Host("deep/er")); },
       true},
      {"replaced above",
       [&] { fs::rename(Host("deep"), Host("x")), fs::create_directories(Host("deep/er")); }, true},
      {"replaced by a link",
       [&] { fs::rename(Host("deep/er"), Host("x")), fs::create_symlink("../x", Host("deep/er")); }, false},
      {"replaced by a link above",
       [&] { fs::rename(Host("deep"), Host("x")), fs::create_symlink("x", Host("deep")); }, false},
  };
  for (const auto& row : table) {
    fs::remove_all(Host("x"));
    fs::remove_all(Host("gone"));
    fs::remove_all(Host("deep"));
    fs::create_directories(Host("deep/er"));
    HostFolders folders(OpenRoot(Host("")));
    std::shared_ptr<HostOpenFolder> kept;
    for (int i = 0; i < 20; ++i) kept = folders.Open("deep/er");
    row.change();
    const auto again = folders.Open("deep/er");
    EXPECT_EQ(again != nullptr, row.there) << row.what;
    EXPECT_NE(again, kept) << row.what;
    if (again == nullptr) continue;
    EXPECT_NE(ReadFolderState(again->Get())->id, ReadFolderState(kept->Get())->id) << row.what;
  }
}

// The number of watches is limited, so those of older folders are taken off.
TEST_F(HostFoldersTest, AFolderThatIsNoLongerWatchedDoesNotStand) {
  HostFolders folders(OpenRoot(Host("")));
  const auto keep = [&folders](const std::string& path) {
    std::shared_ptr<HostOpenFolder> kept;
    for (int i = 0; i < 20; ++i) kept = folders.Open(path);
    return kept;
  };
  const auto first = keep("work");
  if (!first->Watched()) GTEST_SKIP() << "this host tells no changes of folders";
  EXPECT_TRUE(first->Stands());
  for (int i = 0; i < 100; ++i) {
    const std::string path = "deep/" + std::to_string(i);
    fs::create_directory(Host(path));
    EXPECT_TRUE(keep(path)->Stands());
  }
  EXPECT_FALSE(first->Stands());
  EXPECT_TRUE(keep("work")->Stands());
}

TEST_F(HostFoldersTest, AFolderSwappedForAnotherKeepsItsFiles) {
  AskOften();
  fs::rename(Drive("Desk"), Drive("Moved"));
  fs::create_directory(Drive("Desk"));
  EXPECT_FALSE(files->DeleteFile(u"C:\\Desk\\keep", true));
  EXPECT_EQ(files->FileExists(u"C:\\Desk\\keep"), false);
  EXPECT_TRUE(fs::exists(Drive("Moved/keep")));
}

TEST_F(HostFoldersTest, AFolderSwappedForALinkThatLeadsOutIsOutOfReach) {
  AskOften();
  fs::rename(Drive("Desk"), scratch.Root() / "outside" / "Desk");
  fs::create_symlink(scratch.Root() / "outside" / "Desk", Drive("Desk"));
  EXPECT_EQ(files->FileExists(u"C:\\Desk\\keep"), false);
  EXPECT_FALSE(files->DeleteFile(u"C:\\Desk\\keep", true));
  EXPECT_FALSE(files->WriteFile(u"C:\\Desk\\new", "x"));
  EXPECT_TRUE(fs::exists(scratch.Root() / "outside" / "Desk" / "keep"));
  EXPECT_FALSE(fs::exists(scratch.Root() / "outside" / "Desk" / "new"));
}

TEST_F(HostFoldersTest, ADriveSwappedForALinkThatLeadsOutIsOutOfReach) {
  AskOften();
  fs::rename(Host("drives/C"), scratch.Root() / "outside" / "C");
  fs::create_symlink(scratch.Root() / "outside" / "C", Host("drives/C"));
  EXPECT_FALSE(files->DeleteFile(u"C:\\Desk\\keep", true));
  EXPECT_TRUE(fs::exists(scratch.Root() / "outside" / "C" / "Desk" / "keep"));
}

TEST_F(HostFoldersTest, NamesThatComeIntoAKeptFolderAreSeenAtOnce) {
  for (int i = 0; i < 200; ++i) {
    AskOften();
    scratch.Write("machine/drives/C/Desk/NEW", "x");
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\New"), true) << i;
    EXPECT_TRUE(files->DeleteFile(u"C:\\Desk\\new", true)) << i;
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\New"), false) << i;
    fs::create_symlink("keep", Drive("Desk/New"));
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\New"), true) << i;
    fs::rename(Drive("Desk/New"), Drive("Desk/none"));
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\New"), false) << i;
    EXPECT_TRUE(files->Look(u"C:\\Desk\\NONE").has_value()) << i;
    fs::remove(Drive("Desk/none"));
  }
}

TEST_F(HostFoldersTest, OurOwnChangesInAKeptFolderAreSeenAtOnce) {
  for (int i = 0; i < 50; ++i) {
    SCOPED_TRACE(Case(i));
    AskOften();
    EXPECT_TRUE(files->WriteFile(u"C:\\Desk\\None", "x"));
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\none"), true);
    EXPECT_TRUE(files->MoveFile(u"C:\\Desk\\NONE", u"C:\\Desk\\Second"));
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\none"), false);
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\SECOND"), true);
    EXPECT_TRUE(files->DeleteFile(u"C:\\Desk\\second", true));
    EXPECT_EQ(files->FileExists(u"C:\\Desk\\second"), false);
  }
}

TEST_F(HostFoldersTest, WhatIsMountedOverAKeptFolderIsSeen) {
  AskOften();
  if (mount("tavix", Drive("Desk").c_str(), "tmpfs", 0, "size=1m") != 0) GTEST_SKIP() << "may not mount here";
  EXPECT_EQ(files->FileExists(u"C:\\Desk\\keep"), false);
  EXPECT_TRUE(files->WriteFile(u"C:\\Desk\\mounted", "x"));
  umount(Drive("Desk").c_str());
  EXPECT_EQ(files->FileExists(u"C:\\Desk\\keep"), true);
  EXPECT_EQ(files->FileExists(u"C:\\Desk\\mounted"), false);
}

TEST_F(HostFoldersTest, ManyFoldersAskedForInTurnAreAllFound) {
  for (int i = 0; i < 100; ++i) scratch.Write("machine/drives/C/" + std::to_string(i) + "/f", "x");
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 100; ++i) {
      for (int j = 0; j < 10; ++j) EXPECT_EQ(files->FileExists(Concat(u"C:\\", ToText(i), u"\\f")), true);
    }
  }
}

}  // namespace
}  // namespace tavix::machine
