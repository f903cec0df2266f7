// The clean driver over the running system: real files, registry, recycle bin and event logs.

#include <gtest/gtest.h>

#include <map>

#include "clean/clean_driver.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "platform/event_queue.h"
#include "platform/file_system.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_host.h"
#include "scan/result_items.h"
#include "support/case.h"
#include "support/program_test.h"
#include "window/wiring.h"

namespace tavix::mdlPubSelf {
namespace {

using platform::Hive;

constexpr TextView kPlace = u"C:\\TavixCleanTest";
constexpr TextView kKey = u"Software\\TavixCleanTest";

class LiveClean : public testing::Test {
 protected:
  LiveClean() {
    if (!IsThrowaway()) return;
    platform::fileSystem->DeleteFolder(kPlace, true);
    platform::fileSystem->DeleteFolder(u"C:\\TVXBak", true);
    platform::registry->DeleteKey(Hive::CurrentUser, kKey);
    platform::fileSystem->CreateFolder(kPlace);
    WireForms();
    Form_Load();
    frmPubMain.lblProgMO.Width = 3000;
    BackupFolder = u"C:\\TVXBak";
  }
  ~LiveClean() override {
    if (!IsThrowaway()) return;
    platform::fileSystem->DeleteFolder(kPlace, true);
    platform::registry->DeleteKey(Hive::CurrentUser, kKey);
    ResetProcess();
  }

  // These tests empty the recycle bin and clear event logs. They run only on a Windows made for tests.
  static bool IsThrowaway() { return windows::HasBinOfItsOwn(); }
  void SetUp() override {
    if (!IsThrowaway()) GTEST_SKIP() << "runs in a throwaway Wine prefix only";
  }

  static Text In(TextView name) { return Concat(kPlace, u"\\", name); }
  static void MakeFile(TextView name, std::string_view content = "content") {
    ASSERT_TRUE(platform::fileSystem->WriteFile(In(name), content));
  }
  static void AddFileRow(TextView name) { AddResultItem(u"t", name, u"1.", kPlace, u"00000001.0", u"F"); }

  // Every file and folder below the test's folder, with its content.
  static std::map<Text, std::string> Disk() {
    std::map<Text, std::string> found;
    std::vector<Text> pending{Text(kPlace)};
    while (!pending.empty()) {
      const Text folder = pending.back();
      pending.pop_back();
      platform::fileSystem->List(folder, [&](const platform::DirectoryEntry& entry) {
        const Text path = Concat(folder, u"\\", entry.name);
        found[path] = entry.folder ? "" : platform::fileSystem->ReadFile(path).value_or("unreadable");
        if (entry.folder && !entry.link) pending.push_back(path);
      });
    }
    return found;
  }
  // Collects every value below a key.
  static void Values(TextView key, std::map<Text, Text>& found) {
    platform::registry->VisitValues(
        Hive::CurrentUser, key, [&](TextView name, TextView data) { found[Concat(key, u"|", name)] = data; });
    std::vector<Text> below;
    platform::registry->VisitSubKeys(Hive::CurrentUser, key, [&](TextView name) {
      below.push_back(Concat(key, key.empty() ? u"" : u"\\", name));
    });
    for (const Text& subKey : below) Values(subKey, found);
  }

  windows::WindowsHost host_;
};

TEST_F(LiveClean, ARegistryValueAndAKeyWithSubkeysGoAndNothingElse) {
  for (const TextView name : {u"gone", u"stays"}) {
    platform::registry->WriteString(Hive::CurrentUser, Concat(kKey, u"\\V"), name, u"d");
  }
  platform::registry->WriteString(Hive::CurrentUser, Concat(kKey, u"\\K\\below\\deep"), u"v", u"d");
  platform::registry->WriteString(Hive::CurrentUser, Concat(kKey, u"\\Kept"), u"v", u"d");
  std::map<Text, Text> before;
  Values(u"", before);
  AddResultItem(u"t", u"n", kNoSize, u"Registry", kNoSizeKey,
                Concat(u"RI: HKEY_CURRENT_USER, ", kKey, u"\\V, gone"));
  AddResultItem(u"t", u"n", kNoSize, u"Registry", kNoSizeKey,
                Concat(u"RK: HKEY_CURRENT_USER, ", kKey, u"\\K"));
  sbtClean_Click();
  std::map<Text, Text> after;
  Values(u"", after);
  before.erase(Concat(kKey, u"\\V|gone"));
  before.erase(Concat(kKey, u"\\K\\below\\deep|v"));
  EXPECT_TRUE(after == before) << "exactly these two are missing of " << before.size();
  EXPECT_EQ(platform::registry->KeyExists(Hive::CurrentUser, Concat(kKey, u"\\K")), false);
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 2 items, 0. KB cleaned."));
}

TEST_F(LiveClean, AFileGoesByDeletingAndNothingElse) {
  CleaningMethod = u"D";
  for (const TextView name : {u"a.txt", u"\u00FCber \u4E16.txt", u"stays.txt"}) MakeFile(name);
  platform::fileSystem->SetAttributes(In(u"a.txt"),
                                      platform::kReadOnly | platform::kHidden | platform::kSystem);
  auto before = Disk();
  AddFileRow(u"a.txt");
  AddFileRow(u"\u00FCber \u4E16.txt");
  sbtClean_Click();
  before.erase(In(u"a.txt"));
  before.erase(In(u"\u00FCber \u4E16.txt"));
  EXPECT_TRUE(Disk() == before);
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(LiveClean, AFileOfTheBackupFolderStaysByTheShortNameOfTheFolder) {
  const Text longPath = In(u"A backup folder with a long name");
  ASSERT_TRUE(platform::fileSystem->CreateFolder(longPath));
  MakeFile(u"A backup folder with a long name\\kept.bak");
  wchar_t shortForm[MAX_PATH];
  ASSERT_NE(GetShortPathNameW(windows::Wide(longPath), shortForm, MAX_PATH), 0U);
  const Text shortPath = windows::FromWide(shortForm);
  if (shortPath == longPath) GTEST_SKIP() << "the drive has no short names";
  for (const TextView method : {u"D", u"R", u"S"}) {
    for (const auto& [backup, location] : {std::pair(longPath, shortPath), std::pair(shortPath, longPath)}) {
      SCOPED_TRACE(Case(method) + " " + Case(location));
      ClearResults();
      CleaningMethod = method;
      BackupFolder = backup;
      AddResultItem(u"t", u"kept.bak", u"1.", location, u"00000001.0", u"F");
      sbtClean_Click();
      EXPECT_EQ(platform::fileSystem->FileExists(Concat(longPath, u"\\kept.bak")), true);
      EXPECT_EQ(ResultCount(), 1);
    }
  }
}

TEST_F(LiveClean, AFileSentToTheBinIsInIt) {
  CleaningMethod = u"R";
  windows::ClearBin();
  const Text empty = platform::shell->RecycleBinInfo().value_or(u"");
  MakeFile(u"binned.txt");
  AddFileRow(u"binned.txt");
  sbtClean_Click();
  EXPECT_EQ(platform::fileSystem->FileExists(In(u"binned.txt")), false);
  EXPECT_EQ(empty, u"0|0");
  EXPECT_EQ(platform::shell->RecycleBinInfo(), u"1|7");
  AddResultItem(u"t", u"bin", u"1.", u"Each Recycle Bin", u"k", u"RE");
  sbtClean_Click();
  EXPECT_EQ(platform::shell->RecycleBinInfo(), u"0|0");
}

TEST_F(LiveClean, ASavedFileIsInTheBackupFolderTheSecondWithASuffixTheThirdStays) {
  CleaningMethod = u"S";
  for (const std::string_view content : {"one", "two", "three"}) {
    ClearResults();
    MakeFile(u"a.txt", content);
    AddFileRow(u"a.txt");
    sbtClean_Click();
  }
  EXPECT_EQ(platform::fileSystem->ReadFile(u"C:\\TVXBak\\a.txt"), "one");
  EXPECT_EQ(platform::fileSystem->ReadFile(u"C:\\TVXBak\\a.txt.1"), "two");
  EXPECT_EQ(platform::fileSystem->ReadFile(In(u"a.txt")), "three");
  EXPECT_EQ(ResultCount(), 1);
}

// The folder of the row before stays open; it must not be in the way of what comes next.
TEST_F(LiveClean, AFileAndTheFolderThatItLiesInGoInOneClean) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    for (const bool fileFirst : {true, false}) {
      SCOPED_TRACE(Case(method) + " " + Case(fileFirst));
      ClearResults();
      CleaningMethod = method;
      ASSERT_TRUE(platform::fileSystem->CreateFolder(In(u"in")));
      MakeFile(u"in\\none.txt", "");
      const auto addFile = [] { AddResultItem(u"t", u"none.txt", u"0.", In(u"in"), u"00000000.0", u"F"); };
      if (!fileFirst) addFile();
      AddResultItem(u"t", u"in", kNoSize, kPlace, kNoSizeKey, u"P");
      if (fileFirst) addFile();
      sbtClean_Click();
      EXPECT_EQ(platform::fileSystem->FolderExists(In(u"in")), false);
      EXPECT_EQ(ResultCount(), 0);
      platform::fileSystem->DeleteFolder(u"C:\\TVXBak", true);
      platform::fileSystem->CreateFolder(u"C:\\TVXBak");
    }
  }
}

TEST_F(LiveClean, AnEmptyFolderGoesByEachMethod) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    SCOPED_TRACE(Case(method));
    CleaningMethod = method;
    ASSERT_TRUE(platform::fileSystem->CreateFolder(In(u"empty")));
    AddResultItem(u"t", u"empty", u"0.", kPlace, u"00000000.0", u"P");
    sbtClean_Click();
    EXPECT_EQ(platform::fileSystem->FolderExists(In(u"empty")), false) << Narrow(method);
    EXPECT_EQ(ResultCount(), 0);
  }
  EXPECT_EQ(platform::fileSystem->FolderExists(u"C:\\TVXBak\\empty"), true);
}

TEST_F(LiveClean, ADeleteAtRestartIsRecordedBySystem) {
  MakeFile(u"index.dat");
  AddResultItem(u"t", u"index.dat", u"1.", kPlace, u"00000001.0", u"DUR");
  sbtClean_Click();
  EXPECT_EQ(platform::fileSystem->FileExists(In(u"index.dat")), true);
  const auto pending = platform::registry->ReadValue(Hive::LocalMachine,
                                                     u"System\\CurrentControlSet\\Control\\Session Manager",
                                                     u"PendingFileRenameOperations");
  ASSERT_TRUE(pending.has_value());
  EXPECT_NE(pending->find(u"TavixCleanTest\\index.dat"), Text::npos);
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(LiveClean, AnEventLogIsClearedAndAnUnknownOneHarmsNothing) {
  for (const TextView log : {u"Application", u"No such log"}) {
    AddResultItem(u"t", u"n", kNoSize, u"Windows System", kNoSizeKey, Concat(u"WSL: ", log));
  }
  sbtClean_Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 2 items, 0. KB cleaned."));
}

TEST_F(LiveClean, RowsWithoutANameAndWholeDrivesTouchNothing) {
  MakeFile(u"keep.txt");
  const auto before = Disk();
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    AddResultItem(u"t", u"", u"0.", kPlace, u"k", u"P");
    AddResultItem(u"t", u"", u"0.", u"", u"k", u"P");
    AddResultItem(u"t", u"", u"0.", u"C:\\", u"k", u"F");
    AddResultItem(u"t", u".", u"0.", u"C:", u"k", u"P");
    AddResultItem(u"t", u"n", u"0.", u"x", u"k", u"FT: \\");
    sbtClean_Click();
    EXPECT_TRUE(Disk() == before) << Narrow(method);
    EXPECT_EQ(platform::fileSystem->FolderExists(u"C:\\windows\\system32"), true);
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
