#include "export/drive_writer.h"

#include <gtest/gtest.h>

#include "doubles/memory_file_system.h"
#include "doubles/memory_host.h"
#include "export/recording_files.h"
#include "platform/machine/host/host_store.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_file_system.h"
#include "support/case.h"

namespace tavix::exporting {
namespace {

namespace fs = std::filesystem;
using machine::FileSeed;

// A machine in memory that is written to a folder of the host, and read from there.
class DriveWriterTest : public testing::Test {
 protected:
  bool Write(const std::function<bool(TextView, uint64_t)>& goesOn = {}) {
    writer = std::make_unique<DriveWriter>(DriveWriter::Job{.source = host.fileSystem,
                                                            .record = record,
                                                            .folder = fs::canonical(scratch.Root()),
                                                            .now = 5'000,
                                                            .maskContent = {},
                                                            .goesOn = goesOn});
    const bool written = writer->Write();
    if (written) {
      store = machine::OpenHostStore(fs::canonical(scratch.Root()));
      read = std::make_unique<machine::MachineFileSystem>(*store, facts);
    }
    return written;
  }
  std::vector<Text> Names(TextView folder) {
    std::vector<Text> names;
    read->List(folder, [&names](const platform::DirectoryEntry& entry) {
      names.push_back(Concat(entry.name, entry.folder ? u"\\" : u"", entry.link ? u">" : u""));
    });
    return names;
  }

  machine::MemoryHost host;
  const machine::ScratchFolder scratch;
  Record record;
  std::unique_ptr<DriveWriter> writer;
  machine::MachineFacts facts;
  std::unique_ptr<machine::FileStore> store;
  std::unique_ptr<machine::MachineFileSystem> read;
};

TEST_F(DriveWriterTest, WritesATreeWithSizesTimesAndAttributes) {
  host.fileSystem.AddFile(u"C:\\a\\b\\Big.bin", {.size = uint64_t{5} << 40U,
                                                 .modified = 86'400'000'000,
                                                 .accessed = 172'800'000'000,
                                                 .attributes = 38});
  host.fileSystem.AddFolder(u"C:\\a\\Empty");
  record.trees = {u"C:\\"};
  ASSERT_TRUE(Write());
  EXPECT_EQ(writer->LeftOut(), 0U) << Case(writer->FirstLeftOut());
  EXPECT_EQ(Names(u"C:\\a"), (std::vector<Text>{u"b\\", u"Empty\\"}));
  const auto file = read->Look(u"C:\\a\\b\\Big.bin");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->size, uint64_t{5} << 40U);
  EXPECT_EQ(file->modified, 86'400'000'000);
  EXPECT_EQ(file->accessed, 172'800'000'000);
  EXPECT_EQ(file->attributes, 38U);
}

TEST_F(DriveWriterTest, WritesTheContentOfFilesThatWereRead) {
  host.fileSystem.AddFile(u"C:\\a\\read.lnk", {.content = "mine"});
  host.fileSystem.AddFile(u"C:\\a\\unread.txt", {.content = "secret"});
  record.trees = {u"C:\\"};
  record.read = {u"c:/A/READ.LNK"};
  ASSERT_TRUE(Write());
  EXPECT_EQ(read->ReadFile(u"C:\\a\\read.lnk"), "mine");
  EXPECT_EQ(read->ReadFile(u"C:\\a\\unread.txt"), std::string(6, '\0'));
}

TEST_F(DriveWriterTest, WritesOutsideOfTheTreesWhatWasLookedAtAndListed) {
  host.fileSystem.AddFile(u"D:\\tools\\deep\\x.exe", {.size = 9});
  host.fileSystem.AddFile(u"D:\\tools\\deep\\other.exe");
  host.fileSystem.AddFile(u"D:\\listed\\one.txt");
  host.fileSystem.AddFile(u"D:\\listed\\inner\\two.txt");
  host.fileSystem.AddFolder(u"C:\\chosen");
  record.trees = {u"C:\\chosen"};
  record.looked = {u"D:\\TOOLS\\deep\\X.EXE"};
  record.listed = {u"D:\\listed"};
  ASSERT_TRUE(Write());
  EXPECT_EQ(Names(u"D:\\tools\\deep"), std::vector<Text>{u"x.exe"});
  EXPECT_EQ(read->Look(u"D:\\tools\\deep\\x.exe")->size, 9U);
  EXPECT_EQ(Names(u"D:\\listed"), (std::vector<Text>{u"inner\\", u"one.txt"}));
  EXPECT_EQ(Names(u"D:\\listed\\inner"), std::vector<Text>());
}

#ifndef _WIN32  // there, making links takes a right that tests may lack

// On Windows a machine folder's times are read in whole seconds.
TEST_F(DriveWriterTest, WritesTimesToTheMillisecondAlsoBefore1970) {
  host.fileSystem.AddFile(u"C:\\x.txt", {.modified = 86'400'123, .accessed = -7});
  record.trees = {u"C:\\"};
  ASSERT_TRUE(Write());
  const auto file = read->Look(u"C:\\x.txt");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->modified, 86'400'123);
  EXPECT_EQ(file->accessed, -7);
}

TEST_F(DriveWriterTest, WritesLinksAsLinksAndWhatTheyLeadTo) {
  host.fileSystem.AddFile(u"D:\\real\\x.txt");
  host.fileSystem.AddFolder(u"C:\\a");
  host.fileSystem.AddLink(u"C:\\a\\link", u"D:\\real");
  host.fileSystem.AddLink(u"C:\\a\\file link", u"D:\\real\\x.txt");
  host.fileSystem.AddLink(u"C:\\a\\dangling", u"D:\\none");
  host.fileSystem.AddLink(u"C:\\a\\round", u"C:\\a\\round");
  record.trees = {u"C:\\a"};
  ASSERT_TRUE(Write());
  EXPECT_EQ(Names(u"C:\\a"), (std::vector<Text>{u"dangling>", u"file link>", u"link\\>", u"round>"}));
  EXPECT_EQ(Names(u"C:\\a\\link"), std::vector<Text>{u"x.txt"});
  EXPECT_EQ(read->FileExists(u"C:\\a\\file link"), true);
  EXPECT_EQ(read->FileExists(u"C:\\a\\dangling"), false);
  EXPECT_EQ(read->FileExists(u"C:\\a\\round"), std::nullopt);
}

// An empty folder would become a row.
TEST_F(DriveWriterTest, AFolderThatCantBeReadIsNotEmpty) {
  host.fileSystem.AddFile(u"C:\\closed\\x.txt");
  host.fileSystem.faults.Fail(u"List", u"C:\\closed");
  record.trees = {u"C:\\"};
  ASSERT_TRUE(Write());
  EXPECT_EQ(Names(u"C:\\closed"), std::vector<Text>{u"unreadable\\>"});
}

TEST_F(DriveWriterTest, WhatCouldntBeToldCantBeToldThere) {
  host.fileSystem.AddFile(u"C:\\a\\x.txt");
  host.fileSystem.faults.Fail(u"FileExists", u"D:\\b\\y.txt");
  host.fileSystem.AddFolder(u"D:\\b");
  RecordingFiles files(host.fileSystem, record);
  EXPECT_EQ(files.FileExists(u"D:\\b\\y.txt"), std::nullopt);
  record.trees = {u"C:\\"};
  ASSERT_TRUE(Write());
  EXPECT_EQ(read->FileExists(u"D:\\b\\y.txt"), std::nullopt);
}

#endif

TEST_F(DriveWriterTest, GoesDownHundredsOfFoldersAndBack) {
  Text path = u"C:";
  for (int level = 0; level < 300; ++level) {
    path += Concat(u"\\", ToText(level));
    host.fileSystem.AddFile(Concat(path, u"\\zz.txt"));
  }
  record.trees = {u"C:\\"};
  ASSERT_TRUE(Write());
  EXPECT_EQ(writer->Files(), 300U);
  EXPECT_EQ(writer->LeftOut(), 0U) << Case(writer->FirstLeftOut());
  EXPECT_EQ(read->FileExists(Concat(path, u"\\zz.txt")), true);
}

TEST_F(DriveWriterTest, EndsWhenItIsTold) {
  for (int i = 0; i < 10; ++i) host.fileSystem.AddFile(Concat(u"C:\\a\\", ToText(i)));
  record.trees = {u"C:\\"};
  EXPECT_FALSE(Write([](TextView, uint64_t files) { return files < 3; }));
  EXPECT_TRUE(writer->Stopped());
  EXPECT_EQ(writer->Files(), 3U);
}

TEST_F(DriveWriterTest, LeavesOutTheFolderThatItWritesTo) {
  // The machine's folder of this identity stands for the one that is written.
  const Text name = Text(fs::canonical(scratch.Root()).filename().u16string());
  host.fileSystem.AddFile(Concat(u"C:\\work\\", name, u"\\x.txt"));
  host.fileSystem.AddFile(Concat(u"C:\\other\\", name, u"\\x.txt"));
  record.trees = {u"C:\\"};
  DriveWriter own({.source = host.fileSystem,
                   .record = record,
                   .folder = fs::canonical(scratch.Root()),
                   .own = host.fileSystem.FolderIdentity(Concat(u"C:\\work\\", name)),
                   .maskContent = {},
                   .goesOn = {}});
  ASSERT_TRUE(own.Write());
  EXPECT_FALSE(fs::exists(scratch.Root() / "drives" / "C" / "work" / fs::path(name)));
  EXPECT_TRUE(fs::exists(scratch.Root() / "drives" / "C" / "other" / fs::path(name) / "x.txt"));
}

}  // namespace
}  // namespace tavix::exporting
