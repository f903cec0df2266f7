#include "frame/data_folders.h"

#include "doubles/memory_file_system.h"
#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr uint32_t kHiddenSystem = 6;

class DataFolders : public ProgramTest {
 protected:
  DataFolders() { machine.files.AddFolder(u"C:\\"); }
  uint32_t Attributes(TextView path) {
    const auto facts = machine.fileSystem.Look(path);
    return facts ? facts->attributes : 99;
  }
  void AddHidden(TextView folder) {
    machine.files.AddFolder(folder);
    machine.files.SetAttributes(folder, kHiddenSystem);
  }
  std::vector<Text> NamesIn(TextView folder) {
    std::vector<Text> names;
    machine.fileSystem.List(
        folder, [&names](const platform::DirectoryEntry& entry) { names.emplace_back(entry.name); });
    return names;
  }
};

TEST_F(DataFolders, AFirstRunLeavesTheWholeTreeHiddenAfterExit) {
  Start();
  EXPECT_EQ(Attributes(kSettingsFile), 0U) << "written after the step that hides files";
  Form_Unload();
  for (const TextView path :
       {kMakersFolder, kDataFolder, kDefaultBackupFolder, kDuplicateFolder, kScannedFolder, kComparedFolder,
        kSettingsFile, kBuiltInJunkFile, kUserJunkFile, kMarkerFile}) {
    EXPECT_EQ(Attributes(path), kHiddenSystem) << Narrow(path);
  }
  for (const TextView store : {kScannedFolder, kComparedFolder}) {
    const auto buckets = NamesIn(store);
    EXPECT_EQ(buckets.size(), 27U);
    EXPECT_EQ(buckets.front(), u"A");
    EXPECT_EQ(Attributes(Concat(store, u"\\Z")), kHiddenSystem);
    EXPECT_EQ(Attributes(Concat(store, u"\\other")), kHiddenSystem);
  }
  EXPECT_EQ(machine.files.ReadFile(kMarkerFile), "");
}

TEST_F(DataFolders, TheArchiveBitGoesWithTheNextStart) {
  machine.files.AddFile(
      kSettingsFile, {.content = "[Duplicate Files]\nCommon Types=*.x\n", .attributes = platform::kArchive});
  machine.files.SetAttributes(kMakersFolder, platform::kArchive);
  Start();
  EXPECT_EQ(Attributes(kSettingsFile), kHiddenSystem);
  EXPECT_EQ(Attributes(kMakersFolder), kHiddenSystem);
}

TEST_F(DataFolders, AStaleBucketFileIsGoneAfterTheNextStart) {
  machine.files.AddFile(Concat(kScannedFolder, u"\\A\\1024"), {.attributes = platform::kReadOnly});
  Start();
  EXPECT_TRUE(NamesIn(Concat(kScannedFolder, u"\\A")).empty());
  machine.files.AddFile(Concat(kComparedFolder, u"\\other\\x"));
  Form_Unload();
  EXPECT_TRUE(NamesIn(Concat(kComparedFolder, u"\\other")).empty());
}

TEST_F(DataFolders, ATreeThatDiffersFromTheFreshOneIsRemade) {
  const auto at = [](TextView rest) { return Concat(kDuplicateFolder, rest); };
  const std::vector<std::function<void()>> damages = {
      [&] { machine.files.DeleteFolder(at(u"\\compared\\Q"), true); },
      [&] { machine.files.SetAttributes(at(u"\\scanned\\Q"), 0); },
      [&] { machine.files.SetAttributes(at(u"\\scanned\\Q"), kHiddenSystem | platform::kReadOnly); },
      [&] { machine.files.SetAttributes(at(u"\\scanned\\Q"), kHiddenSystem | platform::kArchive); },
      [&] { machine.files.SetAttributes(at(u"\\scanned"), platform::kHidden); },
      [&] { AddHidden(at(u"\\scanned\\1")); },
      [&] { machine.files.AddFolder(at(u"\\scanned\\Q\\deeper")); },
      [&] { machine.files.AddFile(at(u"\\stale"), {.attributes = kHiddenSystem}); },
      [&] {
        machine.files.DeleteFolder(at(u"\\scanned\\Q"), true);
        AddHidden(at(u"\\scanned\\q"));
      },
  };
  Start();
  for (size_t i = 0; i < damages.size(); ++i) {
    SCOPED_TRACE(i);
    damages[i]();
    PrepareDataFolders();
    EXPECT_EQ(NamesIn(kDuplicateFolder), (std::vector<Text>{u"compared", u"scanned"}));
    EXPECT_EQ(Attributes(kScannedFolder), kHiddenSystem);
    for (const TextView store : {kScannedFolder, kComparedFolder}) {
      EXPECT_EQ(NamesIn(store).size(), 27U);
      for (const Text& bucket : NamesIn(store)) {
        EXPECT_EQ(Attributes(Concat(store, u"\\", bucket)), kHiddenSystem);
        EXPECT_TRUE(NamesIn(Concat(store, u"\\", bucket)).empty());
        EXPECT_NE(bucket, u"q");
      }
    }
  }
}

TEST_F(DataFolders, AFreshTreeIsNotTouched) {
  Start();
  // If the tree were deleted, it could not be made again.
  machine.files.faults.Fail(u"CreateFolder");
  PrepareDataFolders();
  EXPECT_EQ(NamesIn(kScannedFolder).size(), 27U);
  EXPECT_EQ(Attributes(Concat(kScannedFolder, u"\\A")), kHiddenSystem);
}

TEST_F(DataFolders, ADeletedJunkFileComesBackEmptyAndOthersKeepTheirContent) {
  Start();
  machine.files.AddFile(kBuiltInJunkFile, {.content = "kept"});
  machine.files.DeleteFile(kUserJunkFile, true);
  Form_Unload();
  EXPECT_EQ(machine.files.ReadFile(kUserJunkFile), "");
  EXPECT_EQ(machine.files.ReadFile(kBuiltInJunkFile), "kept");
}

TEST_F(DataFolders, TheBackupFoldersContentIsNeverTouched) {
  machine.files.AddFile(u"C:\\TVXBak\\saved.txt", {.content = "s"});
  machine.files.AddFile(
      kSettingsFile,
      {.content = "[Duplicate Files]\nCommon Types=*.x\n[Cleaning Method]\nBackup Folder=C:\\Else\n"});
  Start();
  Form_Unload();
  EXPECT_EQ(machine.files.ReadFile(u"C:\\TVXBak\\saved.txt"), "s");
  EXPECT_EQ(Attributes(u"C:\\TVXBak\\saved.txt"), 0U);
}

TEST_F(DataFolders, TheDefaultBackupFolderIsMadeAtStartAndExitWhateverTheSetting) {
  machine.files.AddFile(
      kSettingsFile,
      {.content = "[Duplicate Files]\nCommon Types=*.x\n[Cleaning Method]\nBackup Folder=C:\\Else\n"});
  Start();
  ASSERT_EQ(BackupFolder, u"C:\\Else");
  EXPECT_EQ(Attributes(kDefaultBackupFolder), kHiddenSystem);
  EXPECT_EQ(machine.files.FolderExists(u"C:\\Else"), false) << "only the user makes that folder";
  machine.files.DeleteFolder(kDefaultBackupFolder, true);
  Form_Unload();
  EXPECT_EQ(Attributes(kDefaultBackupFolder), kHiddenSystem);
}

TEST_F(DataFolders, ABucketThatCannotGoStaysAndTheRestIsDone) {
  machine.files.AddFile(Concat(kScannedFolder, u"\\A\\locked"));
  machine.files.faults.Fail(u"DeleteFolder", kDuplicateFolder);
  Start();
  EXPECT_EQ(NamesIn(Concat(kScannedFolder, u"\\A")).size(), 1U);
  EXPECT_EQ(machine.files.FileExists(kMarkerFile), true);
  EXPECT_EQ(NamesIn(kComparedFolder).size(), 27U);
}

TEST_F(DataFolders, EveryCallFailingInTurnStopsNothing) {
  for (int failing = 1; failing < 400; failing += 7) {
    machine.files.faults.FailCall(failing);
    Start();
    Form_Unload();
    machine.files.faults.Clear();
    ResetProcess();
  }
  Start();
  EXPECT_EQ(NamesIn(kScannedFolder).size(), 27U);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
