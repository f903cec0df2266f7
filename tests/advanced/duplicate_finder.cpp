#include "advanced/duplicate_finder.h"

#include "advanced/duplicate_loader.h"
#include "advanced/duplicate_test.h"
#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "platform/event_queue.h"
#include "scan/scan_driver.h"

namespace tavix::mdlPubSelf {
namespace {

// Reads the store while duplicates are being compared, and lets the timer tick if asked to.
struct StoreWatch : platform::EventQueue {
  explicit StoreWatch(machine::MemoryFiles& disk) : files(disk) { platform::eventQueue = this; }
  ~StoreWatch() override { platform::eventQueue = platform::noEventQueue; }
  void Yield() override {
    ++yields;
    if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Comparing")) {
      intervals.push_back(frmPubMain.timLoader.Interval);
      status = frmPubMain.lblProgS.Caption;
      if (ticks) frmPubMain.timLoader.Tick();
    }
    if (watched.empty()) return;
    if (const auto content = files.ReadFile(watched)) seen = *content;
  }
  machine::MemoryFiles& files;
  Text watched;
  std::string seen;
  std::vector<int> intervals;
  Text status;
  int yields = 0;
  bool ticks = false;
};

class DuplicateFinder : public DuplicateTest {
 protected:
  DuplicateFinder() {
    DuplicateSize = Text(u"Y");
    DuplicateModified = Text(u"N");
  }
  // Compares, and returns the group files as they were written. They can't be deleted, so they stay.
  std::vector<std::pair<Text, std::string>> Groups() {
    machine.files.faults.Fail(u"DeleteFile");
    CompareDuplicateFiles();
    machine.files.faults.Clear();
    std::vector<std::pair<Text, std::string>> groups;
    const auto buckets = fileSystemObject.GetFolder(kComparedFolder)->SubFolders();
    for (const Folder& bucket : *buckets) {
      const auto files = bucket.Files();
      for (const File& group : *files) {
        groups.emplace_back(Concat(*bucket.Name(), u"\\", *group.Name()),
                            machine.files.ReadFile(*group.Path()).value_or("none"));
      }
    }
    return groups;
  }
  using GroupFiles = std::vector<std::pair<Text, std::string>>;
};

TEST_F(DuplicateFinder, WithoutCandidatesTheBarMovesTwoSteps) {
  frmPubMain.lblProgMO.Width = 1000;
  frmPubMain.lblProgMI.Width = 0;
  ProgressStep = 300;
  StoreWatch watch(machine.files);
  CompareDuplicateFiles();
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 600);
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(frmPubMain.timLoader.Interval, 0);
  EXPECT_EQ(watch.yields, 0);
  EXPECT_EQ(frmPubMain.lblProgS.Caption, u"Finished, no item found.");
}

TEST_F(DuplicateFinder, TheStatusPassesThroughTheBuckets) {
  struct Watch : ControlPeer {
    void ModelChanged() override {
      const TextView status = frmPubMain.lblProgS.Caption.Get();
      if (status.starts_with(u"Comparing") && (shown.empty() || shown.back() != status)) {
        shown.emplace_back(status);
      }
    }
    std::vector<Text> shown;
  } watch;
  frmPubMain.lblProgS.peer = &watch;
  CompareDuplicateFiles();
  frmPubMain.lblProgS.peer = nullptr;
  ASSERT_EQ(watch.shown.size(), 27U);
  EXPECT_EQ(watch.shown[0], u"Comparing for 'A*' duplicate files, please wait...");
  EXPECT_EQ(watch.shown[15], u"Comparing for other duplicate files, please wait...");
  EXPECT_EQ(watch.shown[26], u"Comparing for 'Z*' duplicate files, please wait...");
}

TEST_F(DuplicateFinder, ThreeEqualCopiesAreOneGroup) {
  AddCopies({{u"C:\\1\\a.b_c.txt", 1}, {u"C:\\2\\a.b_c.txt", 1}, {u"C:\\3\\a.b_c.txt", 1}});
  AddCandidates(u"A", u"a.b_c.txt", {u"C:\\1\\a.b_c.txt", u"C:\\2\\a.b_c.txt", u"C:\\3\\a.b_c.txt"});
  EXPECT_EQ(Groups(), (GroupFiles{{u"A\\a.b_c.txt_0",
                                   Lines({u"C:\\1\\a.b_c.txt", u"C:\\2\\a.b_c.txt", u"C:\\3\\a.b_c.txt"})}}));
}

TEST_F(DuplicateFinder, TwoPairsOfDifferentSizesAreTwoGroups) {
  AddCopies({{u"C:\\1\\n", 10}, {u"C:\\2\\n", 10}, {u"C:\\3\\n", 20}, {u"C:\\4\\n", 20}});
  AddCandidates(u"N", u"n", {u"C:\\1\\n", u"C:\\2\\n", u"C:\\3\\n", u"C:\\4\\n"});
  EXPECT_EQ(Groups(), (GroupFiles{{u"N\\n_0", Lines({u"C:\\1\\n", u"C:\\2\\n"})},
                                  {u"N\\n_2", Lines({u"C:\\3\\n", u"C:\\4\\n"})}}));
}

TEST_F(DuplicateFinder, APairIsFoundAndOnePathIsNot) {
  AddCopies({{u"C:\\1\\p", 1}, {u"C:\\2\\p", 1}, {u"C:\\1\\q", 1}});
  AddCandidates(u"P", u"p", {u"C:\\1\\p", u"C:\\2\\p"});
  AddCandidates(u"Q", u"q", {u"C:\\1\\q"});
  CompareDuplicateFiles();
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\1\\p", u"C:\\2\\p"}));
  EXPECT_EQ(machine.files.FileExists(ScannedFile(u"P", u"p")), false);
  EXPECT_EQ(machine.files.FileExists(ScannedFile(u"Q", u"q")), false) << "deleted with no group";
  EXPECT_EQ(machine.files.FileExists(GroupFile(u"P", u"p_0")), false) << "loaded";
}

TEST_F(DuplicateFinder, FilesOfTheStoreGoThoughTheyAreReadOnly) {
  AddCopies({{u"C:\\1\\p", 1}, {u"C:\\2\\p", 1}});
  AddCandidates(u"P", u"p", {u"C:\\1\\p", u"C:\\2\\p"});
  machine.files.SetAttributes(ScannedFile(u"P", u"p"), platform::kReadOnly);
  CompareDuplicateFiles();
  EXPECT_EQ(machine.files.FileExists(ScannedFile(u"P", u"p")), false);
}

TEST_F(DuplicateFinder, SizeAndTimeCountAsTheSettingsSay) {
  machine.files.AddFile(u"C:\\1\\f", {.size = 10, .modified = 1000});
  machine.files.AddFile(u"C:\\2\\f", {.size = 10, .modified = 2000});
  machine.files.AddFile(u"C:\\3\\f", {.size = 20, .modified = 1000});
  const std::string a = "C:\\1\\f\r\n", b = "C:\\2\\f\r\n", c = "C:\\3\\f\r\n";
  const struct {
    TextView size, modified;
    std::string group;
  } table[] = {{u"Y", u"N", a + b},
               {u"N", u"Y", a + c},
               {u"Y", u"Y", ""},
               {u"N", u"N", a + b + c},
               {u"y", u"", a + b + c}};
  for (const auto& row : table) {
    DuplicateSize = Text(row.size);
    DuplicateModified = Text(row.modified);
    AddCandidates(u"F", u"f", {u"C:\\1\\f", u"C:\\2\\f", u"C:\\3\\f"});
    const GroupFiles groups = Groups();
    ASSERT_EQ(groups.size(), row.group.empty() ? 0U : 1U) << Narrow(row.size) << Narrow(row.modified);
    if (!groups.empty()) {
      EXPECT_EQ(groups[0].second, row.group);
      machine.files.DeleteFile(GroupFile(u"F", u"f_0"), true);
    }
  }
}

TEST_F(DuplicateFinder, WithBothSettingsOffTheNameAloneDecides) {
  DuplicateSize = Text(u"N");
  AddCopies({{u"C:\\1\\readme.txt", 1}, {u"C:\\2\\readme.txt", 7}});
  AddCandidates(u"R", u"readme.txt", {u"C:\\1\\readme.txt", u"C:\\2\\readme.txt"});
  EXPECT_EQ(Groups(),
            (GroupFiles{{u"R\\readme.txt_0", Lines({u"C:\\1\\readme.txt", u"C:\\2\\readme.txt"})}}));
}

TEST_F(DuplicateFinder, AGoneFileIsJudgedByTheOneBefore) {
  AddCopies({{u"C:\\1\\g", 1}, {u"C:\\2\\g", 1}, {u"C:\\4\\g", 2}});
  AddCandidates(u"G", u"g", {u"C:\\1\\g", u"C:\\2\\g", u"C:\\gone\\g", u"C:\\4\\g", u"C:\\gone2\\g"});
  EXPECT_EQ(Groups(), (GroupFiles{{u"G\\g_0", Lines({u"C:\\1\\g", u"C:\\2\\g", u"C:\\gone\\g"})},
                                  {u"G\\g_3", Lines({u"C:\\4\\g", u"C:\\gone2\\g"})}}));
}

TEST_F(DuplicateFinder, FilesThatWereNeverThereAreNoDuplicates) {
  AddCandidates(u"G", u"g", {u"C:\\gone\\g", u"C:\\gone2\\g"});
  EXPECT_TRUE(Groups().empty());
}

TEST_F(DuplicateFinder, EmptyLinesArePassedOver) {
  AddCopies({{u"C:\\1\\e", 1}, {u"C:\\2\\e", 1}});
  AddCandidates(u"E", u"e", {u"", u"C:\\1\\e", u"", u"C:\\2\\e"});
  EXPECT_EQ(Groups(), (GroupFiles{{u"E\\e_1", Lines({u"C:\\1\\e", u"C:\\2\\e"})}}));
}

TEST_F(DuplicateFinder, TheTimerRunsWhileFilesAreCompared) {
  AddCopies({{u"C:\\1\\t", 1}, {u"C:\\2\\t", 1}});
  AddCandidates(u"T", u"t", {u"C:\\1\\t", u"C:\\2\\t"});
  StoreWatch watch(machine.files);
  watch.watched = GroupFile(u"T", u"t_0");
  CompareDuplicateFiles();
  EXPECT_EQ(watch.intervals, (std::vector<int>{4996, 4996, 4996})) << "a round a path and one for the end";
  EXPECT_EQ(watch.status, u"Comparing for 'T*' duplicate files, please wait...");
  EXPECT_EQ(watch.seen, "C:\\1\\t\r\nC:\\2\\t\r\n");
  EXPECT_EQ(frmPubMain.timLoader.Interval, 0);
}

TEST_F(DuplicateFinder, GroupsThatTheTimerShowsAreShownOnce) {
  AddCopies({{u"C:\\1\\m", 1}, {u"C:\\2\\m", 1}, {u"C:\\3\\m", 2}, {u"C:\\4\\m", 2}});
  AddCandidates(u"M", u"m", {u"C:\\1\\m", u"C:\\3\\m", u"C:\\2\\m", u"C:\\4\\m"});
  StoreWatch watch(machine.files);
  watch.ticks = true;
  CompareDuplicateFiles();
  EXPECT_EQ(Paths(ResultRows()), (std::vector<Text>{u"C:\\1\\m", u"C:\\2\\m", u"C:\\3\\m", u"C:\\4\\m"}));
}

TEST_F(DuplicateFinder, CancelDoesNotStopTheComparing) {
  AddCopies({{u"C:\\1\\c", 1}, {u"C:\\2\\c", 1}});
  AddCandidates(u"C", u"c", {u"C:\\1\\c", u"C:\\2\\c"});
  sbtCancel_Click();
  CompareDuplicateFiles();
  EXPECT_EQ(ResultCount(), 2);
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            u"Canceled, please click <Clean> or press <F5> to clean the checked items.");
}

TEST_F(DuplicateFinder, ALockedCandidateFileIsLeftForTheNextTime) {
  AddCopies({{u"C:\\1\\k", 1}, {u"C:\\2\\k", 1}});
  AddCandidates(u"K", u"k", {u"C:\\1\\k", u"C:\\2\\k"});
  machine.files.faults.Fail(u"ReadFile", ScannedFile(u"K", u"k"));
  machine.files.faults.Fail(u"DeleteFile", ScannedFile(u"K", u"k"));
  CompareDuplicateFiles();
  EXPECT_EQ(ResultCount(), 0);
  machine.files.faults.Clear();
  CompareDuplicateFiles();
  EXPECT_EQ(ResultCount(), 2);
}

TEST_F(DuplicateFinder, WithoutAStoreTheBarMovesAllTheSame) {
  machine.files.DeleteFolder(kDuplicateFolder, true);
  frmPubMain.lblProgMO.Width = 1000;
  frmPubMain.lblProgMI.Width = 0;
  ProgressStep = 100;
  CompareDuplicateFiles();
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 200);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
