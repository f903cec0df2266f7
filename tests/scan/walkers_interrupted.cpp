#include <algorithm>
#include <span>

#include "frame/support/file_system_object.h"
#include "scan/scan_driver.h"
#include "scan/walkers_test.h"

namespace tavix::mdlPubSelf {
namespace {

// Walks that are cancelled, that meet failures, or whose folders change during the walk.

TEST_F(Walkers, CancelAmongTheRowsOfAFolderLetsThemAllInAndNoDeeperFolder) {
  struct CancelAtRow : ControlPeer {
    void ModelChanged() override { CancelRequested = CancelRequested || ResultCount() >= 3; }
  } peer;
  for (int i = 0; i < 10; ++i) AddDead(Concat(u"C:\\T\\a\\", ToText(i), u".lnk"));
  AddDead(u"C:\\T\\a\\deep\\x.lnk");
  AddDead(u"C:\\T\\b\\x.lnk");
  for (const Walker& walker : kWalkers) {
    CancelRequested = false;
    frmPubMain.lsvResult.peer = &peer;
    YieldCount yields;
    EXPECT_EQ(Walk(walker, u"C:\\T").size(), 10U) << walker.name;
    frmPubMain.lsvResult.peer = nullptr;
    EXPECT_EQ(yields.count, 2) << walker.name << ": folders already entered are completed";
    EXPECT_EQ(Status(), Scanning(u"C:\\T\\a"));
  }
  CancelRequested = true;
  for (const Walker& walker : kWalkers) EXPECT_TRUE(Walk(walker, u"C:\\T").empty()) << walker.name;
}

TEST_F(Walkers, CancelAtAYieldEntersNoFurtherFolder) {
  for (const TextView path : {u"C:\\T\\a\\1.lnk", u"C:\\T\\b\\2.lnk", u"C:\\T\\c\\3.lnk"}) AddDead(path);
  for (const Walker& walker : kWalkers) {
    CancelRequested = false;
    YieldCount yields;
    yields.actAt = 2;
    yields.act = [] { sbtCancel_Click(); };
    EXPECT_EQ(Walk(walker, u"C:\\T"), (std::vector<Text>{u"C:\\T\\a\\1.lnk", u"C:\\T\\b\\2.lnk"}))
        << walker.name;
    EXPECT_EQ(yields.count, 3);
  }
}

TEST_F(Walkers, CancelInABigFolderLeavesItInTheMiddle) {
  constexpr size_t kFiles = 5'000;
  for (size_t i = 0; i < kFiles; ++i) {
    Text number = ToText(static_cast<long long>(i));
    number.insert(0, 4 - number.size(), u'0');
    AddDead(Concat(u"C:\\T\\", number, u".lnk"));
  }
  for (const Walker& walker : kWalkers) {
    CancelRequested = false;
    const std::vector<Text> all = Walk(walker, u"C:\\T");
    ASSERT_EQ(all.size(), kFiles);
    YieldCount yields;
    yields.actAt = 7;
    yields.act = [] { sbtCancel_Click(); };
    const std::vector<Text> some = Walk(walker, u"C:\\T");
    EXPECT_GT(some.size(), 0U) << walker.name;
    EXPECT_LT(some.size(), kFiles) << walker.name;
    EXPECT_TRUE(std::ranges::equal(some, std::span(all).first(some.size()))) << walker.name;
  }
}

TEST_F(Walkers, AFileThatCannotBeOpenedIsShownWithTheSizeOfTheOneBefore) {
  for (const TextView path : {u"C:\\T\\a.tmp", u"C:\\T\\c.tmp", u"C:\\T\\e.tmp"})
    machine.files.faults.Fail(u"Look", path);
  AddFile(u"C:\\T\\a.tmp", 1);
  AddFile(u"C:\\T\\b.tmp", 2);
  AddFile(u"C:\\T\\c.tmp", 3);
  AddFile(u"C:\\T\\d.tmp", 4);
  AddFile(u"C:\\T\\e.tmp", 5);
  AddFile(u"C:\\T\\sub\\f.tmp", 6);
  machine.files.faults.Fail(u"Look", u"C:\\T\\sub\\f.tmp");
  WalkFolderByPattern(u"C:\\T", u"t", u"*.tmp");
  const RowFields none = {u"t", u"a.tmp", u"", u"C:\\T", u"", u"F", true};
  RowFields other = none;
  other.name = u"f.tmp";
  other.location = u"C:\\T\\sub";
  EXPECT_EQ(ResultRows(),
            (std::vector{none, FileRow(u"t", u"C:\\T", u"b.tmp", 2), FileRow(u"t", u"C:\\T", u"c.tmp", 2),
                         FileRow(u"t", u"C:\\T", u"d.tmp", 4), FileRow(u"t", u"C:\\T", u"e.tmp", 4), other}))
      << "each folder begins without an object";
}

TEST_F(Walkers, TheAgeTestReadsTheFileBeforeWhereOneCannotBeOpened) {
  const auto add = [&](TextView name, platform::DateTime accessed, bool opens) {
    const Text path = Concat(u"C:\\T\\", name);
    machine.files.AddFile(path, {.accessed = accessed});
    if (!opens) machine.files.faults.Fail(u"Look", path);
  };
  add(u"a.pf", 1000 * kDay, false);  // no file opened yet: listed untested
  add(u"b.pf", 1000 * kDay, true);
  add(u"c.pf", 900 * kDay, false);  // tested with the time of b
  add(u"d.pf", 900 * kDay, true);
  add(u"e.pf", 1000 * kDay, false);  // tested with the time of d
  WalkFolderByPatternAge(u"C:\\T", u"t", u"*.pf", 7);
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\T\\a.pf", u"C:\\T\\d.pf", u"C:\\T\\e.pf"}));
}

TEST_F(Walkers, AFileOfAFolderWhoseSizeCannotBeReadHasNone) {
  AddFile(u"C:\\T\\a.tmp", 1);
  AddFile(u"C:\\T\\b.tmp", 2);
  machine.files.faults.Fail(u"Look", u"C:\\T\\b.tmp");
  for (const Walker& walker : {kWalkers[0], kWalkers[1]}) {
    ClearResults();
    walker.walk(u"C:\\T");
    EXPECT_EQ(ResultRows(), (std::vector{FileRow(u"t", u"C:\\T", u"a.tmp", 1),
                                         RowFields{u"t", u"b.tmp", u"", u"C:\\T", u"", u"F", true}}))
        << walker.name;
  }
}

TEST_F(Walkers, AFolderThatCannotBeReadAddsNothingAndTheWalkGoesOn) {
  for (const TextView path :
       {u"C:\\T\\a\\1.lnk", u"C:\\T\\b\\2.lnk", u"C:\\T\\b\\deep\\3.lnk", u"C:\\T\\c\\4.lnk"}) {
    AddDead(path);
  }
  machine.files.faults.Fail(u"List", u"C:\\T\\b");
  for (const Walker& walker : kWalkers) {
    YieldCount yields;
    EXPECT_EQ(Walk(walker, u"C:\\T"), (std::vector<Text>{u"C:\\T\\a\\1.lnk", u"C:\\T\\c\\4.lnk"}))
        << walker.name;
    EXPECT_EQ(yields.count, 4) << walker.name << ": the unreadable folder counts as well";
  }
}

// A folder collection has to open its folder; a file list does not.
TEST_F(Walkers, AFolderWhoseObjectCannotBeHadHasNoSubFolders) {
  AddDead(u"C:\\T\\a.lnk");
  AddDead(u"C:\\T\\sub\\b.lnk");
  machine.files.faults.Fail(u"Look", u"C:\\T");
  for (const Walker& walker : kWalkers) {
    frmPubMain.lblProgS.Caption = u"before";
    EXPECT_EQ(Walk(walker, u"C:\\T"),
              walker.byFileList ? std::vector<Text>{u"C:\\T\\a.lnk"} : std::vector<Text>())
        << walker.name;
    EXPECT_EQ(Status(), walker.byFileList ? Scanning(u"C:\\T") : Text(u"before")) << walker.name;
  }
}

TEST_F(Walkers, AFolderThatGoesDuringTheWalkIsPassedOver) {
  for (const TextView path : {u"C:\\T\\a\\1.lnk", u"C:\\T\\b\\2.lnk", u"C:\\T\\c\\3.lnk"}) AddDead(path);
  YieldCount yields;
  yields.actAt = 1;
  yields.act = [&] { machine.files.DeleteFolder(u"C:\\T\\b", true); };
  WalkFolderFiles(u"C:\\T", u"t");
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\T\\a\\1.lnk", u"C:\\T\\c\\3.lnk"}));
  EXPECT_EQ(yields.count, 3);
}

// The window may be closed while the walk yields.
TEST_F(Walkers, AWalkEndsWhenTheServicesAreReleased) {
  for (const TextView path : {u"C:\\T\\a\\1.lnk", u"C:\\T\\b\\2.lnk"}) AddDead(path);
  YieldCount yields;
  yields.actAt = 1;
  yields.act = [] { fileSystemObject = {}; };
  WalkFolderFiles(u"C:\\T", u"t");
  EXPECT_EQ(ResultCount(), 1);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
