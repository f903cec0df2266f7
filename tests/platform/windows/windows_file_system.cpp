#include "platform/windows/windows_file_system.h"

#include <gtest/gtest.h>

#include "platform/windows/file_handle.h"
#include "platform/windows/file_move.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "support/case.h"

namespace tavix::windows {
namespace {

constexpr DWORD kHiddenSystem = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

class FilesOfWindows : public testing::Test {
 protected:
  // The number of files and folders in the test's folder.
  int Count() {
    int count = 0;
    files.List(place.Path(), [&count](const platform::DirectoryEntry&) { ++count; });
    return count;
  }

  static bool MovesByCopy(const Text& source, const Text& destination) {
    std::optional<OpenedItem> item = OpenItem(source);
    return item && MoveByCopy(*item, destination);
  }

  ScratchPlace place;
  WindowsFileSystem files;
};

TEST_F(FilesOfWindows, AHiddenSystemFileIsRewrittenAndStaysHidden) {
  const Text path = place.File(u"settings.ini");
  ASSERT_TRUE(SetFileAttributesW(Wide(path), kHiddenSystem));
  EXPECT_TRUE(files.WriteFile(path, "new"));
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_EQ(AttributesOf(path) & kHiddenSystem, kHiddenSystem);
  EXPECT_TRUE(files.AppendToFile(path, "er"));
  EXPECT_EQ(ContentOf(path), "newer");
  EXPECT_TRUE(files.CreateTextFile(path, true));
  EXPECT_EQ(ContentOf(path), "");
  EXPECT_EQ(AttributesOf(path) & kHiddenSystem, kHiddenSystem);
  EXPECT_EQ(Count(), 1);
}

TEST_F(FilesOfWindows, AReadOnlyFileIsNotWritten) {
  const Text path = place.File(u"a");
  ASSERT_TRUE(SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(files.WriteFile(path, "new"));
  EXPECT_FALSE(files.AppendToFile(path, "new"));
  EXPECT_FALSE(files.CreateTextFile(path, true));
  EXPECT_EQ(ContentOf(path), "content");
  EXPECT_EQ(Count(), 1);
}

TEST_F(FilesOfWindows, AnOpenFileKeepsItsContentAndNoTemporaryFileStays) {
  const Text path = place.File(u"a");
  const FileHandle held(CreateFileW(Wide(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  EXPECT_FALSE(files.WriteFile(path, "new"));
  EXPECT_EQ(ContentOf(path), "content");
  EXPECT_EQ(Count(), 1);
}

TEST_F(FilesOfWindows, AFolderIsNotWritten) {
  const Text path = place.Folder(u"a");
  EXPECT_FALSE(files.WriteFile(path, "new"));
  EXPECT_FALSE(files.AppendToFile(path, "new"));
  EXPECT_FALSE(files.CreateTextFile(path, true));
  EXPECT_FALSE(files.ReadFile(path));
  EXPECT_FALSE(files.WriteFile(u"C:\\", "new"));
  EXPECT_EQ(Count(), 1);
}

TEST_F(FilesOfWindows, WritesThroughALinkOnTheWay) {
  const Text target = place.Folder(u"target");
  place.FolderLink(u"link", target);
  EXPECT_TRUE(files.WriteFile(place.In(u"link\\new.txt"), "text"));
  EXPECT_EQ(ContentOf(place.In(u"target\\new.txt")), "text");
  EXPECT_EQ(files.ReadFile(place.In(u"link\\new.txt")), "text");
}

TEST_F(FilesOfWindows, WritesWhatALinkToAFileLeadsTo) {
  const Text target = place.File(u"target.txt");
  if (!place.FileLink(u"link.txt", target))
    GTEST_SKIP() << "no links to files under Wine or without the right";
  EXPECT_TRUE(files.WriteFile(place.In(u"link.txt"), "text"));
  EXPECT_EQ(ContentOf(target), "text");
  EXPECT_TRUE(files.Look(place.In(u"link.txt"))->link);
}

TEST_F(FilesOfWindows, LongPathsWork) {
  Text folder = place.Path();
  while (folder.size() < 300) {
    SCOPED_TRACE(Case(folder));
    folder += u"\\a name that is rather long, as names go";
    ASSERT_TRUE(files.CreateFolder(folder));
  }
  const Text path = folder + u"\\file.txt", moved = folder + u"\\moved.txt";
  EXPECT_TRUE(files.WriteFile(path, "long"));
  EXPECT_TRUE(files.AppendToFile(path, "er"));
  EXPECT_EQ(files.ReadFile(path), "longer");
  EXPECT_EQ(files.Look(path)->path, path);
  EXPECT_EQ(files.FileExists(path), true);
  EXPECT_EQ(files.FolderExists(folder), true);
  EXPECT_TRUE(files.SetAttributes(path, platform::kHidden));
  EXPECT_TRUE(files.MoveFile(path, moved));
  EXPECT_TRUE(files.List(folder, [](const auto& entry) { EXPECT_EQ(entry.name, u"moved.txt"); }));
  EXPECT_TRUE(files.DeleteFile(moved, false));
  EXPECT_EQ(files.FileExists(moved), false);
}

TEST_F(FilesOfWindows, SettingAttributesLeavesTheOthers) {
  const Text path = place.File(u"a");
  ASSERT_TRUE(SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_HIDDEN));
  constexpr DWORD kSettable = 7 | FILE_ATTRIBUTE_ARCHIVE;
  const DWORD others = AttributesOf(path) & ~kSettable;
  EXPECT_TRUE(files.SetAttributes(path, platform::kSystem));
  EXPECT_EQ(AttributesOf(path) & ~DWORD{FILE_ATTRIBUTE_ARCHIVE}, others | FILE_ATTRIBUTE_SYSTEM);
  EXPECT_TRUE(files.SetAttributes(path, 0));
  EXPECT_EQ(AttributesOf(path) & 7, 0U);
  EXPECT_FALSE(files.SetAttributes(place.In(u"missing"), 0));
}

TEST_F(FilesOfWindows, MovesAFileButNoFolderAndOntoNothing) {
  const Text file = place.File(u"file"), folder = place.Folder(u"folder"), other = place.File(u"other");
  EXPECT_FALSE(files.MoveFile(file, other));
  EXPECT_FALSE(files.MoveFile(file, folder));
  EXPECT_FALSE(files.MoveFile(file, place.In(u"missing\\file")));
  EXPECT_FALSE(files.MoveFile(folder, place.In(u"folder 2")));
  EXPECT_EQ(ContentOf(file), "content");
  ASSERT_TRUE(SetFileAttributesW(Wide(file), FILE_ATTRIBUTE_READONLY));
  EXPECT_TRUE(files.MoveFile(file, place.In(u"folder\\FILE")));
  EXPECT_EQ(ContentOf(place.In(u"folder\\FILE")), "content");
  EXPECT_TRUE(AttributesOf(place.In(u"folder\\FILE")) & FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(AttributesOf(file), INVALID_FILE_ATTRIBUTES);
}

TEST_F(FilesOfWindows, MoveByCopyKeepsContentAndAttributesAndLeavesNoSource) {
  const Text file = place.File(u"file", "some content");
  ASSERT_TRUE(SetFileAttributesW(Wide(file), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
  const platform::DateTime modified = files.Look(file)->modified;
  EXPECT_TRUE(MovesByCopy(file, place.In(u"copy")));
  EXPECT_EQ(ContentOf(place.In(u"copy")), "some content");
  EXPECT_EQ(files.Look(place.In(u"copy"))->attributes & 7U, platform::kReadOnly | platform::kHidden);
  EXPECT_EQ(files.Look(place.In(u"copy"))->modified, modified);
  EXPECT_EQ(AttributesOf(file), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(Count(), 1);
}

TEST_F(FilesOfWindows, AFailedMoveByCopyLeavesTheSourceAndNoCopy) {
  const Text file = place.File(u"file"), other = place.File(u"other", "other");
  EXPECT_FALSE(MovesByCopy(file, other));
  EXPECT_FALSE(MovesByCopy(file, place.In(u"missing\\file")));
  // Opened without FILE_SHARE_DELETE, the source can be copied but not deleted.
  const FileHandle held(CreateFileW(Wide(file), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  EXPECT_FALSE(MovesByCopy(file, place.In(u"copy")));
  EXPECT_EQ(ContentOf(file), "content");
  EXPECT_EQ(ContentOf(other), "other");
  EXPECT_EQ(Count(), 2);
}

TEST_F(FilesOfWindows, MovesAcrossVolumes) {
  if (OtherVolume().empty()) GTEST_SKIP() << "no second volume";
  const Text folder = Concat(OtherVolume(), u"\\moved");
  ASSERT_TRUE(files.CreateFolder(folder));
  const Text file = place.File(u"file");
  const Text there = folder + u"\\file";
  ASSERT_FALSE(MoveFileExW(Wide(file), Wide(there), 0));
  ASSERT_EQ(GetLastError(), DWORD{ERROR_NOT_SAME_DEVICE});
  EXPECT_TRUE(files.MoveFile(file, there));
  EXPECT_EQ(ContentOf(there), "content");
  EXPECT_EQ(Count(), 0);
  EXPECT_TRUE(files.DeleteFolder(folder, true));
}

TEST_F(FilesOfWindows, DrivesStandInTheOrderOfTheirLetters) {
  const std::vector<platform::Drive> drives = files.Drives();
  ASSERT_FALSE(drives.empty());
  bool c = false;
  for (size_t i = 0; i < drives.size(); ++i) {
    SCOPED_TRACE(Case(i));
    if (i > 0) {
      EXPECT_LT(drives[i - 1].path, drives[i].path);
    }
    if (drives[i].path == u"C:") c = drives[i].ready && drives[i].type == 2;
    EXPECT_TRUE(drives[i].ready || drives[i].volumeName.empty());
  }
  EXPECT_TRUE(c);
  // Our Wine prefixes have drive C: alone, so that tests can't reach the host's files.
  if (IsWine()) {
    EXPECT_EQ(drives.size(), 1U);
  }
}

// A dead network drive takes up to a minute to answer, and the window would wait for it.
TEST_F(FilesOfWindows, NetworkDrivesAreNotAskedWhenAllDrivesAreListed) {
  static std::wstring asked;
  asked.clear();
  const DriveCalls before = std::exchange(
      driveCalls, {[]() -> DWORD { return 1U << 2 | 1U << 13; },
                   [](LPCWSTR root) -> UINT { return root[0] == L'N' ? DRIVE_REMOTE : DRIVE_FIXED; },
                   [](LPCWSTR root, LPWSTR name, DWORD, LPDWORD, LPDWORD, LPDWORD, LPWSTR, DWORD) -> BOOL {
                     asked += root[0];
                     wcscpy(name, L"Volume");
                     return TRUE;
                   }});
  const std::vector<platform::Drive> drives = files.Drives();
  const std::wstring askedByList = asked;
  const bool ready = files.IsDriveReady(u'N');
  driveCalls = before;
  EXPECT_EQ(askedByList, L"C");
  ASSERT_EQ(drives.size(), 2U);
  EXPECT_TRUE(drives[0].ready);
  EXPECT_EQ(drives[0].volumeName, u"Volume");
  EXPECT_EQ(drives[1].path, u"N:");
  EXPECT_EQ(drives[1].type, platform::kNetworkDrive);
  EXPECT_FALSE(drives[1].ready);
  EXPECT_EQ(drives[1].volumeName, u"");
  EXPECT_TRUE(ready) << "asked for alone, it is asked";
}

TEST(DriveType, IsNumberedAsTheInterfaceHasIt) {
  EXPECT_EQ(DriveTypeOf(DRIVE_UNKNOWN), 0);
  EXPECT_EQ(DriveTypeOf(DRIVE_NO_ROOT_DIR), 0);
  EXPECT_EQ(DriveTypeOf(DRIVE_REMOVABLE), 1);
  EXPECT_EQ(DriveTypeOf(DRIVE_FIXED), 2);
  EXPECT_EQ(DriveTypeOf(DRIVE_REMOTE), 3);
  EXPECT_EQ(DriveTypeOf(DRIVE_CDROM), 4);
  EXPECT_EQ(DriveTypeOf(DRIVE_RAMDISK), 5);
}

TEST(WindowsFileSystem, KeepsDialogsOfTheSystemAwayWhileItLives) {
  const DWORD before = GetThreadErrorMode();
  {
    const WindowsFileSystem files;
    EXPECT_TRUE(GetThreadErrorMode() & SEM_FAILCRITICALERRORS);
  }
  EXPECT_EQ(GetThreadErrorMode(), before);
}

}  // namespace
}  // namespace tavix::windows
