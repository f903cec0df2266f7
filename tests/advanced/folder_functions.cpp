#include "advanced/folder_functions.h"

#include <algorithm>

#include "advanced/advanced_test.h"
#include "frame/data_paths.h"
#include "frame/support/file_system_object.h"
#include "junk/junk_definitions.h"
#include "platform/event_queue.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/shortcut_bytes.h"
#include "scan/scan_driver.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

class FolderFunctionsTest : public AdvancedTest {
 protected:
  FolderFunctionsTest() {
    SetDrive(u"C");
    SetSystemFolder();
  }
  void AddShortcut(TextView path, TextView target) {
    using namespace platform::shortcut_bytes;
    machine.files.AddFile(
        path, {.content = Header(kHasLocation) + LocationBlock({.flags = 1, .path = target}) + U32(0)});
  }
  void AddAccessed(TextView path, platform::DateTime accessed) {
    machine.files.AddFile(path, {.size = 1024, .accessed = accessed});
  }
  static std::vector<Text> Names(const std::vector<RowFields>& rows) {
    std::vector<Text> names;
    for (const RowFields& row : rows) names.push_back(row.name);
    return names;
  }
};

TEST_F(FolderFunctionsTest, JunkFilesAreListedByTheirTypes) {
  AddFiles({u"C:\\t\\b.TMP", u"C:\\t\\a.log", u"C:\\t\\readme.txt"});
  machine.files.AddFile(u"C:\\t\\c.bak", {.size = 1536});
  EXPECT_EQ(Walk(u"C:\\t", u"|Junk Files|"),
            (std::vector{FileRow(u"Junk File", u"C:\\t", u"a.log"),
                         {u"Junk File", u"c.bak", u"1.5", u"C:\\t", u"00000001.5", u"F", true},
                         FileRow(u"Junk File", u"C:\\t", u"b.TMP")}))
      << "list by list, by names in each";
}

TEST_F(FolderFunctionsTest, AFileThatOnlyTheListingShowsIsLeftOut) {
  AddFiles({u"C:\\t\\a.#res", u"C:\\t\\b.5res", u"C:\\t\\c.pch"});
  EXPECT_TRUE(Walk(u"C:\\t", u"|Junk Files|").empty());
}

TEST_F(FolderFunctionsTest, AJunkFileThatCannotBeOpenedShowsTheOneBefore) {
  AddFile(u"C:\\t\\a.log", 3);
  AddFiles({u"C:\\t\\b.log", u"C:\\t\\c.log"});
  machine.files.faults.Fail(u"Look", u"C:\\t\\b.log");
  EXPECT_EQ(Walk(u"C:\\t", u"|Junk Files|"), (std::vector{FileRow(u"Junk File", u"C:\\t", u"a.log", 3),
                                                          FileRow(u"Junk File", u"C:\\t", u"a.log", 3),
                                                          FileRow(u"Junk File", u"C:\\t", u"c.log")}));
  machine.files.faults.Fail(u"Look", u"C:\\t\\a.log");
  EXPECT_EQ(Walk(u"C:\\t", u"|Junk Files|").front(),
            (RowFields{u"Junk File", u"", u"", u"C:\\t", u"", u"F", true}));
}

TEST_F(FolderFunctionsTest, InvalidShortcutsAreThoseThatLeadNowhere) {
  AddFile(u"C:\\t\\here.exe");
  AddShortcut(u"C:\\t\\good.lnk", u"C:\\t\\here.exe");
  AddShortcut(u"C:\\t\\BAD.LNK", u"C:\\t\\gone.exe");
  AddShortcut(u"C:\\t\\bad.lnk.txt", u"C:\\t\\gone.exe");
  AddFile(u"C:\\t\\unreadable.lnk");
  const auto rows = Walk(u"C:\\t", u"|Invalid Shortcuts|");
  ASSERT_EQ(Names(rows), (std::vector<Text>{u"BAD.LNK"}));
  EXPECT_EQ(rows[0].type, u"Invalid Shortcut");
  EXPECT_EQ(rows[0].location, u"C:\\t");
  EXPECT_EQ(rows[0].tag, u"F");
}

TEST_F(FolderFunctionsTest, AShortcutThatCannotBeOpenedIsJudgedByTheFileBefore) {
  AddShortcut(u"C:\\t\\a.lnk", u"C:\\t\\gone.exe");
  AddShortcut(u"C:\\t\\b.lnk", u"C:\\t\\gone.exe");
  machine.files.faults.Fail(u"Look", u"C:\\t\\b.lnk");
  EXPECT_EQ(Names(Walk(u"C:\\t", u"|Invalid Shortcuts|")), (std::vector<Text>{u"a.lnk", u"a.lnk"}));
  machine.files.faults.Fail(u"Look", u"C:\\t\\a.lnk");
  EXPECT_TRUE(Walk(u"C:\\t", u"|Invalid Shortcuts|").empty()) << "nothing to be judged";
}

TEST_F(FolderFunctionsTest, ALibraryIsRedundantByItsNameAlone) {
  AddFile(u"C:\\WINDOWS\\system32\\zip32.dll", 9);
  AddFiles({u"C:\\t\\ZIP32.DLL", u"C:\\t\\own.dll", u"C:\\t\\zip32.dlx"});
  EXPECT_EQ(Walk(u"C:\\t", u"|Redundant DLLs|"),
            (std::vector{FileRow(u"Redundant DLL", u"C:\\t", u"ZIP32.DLL")}));
  EXPECT_EQ(Names(Walk(u"C:\\WINDOWS\\system32", u"|Redundant DLLs|")), (std::vector<Text>{u"zip32.dll"}))
      << "it finds itself";
}

TEST_F(FolderFunctionsTest, ASystemFolderThatCannotBeListedStillAnswersForAName) {
  AddFiles({u"C:\\WINDOWS\\system32\\a.dll", u"C:\\t\\a.dll", u"C:\\t\\b.dll"});
  machine.files.faults.Fail(u"List", u"C:\\WINDOWS\\system32");
  EXPECT_EQ(Names(Walk(u"C:\\t", u"|Redundant DLLs|")), (std::vector<Text>{u"a.dll"}));
}

TEST_F(FolderFunctionsTest, AFolderOrADanglingLinkOfTheSameNameIsNoLibrary) {
  machine.files.AddFolder(u"C:\\WINDOWS\\system32\\a.dll");
  machine.files.AddLink(u"C:\\WINDOWS\\system32\\b.dll", u"C:\\gone");
  AddFiles({u"C:\\t\\a.dll", u"C:\\t\\b.dll"});
  EXPECT_TRUE(Walk(u"C:\\t", u"|Redundant DLLs|").empty());
}

TEST_F(FolderFunctionsTest, WithoutASystemFolderNoLibraryIsRedundant) {
  AddFiles({u"C:\\t\\a.dll", u"C:\\a.dll"});
  SetSystemFolder(u"");
  EXPECT_TRUE(Walk(u"C:\\t", u"|Redundant DLLs|").empty());
}

TEST_F(FolderFunctionsTest, AFileOfNoBytesIsAnEmptyFile) {
  AddFile(u"C:\\t\\full.txt");
  AddEmptyFiles({u"C:\\t\\none.txt", u"C:\\t\\None 2"});
  EXPECT_EQ(Walk(u"C:\\t", u"|Empty Folders and Files|"),
            (std::vector{EmptyRow(u"Empty File", u"C:\\t", u"None 2"),
                         EmptyRow(u"Empty File", u"C:\\t", u"none.txt")}));
  machine.files.faults.Fail(u"Look", u"C:\\t\\none.txt");
  EXPECT_EQ(Names(Walk(u"C:\\t", u"|Empty Folders and Files|")), (std::vector<Text>{u"None 2"}))
      << "what has no known size isn't empty";
}

TEST_F(FolderFunctionsTest, AFileAccessedExactlyThatManyDaysAgoIsListed) {
  LastAccessedFile = Text(u"30");
  clock.Set(400 * kDay + kHour);
  AddAccessed(u"C:\\t\\29 days", 371 * kDay);
  AddAccessed(u"C:\\t\\30 days", 371 * kDay - 1);  // the last moment of that day
  AddAccessed(u"C:\\t\\31 days", 369 * kDay);
  AddAccessed(u"C:\\t\\future", 500 * kDay);
  EXPECT_EQ(Walk(u"C:\\t", u"|Last Accessed 30 Days Before|"),
            (std::vector{FileRow(u"Last Accessed 30 Days Before", u"C:\\t", u"30 days"),
                         FileRow(u"Last Accessed 30 Days Before", u"C:\\t", u"31 days")}));
}

TEST_F(FolderFunctionsTest, TheDaysAreThoseOfTheSettingAsItStands) {
  clock.Set(400 * kDay);
  AddAccessed(u"C:\\t\\a", 1);
  for (const TextView days : {u"", u"abc", u"40000", u"1e5"}) {
    LastAccessedFile = Text(days);
    EXPECT_TRUE(Walk(u"C:\\t", Concat(u"|Last Accessed ", days, u" Days Before|")).empty()) << Narrow(days);
  }
  LastAccessedFile = Text(u"-500");
  EXPECT_EQ(Walk(u"C:\\t", u"|Last Accessed -500 Days Before|").size(), 1U);
  EXPECT_TRUE(Walk(u"C:\\t", u"|Last Accessed 365 Days Before|").empty()) << "of another setting";
}

TEST_F(FolderFunctionsTest, AnUnknownTimeOfAccessIsNotOld) {
  clock.Set(400 * kDay);
  AddAccessed(u"C:\\t\\known", -1);
  AddAccessed(u"C:\\t\\start of 1970", 0);
  AddAccessed(u"C:\\t\\unknown", platform::kUnknownTime);
  LastAccessedFile = Text(u"60");
  EXPECT_EQ(Walk(u"C:\\t", u"|Last Accessed 60 Days Before|"),
            (std::vector{FileRow(u"Last Accessed 60 Days Before", u"C:\\t", u"known"),
                         FileRow(u"Last Accessed 60 Days Before", u"C:\\t", u"start of 1970")}));
}

TEST_F(FolderFunctionsTest, AnOldFileOfNoBytesIsFoundTwice) {
  clock.Set(400 * kDay);
  machine.files.AddFile(u"C:\\t\\old", {.accessed = 1});
  AddAccessed(u"C:\\t\\new", 400 * kDay);
  EXPECT_EQ(Walk(u"C:\\t", u"|Empty Folders and Files|Last Accessed 365 Days Before|"),
            (std::vector<RowFields>{
                EmptyRow(u"Empty File", u"C:\\t", u"old"),
                {u"Last Accessed 365 Days Before", u"old", u"0.", u"C:\\t", u"00000000.0", u"F", true}}));
}

TEST_F(FolderFunctionsTest, EachFunctionHasItsRowsAfterThoseOfTheOneBefore) {
  AddFile(u"C:\\WINDOWS\\system32\\a.dll");
  clock.Set(400 * kDay);
  AddAccessed(u"C:\\t\\a.dll", 1);
  AddAccessed(u"C:\\t\\a.tmp", 1);
  AddShortcut(u"C:\\t\\b.lnk", u"C:\\gone");
  AddEmptyFiles({u"C:\\t\\c"});
  std::vector<Text> rows;
  for (const RowFields& row : Walk(u"C:\\t",
                                   u"|Invalid Shortcuts|Duplicate Files|Empty Folders and Files|"
                                   u"Last Accessed 365 Days Before|Redundant DLLs|Junk Files|")) {
    rows.push_back(Concat(row.type.substr(0, 5), u" ", row.name));
  }
  EXPECT_EQ(rows, (std::vector<Text>{u"Junk  a.tmp", u"Inval b.lnk", u"Redun a.dll", u"Last  a.dll",
                                     u"Last  a.tmp", u"Last  b.lnk", u"Empty c", u"Last  c"}));
}

// Notes how many rows there are each time the user interface runs, and presses Cancel at one of these times.
struct RowWatch : platform::EventQueue {
  explicit RowWatch(size_t cancelAtTime = 0) : cancelAt(cancelAtTime) { platform::eventQueue = this; }
  ~RowWatch() override { platform::eventQueue = platform::noEventQueue; }
  void Yield() override {
    rows.push_back(ResultCount());
    if (rows.size() == cancelAt) sbtCancel_Click();
  }
  size_t cancelAt;
  std::vector<int> rows;
};

struct HugeFolderCase {
  TextView function;
  TextView ending;  // of the files' names
  int most;         // rows between two chances to press Cancel
};

class AHugeFolder : public FolderFunctionsTest, public testing::WithParamInterface<HugeFolderCase> {
 protected:
  static constexpr int kFiles = 5000;

  AHugeFolder() {
    clock.Set(400 * kDay);
    LastAccessedFile = Text(u"365");
    OnlyCommon = Text(u"N");
    AddFile(u"C:\\t\\with content");
    for (int i = 0; i < kFiles; ++i) {
      const Text name = Concat(ToText(i), GetParam().ending);
      if (GetParam().ending == u".lnk") {
        AddShortcut(Concat(u"C:\\t\\", name), u"C:\\gone.exe");
      } else {
        machine.files.AddFile(Concat(u"C:\\t\\", name), {.accessed = 1});
      }
      if (GetParam().ending == u".dll") AddFile(Concat(u"C:\\WINDOWS\\system32\\", name));
    }
  }
  // The user interface as it ran during a walk, with Cancel pressed at this time.
  static std::vector<int> RowsAtYields(TextView functions, size_t cancelAt = 0) {
    RowWatch watch(cancelAt);
    CancelRequested = false;
    Walk(u"C:\\t", functions);
    CancelRequested = false;
    return watch.rows;
  }
};

TEST_P(AHugeFolder, LetsCancelBePressedAllTheTime) {
  const Text functions = Concat(u"|", GetParam().function, u"|");
  const std::vector<int> rows = RowsAtYields(functions);
  const int found = ResultCount();
  const size_t reading = RowsAtYields(u"|").size();
  EXPECT_GE(rows.size(), reading + kFiles / 1024) << "it runs also while the files are looked at";
  int before = 0;
  for (const int now : rows) {
    EXPECT_LE(now - before, GetParam().most);
    before = now;
  }
  EXPECT_EQ(before, found);
}

TEST_P(AHugeFolder, EndsAtCancelWithoutAnotherRow) {
  const Text functions = Concat(u"|", GetParam().function, u"|");
  const size_t times = RowsAtYields(functions).size();
  const size_t step = std::max<size_t>(times / 20, 1);
  for (size_t time = 1; time <= times; time += step) {
    const std::vector<int> rows = RowsAtYields(functions, time);
    ASSERT_EQ(ResultCount(), rows[time - 1]);
    ASSERT_LE(rows.size(), time + 1) << "once more, when the folder is left";
  }
}

INSTANTIATE_TEST_SUITE_P(FolderFunctions, AHugeFolder,
                         testing::Values(HugeFolderCase{kJunkFiles, u".log", 1024},
                                         HugeFolderCase{kDuplicateFiles, u".txt", 0},
                                         HugeFolderCase{kInvalidShortcuts, u".lnk", 16},
                                         HugeFolderCase{kRedundantDlls, u".dll", 16},
                                         HugeFolderCase{kEmptyFoldersAndFiles, u".txt", 1024},
                                         HugeFolderCase{u"Last Accessed 365 Days Before", u".txt", 1024}));

TEST_F(FolderFunctionsTest, AFunctionIsNamedByItsWholeTextBetweenBars) {
  AddFile(u"C:\\t\\a.log");
  for (const TextView funcs : {u"|", u"Junk Files", u"|Junk Files", u"|Junk  Files|", u"|junk files|"}) {
    EXPECT_TRUE(Walk(u"C:\\t", funcs).empty()) << Narrow(funcs);
  }
}

// Duplicate Files is offered and its options are kept, but no candidates are written yet.
TEST_F(FolderFunctionsTest, NoCandidatesOfDuplicatesAreWrittenWhateverTheSettings) {
  AddFiles({u"C:\\t\\a.txt", u"C:\\t\\b\\a.txt", u"C:\\t\\c\\a.txt", u"C:\\t\\7.txt"});
  for (const TextView common : {u"Y", u"N", u"x"}) {
    for (const TextView least : {u"Y", u"N", u"x"}) {
      SCOPED_TRACE(Case(least));
      OnlyCommon = Text(common);
      NeedLeast = Text(least);
      LeastSize = Text(u"0");
      EXPECT_TRUE(Walk(u"C:\\t", u"|Duplicate Files|").empty());
    }
  }
  const auto scanned = fileSystemObject.GetFolder(kScannedFolder);
  ASSERT_TRUE(scanned);
  EXPECT_EQ(scanned->SubFolders()->size(), 27U);
  EXPECT_EQ(scanned->Size(), 0.0);
}

TEST_F(FolderFunctionsTest, TheLeastSizeIsReachedFromItsLastByteOn) {
  const struct {
    TextView least;
    double bytes;
    bool reached;
  } table[] = {{u"10", 10 * 1024, true},     {u"10", 10 * 1024 - 1, false},
               {u"10", 10 * 1024 + 1, true}, {u"0", 0, true},
               {u"1", 1023, false},          {u"1", 1024, true},
               {u"32767", 33553408, true},   {u"32767", 33553407, false},
               {u"32768", 1e12, false},      {u"many", 1e12, false},
               {u"", 1e12, false},           {u" 2 ", 2048, true},
               {u"2.5", 2048, true}};
  for (const auto& row : table) {
    LeastSize = Text(row.least);
    EXPECT_EQ(ReachesLeastSize(row.bytes), row.reached) << Narrow(row.least) << " " << row.bytes;
  }
}

TEST_F(FolderFunctionsTest, OtherValuesOfOnlyCommonLeaveTheOtherFunctionsAlone) {
  OnlyCommon = Text(u"?");
  AddEmptyFiles({u"C:\\t\\none"});
  AddFile(u"C:\\t\\some");
  EXPECT_EQ(Names(Walk(u"C:\\t", u"|Duplicate Files|Empty Folders and Files|")),
            (std::vector<Text>{u"none"}));
  EXPECT_TRUE(Walk(u"C:\\t", u"|Duplicate Files|").empty());
}

}  // namespace
}  // namespace tavix::mdlPubSelf
