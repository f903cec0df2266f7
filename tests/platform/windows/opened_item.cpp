#include "platform/windows/opened_item.h"

#include <gtest/gtest.h>

#include "platform/windows/delete_tree.h"
#include "platform/windows/file_move.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "support/found_item.h"

namespace tavix::windows {
namespace {

bool NotOnFat(FILE_INFO_BY_HANDLE_CLASS question) {
  constexpr int kIds = 18, kDispositionFlags = 21;
  const bool known = question != FileAttributeTagInfo && question != FileStreamInfo &&
                     static_cast<int>(question) != kIds && static_cast<int>(question) != kDispositionFlags;
  if (!known) SetLastError(ERROR_INVALID_PARAMETER);
  return !known;
}

BOOL WINAPI AskFat(HANDLE file, FILE_INFO_BY_HANDLE_CLASS question, LPVOID answer, DWORD size) {
  return NotOnFat(question) ? FALSE : GetFileInformationByHandleEx(file, question, answer, size);
}

BOOL WINAPI TellFat(HANDLE file, FILE_INFO_BY_HANDLE_CLASS what, LPVOID information, DWORD size) {
  return NotOnFat(what) ? FALSE : SetFileInformationByHandle(file, what, information, size);
}

// The drive of the tests answers like FAT and exFAT: queries for reparse tags, and newer queries, fail with
// ERROR_INVALID_PARAMETER.
class OnADriveLikeFat : public testing::Test {
 protected:
  OnADriveLikeFat() { handleCalls = {AskFat, TellFat}; }
  ~OnADriveLikeFat() override { handleCalls = {}; }

  static bool IsGone(TextView path) { return AttributesOf(path) == INVALID_FILE_ATTRIBUTES; }

  ScratchPlace place;
  WindowsFileSystem files;
};

TEST_F(OnADriveLikeFat, FilesAreDeleted) {
  const Text plain = place.File(u"plain"), readOnly = place.File(u"read-only");
  ASSERT_TRUE(SetFileAttributesW(Wide(readOnly), FILE_ATTRIBUTE_READONLY));
  EXPECT_TRUE(files.DeleteFile(plain, false));
  EXPECT_FALSE(files.DeleteFile(readOnly, false));
  EXPECT_TRUE(files.DeleteFile(readOnly, true));
  EXPECT_TRUE(IsGone(plain));
  EXPECT_TRUE(IsGone(readOnly));
}

TEST_F(OnADriveLikeFat, FoldersAreDeleted) {
  const Text tree = place.Folder(u"tree");
  place.Folder(u"tree\\a");
  place.File(u"tree\\a\\b");
  EXPECT_TRUE(files.DeleteFolder(tree, false));
  EXPECT_TRUE(IsGone(tree));
}

TEST_F(OnADriveLikeFat, WhatAWalkFoundIsDeletedAndMoved) {
  place.Folder(u"a");
  place.Folder(u"a\\empty");
  place.File(u"a\\empty\\none", "");
  const Text first = place.File(u"a\\first"), second = place.File(u"a\\second", "moved");
  const auto open = [this](TextView below) { return OpenFoundItem(files, place.Path(), below); };
  const auto file = open(u"a\\first"), moved = open(u"a\\second"), folder = open(u"a\\empty");
  ASSERT_TRUE(file && moved && folder);
  EXPECT_TRUE(file->DeleteFile());
  EXPECT_TRUE(moved->MoveFileTo(place.In(u"there")));
  EXPECT_TRUE(folder->DeleteEmptyFolder());
  EXPECT_TRUE(IsGone(first));
  EXPECT_TRUE(IsGone(second));
  EXPECT_TRUE(IsGone(place.In(u"a\\empty")));
  EXPECT_EQ(ContentOf(place.In(u"there")), "moved");
}

TEST_F(OnADriveLikeFat, FilesAreMovedByCopy) {
  const Text file = place.File(u"file", "some content");
  std::optional<OpenedItem> item = OpenItem(file);
  ASSERT_TRUE(item);
  EXPECT_TRUE(MoveByCopy(*item, place.In(u"copy")));
  item.reset();
  EXPECT_TRUE(IsGone(file));
  EXPECT_EQ(ContentOf(place.In(u"copy")), "some content");
}

TEST_F(OnADriveLikeFat, FoldersHaveTheirIdentities) {
  const Text folder = place.Folder(u"a"), other = place.Folder(u"b");
  ASSERT_TRUE(files.FolderIdentity(folder));
  EXPECT_NE(files.FolderIdentity(folder), files.FolderIdentity(other));
  const std::vector<Text> lineage = files.Lineage(folder);
  ASSERT_GE(lineage.size(), 3U);
  EXPECT_EQ(lineage[0], files.FolderIdentity(folder));
  EXPECT_EQ(lineage[1], files.FolderIdentity(place.Path()));
}

TEST(OpenedItem, KeepsOthersFromWritingToAFileThatIsTakenForEmpty) {
  const ScratchPlace place;
  const Text folder = place.Folder(u"a"), file = place.File(u"a\\none", "");
  const FileHandle writer(CreateFileW(Wide(file), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(writer);
  std::optional<OpenedItem> item = OpenItem(folder);
  ASSERT_TRUE(item);
  EXPECT_FALSE(DeleteEmptyTree(*std::move(item)));
  EXPECT_EQ(ContentOf(file), "");
}

TEST(OpenedItem, OfAFolderToLookIntoLetsNobodyRenameTheFolder) {
  const ScratchPlace place;
  const Text folder = place.Folder(u"a");
  std::optional<OpenedFolder> opened = OpenFolderAt(folder);
  ASSERT_TRUE(opened);
  EXPECT_TRUE(opened->held);
  EXPECT_FALSE(MoveFileExW(Wide(folder), Wide(place.In(u"b")), 0));
  opened.reset();
  EXPECT_TRUE(MoveFileExW(Wide(folder), Wide(place.In(u"b")), 0));
}

TEST(OpenedItem, OfAFolderIsHadWhereSomebodyHoldsItForDeletion) {
  const ScratchPlace place;
  const Text folder = place.Folder(u"a");
  place.Folder(u"a\\b");
  const std::optional<OpenedItem> lower = OpenItem(place.In(u"a\\b")), holder = OpenItem(folder);
  ASSERT_TRUE(holder && lower);
  const std::optional<OpenedFolder> top = OpenFolderAt(folder);
  ASSERT_TRUE(top);
  EXPECT_FALSE(top->held);
  const std::optional<ListedItem> listed = FindIn(top->handle.Get(), u"B");
  ASSERT_TRUE(listed);
  EXPECT_EQ(listed->name, u"b");
  const std::optional<OpenedFolder> inner = OpenFolderIn(top->handle.Get(), *listed);
  ASSERT_TRUE(inner);
  EXPECT_FALSE(inner->held);
}

}  // namespace
}  // namespace tavix::windows
