#include "scan/privacy_files.h"

#include "doubles/memory_shell.h"
#include "forms/main_form.h"
#include "platform/machine/formats/machine_facts.h"
#include "scan/painting_watch.h"
#include "scan/scan_driver.h"
#include "scan/scan_test.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kCache = u"C:\\Users\\Ann\\Cache";
constexpr TextView kCookies = u"C:\\Users\\Ann\\Cookies";
constexpr TextView kHistory = u"C:\\Users\\Ann\\History";
constexpr TextView kRecent = u"C:\\Users\\Ann\\Recent";

// The folders are known and exist. They are empty.
class PrivacyFiles : public ScanTest {
 protected:
  PrivacyFiles() {
    SetCache(kCache);
    SetCookies(kCookies);
    SetHistory(kHistory);
    SetSpecialFolder(u"Recent", kRecent);
    for (const TextView folder : {kCache, kCookies, kHistory, kRecent}) machine.files.AddFolder(folder);
  }

  static Text Status() { return frmPubMain.lblProgS.Caption; }
};

struct Store {
  TextView key, folder, fact, type, namePrefix, tag;
};
constexpr Store kStores[] = {
    {u"ietif", kCache, u"32", u"Temporary Internet Files", u"IE Cache (",
     u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8"},
    {u"iec", kCookies, u"33", u"Cookies", u"Cookies (",
     u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 2"},
    {u"ieh", kHistory, u"34", u"History", u"History (",
     u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 1"},
};

RowFields StoreRow(const Store& store, TextView count, TextView size, TextView location, TextView sizeKey) {
  return {Text(store.type),
          Concat(store.namePrefix, count, u" Files)"),
          Text(size),
          Text(location),
          Text(sizeKey),
          Text(store.tag),
          true};
}

TEST_F(PrivacyFiles, AWholeStoreIsOneRowWithTheCountOfItsOwnFilesAndTheSizeOfAll) {
  for (const Store& store : kStores) {
    AddFile(Concat(store.folder, u"\\a.htm"), 1);
    AddFile(Concat(store.folder, u"\\index.dat"), 2);
    AddFile(Concat(store.folder, u"\\Content.IE5\\QX7N\\b.png"), 1200);
    EXPECT_EQ(Scan(store.key),
              (std::vector<RowFields>{StoreRow(store, u"2", u"1,203.", store.folder, u"00001203.0")}));
  }
}

TEST_F(PrivacyFiles, AnEmptyCacheFolderIsARowWithNoFiles) {
  for (const Store& store : kStores) {
    EXPECT_EQ(Scan(store.key),
              (std::vector<RowFields>{StoreRow(store, u"0", u"0.", store.folder, u"00000000.0")}));
  }
}

TEST_F(PrivacyFiles, AWholeStoreShowsItsFolderInTheStatusLineAndRepaints) {
  for (const Store& store : kStores) {
    int paints = 0;
    frmPubMain.Refresh = [&] {
      ++paints;
      EXPECT_EQ(Status(), Concat(u"Scanning in '", store.folder, u"', please wait..."));
      EXPECT_EQ(ResultCount(), 0);
    };
    Scan(store.key);
    EXPECT_EQ(paints, 1);
  }
}

TEST_F(PrivacyFiles, BlanksAroundTheFolderOfAStoreDoNotCount) {
  SetCache(Concat(u"  ", kCache, u"  "));
  AddFile(u"C:\\Users\\Ann\\Cache\\a.htm");
  EXPECT_EQ(Scan(u"ietif")[0].location, kCache);
  EXPECT_EQ(Status(), Concat(u"Scanning in '", kCache, u"', please wait..."));
  EXPECT_EQ(Scan(u"ietifd").size(), 1U);
}

TEST_F(PrivacyFiles, TheLocationOfAStoreHasTheNamesOfTheDisk) {
  SetCookies(u"c:\\USERS\\ann\\cookies");
  EXPECT_EQ(Scan(u"iec")[0].location, kCookies);
}

TEST_F(PrivacyFiles, AStoreThatCannotBeOpenedHasACountAndNoSizes) {
  for (const Store& store : kStores) {
    machine.facts.Set(u"Folders", store.fact, u"C:\\Nowhere");
    EXPECT_EQ(Scan(store.key), (std::vector<RowFields>{StoreRow(store, u"0", u"", u"", u"")}));
    EXPECT_EQ(Status(), u"Scanning in 'C:\\Nowhere', please wait...");
  }
}

TEST_F(PrivacyFiles, AStoreWhoseFolderIsNotKnownStillHasARow) {
  machine.shell.faults.Fail(u"SpecialFolderByNumber");
  for (const Store& store : kStores) {
    EXPECT_EQ(Scan(store.key), (std::vector<RowFields>{StoreRow(store, u"0", u"", u"", u"")}));
    EXPECT_EQ(Status(), u"Scanning in '', please wait...");
  }
}

TEST_F(PrivacyFiles, AProtectedSubfolderLeavesTheSizesOfAStoreEmptyAndItsLocationFilled) {
  AddFile(u"C:\\Users\\Ann\\Cache\\a.htm");
  AddFile(u"C:\\Users\\Ann\\Cache\\Low\\b.htm");
  machine.files.faults.Fail(u"List", u"C:\\Users\\Ann\\Cache\\Low");
  EXPECT_EQ(Scan(u"ietif"), (std::vector<RowFields>{StoreRow(kStores[0], u"1", u"", kCache, u"")}));
}

TEST_F(PrivacyFiles, AFileInTheStoresPlaceIsNoStore) {
  AddFile(u"C:\\file");
  SetHistory(u"C:\\file");
  EXPECT_EQ(Scan(u"ieh"), (std::vector<RowFields>{StoreRow(kStores[2], u"0", u"", u"", u"")}));
}

TEST_F(PrivacyFiles, DetailFunctionsListFileByFileWithoutTheIndexes) {
  const struct {
    TextView key, folder, type;
  } table[] = {{u"ietifd", kCache, u"Temporary Internet File"}, {u"iecd", kCookies, u"Cookie"}};
  for (const auto& row : table) {
    const Text deep = Concat(row.folder, u"\\Content.IE5\\QX7N");
    AddFile(Concat(row.folder, u"\\b.htm"), 3);
    AddFile(Concat(row.folder, u"\\\u00FCber.htm"), 0);
    AddFile(Concat(row.folder, u"\\index.dat"));
    AddFile(Concat(row.folder, u"\\Content.IE5\\INDEX.DAT"));
    AddFile(Concat(deep, u"\\Index.Dat"));
    AddFile(Concat(deep, u"\\index.dat.bak"));
    EXPECT_EQ(Scan(row.key), (std::vector<RowFields>{FileRow(row.type, row.folder, u"b.htm", 3),
                                                     FileRow(row.type, row.folder, u"\u00FCber.htm", 0),
                                                     FileRow(row.type, deep, u"index.dat.bak")}));
  }
}

TEST_F(PrivacyFiles, DetailFunctionsOfAMissingFolderAddNothingAndLeaveTheStatusLine) {
  SetCache(u"C:\\Nowhere");
  machine.shell.faults.Fail(u"SpecialFolderByNumber", u"33");
  frmPubMain.lblProgS.Caption = u"untouched";
  EXPECT_TRUE(Scan(u"ietifd").empty());
  EXPECT_TRUE(Scan(u"iecd").empty());
  EXPECT_EQ(Status(), u"untouched");
}

RowFields IndexRow(TextView kind, TextView size, TextView location, TextView sizeKey) {
  return {Concat(u"index.dat (", kind, u")"),
          u"index.dat",
          Text(size),
          Text(location),
          Text(sizeKey),
          u"DUR",
          true};
}

constexpr TextView kCacheIndex = u"C:\\Users\\Ann\\Cache\\content.ie5\\index.dat";
constexpr TextView kCookieIndex = u"C:\\Users\\Ann\\Cookies\\index.dat";
constexpr TextView kHistoryIndex = u"C:\\Users\\Ann\\History\\History.IE5\\index.dat";

TEST_F(PrivacyFiles, ThreeIndexesHaveARowEachWithTheirWholePathAsLocation) {
  AddFile(u"C:\\Users\\Ann\\Cache\\Content.IE5\\index.dat", 32);
  AddFile(kCookieIndex, 1536);
  machine.files.AddFile(kHistoryIndex, {.size = 1572762});
  frmPubMain.lblProgS.Caption = u"untouched";
  EXPECT_EQ(Scan(u"ieif"),
            (std::vector<RowFields>{
                IndexRow(u"Cache", u"32.", u"C:\\Users\\Ann\\Cache\\Content.IE5\\index.dat", u"00000032.0"),
                IndexRow(u"Cookies", u"1,536.", kCookieIndex, u"00001536.0"),
                IndexRow(u"History", u"1,535.9", kHistoryIndex, u"00001535.9")}));
  EXPECT_EQ(Status(), u"untouched");
}

TEST_F(PrivacyFiles, WithoutTheCachesIndexTheFirstRowHasNoSizeAndNoLocation) {
  AddFile(kCookieIndex, 2);
  AddFile(kHistoryIndex, 3);
  EXPECT_EQ(Scan(u"ieif"),
            (std::vector<RowFields>{IndexRow(u"Cache", u"", u"", u""),
                                    IndexRow(u"Cookies", u"2.", kCookieIndex, u"00000002.0"),
                                    IndexRow(u"History", u"3.", kHistoryIndex, u"00000003.0")}));
}

TEST_F(PrivacyFiles, ALaterMissingIndexRepeatsTheLastGoodOne) {
  AddFile(kCacheIndex, 7);
  const auto repeated = [](TextView kind) { return IndexRow(kind, u"7.", kCacheIndex, u"00000007.0"); };
  EXPECT_EQ(Scan(u"ieif"),
            (std::vector<RowFields>{repeated(u"Cache"), repeated(u"Cookies"), repeated(u"History")}));
  AddFile(kHistoryIndex, 3);
  EXPECT_EQ(Scan(u"ieif"),
            (std::vector<RowFields>{repeated(u"Cache"), repeated(u"Cookies"),
                                    IndexRow(u"History", u"3.", kHistoryIndex, u"00000003.0")}));
}

TEST_F(PrivacyFiles, EachScanOfTheIndexesBeginsWithNone) {
  AddFile(kHistoryIndex, 3);
  Scan(u"ieif");
  EXPECT_EQ(Scan(u"ieif")[0], IndexRow(u"Cache", u"", u"", u""));
}

TEST_F(PrivacyFiles, WithoutAnyIndexThreeRowsHaveOnlyTheirName) {
  machine.shell.faults.Fail(u"SpecialFolderByNumber");
  EXPECT_EQ(Scan(u"ieif"),
            (std::vector<RowFields>{IndexRow(u"Cache", u"", u"", u""), IndexRow(u"Cookies", u"", u"", u""),
                                    IndexRow(u"History", u"", u"", u"")}));
}

TEST_F(PrivacyFiles, AFolderInAnIndexesPlaceIsNoIndex) {
  machine.files.AddFolder(kCacheIndex);
  EXPECT_EQ(Scan(u"ieif")[0], IndexRow(u"Cache", u"", u"", u""));
}

const RowFields kRecentDocsRow = {
    u"Recently Used Documents",
    u"Recently Used Documents",
    u"N/A",
    u"Registry",
    u"00000000.0",
    u"RK: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs",
    true};

TEST_F(PrivacyFiles, RecentDocumentsAreTheKeyAndEveryFileOfTheFolder) {
  AddFile(u"C:\\Users\\Ann\\Recent\\report.doc.lnk", 1);
  AddFile(u"C:\\Users\\Ann\\Recent\\desktop.ini", 0);
  AddFile(u"C:\\Users\\Ann\\Recent\\AutomaticDestinations\\5f7b.ms", 6);
  EXPECT_EQ(
      Scan(u"werud"),
      (std::vector<RowFields>{kRecentDocsRow, FileRow(u"Recently Used Document", kRecent, u"desktop.ini", 0),
                              FileRow(u"Recently Used Document", kRecent, u"report.doc.lnk"),
                              FileRow(u"Recently Used Document",
                                      u"C:\\Users\\Ann\\Recent\\AutomaticDestinations", u"5f7b.ms", 6)}));
  EXPECT_EQ(Status(), u"Scanning in 'C:\\Users\\Ann\\Recent\\AutomaticDestinations', please wait...");
}

TEST_F(PrivacyFiles, WithoutARecentFolderTheKeyIsTheOnlyRow) {
  machine.shell.faults.Fail(u"SpecialFolderByName", u"Recent");
  EXPECT_EQ(Scan(u"werud"), (std::vector<RowFields>{kRecentDocsRow}));
}

TEST_F(PrivacyFiles, OnlyTheWalksSuspendThePaintingOfTheList) {
  const struct {
    TextView key;
    bool walks;
  } table[] = {{u"ietif", false}, {u"iec", false}, {u"ieh", false}, {u"ieif", false},
               {u"ietifd", true}, {u"iecd", true}, {u"werud", true}};
  for (const auto& row : table) {
    PaintingWatch watch;
    Scan(row.key);
    EXPECT_EQ(watch.changes, (row.walks ? std::vector{true, false} : std::vector<bool>())) << Narrow(row.key);
    EXPECT_EQ(watch.atYields, std::vector<bool>(row.walks ? 1 : 0, true)) << Narrow(row.key);
    EXPECT_FALSE(frmPubMain.lsvResult.PaintingSuspended) << Narrow(row.key);
  }
}

TEST_F(PrivacyFiles, AfterCancelNoScannerRuns) {
  AddFile(u"C:\\Users\\Ann\\Cache\\a.htm");
  CancelRequested = true;
  for (const Scanner& scanner : kPrivacyFileScanners)
    EXPECT_TRUE(Scan(scanner.Key).empty()) << Case(scanner.Key);
  EXPECT_EQ(kPrivacyFileScanners.size(), 7U);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
