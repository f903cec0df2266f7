#include "platform/windows/found_item.h"

#include <gtest/gtest.h>

#include "platform/windows/file_handle.h"
#include "platform/windows/opened_item.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "support/found_item.h"

namespace tavix::windows {
namespace {

// The shell takes what stands at the path, and a folder that isn't held could be exchanged meanwhile.
TEST(FoundItemOfWindows, IsLeftToTheShellOnlyWhereEachFolderOnItsPathIsHeld) {
  const ScratchPlace place;
  const Text start = place.Folder(u"t"), inner = place.Folder(u"t\\in");
  place.File(u"t\\in\\a", "mine");
  WindowsFileSystem files;
  const auto isLeft = [&] {
    const auto item = OpenFoundItem(files, start, u"in\\a");
    return item != nullptr && item->LeaveToShell();
  };
  EXPECT_TRUE(isLeft());
  for (const Text& folder : {start, inner}) {
    const std::optional<OpenedItem> holder = OpenItem(folder);
    ASSERT_TRUE(holder);
    EXPECT_FALSE(isLeft());
  }
  EXPECT_TRUE(isLeft());
}

// A clean lets the folder go before it removes the folder itself.
TEST(FoundItemOfWindows, HasItsFoldersHeldUntilTheyAreLetGo) {
  const ScratchPlace place;
  const Text folder = place.Folder(u"t");
  place.Folder(u"t\\in");
  place.File(u"t\\in\\a");
  WindowsFileSystem files;
  auto found = files.OpenFound(place.Path(), u"t\\in");
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(found->Stands());
  EXPECT_TRUE(found->Open(u"a")->DeleteFile());
  EXPECT_FALSE(MoveFileExW(Wide(folder), Wide(place.In(u"moved")), 0));
  EXPECT_FALSE(files.DeleteFolder(folder, true));
  found = nullptr;
  EXPECT_TRUE(files.DeleteFolder(folder, true));
}

TEST(FoundItemOfWindows, LiesInAFolderThatStandsOnlyWhileItIsHeld) {
  const ScratchPlace place;
  const Text folder = place.Folder(u"t");
  place.File(u"t\\a");
  WindowsFileSystem files;
  const std::optional<OpenedItem> holder = OpenItem(folder);
  ASSERT_TRUE(holder);
  const auto found = files.OpenFound(folder, u"");
  ASSERT_NE(found, nullptr);
  EXPECT_FALSE(found->Stands());
}

// A row holds the names of a listing. A short name in their place belongs to another item.
TEST(FoundItemOfWindows, IsNotOpenedByAShortName) {
  const ScratchPlace place;
  const Text folder = place.Folder(u"a folder with a long name");
  place.File(u"a folder with a long name\\a file with a long name.text", "mine");
  const auto shortName = [](TextView path) {
    WIN32_FIND_DATAW data;
    const FindHandle found(FindFirstFileW(Wide(Text(path)), &data));
    return found ? FromWide(data.cAlternateFileName) : Text();
  };
  const Text shortFolder = shortName(folder);
  const Text shortFile = shortName(folder + u"\\a file with a long name.text");
  if (shortFolder.empty() || shortFile.empty()) GTEST_SKIP() << "this disk keeps no short names";
  WindowsFileSystem files;
  ASSERT_EQ(files.FileExists(place.In(Concat(shortFolder, u"\\", shortFile))), true);
  const Text start = place.Path();
  EXPECT_EQ(OpenFoundItem(files, start, Concat(shortFolder, u"\\a file with a long name.text")), nullptr);
  EXPECT_EQ(OpenFoundItem(files, start, Concat(u"a folder with a long name\\", shortFile)), nullptr);
  EXPECT_NE(OpenFoundItem(files, start, u"A Folder with a long name\\A FILE with a long name.TEXT"), nullptr);
  EXPECT_NE(OpenFoundItem(files, place.In(shortFolder), u"a file with a long name.text"), nullptr)
      << "the start of a walk may have one";
}

constexpr int kRounds = 100;

Text NameOfRound(int round) { return Concat(u"file ", ToText(round)); }

// Deletes and moves files of a folder while another process exchanges the folder with a link. Wine looks a
// path up and deletes by path afterwards. So at full speed about one file in some hundreds is deleted through
// the link, and these tests run only by hand: TAVIX_RACE is the pause between exchanges in milliseconds.
class FoundItemInARace : public testing::Test {
 protected:
  // The pause as a text; empty if no race is wanted.
  static Text Pause() {
    wchar_t pause[16] = {};
    GetEnvironmentVariableW(L"TAVIX_RACE", pause, 16);
    return reinterpret_cast<const char16_t*>(pause);
  }
  static bool Wanted() { return !Pause().empty(); }

  // False if this system can't run the race.
  bool Start() {
    if (!Wanted()) return false;
    place.Folder(u"t");
    place.Folder(u"t\\swapped");
    place.Folder(u"victim");
    place.Folder(u"backup");
    for (int i = 0; i < kRounds; ++i) {
      place.File(Concat(u"t\\swapped\\", NameOfRound(i)), "mine");
      place.File(Concat(u"victim\\", NameOfRound(i)), "the victim's");
    }
    place.FolderLink(u"t\\link", place.In(u"victim"));
    return place.StartExchanging(u"t\\swapped", u"t\\link", Pause());
  }

  std::unique_ptr<platform::FoundItem> Open(int round) {
    return OpenFoundItem(files, place.In(u"t"), Concat(u"swapped\\", NameOfRound(round)));
  }

  Text Mine(int round) const { return place.In(Concat(u"t\\swapped\\", NameOfRound(round))); }
  Text Moved(int round) const { return place.In(Concat(u"backup\\", NameOfRound(round))); }

  void ExpectVictimUntouched() {
    for (int i = 0; i < kRounds; ++i) {
      EXPECT_EQ(ContentOf(place.In(Concat(u"victim\\", NameOfRound(i)))), "the victim's") << i;
    }
  }

  ScratchPlace place;
  WindowsFileSystem files;
};

TEST_F(FoundItemInARace, DeletesNothingOfTheVictim) {
  if (!Start()) GTEST_SKIP() << "to be tried by hand";
  int opened = 0, deleted = 0;
  for (int i = 0; i < kRounds; ++i) {
    const auto item = Open(i);
    if (item == nullptr) continue;
    ++opened;
    if (item->DeleteFile()) ++deleted;
  }
  place.StopExchanging();
  ExpectVictimUntouched();
  // Items that weren't deleted in the race still exist and can be deleted now.
  for (int i = 0; i < kRounds; ++i) {
    const bool exists = files.FileExists(Mine(i)) == true;
    const auto item = Open(i);
    ASSERT_EQ(item != nullptr, exists) << i;
    if (exists) {
      EXPECT_TRUE(item->DeleteFile()) << i;
    }
  }
  ExpectVictimUntouched();
  RecordProperty("opened", opened);
  RecordProperty("deleted", deleted);
}

// A clean keeps the folder open while it stands.
TEST_F(FoundItemInARace, DeletesNothingOfTheVictimByAFolderThatIsKept) {
  if (!Start()) GTEST_SKIP() << "to be tried by hand";
  std::unique_ptr<platform::FoundFolder> folder;
  int deleted = 0;
  for (int i = 0; i < kRounds; ++i) {
    if (folder == nullptr || !folder->Stands()) folder = files.OpenFound(place.In(u"t"), u"swapped");
    const auto item = folder != nullptr ? folder->Open(NameOfRound(i)) : nullptr;
    if (item != nullptr && item->DeleteFile()) ++deleted;
  }
  folder.reset();
  place.StopExchanging();
  ExpectVictimUntouched();
  EXPECT_GT(deleted, 0);
}

TEST_F(FoundItemInARace, MovesNothingOfTheVictim) {
  if (!Start()) GTEST_SKIP() << "to be tried by hand";
  int opened = 0, moved = 0;
  for (int i = 0; i < kRounds; ++i) {
    const auto item = Open(i);
    if (item == nullptr) continue;
    ++opened;
    if (item->MoveFileTo(Moved(i))) ++moved;
  }
  place.StopExchanging();
  ExpectVictimUntouched();
  for (int i = 0; i < kRounds; ++i) {
    EXPECT_TRUE(files.FileExists(Mine(i)) == true || files.FileExists(Moved(i)) == true) << i;
    for (const Text& path : {Mine(i), Moved(i)}) {
      if (files.FileExists(path) == true) {
        EXPECT_EQ(ContentOf(path), "mine") << i;
      }
    }
  }
  RecordProperty("opened", opened);
  RecordProperty("moved", moved);
}

TEST_F(FoundItemInARace, DeletesNoEmptyFolderOfTheVictim) {
  if (!Wanted()) GTEST_SKIP() << "to be tried by hand";
  place.Folder(u"t");
  place.Folder(u"t\\swapped");
  place.Folder(u"victim");
  for (int i = 0; i < kRounds; ++i) {
    for (const TextView folder : {u"t\\swapped\\", u"victim\\"}) {
      place.Folder(Concat(folder, NameOfRound(i)));
      place.File(Concat(folder, NameOfRound(i), u"\\none"), "");
    }
  }
  place.FolderLink(u"t\\link", place.In(u"victim"));
  if (!place.StartExchanging(u"t\\swapped", u"t\\link", Pause())) GTEST_SKIP() << "to be tried by hand";
  for (int i = 0; i < kRounds; ++i) {
    if (const auto item = Open(i)) item->DeleteEmptyFolder();
  }
  place.StopExchanging();
  for (int i = 0; i < kRounds; ++i) {
    EXPECT_EQ(ContentOf(place.In(Concat(u"victim\\", NameOfRound(i), u"\\none"))), "") << i;
  }
}

}  // namespace
}  // namespace tavix::windows
