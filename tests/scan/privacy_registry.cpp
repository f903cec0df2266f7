#include "scan/privacy_registry.h"

#include "forms/main_form.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/registry.h"
#include "scan/result_items.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

using platform::Hive;

constexpr TextView kTypedUrls = u"Software\\Microsoft\\Internet Explorer\\TypedUrls";
constexpr TextView kRunMru = u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU";
constexpr TextView kAcMru = u"Software\\Microsoft\\Search Assistant\\ACMru";

class PrivacyRegistry : public ProgramTest {
 protected:
  PrivacyRegistry() { Start(); }
};

RowFields RegistryRow(TextView type, TextView name, TextView tag) {
  return {Text(type), Text(name), u"N/A", u"Registry", u"00000000.0", Text(tag), true};
}

TEST_F(PrivacyRegistry, EveryTypedUrlIsARow) {
  Seed(Hive::CurrentUser, kTypedUrls, u"url1", u"http://example.org/");
  Seed(Hive::CurrentUser, kTypedUrls, u"url2", u"http://b\u00FCcher.example/\u4E16\u754C");
  ScanFunction(u"iertu");
  EXPECT_EQ(
      ResultRows(),
      (std::vector<RowFields>{
          RegistryRow(u"Recently Typed URL", u"http://example.org/",
                      u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Internet Explorer\\TypedUrls, url1"),
          RegistryRow(u"Recently Typed URL", u"http://b\u00FCcher.example/\u4E16\u754C",
                      u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Internet Explorer\\TypedUrls, url2")}));
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer', please wait..."));
}

TEST_F(PrivacyRegistry, NoTypedUrlsGiveNoRowWhileTheStandingRowIsAlwaysThere) {
  ScanFunction(u"iertu");
  EXPECT_EQ(ResultCount(), 0);
  ScanFunction(u"ieafh");
  EXPECT_EQ(ResultCount(), 1);
}

TEST_F(PrivacyRegistry, KeysAreFoundInAnyLetterCase) {
  Seed(Hive::CurrentUser, u"SOFTWARE\\Microsoft\\Internet Explorer\\TypedURLs", u"url1", u"x");
  ScanFunction(u"iertu");
  EXPECT_EQ(ResultRows()[0].tag,
            u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Internet Explorer\\TypedUrls, url1");
}

TEST_F(PrivacyRegistry, RunHistoryTakesTheOrderListToo) {
  Seed(Hive::CurrentUser, kRunMru, u"a", u"cmd\\1");
  Seed(Hive::CurrentUser, kRunMru, u"MRUList", u"a");
  ScanFunction(u"werh");
  const Text tag = Concat(u"RI: HKEY_CURRENT_USER, ", kRunMru);
  EXPECT_EQ(ResultRows(),
            (std::vector<RowFields>{RegistryRow(u"Run History (in Start menu)", u"cmd\\1", tag + u", a"),
                                    RegistryRow(u"Run History (in Start menu)", u"a", tag + u", MRUList")}));
  EXPECT_EQ(
      frmPubMain.lblProgS.Caption,
      Text(u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion', please wait..."));
}

TEST_F(PrivacyRegistry, AValueWithEmptyDataIsPassedOver) {
  Seed(Hive::CurrentUser, kRunMru, u"a", u"");
  Seed(Hive::CurrentUser, kRunMru, u"b", u"calc\\1");
  ScanFunction(u"werh");
  ASSERT_EQ(ResultCount(), 1);
  EXPECT_EQ(ResultRows()[0].name, u"calc\\1");
}

TEST_F(PrivacyRegistry, ADefaultValueHasAnEmptyNameInItsTag) {
  Seed(Hive::CurrentUser, kTypedUrls, u"", u"http://default/");
  ScanFunction(u"iertu");
  EXPECT_EQ(ResultRows()[0].tag,
            u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Internet Explorer\\TypedUrls, ");
}

TEST_F(PrivacyRegistry, SearchHistoryGoesThroughEverySubkeyInOrder) {
  Seed(Hive::CurrentUser, Concat(kAcMru, u"\\5604"), u"000", u"letters");
  Seed(Hive::CurrentUser, Concat(kAcMru, u"\\5603"), u"000", u"*.doc");
  Seed(Hive::CurrentUser, Concat(kAcMru, u"\\5603"), u"001", u"caf\u00E9");
  Seed(Hive::CurrentUser, kAcMru, u"own value", u"not looked at");
  ScanFunction(u"wesh");
  const Text tag = Concat(u"RI: HKEY_CURRENT_USER, ", kAcMru);
  EXPECT_EQ(ResultRows(),
            (std::vector<RowFields>{RegistryRow(u"Search History", u"*.doc", tag + u"\\5603, 000"),
                                    RegistryRow(u"Search History", u"caf\u00E9", tag + u"\\5603, 001"),
                                    RegistryRow(u"Search History", u"letters", tag + u"\\5604, 000")}));
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Search Assistant', please wait..."));
}

TEST_F(PrivacyRegistry, SearchHistoryWithoutSubkeysHasNoRow) {
  Seed(Hive::CurrentUser, kAcMru, u"v", u"data");
  ScanFunction(u"wesh");
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(PrivacyRegistry, AUrlWithACommaIsShownWholeAndOnlyTheNameGoesIntoTheTag) {
  Seed(Hive::CurrentUser, kTypedUrls, u"url1", u"http://x/?a, b: c");
  Seed(Hive::CurrentUser, kTypedUrls, u"a, b", u"y");
  ScanFunction(u"iertu");
  EXPECT_EQ(ResultRows()[0].name, u"http://x/?a, b: c");
  EXPECT_TRUE(ResultRows()[0].tag.ends_with(u"TypedUrls, url1"));
  EXPECT_TRUE(ResultRows()[1].tag.ends_with(u"TypedUrls, a, b"));
}

TEST_F(PrivacyRegistry, DataWithASeparatorIsSplitAndAPieceWithoutDataRepeatsTheOneBefore) {
  Seed(Hive::CurrentUser, kTypedUrls, u"url1", u"before*IS*after");
  Seed(Hive::CurrentUser, kTypedUrls, u"url2", u"one*NDS*two");
  ScanFunction(u"iertu");
  const Text tag = Concat(u"RI: HKEY_CURRENT_USER, ", kTypedUrls, u", ");
  EXPECT_EQ(ResultRows(),
            (std::vector<RowFields>{RegistryRow(u"Recently Typed URL", u"before", tag + u"url1"),
                                    RegistryRow(u"Recently Typed URL", u"before", tag + u"after"),
                                    RegistryRow(u"Recently Typed URL", u"one", tag + u"url2")}));
}

TEST_F(PrivacyRegistry, APieceWithoutDataAfterOneWithEmptyDataIsPassedOver) {
  Seed(Hive::CurrentUser, kTypedUrls, u"a*IS*b", u"");
  Seed(Hive::CurrentUser, kTypedUrls, u"c*IS*d", u"x");
  ScanFunction(u"iertu");
  ASSERT_EQ(ResultCount(), 1);
  EXPECT_TRUE(ResultRows()[0].tag.ends_with(u"TypedUrls, d"));
}

TEST_F(PrivacyRegistry, DataOfEveryTypeIsShownAsText) {
  machineRegistry.SetValue(Hive::CurrentUser, kTypedUrls, u"n", 4, std::string("\x2A\0\0\0", 4));
  machineRegistry.SetValue(Hive::CurrentUser, kTypedUrls, u"b", 3, "\xAB\x01");
  ScanFunction(u"iertu");
  EXPECT_EQ(ResultRows()[0].name, u"42");
  EXPECT_EQ(ResultRows()[1].name, u"AB 01");
}

TEST_F(PrivacyRegistry, AKeyThatCannotBeReadHasNoRows) {
  Seed(Hive::CurrentUser, kTypedUrls, u"url1", u"x");
  machineRegistry.Deny(Hive::CurrentUser, kTypedUrls);
  ScanFunction(u"iertu");
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(PrivacyRegistry, StandingRowsReadNothingAndLeaveTheStatusLine) {
  const struct {
    TextView key, type, tag;
  } table[] = {
      {u"ieafh", u"Auto-fill Form History", u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 16"},
      {u"ieaph", u"Auto-fill Password History", u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 32"},
      {u"weosh", u"Open/Save History",
       u"RK: HKEY_CURRENT_USER, "
       u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU"},
      {u"weoem", u"Other Explorer MRUs",
       u"RK: HKEY_CURRENT_USER, "
       u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\LastVisitedMRU"},
      {u"weurah", u"User Ran Applications History",
       u"RK: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\UserAssist"},
  };
  frmPubMain.lblProgS.Caption = u"untouched";
  std::vector<RowFields> expected;
  for (const auto& row : table) {
    ScanFunction(row.key);
    expected.push_back(RegistryRow(row.type, row.type, row.tag));
  }
  EXPECT_EQ(ResultRows(), expected);
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"untouched"));
}

TEST_F(PrivacyRegistry, TheWindowIsRepaintedAtEachStatus) {
  int paints = 0;
  frmPubMain.Refresh = [&paints] { ++paints; };
  for (const TextView key : {u"iertu", u"werh", u"wesh"}) ScanFunction(key);
  EXPECT_EQ(paints, 3);
}

TEST_F(PrivacyRegistry, OnlyTheCurrentUsersHiveIsLookedAt) {
  Seed(Hive::LocalMachine, kTypedUrls, u"url1", u"x");
  ScanFunction(u"iertu");
  EXPECT_EQ(ResultCount(), 0);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
