#include "platform/windows/delete_tree.h"

#include <gtest/gtest.h>

#include "platform/windows/file_handle.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "support/case.h"

namespace tavix::windows {
namespace {

class DeletingOnWindows : public testing::Test {
 protected:
  static bool IsGone(TextView path) { return AttributesOf(path) == INVALID_FILE_ATTRIBUTES; }

  ScratchPlace place;
  WindowsFileSystem files;
};

// Wine always opens the target of a link, so links can't be deleted there.
TEST_F(DeletingOnWindows, ALinkLeavesItsTarget) {
  const Text target = place.Folder(u"target");
  const Text kept = place.File(u"target\\kept.txt");
  const Text link = place.FolderLink(u"link", target);
  EXPECT_EQ(files.DeleteFolder(link, true), !IsWine());
  EXPECT_EQ(IsGone(link), !IsWine());
  EXPECT_EQ(ContentOf(kept), "content");
}

TEST_F(DeletingOnWindows, ALinkLeavesAnEmptyTarget) {
  const Text target = place.Folder(u"target");
  const Text link = place.FolderLink(u"link", target);
  EXPECT_EQ(files.DeleteFolder(link, true), !IsWine());
  EXPECT_FALSE(IsGone(target));
}

TEST_F(DeletingOnWindows, AFolderWithALinkLeavesTheTarget) {
  const Text target = place.Folder(u"target");
  const Text kept = place.File(u"target\\kept.txt");
  const Text tree = place.Folder(u"tree");
  place.Folder(u"tree\\a");
  const Text link = place.FolderLink(u"tree\\a\\link", target);
  const Text other = place.File(u"tree\\a\\zother.txt");
  EXPECT_EQ(files.DeleteFolder(tree, true), !IsWine());
  EXPECT_EQ(IsGone(tree), !IsWine());
  EXPECT_TRUE(IsGone(other));
  EXPECT_EQ(ContentOf(kept), "content");
}

TEST_F(DeletingOnWindows, ALinkToAFileLeavesTheFile) {
  const Text kept = place.File(u"kept.txt");
  if (!place.FileLink(u"link.txt", kept)) GTEST_SKIP() << "no links to files under Wine or without the right";
  EXPECT_TRUE(files.DeleteFile(place.In(u"link.txt"), false));
  EXPECT_TRUE(IsGone(place.In(u"link.txt")));
  EXPECT_EQ(ContentOf(kept), "content");
}

TEST_F(DeletingOnWindows, AFolderIsNoFileAndAFileNoFolder) {
  const Text folder = place.Folder(u"folder"), file = place.File(u"file");
  EXPECT_FALSE(files.DeleteFile(folder, true));
  EXPECT_FALSE(files.DeleteFolder(file, true));
  EXPECT_FALSE(IsGone(folder));
  EXPECT_FALSE(IsGone(file));
}

TEST_F(DeletingOnWindows, HiddenAndSystemGoAndReadOnlyNeedsForce) {
  const struct {
    TextView name;
    DWORD attributes;
    bool goes;
  } kCases[] = {{u"hidden", FILE_ATTRIBUTE_HIDDEN, true},
                {u"system", FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN, true},
                {u"read-only", FILE_ATTRIBUTE_READONLY, false},
                {u"all", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, false}};
  for (const auto& one : kCases) {
    SCOPED_TRACE(Case(one.name));
    const Text path = place.File(one.name);
    ASSERT_TRUE(SetFileAttributesW(Wide(path), one.attributes));
    EXPECT_EQ(files.DeleteFile(path, false), one.goes);
    EXPECT_EQ(IsGone(path), one.goes);
    if (one.goes) continue;
    EXPECT_EQ(AttributesOf(path) & 7, one.attributes & 7);
    EXPECT_TRUE(files.DeleteFile(path, true));
    EXPECT_TRUE(IsGone(path));
  }
}

TEST_F(DeletingOnWindows, AReadOnlyFileInAFolderNeedsForce) {
  const Text tree = place.Folder(u"tree");
  place.Folder(u"tree\\a");
  const Text file = place.File(u"tree\\a\\file");
  ASSERT_TRUE(SetFileAttributesW(Wide(file), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(files.DeleteFolder(tree, false));
  EXPECT_EQ(ContentOf(file), "content");
  EXPECT_TRUE(files.DeleteFolder(tree, true));
  EXPECT_TRUE(IsGone(tree));
}

TEST_F(DeletingOnWindows, AnOpenFileStaysAsItIs) {
  const Text tree = place.Folder(u"tree");
  const Text open = place.File(u"tree\\open"), other = place.File(u"tree\\other");
  ASSERT_TRUE(SetFileAttributesW(Wide(open), FILE_ATTRIBUTE_READONLY));
  const FileHandle held(CreateFileW(Wide(open), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  ASSERT_TRUE(held);
  EXPECT_FALSE(files.DeleteFile(open, true));
  EXPECT_FALSE(files.DeleteFolder(tree, true));
  EXPECT_TRUE(AttributesOf(open) & FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(IsGone(other));
}

TEST_F(DeletingOnWindows, WorksAtAnyDepth) {
  const Text top = place.Folder(u"deep");
  Text path = top;
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(Case(i));
    path += u"\\level";
    ASSERT_TRUE(files.CreateFolder(path));
  }
  EXPECT_GT(path.size(), 1500U);
  ASSERT_TRUE(files.WriteFile(path + u"\\file", "x"));
  EXPECT_TRUE(files.DeleteFolder(top, false));
  EXPECT_TRUE(IsGone(top));
}

TEST_F(DeletingOnWindows, TakesMoreEntriesThanOneReadGives) {
  const Text top = place.Folder(u"wide");
  for (int i = 0; i < 2000; ++i) place.File(Concat(u"wide\\a rather long name of a file ", ToText(i)));
  EXPECT_TRUE(files.DeleteFolder(top, false));
  EXPECT_TRUE(IsGone(top));
}

TEST_F(DeletingOnWindows, ARootIsNeverDeleted) {
  for (const TextView root : {u"Q:\\", u"Q:", u"Q:\\a\\.."})
    EXPECT_FALSE(files.DeleteFolder(root, true)) << Case(root);
  EXPECT_FALSE(DeleteTree(u"Q:\\", true));
}

TEST_F(DeletingOnWindows, MissingAndEmptyFail) {
  for (const Text& path : {Text(), Text(u"relative"), place.In(u"missing")}) {
    SCOPED_TRACE(Case(path));
    EXPECT_FALSE(files.DeleteFile(path, true));
    EXPECT_FALSE(files.DeleteFolder(path, true));
  }
}

}  // namespace
}  // namespace tavix::windows
