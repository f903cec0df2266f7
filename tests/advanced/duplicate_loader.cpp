#include "advanced/duplicate_loader.h"

#include "advanced/duplicate_test.h"
#include "clean/clean_driver.h"
#include "forms/main_form.h"
#include "platform/event_queue.h"
#include "platform/file_system.h"
#include "scan/scan_driver.h"

namespace tavix::mdlPubSelf {
namespace {

class DuplicateLoader : public DuplicateTest {
 protected:
  static std::vector<RowFields> Load() {
    LoadDuplicateResults();
    return ResultRows();
  }
  static std::optional<Color> ColorOf(int row) { return frmPubMain.lsvResult.Row(row).ForeColor(); }
  static TextView Status() { return frmPubMain.lblProgS.Caption.Get(); }
  static RowFields Member(TextView folder, TextView name, int kilobytes = 1) {
    return FileRow(u"Duplicate File", folder, name, kilobytes);
  }
};

TEST_F(DuplicateLoader, AnEmptyStoreGivesNoRowAndTheClosingStatus) {
  EXPECT_TRUE(Load().empty());
  EXPECT_EQ(Status(), u"Finished, no item found.");
}

TEST_F(DuplicateLoader, TheFirstOfAGroupIsKeptAndStandsOutByItsColor) {
  AddCopies({{u"C:\\1\\a.txt", 2}, {u"C:\\2\\A.TXT", 2}, {u"C:\\a.txt", 2}});
  AddGroup(u"A", u"a.txt_0", {u"C:\\1\\a.txt", u"C:\\2\\a.txt", u"C:\\a.txt"});
  EXPECT_EQ(Load(), Group({Member(u"C:\\1", u"a.txt", 2), Member(u"C:\\2", u"A.TXT", 2),
                           Member(u"C:\\", u"a.txt", 2)}));
  EXPECT_EQ(ColorOf(1), kKeptColor);
  EXPECT_EQ(ColorOf(2), std::nullopt);
  EXPECT_EQ(ColorOf(3), std::nullopt);
  EXPECT_EQ(machine.files.FileExists(GroupFile(u"A", u"a.txt_0")), false);
  EXPECT_EQ(Status(), u"Finished, please click <Clean> or press <F5> to clean the checked items.");
}

TEST_F(DuplicateLoader, AReadOnlyGroupFileGoesSoThatItsRowsStandOnce) {
  AddFile(u"C:\\1\\a");
  AddGroup(u"A", u"a_0", {u"C:\\1\\a"});
  machine.files.SetAttributes(GroupFile(u"A", u"a_0"), platform::kReadOnly);
  Load();
  EXPECT_EQ(machine.files.FileExists(GroupFile(u"A", u"a_0")), false);
  EXPECT_EQ(Load().size(), 1U);
}

TEST_F(DuplicateLoader, OneRowIsAnItem) {
  AddFile(u"C:\\1\\a");
  AddGroup(u"A", u"a_0", {u"C:\\1\\a"});
  EXPECT_EQ(Load().size(), 1U);
  EXPECT_EQ(Status(), u"Finished, please click <Clean> or press <F5> to clean the checked item.");
}

TEST_F(DuplicateLoader, CleanRemovesTheTickedMembersOnly) {
  AddCopies({{u"C:\\1\\a.txt", 1}, {u"C:\\2\\a.txt", 1}});
  AddGroup(u"A", u"a.txt_0", {u"C:\\1\\a.txt", u"C:\\2\\a.txt"});
  Load();
  sbtClean_Click();
  EXPECT_EQ(machine.files.FileExists(u"C:\\1\\a.txt"), true);
  EXPECT_EQ(machine.files.FileExists(u"C:\\2\\a.txt"), false);
}

TEST_F(DuplicateLoader, BucketsAndGroupsComeInTheirOrderWithAStatusEach) {
  AddCopies({{u"C:\\1\\z", 1}, {u"C:\\1\\b", 1}, {u"C:\\1\\7", 1}});
  AddGroup(u"Z", u"z_0", {u"C:\\1\\z"});
  AddGroup(u"B", u"b_0", {u"C:\\1\\b"});
  AddGroup(u"other", u"7_0", {u"C:\\1\\7"});
  struct Watch : platform::EventQueue {
    Watch() { platform::eventQueue = this; }
    ~Watch() override { platform::eventQueue = platform::noEventQueue; }
    void Yield() override { shown.push_back(frmPubMain.lblProgS.Caption); }
    std::vector<Text> shown;
  } watch;
  EXPECT_EQ(Paths(Load()), (std::vector<Text>{u"C:\\1\\b", u"C:\\1\\7", u"C:\\1\\z"}));
  EXPECT_EQ(watch.shown, (std::vector<Text>{u"Loading 'B*' duplicate files, please wait...",
                                            u"Loading other duplicate files, please wait...",
                                            u"Loading 'Z*' duplicate files, please wait..."}));
}

TEST_F(DuplicateLoader, AGroupWrittenInTwoPartsHasTwoKeptMembers) {
  AddCopies({{u"C:\\1\\a", 1}, {u"C:\\2\\a", 1}, {u"C:\\3\\a", 1}, {u"C:\\4\\a", 1}});
  AddGroup(u"A", u"a_0", {u"C:\\1\\a", u"C:\\2\\a"});
  frmPubMain.timLoader.Tick();
  AddGroup(u"A", u"a_0", {u"C:\\3\\a", u"C:\\4\\a"});
  frmPubMain.timLoader.Tick();
  std::vector<bool> ticks, colored;
  for (int row = 1; row <= ResultCount(); ++row) {
    ticks.push_back(frmPubMain.lsvResult.Row(row).Checked());
    colored.push_back(ColorOf(row).has_value());
  }
  EXPECT_EQ(ticks, (std::vector<bool>{false, true, false, true}));
  EXPECT_EQ(colored, (std::vector<bool>{true, false, true, false}));
}

TEST_F(DuplicateLoader, APathThatHasGoneShowsTheFileBefore) {
  AddCopies({{u"C:\\1\\a", 3}});
  AddGroup(u"A", u"a_0", {u"C:\\gone\\a", u"C:\\1\\a", u"C:\\gone\\a"});
  AddGroup(u"B", u"b_0", {u"C:\\gone\\b"});
  std::vector<RowFields> expected{{u"Duplicate File", u"", u"", u"", u"", u"F", false},
                                  Member(u"C:\\1", u"a", 3),
                                  Member(u"C:\\1", u"a", 3),
                                  Member(u"C:\\1", u"a", 3)};
  expected.back().checked = false;
  EXPECT_EQ(Load(), expected);
}

TEST_F(DuplicateLoader, ALockedGroupFileShowsNothingUntilItCanBeRead) {
  AddCopies({{u"C:\\1\\a", 1}, {u"C:\\1\\b", 1}});
  AddGroup(u"A", u"a_0", {u"C:\\1\\a"});
  AddGroup(u"B", u"b_0", {u"C:\\1\\b"});
  const Text locked = GroupFile(u"A", u"a_0");
  machine.files.faults.Fail(u"ReadFile", locked);
  machine.files.faults.Fail(u"DeleteFile", locked);
  EXPECT_EQ(Paths(Load()), (std::vector<Text>{u"C:\\1\\b"}));
  machine.files.faults.Clear();
  EXPECT_EQ(Paths(Load()), (std::vector<Text>{u"C:\\1\\b", u"C:\\1\\a"}));
}

TEST_F(DuplicateLoader, AGroupFileThatCannotBeDeletedIsShownAgain) {
  AddCopies({{u"C:\\1\\a", 1}});
  AddGroup(u"A", u"a_0", {u"C:\\1\\a"});
  machine.files.faults.Fail(u"DeleteFile", GroupFile(u"A", u"a_0"));
  EXPECT_EQ(Load().size(), 1U);
  EXPECT_EQ(Load().size(), 2U);
}

TEST_F(DuplicateLoader, AGroupWaitsWhileACandidateFileOfItsOwnNameIsThere) {
  AddCopies({{u"C:\\1\\a", 1}});
  AddGroup(u"A", u"a_0", {u"C:\\1\\a"});
  AddCandidates(u"A", u"A_0", {u"C:\\1\\a_0"});
  EXPECT_TRUE(Load().empty());
  AddCandidates(u"A", u"a", {u"C:\\1\\a"});
  machine.files.DeleteFile(ScannedFile(u"A", u"a_0"), true);
  EXPECT_EQ(Load().size(), 1U) << "the file of the name itself doesn't matter";
}

TEST_F(DuplicateLoader, AfterCancelTheStatusSaysSo) {
  sbtCancel_Click();
  Load();
  EXPECT_EQ(Status(), u"Canceled, no item found.");
  AddCopies({{u"C:\\1\\a", 1}});
  AddGroup(u"A", u"a_0", {u"C:\\1\\a"});
  Load();
  EXPECT_EQ(Status(), u"Canceled, please click <Clean> or press <F5> to clean the checked item.");
}

TEST_F(DuplicateLoader, NamesWithLineEndsOfOtherSystemsStayWhole) {
  const TextView name = u"a\u0085b\u2028c\u2029.txt";
  const Text path = Concat(u"C:\\1\\", name);
  AddFile(path);
  AddGroup(u"A", u"a_0", {path});
  EXPECT_EQ(Load(), Group({Member(u"C:\\1", name)}));
}

TEST_F(DuplicateLoader, LineFeedsAloneEndLinesToo) {
  AddCopies({{u"C:\\1\\a", 1}, {u"C:\\2\\a", 1}});
  machine.files.AddFile(GroupFile(u"A", u"a_0"), {.content = "C:\\1\\a\nC:\\2\\a"});
  EXPECT_EQ(Load(), Group({Member(u"C:\\1", u"a"), Member(u"C:\\2", u"a")}));
}

TEST_F(DuplicateLoader, TheColorStaysWhenRowsAreSorted) {
  AddCopies({{u"C:\\1\\b", 1}, {u"C:\\2\\b", 1}});
  AddGroup(u"B", u"b_0", {u"C:\\2\\b", u"C:\\1\\b"});
  frmPubMain.lsvResult.ColumnClick(4);
  frmPubMain.lsvResult.ColumnClick(4);
  Load();
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\1\\b", u"C:\\2\\b"}));
  EXPECT_EQ(ColorOf(1), std::nullopt);
  EXPECT_EQ(ColorOf(2), kKeptColor);
  EXPECT_FALSE(frmPubMain.lsvResult.Row(2).Checked());
}

}  // namespace
}  // namespace tavix::mdlPubSelf
