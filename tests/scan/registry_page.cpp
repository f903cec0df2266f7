#include "scan/registry_page.h"

#include "frame/support/file_system_object.h"
#include "frame/support/pub_registry.h"
#include "frame/support/shell_object.h"
#include "scan/registry_page_test.h"
#include "scan/scan_driver.h"
#include "scan/scan_watch.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

struct Function {
  TextView key;
  std::vector<Text> statuses;  // the paths in them
  std::vector<RowFields> rows;
  int yields;
};

constexpr TextView kMachine = u"HKEY_LOCAL_MACHINE\\";
constexpr TextView kUser = u"HKEY_CURRENT_USER\\";

std::vector<Function> Functions() {
  const Text windows = u"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows";
  const Text version = Concat(windows, u"\\CurrentVersion");
  const Text users = u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion";
  // How the tags of values and keys below these two begin.
  const Text value = u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\CurrentVersion\\";
  const Text key = u"RK: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\CurrentVersion\\";
  const Text gone = u"C:\\gone.dll";
  return {
      {u"Missing Shared DLLs",
       {version + u"\\SharedDlls"},
       {RegistryRow(u"Missing Shared DLL", gone, windows, value + u"SharedDlls, C:\\gone.dll")},
       0},
      {u"ActiveX and Class Issues",
       {u"HKEY_CLASSES_ROOT\\CLSID", u"HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID",
        u"HKEY_CURRENT_USER\\Software\\Classes\\CLSID"},
       {RegistryRow(u"ActiveX and Class Issue", gone, u"HKEY_CLASSES_ROOT",
                    u"RK: HKEY_CLASSES_ROOT, CLSID\\{gone.dll}"),
        RegistryRow(u"ActiveX and Class Issue", gone, u"HKEY_CLASSES_ROOT",
                    u"RK: HKEY_CLASSES_ROOT, CLSID\\{mine gone.dll}"),
        RegistryRow(u"ActiveX and Class Issue", gone, Concat(kMachine, u"Software"),
                    u"RK: HKEY_LOCAL_MACHINE, Software\\Classes\\CLSID\\{gone.dll}"),
        RegistryRow(u"ActiveX and Class Issue", gone, Concat(kUser, u"Software"),
                    u"RK: HKEY_CURRENT_USER, Software\\Classes\\CLSID\\{mine gone.dll}")},
       8},
      {u"Type Libraries Issues",
       {u"HKEY_CLASSES_ROOT\\TypeLib"},
       {RegistryRow(u"Type Library Issue", u"{L2}", u"HKEY_CLASSES_ROOT\\Interface\\{I2}\\TypeLib",
                    u"RK: HKEY_CLASSES_ROOT, Interface\\{I2}")},
       2},
      {u"Application Shells Issues",
       {u"HKEY_CLASSES_ROOT\\Applications"},
       {RegistryRow(u"Application Shell Issue", gone, u"HKEY_CLASSES_ROOT\\Applications",
                    u"RK: HKEY_CLASSES_ROOT, Applications\\a.exe\\shell\\gone.dll")},
       0},
      {u"Fonts Issues",
       {windows + u" NT"},
       {RegistryRow(
           u"Font Issue", u"gone.ttf", windows + u" NT",
           u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts,  gone.ttf "
           u"")},
       0},
      {u"Application Paths Issues",
       {version},
       {RegistryRow(u"Application Path Issue", gone, windows, key + u"App Paths\\gone.dll")},
       0},
      {u"Help Files Issues",
       {windows, windows},
       {RegistryRow(u"Help File Issue", gone, windows,
                    u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\Help, gone.dll"),
        RegistryRow(u"Help File Issue", gone, windows,
                    u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\Html Help, gone.dll")},
       0},
      {u"Redundant Installers",
       {version, version, version},
       {RegistryRow(u"Redundant Installer", u"C:\\None\\", windows,
                    value + u"Installer\\Folders, C:\\None\\"),
        RegistryRow(u"Redundant Installer", gone, windows,
                    key + u"Installer\\UserData\\S-1\\Patches\\gone.dll"),
        RegistryRow(u"Redundant Installer", gone, windows,
                    key + u"Installer\\UserData\\S-1\\Products\\gone.dll")},
       2},
      {u"Obsolete Software",
       {Concat(kMachine, u"Software"), Concat(kUser, u"Software")},
       {RegistryRow(u"Obsolete Software", u"Old", Concat(kMachine, u"Software"),
                    u"RK: HKEY_LOCAL_MACHINE, Software\\Old"),
        RegistryRow(u"Obsolete Software", u"Older", Concat(kUser, u"Software"),
                    u"RK: HKEY_CURRENT_USER, Software\\Older")},
       6},
      {u"Run at Startup Issues",
       {version + u"\\Run", users + u"\\Run"},
       {RegistryRow(u"Run at Startup Issue", gone, version + u"\\Run", value + u"Run, gone.dll"),
        RegistryRow(u"Run at Startup Issue", gone, users + u"\\Run",
                    u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Run, gone.dll")},
       0},
      {u"Start Menu Ordering Issues",
       {users},
       {RegistryRow(
           u"Start Menu Ordering Issue", u"Gone", users,
           u"RK: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder\\"
           u"Start Menu2\\Programs\\Gone")},
       0},
      {u"MUI Cache Issues",
       {u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows"},
       {RegistryRow(
           u"MUI Cache Issue", gone, u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows",
           u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache, C:\\gone.dll")},
       0},
      {u"Uninstaller Issues",
       {u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion"},
       {RegistryRow(u"Uninstaller Issue", gone, windows, key + u"Uninstall\\gone.dll")},
       0},
      {u"Appearance Schemes",
       {u"HKEY_CURRENT_USER\\Control Panel\\Appearance\\Schemes"},
       {RegistryRow(u"Appearance Scheme", u"Brick", u"HKEY_CURRENT_USER",
                    u"RI: HKEY_CURRENT_USER, Control Panel\\Appearance\\Schemes, Brick", false)},
       0},
      {u"Cursor Schemes",
       {version},
       {RegistryRow(u"Cursor Scheme", u"Dinosaur", windows,
                    value + u"Control Panel\\Cursors\\Schemes, Dinosaur", false)},
       0},
      {u"Internet Country Codes",
       {users},
       {RegistryRow(u"Internet Country Code", u"United Kingdom", windows,
                    key + u"Telephony\\Country List\\44", false)},
       0},
      {u"Time Zones",
       {windows + u" NT\\CurrentVersion"},
       {RegistryRow(
           u"Time Zone", u"GMT Standard Time", windows,
           u"RK: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows NT\\CurrentVersion\\Time Zones\\GMT",
           false)},
       0},
  };
}

TEST_F(RegistryPageTest, EveryFunctionHasItsRowsStatusesAndYields) {
  for (const Function& function : Functions()) {
    ScanWatch watch;
    EXPECT_EQ(Scan(function.key), function.rows) << Narrow(function.key);
    std::vector<Text> statuses;
    for (const Text& path : function.statuses) {
      statuses.push_back(Concat(u"Scanning in '", path, u"', please wait..."));
    }
    EXPECT_EQ(watch.statuses, statuses) << Narrow(function.key);
    EXPECT_EQ(watch.yields, function.yields) << Narrow(function.key);
  }
}

TEST_F(RegistryPageTest, ItsFunctionsAreThoseAndNoOthers) {
  std::vector<Text> keys, expected;
  for (const Scanner& scanner : kRegistryScanners) keys.emplace_back(scanner.Key);
  for (const Function& function : Functions()) expected.emplace_back(function.key);
  EXPECT_EQ(keys, expected);
}

TEST_F(RegistryPageTest, AKeyIsComparedExactly) {
  for (const TextView key : {u"time zones", u"Time Zones ", u"Time Zone"})
    EXPECT_TRUE(Scan(key).empty()) << Case(key);
}

TEST_F(RegistryPageTest, AfterCancelNoFunctionRuns) {
  for (const Function& function : Functions()) {
    SCOPED_TRACE(Case(function.key));
    ScanWatch watch;
    CancelRequested = true;
    EXPECT_TRUE(Scan(function.key).empty());
    EXPECT_TRUE(watch.statuses.empty());
    CancelRequested = false;
  }
}

TEST_F(RegistryPageTest, AFunctionThatRunsIsNotEndedByCancel) {
  ScanWatch watch;
  watch.atYield = [] { CancelRequested = true; };
  EXPECT_EQ(Scan(u"ActiveX and Class Issues").size(), 4u);
  EXPECT_EQ(watch.statuses.size(), 3u);
}

TEST_F(RegistryPageTest, AMissingRootIsNoFindingAndItsStatusIsShownAllTheSame) {
  for (const TextView key : {u"Software", u"Control Panel"}) {
    machineRegistry.DeleteKey(Hive::LocalMachine, key);
    machineRegistry.DeleteKey(Hive::CurrentUser, key);
  }
  for (const Function& function : Functions()) {
    ScanWatch watch;
    EXPECT_TRUE(Scan(function.key).empty()) << Narrow(function.key);
    EXPECT_EQ(watch.statuses.size(), function.statuses.size());
    EXPECT_EQ(watch.yields, 0);
  }
}

TEST_F(RegistryPageTest, AScanChangesNothing) {
  machineRegistry.MarkUnchanged();
  for (const Function& function : Functions()) Scan(function.key);
  EXPECT_FALSE(machineRegistry.Changed());
}

TEST_F(RegistryPageTest, WithoutServicesNothingIsFound) {
  pubRegistry = {};
  fileSystemObject = {};
  shellObject = {};
  for (const Function& function : Functions()) EXPECT_TRUE(Scan(function.key).empty()) << Case(function.key);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
