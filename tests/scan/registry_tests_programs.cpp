#include "scan/registry_tests.h"

#include "platform/machine/services/machine_registry.h"
#include "scan/registry_test.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

// Application paths.

class ApplicationPathsIssues : public RegistryFunctionTest {};

TEST_F(ApplicationPathsIssues, TheDefaultValueIsACommand) {
  AddFile(u"C:\\there.exe");
  SeedWindows(u"App Paths\\a.exe", u"", u"C:\\there.exe");
  SeedWindows(u"App Paths\\b.exe", u"", u"\"C:\\Program Files\\B\\b.exe\"");
  SeedWindows(u"App Paths\\c.exe", u"", u"%ProgramFiles%\\c.exe");
  SeedWindows(u"App Paths\\d.exe", u"Path", u"C:\\gone");
  SeedWindows(u"App Paths\\e.exe", u"", u"");
  EXPECT_EQ(FoundBy(u"Application Paths Issues"), Texts{u"C:\\Program Files\\B\\b.exe"});
}

// Help files.

class HelpFilesIssues : public RegistryFunctionTest {
 protected:
  void SeedHelp(TextView name, TextView data) {
    SeedMachine(u"Software\\Microsoft\\Windows\\Help", name, data);
  }
};

TEST_F(HelpFilesIssues, ABackslashAtTheEndOfTheFolderIsNotTakenAway) {
  AddFile(u"C:\\Help\\there.hlp");
  SeedHelp(u"x.hlp", u"C:\\Help\\");
  SeedHelp(u"there.hlp", u"C:\\Help\\");
  EXPECT_EQ(FoundBy(u"Help Files Issues"), Texts{u"C:\\Help\\\\x.hlp"});
}

TEST_F(HelpFilesIssues, FolderAndNameAreTrimmed) {
  AddFile(u"C:\\Help\\there.hlp");
  SeedHelp(u" there.hlp ", u" C:\\Help ");
  SeedHelp(u" gone.hlp ", u" C:\\Help ");
  const auto rows = Scan(u"Help Files Issues");
  EXPECT_EQ(Names(rows), Texts{u"C:\\Help\\gone.hlp"});
  EXPECT_EQ(rows[0].tag, u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\Help,  gone.hlp ");
}

TEST_F(HelpFilesIssues, AValueWithoutAFolderIsAFinding) {
  SeedHelp(u"x.hlp", u"");
  EXPECT_EQ(FoundBy(u"Help Files Issues"), Texts{u"\\x.hlp"});
}

// Start of the system.

class RunAtStartupIssues : public RegistryFunctionTest {};

TEST_F(RunAtStartupIssues, ACommandOfAnExistingFileIsNoFinding) {
  AddFile(u"C:\\Tools\\app.exe");
  SeedWindows(u"Run", u"App", u"C:\\Tools\\app.exe /background");
  EXPECT_EQ(FoundBy(u"Run at Startup Issues"), Texts{});
}

TEST_F(RunAtStartupIssues, AQuotedPathIsShownWithoutQuotes) {
  SeedWindows(u"Run", u"Tool", u"\"C:\\Program Files\\My Tool\\tool.exe\"");
  EXPECT_EQ(FoundBy(u"Run at Startup Issues"), Texts{u"C:\\Program Files\\My Tool\\tool.exe"});
}

TEST_F(RunAtStartupIssues, ACommandThatCantBeJudgedIsATickedFindingWithoutName) {
  SeedWindows(u"Run", u"a", u"%ProgramFiles%\\x.exe");
  SeedWindows(u"Run", u"b", u"rundll32 x.dll,Entry");
  SeedWindows(u"Run", u"", u"");
  const auto rows = Scan(u"Run at Startup Issues");
  const Text tag = u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\CurrentVersion\\Run, ";
  EXPECT_EQ(Names(rows), (Texts{u"", u"", u""}));
  EXPECT_EQ(Tags(rows), (Texts{tag + u"a", tag + u"b", tag}));
  for (const RowFields& row : rows) EXPECT_TRUE(row.checked) << Case(row.name);
}

// Software.

class ObsoleteSoftware : public RegistryFunctionTest {};

TEST_F(ObsoleteSoftware, AKeyWithNothingInItIsAFinding) {
  machineRegistry.MakeKey(Hive::LocalMachine, u"Software\\Empty");
  EXPECT_EQ(FoundBy(u"Obsolete Software"), Texts{u"Empty"});
}

TEST_F(ObsoleteSoftware, AKeyWithItsDefaultValueAloneIsAFinding) {
  SeedMachine(u"Software\\Default", u"", u"x");
  SeedMachine(u"Software\\EmptyDefault", u"", u"");
  EXPECT_EQ(FoundBy(u"Obsolete Software"), (Texts{u"Default", u"EmptyDefault"}));
}

TEST_F(ObsoleteSoftware, AKeyWithOneNamedValueIsNoFinding) {
  SeedMachine(u"Software\\Named", u"v", u"x");
  EXPECT_EQ(FoundBy(u"Obsolete Software"), Texts{});
}

TEST_F(ObsoleteSoftware, AKeyWithTwoValuesIsNoFinding) {
  SeedMachine(u"Software\\Two", u"", u"x");
  SeedMachine(u"Software\\Two", u"v", u"x");
  EXPECT_EQ(FoundBy(u"Obsolete Software"), Texts{});
}

TEST_F(ObsoleteSoftware, AKeyWithAnEmptySubkeyIsNoFinding) {
  machineRegistry.MakeKey(Hive::LocalMachine, u"Software\\Vendor\\Product");
  EXPECT_EQ(FoundBy(u"Obsolete Software"), Texts{});
}

TEST_F(ObsoleteSoftware, AValueWhoseNameLooksLikeTheSeparatorCountsAsADefaultValue) {
  SeedMachine(u"Software\\A", u"xNDSy", u"");
  SeedMachine(u"Software\\B", u"xNDS", u"");
  SeedMachine(u"Software\\C", u"NDSy", u"");
  SeedMachine(u"Software\\D", u"xndsy", u"");
  SeedMachine(u"Software\\E", u"xNDSy and more", u"data");
  EXPECT_EQ(FoundBy(u"Obsolete Software"), (Texts{u"A", u"B", u"E"}));
}

TEST_F(ObsoleteSoftware, AKeyWithTooManyValuesToCountIsNoFinding) {
  for (int i = 0; i <= INT16_MAX; ++i) SeedMachine(u"Software\\Many", i == 0 ? u"" : ToText(i), u"x");
  EXPECT_EQ(FoundBy(u"Obsolete Software"), Texts{});
}

TEST_F(ObsoleteSoftware, TheUsersKeysFollowTheMachines) {
  for (const TextView name : {u"Z", u"A"})
    machineRegistry.MakeKey(Hive::LocalMachine, Concat(u"Software\\", name));
  for (const TextView name : {u"Y", u"B"})
    machineRegistry.MakeKey(Hive::CurrentUser, Concat(u"Software\\", name));
  EXPECT_EQ(FoundBy(u"Obsolete Software"), (Texts{u"A", u"Z", u"B", u"Y"}));
}

// Cached titles of programs.

class MuiCacheIssues : public RegistryFunctionTest {};

TEST_F(MuiCacheIssues, TheNameIsTheCommand) {
  const TextView key = u"Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache";
  AddFile(u"C:\\there.exe");
  for (const TextView name : {u"C:\\there.exe", u"C:\\gone.exe", u"@shell32.dll,-1",
                              u"@C:\\WINDOWS\\system32\\gone.dll,-101", u"LangID", u""}) {
    SeedUser(key, name, u"C:\\elsewhere\\gone.exe");
  }
  EXPECT_EQ(FoundBy(u"MUI Cache Issues"), (Texts{u"C:\\gone.exe", u"C:\\WINDOWS\\system32\\gone.dll"}));
}

// Lists in which every entry is a finding.

class WholeLists : public RegistryFunctionTest {};

TEST_F(WholeLists, EverySubkeyIsListedUntickedAlsoWithAnEmptyValue) {
  SeedWindows(u"Telephony\\Country List\\1", u"Name", u"United States");
  SeedWindows(u"Telephony\\Country List\\2", u"Code", u"no name");
  SeedWindows(u"Telephony\\Country List\\3", u"Name", u"");
  const TextView zones = u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Time Zones\\";
  SeedMachine(Concat(zones, u"A"), u"Std", u"A Standard Time");
  SeedMachine(Concat(zones, u"B"), u"Dlt", u"B Daylight Time");
  EXPECT_EQ(FoundBy(u"Internet Country Codes"), (Texts{u"United States", u"", u""}));
  for (const RowFields& row : ResultRows()) EXPECT_FALSE(row.checked) << Case(row.name);
  EXPECT_EQ(FoundBy(u"Time Zones"), (Texts{u"A Standard Time", u""}));
  for (const RowFields& row : ResultRows()) EXPECT_FALSE(row.checked) << Case(row.name);
}

TEST_F(WholeLists, SchemesAreAllValuesButTheDefaultOne) {
  for (const TextView name : {u"", u"Brick", u" ", u"Rose"}) {
    SeedUser(u"Control Panel\\Appearance\\Schemes", name, u"x");
    SeedWindows(u"Control Panel\\Cursors\\Schemes", name, u"x");
  }
  EXPECT_EQ(FoundBy(u"Appearance Schemes"), (Texts{u"Brick", u" ", u"Rose"}));
  for (const RowFields& row : ResultRows()) EXPECT_FALSE(row.checked) << Case(row.name);
  EXPECT_EQ(FoundBy(u"Cursor Schemes"), (Texts{u"Brick", u" ", u"Rose"}));
  for (const RowFields& row : ResultRows()) EXPECT_FALSE(row.checked) << Case(row.name);
}

// Uninstallers.

class UninstallerIssues : public RegistryFunctionTest {
 protected:
  void SeedUninstaller(TextView key, TextView command = u"C:\\gone.exe") {
    SeedWindows(Concat(u"Uninstall\\", key), u"UninstallString", command);
  }
};

TEST_F(UninstallerIssues, KeysNamedLikeAClassIdentifierArePassedOver) {
  const struct {
    TextView key;
    bool read;
  } table[] = {
      {u"{12345678-ABCD-1234-ABCD-123456789012}", false},
      {u"{1-2}", true},
      {u"{", true},
      {u"{12345678}", true},
      {u"{123456-", true},    // the hyphen is the eighth character
      {u"{1234567-", false},  // the ninth
      {u"{1-34567-", true},   // only the first hyphen counts
      {u"x12345678-ABCD", true},
      {u" {12345678-ABCD}", true},
      {u"App", true},
  };
  for (const auto& row : table) {
    machineRegistry.DeleteKey(Hive::LocalMachine, Concat(kWindowsKey, u"\\Uninstall"));
    SeedUninstaller(row.key);
    EXPECT_EQ(FoundBy(u"Uninstaller Issues").size(), row.read ? 1u : 0u) << Narrow(row.key);
  }
}

TEST_F(UninstallerIssues, AKeyWithoutACommandIsNoFinding) {
  SeedWindows(u"Uninstall\\App", u"DisplayName", u"App");
  SeedUninstaller(u"Empty", u"");
  SeedUninstaller(u"Unclear", u"MsiExec.exe /X{1}");
  SeedUninstaller(u"General", u"C:\\WINDOWS\\GenUInst.exe \"x\"");
  EXPECT_EQ(FoundBy(u"Uninstaller Issues"), Texts{});
}

TEST_F(UninstallerIssues, TheProgramOfTheCommandIsTested) {
  AddFile(u"C:\\App\\unins000.exe");
  SeedUninstaller(u"A", u"\"C:\\App\\unins000.exe\" /SILENT");
  SeedUninstaller(u"B", u"\"C:\\Gone\\unins000.exe\" /SILENT");
  SeedUninstaller(u"C", u"%ProgramFiles%\\C\\unins000.exe /S");
  EXPECT_EQ(FoundBy(u"Uninstaller Issues"),
            (Texts{u"C:\\Gone\\unins000.exe", u"%ProgramFiles%\\C\\unins000.exe"}));
}

// The order of the start menu.

class StartMenuOrderingIssues : public RegistryFunctionTest {
 protected:
  StartMenuOrderingIssues() {
    SetSpecialFolder(u"AllUsersPrograms", u"C:\\All");
    SetSpecialFolder(u"Programs", u"C:\\Mine");
  }
  void SeedItem(TextView name) {
    SeedUser(Concat(kWindowsKey, u"\\Explorer\\MenuOrder\\Start Menu2\\Programs\\", name), u"Order", u"x");
  }
};

TEST_F(StartMenuOrderingIssues, AShortcutOrFolderInEitherMenuIsEnough) {
  AddFiles({u"C:\\All\\Shared.lnk", u"C:\\Mine\\Own.lnk"});
  for (const TextView folder : {u"C:\\All\\Accessories", u"C:\\Mine\\Games"}) machine.files.AddFolder(folder);
  for (const TextView item : {u"Shared", u"Own", u"Accessories", u"Games", u"Gone"}) SeedItem(item);
  EXPECT_EQ(FoundBy(u"Start Menu Ordering Issues"), Texts{u"Gone"});
}

TEST_F(StartMenuOrderingIssues, AFolderInTheAllUsersMenuOnlyIsNoFinding) {
  machine.files.AddFolder(u"C:\\All\\Accessories");
  SeedItem(u"Accessories");
  EXPECT_EQ(FoundBy(u"Start Menu Ordering Issues"), Texts{});
}

TEST_F(StartMenuOrderingIssues, AFileOrFolderOfTheOtherKindIsNotEnough) {
  AddFile(u"C:\\All\\File");
  machine.files.AddFolder(u"C:\\Mine\\Folder.lnk");
  for (const TextView item : {u"File", u"Folder"}) SeedItem(item);
  EXPECT_EQ(FoundBy(u"Start Menu Ordering Issues"), (Texts{u"File", u"Folder"}));
}

TEST_F(StartMenuOrderingIssues, OnlyTheFirstLevelIsLookedAt) {
  machine.files.AddFolder(u"C:\\All\\Accessories");
  SeedItem(u"Accessories\\Gone");
  EXPECT_EQ(FoundBy(u"Start Menu Ordering Issues"), Texts{});
}

TEST_F(StartMenuOrderingIssues, TheTestsRunInTheirOrderAndStopAtTheFirstThatFinds) {
  AddFile(u"C:\\Mine\\Own.lnk");
  SeedItem(u"Own");
  const int before = machine.files.faults.Calls();
  Scan(u"Start Menu Ordering Issues");
  EXPECT_EQ(machine.files.faults.Calls() - before, 2);
}

// Installers.

class RedundantInstallers : public RegistryFunctionTest {
 protected:
  void SeedPackage(TextView key, TextView package) {
    SeedWindows(Concat(u"Installer\\UserData\\", key), u"LocalPackage", package);
  }
};

TEST_F(RedundantInstallers, FoldersAreTestedAsFolders) {
  machine.files.AddFolder(u"C:\\Folder\\Sub");
  AddFile(u"C:\\File");
  for (const TextView name : {u"C:\\Folder\\", u"C:\\Folder\\Sub", u"C:\\Gone\\", u"C:\\File",
                              u"C:\\Program Files\\Gone", u"Gone"}) {
    SeedWindows(u"Installer\\Folders", name, u"");
  }
  EXPECT_EQ(FoundBy(u"Redundant Installers"),
            (Texts{u"C:\\Gone\\", u"C:\\File", u"C:\\Program Files\\Gone"}));
}

TEST_F(RedundantInstallers, PatchesAndProductsOfEveryUserAreTested) {
  AddFile(u"C:\\WINDOWS\\Installer\\1.msi");
  for (const TextView user : {u"S-1-5-18", u"S-1-5-21"}) {
    SeedPackage(Concat(user, u"\\Patches\\P1"), u"C:\\WINDOWS\\Installer\\gone.msp");
    SeedPackage(Concat(user, u"\\Patches\\P2"), u"");
    SeedPackage(Concat(user, u"\\Products\\A\\InstallProperties"), u"C:\\WINDOWS\\Installer\\1.msi");
    SeedPackage(Concat(user, u"\\Products\\B\\InstallProperties"), u"C:\\WINDOWS\\Installer\\gone.msi");
    SeedPackage(Concat(user, u"\\Products\\C"), u"C:\\not here.msi");
    SeedPackage(Concat(user, u"\\Components\\D"), u"C:\\gone.msi");
  }
  const Text tag =
      u"RK: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\UserData\\";
  EXPECT_EQ(TagsBy(u"Redundant Installers"),
            (Texts{tag + u"S-1-5-18\\Patches\\P1", tag + u"S-1-5-21\\Patches\\P1",
                   tag + u"S-1-5-18\\Products\\B", tag + u"S-1-5-21\\Products\\B"}));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
