#include "scan/walkers.h"

#include <functional>

#include "doubles/odd_names.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "platform/event_queue.h"
#include "platform/shortcut_bytes.h"
#include "scan/scan_driver.h"
#include "scan/scan_test.h"
#include "scan/walkers_test.h"

namespace tavix::mdlPubSelf {
namespace {

TEST_F(Walkers, AFolderThatDoesNotExistGivesNoRowAndNoStatusText) {
  AddFile(u"C:\\file");
  frmPubMain.lblProgS.Caption = u"before";
  YieldCount yields;
  for (const Walker& walker : kWalkers) {
    for (const TextView folder : {u"C:\\nowhere", u"", u"C:\\file", u"relative", u"Q:\\"}) {
      EXPECT_TRUE(Walk(walker, folder).empty()) << walker.name;
    }
  }
  EXPECT_EQ(Status(), u"before");
  EXPECT_EQ(yields.count, 0);
}

TEST_F(Walkers, AnEmptyFolderShowsItsStatusTextAndGivesNoRow) {
  machine.files.AddFolder(u"C:\\Empty");
  for (const Walker& walker : kWalkers) {
    frmPubMain.lblProgS.Caption = u"before";
    EXPECT_TRUE(Walk(walker, u"C:\\Empty").empty()) << walker.name;
    EXPECT_EQ(Status(), Scanning(u"C:\\Empty")) << walker.name;
  }
}

TEST_F(Walkers, FilesOfAFolderComeBeforeThoseOfItsSubFoldersDepthFirst) {
  for (const TextView path : {u"C:\\T\\z.lnk", u"C:\\T\\B\\b.lnk", u"C:\\T\\a\\deep\\d.lnk",
                              u"C:\\T\\a\\y.lnk", u"C:\\T\\A.lnk", u"C:\\T\\B\\a\\x.lnk"}) {
    AddDead(path);
  }
  const std::vector<Text> order = {u"C:\\T\\A.lnk",          u"C:\\T\\z.lnk",    u"C:\\T\\a\\y.lnk",
                                   u"C:\\T\\a\\deep\\d.lnk", u"C:\\T\\B\\b.lnk", u"C:\\T\\B\\a\\x.lnk"};
  YieldCount yields;
  for (const Walker& walker : kWalkers) EXPECT_EQ(Walk(walker, u"C:\\T"), order) << walker.name;
  EXPECT_EQ(yields.count, 5 * 5) << "once per folder";
}

TEST_F(Walkers, ARowHasTheFieldsOfAFile) {
  machine.files.AddFile(u"C:\\T\\Sub\\a.lnk", {.content = DeadShortcut(), .size = 1536});
  for (const Walker& walker : kWalkers) {
    ClearResults();
    walker.walk(u"C:\\T");
    EXPECT_EQ(ResultRows(),
              (std::vector{RowFields{u"t", u"a.lnk", u"1.5", u"C:\\T\\Sub", u"00000001.5", u"F", true}}))
        << walker.name;
  }
}

TEST_F(Walkers, AFileOfNoBytesHasTheSizeZeroAndAPoint) {
  AddFile(u"C:\\T\\empty.tmp", 0);
  for (const int kind : {0, 1}) {
    ClearResults();
    kind == 0 ? WalkFolderFiles(u"C:\\T", u"t") : WalkFolderByPattern(u"C:\\T", u"t", u"*.tmp");
    EXPECT_EQ(ResultRows()[0].size, u"0.");
    EXPECT_EQ(ResultRows()[0].sizeKey, u"00000000.0");
  }
}

TEST_F(Walkers, HiddenAndSystemFilesAndFoldersAreListedByAllFive) {
  AddDead(u"C:\\T\\hidden.lnk");
  AddDead(u"C:\\T\\dir\\sys.lnk");
  machine.files.SetAttributes(u"C:\\T\\hidden.lnk", platform::kHidden);
  machine.files.SetAttributes(u"C:\\T\\dir", platform::kHidden | platform::kSystem);
  machine.files.SetAttributes(u"C:\\T\\dir\\sys.lnk", platform::kSystem | platform::kReadOnly);
  for (const Walker& walker : kWalkers) {
    EXPECT_EQ(Walk(walker, u"C:\\T"), (std::vector<Text>{u"C:\\T\\hidden.lnk", u"C:\\T\\dir\\sys.lnk"}))
        << walker.name;
  }
}

TEST_F(Walkers, AnEmptyPatternListIsEveryFileOfTheTree) {
  for (const TextView path : {u"C:\\T\\a.b.c", u"C:\\T\\noext", u"C:\\T\\x\\.dot"}) AddFile(path);
  WalkFolderByPattern(u"C:\\T", u"t", u"");
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\T\\a.b.c", u"C:\\T\\noext", u"C:\\T\\x\\.dot"}));
  EXPECT_EQ(frmPubMain.flb.Pattern, Text(u"*.*"));
}

TEST_F(Walkers, SeveralPatternsGiveEachFileOnce) {
  for (const TextView path : {u"C:\\T\\a.chk", u"C:\\T\\chklist.ms", u"C:\\T\\FILE01._DD", u"C:\\T\\x.txt"})
    AddFile(path);
  WalkFolderByPattern(u"C:\\T", u"t", u"*.chk;a.*;chklist.m*;file????._dd");
  EXPECT_EQ(Paths(ResultRows()),
            (std::vector<Text>{u"C:\\T\\a.chk", u"C:\\T\\chklist.ms", u"C:\\T\\FILE01._DD"}));
}

TEST_F(Walkers, AFileOfExactlyTheAgeLimitPassesTheAgeTest) {
  // The scan runs at noon of day 1000.
  const struct {
    TextView name;
    platform::DateTime accessed;
    bool passesSeven;
  } files[] = {
      {u"a7.pf", 994 * kDay - 1, true},
      {u"b7.pf", 993 * kDay, true},
      {u"c6.pf", 994 * kDay, false},
      {u"d0.pf", 1000 * kDay, false},
      {u"e0.pf", 1001 * kDay, false},
      {u"f.pf", -5 * kDay - 1, true},
      {u"g.pf", 0, true},  // the start of 1970
  };
  std::vector<Text> all, seven;
  for (const auto& file : files) {
    const Text path = Concat(u"C:\\T\\", file.name);
    machine.files.AddFile(path, {.accessed = file.accessed});
    all.push_back(path);
    if (file.passesSeven) seven.push_back(path);
  }
  AddFile(u"C:\\T\\other.txt");
  const auto walk = [](int16_t days) {
    ClearResults();
    WalkFolderByPatternAge(u"C:\\T", u"t", u"*.pf", days);
    return Paths(ResultRows());
  };
  EXPECT_EQ(walk(7), seven);
  EXPECT_EQ(walk(0), all) << "0 days: all that match";
  EXPECT_EQ(walk(-1), all);
  EXPECT_TRUE(walk(INT16_MAX).empty());
}

TEST_F(Walkers, AFileWhoseTimeOfAccessIsNotKnownIsNotOld) {
  machine.files.AddFile(u"C:\\T\\unknown.pf", {.accessed = platform::kUnknownTime});
  WalkFolderByPatternAge(u"C:\\T", u"t", u"*.pf", 1);
  EXPECT_EQ(ResultCount(), 0);
  WalkFolderByPatternAge(u"C:\\T", u"t", u"*.pf", 0);
  EXPECT_EQ(ResultCount(), 1) << "without days no time is asked for";
}

TEST_F(Walkers, TheNameLeftOutStaysOutAtAnyDepthAndInAnyCase) {
  for (const TextView path : {u"C:\\T\\index.dat", u"C:\\T\\a\\INDEX.DAT", u"C:\\T\\a\\b\\Index.Dat",
                              u"C:\\T\\a\\x", u"C:\\T\\index.dat.txt", u"C:\\T\\index.dat folder\\y"}) {
    AddFile(path);
  }
  WalkFolderFilesExcept(u"C:\\T", u"t", u"index.dat");
  EXPECT_EQ(Paths(ResultRows()),
            (std::vector<Text>{u"C:\\T\\index.dat.txt", u"C:\\T\\a\\x", u"C:\\T\\index.dat folder\\y"}));
}

TEST_F(Walkers, OnlyShortcutsKnownToLeadNowhereAreRows) {
  using namespace platform::shortcut_bytes;
  AddFile(u"C:\\there.exe");
  machine.files.AddFile(
      u"C:\\T\\good.lnk",
      {.content = Header(kHasLocation) + LocationBlock({.flags = 1, .path = u"C:\\there.exe"}) + U32(0)});
  machine.files.AddFile(u"C:\\T\\garbage.lnk", {.content = "no shortcut"});
  machine.files.AddFile(u"C:\\T\\dead.txt", {.content = DeadShortcut()});
  AddDead(u"C:\\T\\dead.LNK");
  machine.files.AddFolder(u"C:\\T\\folder.lnk");
  WalkInvalidShortcuts(u"C:\\T", u"t");
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\T\\dead.LNK"}));
}

// Windows drops the blank or dot from the path, and would open another file or folder.
TEST_F(Walkers, NamesThatEndInABlankOrADotAreNoRowsAndNotEntered) {
  AddDead(u"C:\\T\\folder\\a.lnk");
  AddDead(u"C:\\T\\x.lnk");
  AddFile(u"C:\\T\\x.tmp");
  OddNames odd(machine.store, machine.facts);
  fileSystemObject = FileSystemObject(&odd);
  platform::fileSystem = &odd;
  for (const Walker& walker : kWalkers) {
    std::vector<Text> found = Walk(walker, u"C:\\T");
    std::erase(found, u"C:\\T\\x.tmp");
    EXPECT_EQ(found, (std::vector<Text>{u"C:\\T\\x.lnk", u"C:\\T\\folder\\a.lnk"})) << walker.name;
  }
  ClearResults();
  WalkFolderByPattern(u"C:\\T", u"t", u"");
  EXPECT_EQ(ResultCount(), 3);
}

TEST_F(Walkers, TheRootOfADriveHasItsBackslashInTheLocation) {
  AddDead(u"C:\\root.lnk");
  AddDead(u"C:\\sub\\x.lnk");
  machine.files.DeleteFolder(u"C:\\MORVDataPath", true);
  for (const Walker& walker : kWalkers) {
    EXPECT_EQ(Walk(walker, u"C:\\"), (std::vector<Text>{u"C:\\\\root.lnk", u"C:\\sub\\x.lnk"}))
        << walker.name << ": the path that the cleaner composes has two backslashes";
  }
  CleaningMethod = u"D";
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(machine.files.FileExists(u"C:\\root.lnk"), false);
}

TEST_F(Walkers, ABackslashAtTheEndOfTheFolderIsLeftOutOfTheLocation) {
  AddDead(u"C:\\T\\a.lnk");
  for (const Walker& walker : kWalkers) {
    ClearResults();
    walker.walk(u"C:\\T\\");
    EXPECT_EQ(ResultRows()[0].location, u"C:\\T") << walker.name;
    EXPECT_EQ(Status(), Scanning(walker.byFileList ? u"C:\\T\\" : u"C:\\T"))
        << walker.name << ": the argument as given, or the path of the folder";
  }
}

TEST_F(Walkers, InFileListsOnlyADriveRootEndsWithABackslash) {
  AddDead(u"C:\\root.lnk");
  AddDead(u"C:\\T\\a.lnk");
  const struct {
    TextView folder, location;
  } cases[] = {{u"C:", u"C:\\"},     {u"C:\\", u"C:\\"},  {u"C:/", u"C:\\"},        {u"c:\\\\", u"c:\\"},
               {u"C:\\T", u"C:\\T"}, {u"c:/T/", u"c:/T"}, {u"C:\\T\\/\\", u"C:\\T"}};
  for (const Walker& walker : kWalkers) {
    if (!walker.byFileList) continue;
    for (const auto& [folder, location] : cases) {
      ClearResults();
      walker.walk(folder);
      ASSERT_GE(ResultCount(), 1);
      EXPECT_EQ(ResultRows()[0].location, location) << walker.name;
    }
  }
}

TEST_F(Walkers, NamesAreAsTheDiskHasThemBelowTheFolderThatWasNamed) {
  AddDead(u"C:\\Temp\\Sub\\a.lnk");
  for (const Walker& walker : kWalkers) {
    ClearResults();
    walker.walk(u"c:\\TEMP");
    EXPECT_EQ(ResultRows()[0].location, u"C:\\Temp\\Sub") << walker.name;
  }
  WalkFolderFiles(u"c:\\temp\\SUB", u"t");
  EXPECT_EQ(Status(), Scanning(u"C:\\Temp\\Sub"));
}

TEST_F(Walkers, ARowKnowsTheFolderWhereItsWalkBegan) {
  AddFile(u"C:\\T\\1.tmp");
  AddFile(u"C:\\T\\a\\b\\2.tmp");
  WalkFolderFiles(u"c:/t/", u"t");
  ASSERT_EQ(ResultCount(), 2);
  EXPECT_EQ(WalkStart(frmPubMain.lsvResult.Row(1)), u"C:\\T");
  EXPECT_EQ(WalkStart(frmPubMain.lsvResult.Row(2)), u"C:\\T");
  ClearResults();
  WalkFolderByPattern(u"C:\\", u"t", u"*.tmp");
  ASSERT_EQ(ResultCount(), 2);
  EXPECT_EQ(WalkStart(frmPubMain.lsvResult.Row(1)), u"C:\\");
  EXPECT_EQ(WalkStart(frmPubMain.lsvResult.Row(2)), u"C:\\");
}

TEST_F(Walkers, AFolderOfManyThousandFilesIsListedInOrder) {
  constexpr int kFiles = 100'000;
  for (int i = kFiles; i-- > 0;) {
    const Text number = ToText(i);
    machine.files.AddFile(Concat(u"C:\\T\\", Text(6 - number.size(), u'0'), number));
  }
  WalkFolderFiles(u"C:\\T", u"t");
  ASSERT_EQ(ResultCount(), kFiles);
  EXPECT_EQ(frmPubMain.lsvResult.Row(1).SubItems(kNameColumn), u"000000");
  EXPECT_EQ(frmPubMain.lsvResult.Row(kFiles).SubItems(kNameColumn), u"099999");
}

TEST_F(Walkers, AChainOfFiveThousandFoldersIsWalkedToItsEnd) {
  Text path = u"C:\\T";
  for (int i = 0; i < 5000; ++i) path += u"\\d";
  AddDead(path + u"\\end.lnk");
  for (const Walker& walker : kWalkers) {
    EXPECT_EQ(Walk(walker, u"C:\\T"), std::vector<Text>{path + u"\\end.lnk"}) << walker.name;
  }
}

TEST_F(Walkers, LongNamesAndPathsAreWholeInTheRow) {
  const Text name(251, u'n');
  Text path = u"C:\\T";
  while (path.size() < 3200) path += Concat(u"\\", Text(255, u'd'));
  AddDead(Concat(path, u"\\", name, u".lnk"));
  for (const Walker& walker : kWalkers) {
    ClearResults();
    walker.walk(u"C:\\T");
    ASSERT_EQ(ResultCount(), 1) << walker.name;
    EXPECT_EQ(ResultRows()[0].location, path);
    EXPECT_EQ(ResultRows()[0].name, name + u".lnk");
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
