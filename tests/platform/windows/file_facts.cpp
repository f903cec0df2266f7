#include "platform/windows/file_facts.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/windows/file_handle.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_clock.h"
#include "support/case.h"

namespace tavix::windows {
namespace {

class FileFactsOfWindows : public testing::Test {
 protected:
  ScratchPlace place;
  WindowsFileSystem files;
};

TEST(IsLink, AsksTheTag) {
  constexpr DWORD kOnlineFile = 0x9000001A, kProgramAlias = 0x8000001B;
  EXPECT_TRUE(IsLink(FILE_ATTRIBUTE_REPARSE_POINT, IO_REPARSE_TAG_MOUNT_POINT));
  EXPECT_TRUE(IsLink(FILE_ATTRIBUTE_REPARSE_POINT, IO_REPARSE_TAG_SYMLINK));
  EXPECT_TRUE(IsLink(FILE_ATTRIBUTE_REPARSE_POINT, 0));
  EXPECT_FALSE(IsLink(FILE_ATTRIBUTE_REPARSE_POINT, kOnlineFile));
  EXPECT_TRUE(IsLink(FILE_ATTRIBUTE_REPARSE_POINT, kProgramAlias));
  EXPECT_FALSE(IsLink(FILE_ATTRIBUTE_ARCHIVE, kProgramAlias));
  EXPECT_FALSE(IsLink(FILE_ATTRIBUTE_DIRECTORY, IO_REPARSE_TAG_MOUNT_POINT));
}

TEST(IsKeptOnline, IsWhatTheSystemWouldDownload) {
  constexpr DWORD kRecallOnOpen = 0x00040000, kRecallOnDataAccess = 0x00400000;
  for (const DWORD attribute : {DWORD{FILE_ATTRIBUTE_OFFLINE}, kRecallOnOpen, kRecallOnDataAccess}) {
    EXPECT_TRUE(IsKeptOnline(attribute)) << attribute;
    EXPECT_TRUE(IsKeptOnline(attribute | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_REPARSE_POINT)) << attribute;
  }
  // Pinned and unpinned files (0x00080000, 0x00100000) may well have their content here.
  for (const DWORD attribute : {DWORD{FILE_ATTRIBUTE_ARCHIVE}, DWORD{FILE_ATTRIBUTE_REPARSE_POINT},
                                DWORD{FILE_ATTRIBUTE_SPARSE_FILE}, DWORD{0x00080000}, DWORD{0x00100000}}) {
    EXPECT_FALSE(IsKeptOnline(attribute)) << attribute;
  }
}

TEST(IsStandIn, IsALinkThatCantBeOpenedAsAFile) {
  for (const DWORD tag : {0x8000001BU, 0x80000023U, 0x80000024U, 0x80000025U, 0x80000026U}) {
    EXPECT_TRUE(IsStandIn(FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_ARCHIVE, tag)) << tag;
    EXPECT_TRUE(IsLink(FILE_ATTRIBUTE_REPARSE_POINT, tag)) << tag;
    EXPECT_FALSE(IsStandIn(FILE_ATTRIBUTE_ARCHIVE, tag)) << tag;
  }
  EXPECT_FALSE(IsStandIn(FILE_ATTRIBUTE_REPARSE_POINT, IO_REPARSE_TAG_SYMLINK));
}

TEST_F(FileFactsOfWindows, AFileThatIsKeptOnlineIsNotRead) {
  const Text path = place.File(u"a");
  SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_OFFLINE);
  if ((AttributesOf(path) & FILE_ATTRIBUTE_OFFLINE) == 0) GTEST_SKIP() << "no such attribute on this drive";
  EXPECT_FALSE(files.ReadFile(path));
  EXPECT_EQ(files.FileExists(path), true);
  EXPECT_EQ(files.Look(path)->size, 7U);
}

TEST_F(FileFactsOfWindows, ShowTheLocalTimesThatTheSystemShows) {
  const Text path = place.File(u"a.txt");
  SYSTEMTIME wanted = {2024, 7, 0, 15, 12, 30, 45, 123}, inTheZone;
  FILETIME time;
  ASSERT_TRUE(SystemTimeToFileTime(&wanted, &time));
  {
    const FileHandle file(CreateFileW(Wide(path), FILE_WRITE_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(SetFileTime(file.Get(), nullptr, nullptr, &time));
  }
  ASSERT_TRUE(SystemTimeToTzSpecificLocalTime(nullptr, &wanted, &inTheZone));
  const platform::DateTime shown = ToDateTime(inTheZone.wYear, inTheZone.wMonth, inTheZone.wDay,
                                              inTheZone.wHour, inTheZone.wMinute, inTheZone.wSecond, 123);
  EXPECT_EQ(files.Look(path)->modified, shown);
  files.List(place.Path(),
             [shown](const platform::DirectoryEntry& entry) { EXPECT_EQ(entry.modified, shown); });
}

TEST(LocalTimes, TellNoTimeFromTheStartOf1970) {
  LocalTimes times;
  EXPECT_EQ(times.Of({}), platform::kUnknownTime);
  SYSTEMTIME local = {1970, 1, 0, 1, 0, 0, 0, 0}, universal;
  FILETIME time;
  ASSERT_TRUE(TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal));
  ASSERT_TRUE(SystemTimeToFileTime(&universal, &time));
  EXPECT_EQ(times.Of(time), 0);
}

TEST_F(FileFactsOfWindows, HaveTheNamesOfTheDisk) {
  place.Folder(u"MiXed");
  place.File(u"MiXed\\NaMe.TXT");
  Text shouted = place.In(u"MIXED\\name.txt");
  shouted[0] = u'c';
  const auto facts = files.Look(shouted);
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->path, place.In(u"MiXed\\NaMe.TXT"));
  EXPECT_EQ(facts->name, u"NaMe.TXT");
  EXPECT_EQ(facts->size, 7U);
  EXPECT_FALSE(facts->folder);
}

TEST_F(FileFactsOfWindows, OfADrivesRoot) {
  for (const TextView root : {u"C:\\", u"c:", u"C:\\windows\\.."}) {
    SCOPED_TRACE(Case(root));
    const auto facts = files.Look(root);
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->path, u"C:\\");
    EXPECT_TRUE(facts->folder);
    EXPECT_FALSE(facts->link);
  }
  EXPECT_FALSE(files.Look(u"Q:\\"));
  EXPECT_EQ(files.FolderExists(u"Q:\\"), false);
}

TEST(IsNotFound, IsWhatTheSystemSaysOfAMissingNameOrDriveAndNothingElse) {
  for (const DWORD error : {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME,
                            ERROR_BAD_PATHNAME, ERROR_FILENAME_EXCED_RANGE, ERROR_DIRECTORY,
                            ERROR_INVALID_DRIVE, ERROR_NOT_READY, ERROR_NO_MEDIA_IN_DRIVE}) {
    EXPECT_TRUE(IsNotFound(error)) << error;
  }
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_TOO_MANY_OPEN_FILES,
                            ERROR_NOT_ENOUGH_MEMORY, ERROR_NO_SYSTEM_RESOURCES, ERROR_BAD_NETPATH,
                            ERROR_BAD_NET_NAME, ERROR_NETNAME_DELETED, ERROR_DEV_NOT_EXIST, ERROR_SEM_TIMEOUT,
                            ERROR_LOGON_FAILURE, ERROR_CANT_ACCESS_FILE, ERROR_CANT_RESOLVE_FILENAME,
                            ERROR_UNRECOGNIZED_VOLUME, ERROR_FILE_CORRUPT, ERROR_CRC, ERROR_GEN_FAILURE}) {
    EXPECT_FALSE(IsNotFound(error)) << error;
  }
}

TEST_F(FileFactsOfWindows, OfAFileThatIsHeldAreThereNevertheless) {
  const Text path = place.File(u"held");
  const FileHandle held(
      CreateFileW(Wide(path), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(held);
  EXPECT_EQ(files.FileExists(path), true);
}

TEST_F(FileFactsOfWindows, OfALinkAreItsOwn) {
  const Text target = place.Folder(u"target");
  place.File(u"target\\in.txt");
  place.FolderLink(u"link", target);
  const auto facts = files.Look(place.In(u"link"));
  ASSERT_TRUE(facts);
  EXPECT_TRUE(facts->link);
  EXPECT_EQ(files.FolderExists(place.In(u"link")), true);
  EXPECT_EQ(files.FileExists(place.In(u"link")), false);
  const auto through = files.Look(place.In(u"link\\IN.TXT"));
  ASSERT_TRUE(through);
  EXPECT_FALSE(through->link);
  EXPECT_EQ(through->path, place.In(u"link\\in.txt"));
}

TEST_F(FileFactsOfWindows, ListedALinkIsALinkAndIsListedThrough) {
  const Text target = place.Folder(u"target");
  place.File(u"target\\in.txt");
  place.FolderLink(u"link", target);
  std::vector<std::pair<Text, bool>> found;
  const auto note = [&found](const platform::DirectoryEntry& entry) {
    found.emplace_back(entry.name, entry.link);
  };
  ASSERT_TRUE(files.List(place.Path(), note));
  EXPECT_EQ(found, (std::vector<std::pair<Text, bool>>{{u"link", true}, {u"target", false}}));
  found.clear();
  ASSERT_TRUE(files.List(place.In(u"link"), note));
  EXPECT_EQ(found, (std::vector<std::pair<Text, bool>>{{u"in.txt", false}}));
}

TEST_F(FileFactsOfWindows, ListInTheOrderOfUpperCasedNames) {
  for (const TextView name : {u"b", u"_", u"A", u"a1", u"\u00E4", u"Z", u"B1"}) place.File(name);
  Text order;
  ASSERT_TRUE(
      files.List(place.Path(), [&order](const auto& entry) { order.append(entry.name).append(u" "); }));
  EXPECT_EQ(order, u"A a1 b B1 Z _ \u00E4 ");
}

TEST_F(FileFactsOfWindows, ShowOnlyTheAttributesOfTheInterface) {
  const Text path = place.File(u"a");
  ASSERT_TRUE(SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                                 FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED));
  static constexpr uint32_t kShown =
      platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive;
  EXPECT_EQ(files.Look(path)->attributes, kShown);
  ASSERT_TRUE(files.List(place.Path(), [](const auto& entry) { EXPECT_EQ(entry.attributes, kShown); }));
}

TEST_F(FileFactsOfWindows, AnEmptyFolderListsNothingAndAFileCantBeListed) {
  const auto none = [](const platform::DirectoryEntry&) { ADD_FAILURE(); };
  EXPECT_TRUE(files.List(place.Path(), none));
  const Text file = place.File(u"a");
  EXPECT_FALSE(files.List(file, none));
  EXPECT_FALSE(files.List(place.In(u"missing"), none));
}

TEST_F(FileFactsOfWindows, APatternIsNoPath) {
  place.File(u"a");
  EXPECT_FALSE(files.Look(place.In(u"*")));
  EXPECT_FALSE(files.Look(place.In(u"?")));
  EXPECT_FALSE(files.DeleteFile(place.In(u"*"), true));
  EXPECT_EQ(ContentOf(place.In(u"a")), "content");
}

}  // namespace
}  // namespace tavix::windows
