#include "advanced/advanced_walker.h"

#include "advanced/advanced_test.h"
#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "platform/event_queue.h"
#include "scan/painting_watch.h"
#include "scan/scan_driver.h"

namespace tavix::mdlPubSelf {
namespace {

using AdvancedWalker = AdvancedTest;

constexpr TextView kEmpty = u"|Empty Folders and Files|";
constexpr TextView kJunk = u"|Junk Files|";

// Records the status line and the number of rows at each yield to the user interface.
struct YieldWatch : platform::EventQueue {
  YieldWatch() { platform::eventQueue = this; }
  ~YieldWatch() override { platform::eventQueue = platform::noEventQueue; }
  void Yield() override {
    shown.push_back(frmPubMain.lblProgS.Caption);
    if (static_cast<int>(shown.size()) == cancelAt) sbtCancel_Click();
  }
  std::vector<Text> shown;
  int cancelAt = 0;
};

TEST_F(AdvancedWalker, AFolderOfFoldersWithNothingInThemIsOneRow) {
  AddFile(u"C:\\t\\keep.txt");
  AddEmptyFiles({u"C:\\t\\top\\below\\zero.log", u"C:\\t\\top\\below\\nothing"});
  machine.files.AddFolder(u"C:\\t\\top\\below\\deeper");
  EXPECT_EQ(Walk(u"C:\\t", u"|Empty Folders and Files|Junk Files|Last Accessed 365 Days Before|"),
            (std::vector{EmptyRow(u"Empty Folder", u"C:\\t", u"top")}));
  EXPECT_TRUE(Walk(u"C:\\t", kJunk).empty()) << "left alone when the function isn't ticked";
}

TEST_F(AdvancedWalker, TheRootOfADriveIsNeverAnEmptyFolder) {
  machine.files.AddFolder(u"D:\\");
  EXPECT_TRUE(Walk(u"D:", kEmpty).empty());
  machine.files.AddFolder(u"D:\\a\\b");
  EXPECT_EQ(Walk(u"D:", kEmpty), (std::vector{EmptyRow(u"Empty Folder", u"D:\\", u"a")}));
  EXPECT_EQ(Walk(u"D:\\a", kEmpty), (std::vector{EmptyRow(u"Empty Folder", u"D:\\", u"a")}));
  EXPECT_EQ(Walk(u"d:\\A\\B\\", kEmpty), (std::vector{EmptyRow(u"Empty Folder", u"D:\\a", u"b")}));
}

TEST_F(AdvancedWalker, FilesOfAFolderComeBeforeItsSubfolders) {
  AddFiles({u"C:\\t\\z.log", u"C:\\t\\b\\2.log", u"C:\\t\\A\\1.log", u"C:\\t\\A\\sub\\0.log"});
  EXPECT_EQ(Paths(Walk(u"C:\\t", kJunk)), (std::vector<Text>{u"C:\\t\\z.log", u"C:\\t\\A\\1.log",
                                                             u"C:\\t\\A\\sub\\0.log", u"C:\\t\\b\\2.log"}));
}

TEST_F(AdvancedWalker, WithoutRecursionSubfoldersAreLeftAlone) {
  AddFiles({u"C:\\t\\z.log", u"C:\\t\\b\\2.log"});
  machine.files.AddFolder(u"C:\\t\\empty");
  EXPECT_EQ(Paths(Walk(u"C:\\t", u"|Empty Folders and Files|Junk Files|", false)),
            (std::vector<Text>{u"C:\\t\\z.log"}));
}

TEST_F(AdvancedWalker, FilesInTheRootHaveItsPath) {
  AddFile(u"C:\\x.log");
  EXPECT_EQ(Walk(u"C:", kJunk, false), (std::vector{FileRow(u"Junk File", u"C:\\", u"x.log")}));
}

TEST_F(AdvancedWalker, TheFolderIsShownAsItWasAskedForWithASeparator) {
  AddFile(u"C:\\Top\\Sub\\a");
  YieldWatch watch;
  Walk(u"c:\\TOP", kJunk);
  EXPECT_EQ(watch.shown, (std::vector<Text>{u"Scanning in 'C:\\Top\\Sub\\', please wait...",
                                            u"Scanning in 'C:\\Top\\Sub\\', please wait..."}));
  watch.shown.clear();
  Walk(u"c:\\TOP", kJunk, false);
  EXPECT_EQ(watch.shown, (std::vector<Text>{u"Scanning in 'c:\\TOP\\', please wait..."}));
}

TEST_F(AdvancedWalker, AMissingFolderAddsNothingAndShowsNothing) {
  frmPubMain.lblProgS.Caption = u"as before";
  YieldWatch watch;
  EXPECT_TRUE(Walk(u"C:\\gone", u"|Empty Folders and Files|Junk Files|").empty());
  EXPECT_TRUE(watch.shown.empty()) << "not even a chance for the user interface";
  EXPECT_EQ(frmPubMain.lblProgS.Caption, u"as before");
}

TEST_F(AdvancedWalker, AFolderThatIsNoObjectIsPassedOver) {
  AddFile(u"C:\\t\\a.log");
  machine.files.faults.Fail(u"Look", u"C:\\t\\");
  frmPubMain.lblProgS.Caption = u"as before";
  YieldWatch watch;
  EXPECT_TRUE(Walk(u"C:\\t", kJunk).empty());
  EXPECT_EQ(watch.shown, (std::vector<Text>{u"as before"}));
}

TEST_F(AdvancedWalker, AProtectedFolderIsNotEmptyAndTakesNothingFromTheNext) {
  machine.files.AddFolder(u"C:\\t\\a\\locked");
  machine.files.AddFolder(u"C:\\t\\b");
  AddFile(u"C:\\t\\c\\1.log");
  machine.files.faults.Fail(u"List", u"C:\\t\\a\\locked");
  EXPECT_EQ(
      Walk(u"C:\\t", u"|Empty Folders and Files|Junk Files|"),
      (std::vector{EmptyRow(u"Empty Folder", u"C:\\t", u"b"), FileRow(u"Junk File", u"C:\\t\\c", u"1.log")}));
}

TEST_F(AdvancedWalker, AFolderWithAFileOfUnknownSizeIsNotEmpty) {
  AddEmptyFiles({u"C:\\t\\a\\unknown", u"C:\\t\\a\\known"});
  machine.files.faults.Fail(u"Look", u"C:\\t\\a\\unknown");
  EXPECT_EQ(Walk(u"C:\\t", kEmpty), (std::vector{EmptyRow(u"Empty File", u"C:\\t\\a", u"known")}));
}

TEST_F(AdvancedWalker, AFolderThatHoldsALinkIsNotEmptyAndALinkIsEnteredOnce) {
  AddFile(u"C:\\real\\1.log");
  machine.files.AddLink(u"C:\\t\\holder\\link", u"C:\\real");
  AddFile(u"C:\\t\\full\\2.log");
  machine.files.AddLink(u"C:\\t\\full\\link", u"C:\\real");
  EXPECT_EQ(Walk(u"C:\\t", u"|Empty Folders and Files|Junk Files|"),
            (std::vector{FileRow(u"Junk File", u"C:\\t\\full", u"2.log"),
                         FileRow(u"Junk File", u"C:\\t\\full\\link", u"1.log")}));
  EXPECT_EQ(fileSystemObject.GetFolder(u"C:\\t\\holder")->Size(), 0.0);
}

TEST_F(AdvancedWalker, ALinkToAFileIsNoEmptyFile) {
  AddFile(u"C:\\real\\1.log");
  machine.files.AddLink(u"C:\\t\\holder\\file", u"C:\\real\\1.log");
  EXPECT_TRUE(Walk(u"C:\\t", u"|Empty Folders and Files|").empty());
}

TEST_F(AdvancedWalker, ALinkThatLeadsBackIsPassedOver) {
  AddFile(u"C:\\t\\1.log");
  machine.files.AddLink(u"C:\\t\\a\\back", u"C:\\t");
  AddFile(u"C:\\t\\a\\2.log");
  EXPECT_EQ(Walk(u"C:\\t", kJunk), (std::vector{FileRow(u"Junk File", u"C:\\t", u"1.log"),
                                                FileRow(u"Junk File", u"C:\\t\\a", u"2.log")}));
}

TEST_F(AdvancedWalker, ARowKnowsTheFolderWhereItsWalkBegan) {
  AddFile(u"C:\\t\\a\\b\\1.log");
  machine.files.AddFolder(u"C:\\t\\a\\empty");
  AddEmptyFiles({u"C:\\t\\a\\b\\0.txt"});
  machine.files.AddFolder(u"C:\\e");
  WalkAdvancedFolder(u"C:\\t", u"|Empty Folders and Files|Junk Files|", true);
  WalkAdvancedFolder(u"C:\\e", kEmpty, true);
  std::vector<std::pair<Text, Text>> starts;
  for (int row = 1; row <= ResultCount(); ++row) {
    const auto item = frmPubMain.lsvResult.Row(row);
    starts.emplace_back(item.SubItems(kNameColumn), WalkStart(item));
  }
  EXPECT_EQ(starts, (std::vector<std::pair<Text, Text>>{
                        {u"1.log", u"C:\\t"}, {u"0.txt", u"C:\\t"}, {u"empty", u"C:\\t"}, {u"e", u"C:\\"}}));
}

TEST_F(AdvancedWalker, TheUserInterfaceRunsOnceAFolderAfterItsSubfolders) {
  AddFiles({u"C:\\t\\a\\b\\x", u"C:\\t\\c\\y"});
  machine.files.AddFolder(u"C:\\t\\d\\e");
  YieldWatch watch;
  Walk(u"C:\\t", kEmpty);
  const auto line = [](TextView folder) { return Concat(u"Scanning in '", folder, u"', please wait..."); };
  EXPECT_EQ(watch.shown, (std::vector<Text>{line(u"C:\\t\\a\\b\\"), line(u"C:\\t\\a\\b\\"),
                                            line(u"C:\\t\\c\\"), line(u"C:\\t\\d\\"), line(u"C:\\t\\d\\")}));
}

TEST_F(AdvancedWalker, AfterCancelNoFurtherFolderIsLookedAt) {
  AddFiles({u"C:\\t\\a\\1.log", u"C:\\t\\b\\2.log", u"C:\\t\\c\\3.log"});
  YieldWatch watch;
  watch.cancelAt = 1;
  EXPECT_EQ(Paths(Walk(u"C:\\t", kJunk)), (std::vector<Text>{u"C:\\t\\a\\1.log"}));
  EXPECT_EQ(watch.shown.size(), 4U) << "each call that returns at once lets the user interface run";
  EXPECT_EQ(watch.shown.back(), u"Scanning in 'C:\\t\\a\\', please wait...");
  EXPECT_TRUE(Walk(u"C:\\t", kJunk).empty());
}

TEST_F(AdvancedWalker, PaintingIsSuspendedAroundEachSubfolderAndNotNested) {
  AddFiles({u"C:\\t\\a\\b\\x", u"C:\\t\\c\\y"});
  PaintingWatch watch;
  Walk(u"C:\\t", kJunk);
  EXPECT_EQ(watch.changes, (std::vector<bool>{true, false, true, false}));
  EXPECT_EQ(watch.atYields, (std::vector<bool>{true, false, true, false}))
      << "the return from the deepest folder ends it for the one above";
  EXPECT_FALSE(frmPubMain.lsvResult.PaintingSuspended);
}

TEST_F(AdvancedWalker, AFolderThatGoesDuringTheWalkAddsNothing) {
  AddFiles({u"C:\\t\\a\\1.log", u"C:\\t\\b\\2.log", u"C:\\t\\c\\3.log"});
  struct Remover : platform::EventQueue {
    explicit Remover(machine::MemoryFiles& disk) : files(disk) { platform::eventQueue = this; }
    ~Remover() override { platform::eventQueue = platform::noEventQueue; }
    void Yield() override { files.DeleteFolder(u"C:\\t\\b", true); }
    machine::MemoryFiles& files;
  } remover(machine.files);
  EXPECT_EQ(Paths(Walk(u"C:\\t", kJunk)), (std::vector<Text>{u"C:\\t\\a\\1.log", u"C:\\t\\c\\3.log"}));
}

TEST_F(AdvancedWalker, ATreeOfAnyDepthIsWalked) {
  Text path = u"C:\\t";
  for (int i = 0; i < 400; ++i) path += u"\\d";
  machine.files.AddFolder(path);
  EXPECT_EQ(Walk(u"C:\\t", kEmpty), (std::vector{EmptyRow(u"Empty Folder", u"C:\\", u"t")}));
  AddFile(Concat(path, u"\\x.log"));
  EXPECT_EQ(Paths(Walk(u"C:\\t", u"|Empty Folders and Files|Junk Files|")),
            (std::vector<Text>{Concat(path, u"\\x.log")}));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
