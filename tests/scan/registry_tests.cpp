#include "scan/registry_tests.h"

#include <algorithm>
#include <map>

#include "doubles/memory_shell.h"
#include "doubles/memory_store.h"
#include "platform/machine/services/machine_registry.h"
#include "scan/registry_test.h"

namespace tavix::mdlPubSelf {
namespace {

// Shared libraries.

class MissingSharedDlls : public RegistryFunctionTest {};

TEST_F(MissingSharedDlls, ANameIsTestedUnchanged) {
  AddFiles({u"C:\\a b.dll", u"C:\\c.dll"});
  SetWindows(u"C:");
  for (const TextView name : {u"C:\\a b.dll", u"C:\\gone.dll", u"%WinDir%\\c.dll", u"\"C:\\c.dll\"",
                              u"C:\\c.dll -x", u"c:/C.DLL"}) {
    SeedWindows(u"SharedDlls", name, u"1");
  }
  EXPECT_EQ(FoundBy(u"Missing Shared DLLs"),
            (Texts{u"C:\\gone.dll", u"%WinDir%\\c.dll", u"\"C:\\c.dll\"", u"C:\\c.dll -x"}));
}

TEST_F(MissingSharedDlls, EnvironmentVariablesAreNotExpanded) {
  SeedWindows(u"SharedDlls", u"%SystemRoot%\\a.dll", u"1");
  EXPECT_EQ(FoundBy(u"Missing Shared DLLs"), Texts{u"%SystemRoot%\\a.dll"});
}

TEST_F(MissingSharedDlls, ADefaultValueBesideOthersIsAFindingWithoutName) {
  SeedWindows(u"SharedDlls", u"C:\\gone.dll", u"1");
  SeedWindows(u"SharedDlls", u"", u"1");
  EXPECT_EQ(TagsBy(u"Missing Shared DLLs")[1],
            u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\CurrentVersion\\SharedDlls, ");
}

// Classes.

class ActiveXAndClassIssues : public RegistryFunctionTest {};

TEST_F(ActiveXAndClassIssues, AClassWithoutATestablePathIsNoFinding) {
  SeedClass(u"CLSID\\{1}\\InprocServer32", u"%SystemRoot%\\system32\\x.dll");
  SeedClass(u"CLSID\\{2}\\InprocServer32", u"ole32.dll");
  SeedClass(u"CLSID\\{3}\\InprocServer32", u"");
  SeedClass(u"CLSID\\{4}\\LocalServer32", u"C:\\gone.exe");
  SeedMachine(u"Software\\Classes\\CLSID\\{5}\\InprocServer32", u"ThreadingModel", u"Both");
  SeedClass(u"CLSID\\{6}", u"C:\\gone.dll");
  EXPECT_EQ(FoundBy(u"ActiveX and Class Issues"), Texts{});
}

TEST_F(ActiveXAndClassIssues, AMachinesClassIsFoundTwiceWithDifferentTags) {
  SeedClass(u"CLSID\\{1}\\InprocServer32", u"C:\\Windows\\system32\\gone.dll");
  EXPECT_EQ(TagsBy(u"ActiveX and Class Issues"),
            (Texts{u"RK: HKEY_CLASSES_ROOT, CLSID\\{1}",
                   u"RK: HKEY_LOCAL_MACHINE, Software\\Classes\\CLSID\\{1}"}));
}

TEST_F(ActiveXAndClassIssues, TheUsersValueHidesTheMachinesInTheMergedList) {
  AddFile(u"C:\\there.dll");
  SeedClass(u"CLSID\\{1}\\InprocServer32", u"C:\\gone.dll");
  SeedUser(u"Software\\Classes\\CLSID\\{1}\\InprocServer32", u"", u"C:\\there.dll");
  EXPECT_EQ(TagsBy(u"ActiveX and Class Issues"),
            Texts{u"RK: HKEY_LOCAL_MACHINE, Software\\Classes\\CLSID\\{1}"});
}

TEST_F(ActiveXAndClassIssues, APathWithBlanksIsFoundOnlyWhereItExists) {
  AddFile(u"C:\\Program Files\\My App\\a b.dll");
  SeedUser(u"Software\\Classes\\CLSID\\{1}\\InprocServer32", u"", u"\"C:\\Program Files\\My App\\a b.dll\"");
  SeedUser(u"Software\\Classes\\CLSID\\{2}\\InprocServer32", u"", u"C:\\Program Files\\My App\\c d.dll");
  EXPECT_EQ(FoundBy(u"ActiveX and Class Issues"),
            (Texts{u"C:\\Program Files\\My App\\c", u"C:\\Program Files\\My App\\c"}));
}

// Type libraries.

class TypeLibrariesIssues : public RegistryFunctionTest {
 protected:
  void SeedInterface(TextView name, TextView library) {
    SeedClass(Concat(u"Interface\\", name, u"\\TypeLib"), library);
  }
};

TEST_F(TypeLibrariesIssues, AnInterfaceWithoutALibraryIsNoFindingWhileThereIsAnyLibrary) {
  SeedClass(u"TypeLib\\{L}", u"");
  SeedClass(u"Interface\\{1}", u"IUnknown");
  SeedInterface(u"{2}", u"");
  EXPECT_EQ(FoundBy(u"Type Libraries Issues"), Texts{});
}

TEST_F(TypeLibrariesIssues, WithoutLibrariesEveryInterfaceIsAFinding) {
  SeedClass(u"Interface\\{1}", u"IUnknown");
  SeedInterface(u"{2}", u"{L}");
  EXPECT_EQ(FoundBy(u"Type Libraries Issues"), (Texts{u"", u"{L}"}));
}

TEST_F(TypeLibrariesIssues, LibrariesThatMayNotBeReadMakeNoInterfaceAFinding) {
  SeedClass(u"TypeLib\\{L}", u"");
  SeedInterface(u"{1}", u"{L}");
  SeedInterface(u"{2}", u"{gone}");
  machineRegistry.Deny(Hive::LocalMachine, u"Software\\Classes\\TypeLib");
  EXPECT_EQ(FoundBy(u"Type Libraries Issues"), Texts{});
}

TEST_F(TypeLibrariesIssues, ALibraryInAnotherLetterCaseIsMissing) {
  SeedClass(u"TypeLib\\{00AA}", u"");
  SeedInterface(u"{1}", u"{00AA}");
  SeedInterface(u"{2}", u"{00aa}");
  EXPECT_EQ(FoundBy(u"Type Libraries Issues"), Texts{u"{00aa}"});
}

TEST_F(TypeLibrariesIssues, AnyPartOfTheListOfLibrariesIsThere) {
  SeedClass(u"TypeLib\\{A}", u"");
  SeedClass(u"TypeLib\\{B}", u"");
  for (const TextView library : {u"A", u"}", u"SK", u"A}*SK*{B", u"{B}*SK*"}) {
    SeedInterface(ToText(static_cast<int>(library.size())), library);
  }
  EXPECT_EQ(FoundBy(u"Type Libraries Issues"), Texts{u"{B}*SK*"});
}

TEST_F(TypeLibrariesIssues, BothHivesHaveLibrariesAndInterfaces) {
  SeedClass(u"TypeLib\\{A}", u"");
  SeedUser(u"Software\\Classes\\TypeLib\\{B}", u"", u"");
  SeedInterface(u"{1}", u"{B}");
  SeedUser(u"Software\\Classes\\Interface\\{2}\\TypeLib", u"", u"{A}");
  SeedUser(u"Software\\Classes\\Interface\\{3}\\TypeLib", u"", u"{C}");
  EXPECT_EQ(TagsBy(u"Type Libraries Issues"), Texts{u"RK: HKEY_CLASSES_ROOT, Interface\\{3}"});
}

// Shells of applications.

class ApplicationShellsIssues : public RegistryFunctionTest {};

TEST_F(ApplicationShellsIssues, AVerbWithoutACommandIsNoFinding) {
  SeedClass(u"Applications\\a.exe\\shell\\open", u"&Open");
  SeedClass(u"Applications\\b.exe\\shell\\open\\command", u"");
  SeedClass(u"Applications\\c.exe", u"");
  EXPECT_EQ(FoundBy(u"Application Shells Issues"), Texts{});
}

TEST_F(ApplicationShellsIssues, OneVerbGoesAndTheApplicationStays) {
  AddFile(u"C:\\Program Files\\App\\app.exe");
  const TextView command = u"\"C:\\Program Files\\App\\app.exe\" \"%1\"";
  SeedClass(u"Applications\\app.exe\\shell\\edit\\command", command);
  SeedClass(u"Applications\\app.exe\\shell\\open\\command", u"\"C:\\Program Files\\Gone\\app.exe\" \"%1\"");
  SeedClass(u"Applications\\app.exe\\shell\\print\\command", u"rundll32 x.dll,Entry");
  EXPECT_EQ(Scan(u"Application Shells Issues"),
            (std::vector{RegistryRow(u"Application Shell Issue", u"C:\\Program Files\\Gone\\app.exe",
                                     u"HKEY_CLASSES_ROOT\\Applications",
                                     u"RK: HKEY_CLASSES_ROOT, Applications\\app.exe\\shell\\open")}));
}

// Fonts.

class FontsIssues : public RegistryFunctionTest {
 protected:
  FontsIssues() {
    SetSpecialFolder(u"Fonts", u"C:\\Windows\\Fonts");
    AddFiles({u"C:\\Windows\\Fonts\\arial.ttf", u"C:\\Fonts\\x.ttf"});
  }
  void SeedFont(TextView name, TextView data) {
    SeedMachine(u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", name, data);
  }
};

TEST_F(FontsIssues, AFileInTheFontsFolderIsNoFinding) {
  SeedFont(u"Arial (TrueType)", u"arial.ttf");
  SeedFont(u"Arial (blank after)", u"arial.ttf ");
  SeedFont(u"Arial (blank before)", u"  arial.ttf");
  EXPECT_EQ(FoundBy(u"Fonts Issues"), Texts{});
}

TEST_F(FontsIssues, AnAbsolutePathIsAFindingThoughTheFileIsThere) {
  SeedFont(u"X (TrueType)", u"C:\\Fonts\\x.ttf");
  SeedFont(u"Arial (whole path)", u"C:\\Windows\\Fonts\\arial.ttf");
  EXPECT_EQ(FoundBy(u"Fonts Issues"), (Texts{u"X (TrueType)", u"Arial (whole path)"}));
}

TEST_F(FontsIssues, TheNameIsTrimmedInTheRowAndNotInTheTag) {
  SeedFont(u"  Gone (TrueType) ", u"gone.ttf");
  const auto rows = Scan(u"Fonts Issues");
  EXPECT_EQ(rows[0].name, u"Gone (TrueType)");
  EXPECT_EQ(
      rows[0].tag,
      u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts,   Gone (TrueType) ");
}

TEST_F(FontsIssues, AFontWithoutAFileIsAFinding) {
  SeedFont(u"Empty", u"");
  EXPECT_EQ(FoundBy(u"Fonts Issues"), Texts{u"Empty"});
}

// Without the folder nothing can be told about the fonts in it.
TEST_F(FontsIssues, WithoutAFontsFolderNoFontIsAFinding) {
  SeedFont(u"Arial (TrueType)", u"arial.ttf");
  SeedFont(u"Gone (TrueType)", u"gone.ttf");
  EXPECT_EQ(FoundBy(u"Fonts Issues"), Texts{u"Gone (TrueType)"});
  machine.shell.faults.Fail(u"SpecialFolderByName", u"Fonts");
  EXPECT_EQ(FoundBy(u"Fonts Issues"), Texts{});
  machine.shell.faults.Clear();
  SetSpecialFolder(u"Fonts", u"");
  EXPECT_EQ(FoundBy(u"Fonts Issues"), Texts{});
}

// All functions.

class RegistryLists : public RegistryFunctionTest {
 protected:
  RegistryLists() {
    for (const TextView name : {u"Fonts", u"AllUsersPrograms", u"Programs"}) {
      SetSpecialFolder(name, u"C:\\P\\Shell");
    }
    SeedWindows(u"SharedDlls", u"C:\\P\\a.dll", u"1");
    SeedClass(u"CLSID\\{1}\\InprocServer32", u"C:\\P\\a.dll");
    SeedClass(u"Applications\\a.exe\\shell\\open\\command", u"\"C:\\P\\a.exe\" \"%1\"");
    SeedMachine(u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", u"A", u"a.ttf");
    SeedWindows(u"App Paths\\a.exe", u"", u"C:\\P\\a.exe");
    SeedMachine(u"Software\\Microsoft\\Windows\\Help", u"a.hlp", u"C:\\P");
    SeedWindows(u"Run", u"a", u"C:\\P\\a.exe -x");
    SeedUser(u"Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache", u"C:\\P\\a.exe", u"A");
    SeedWindows(u"Uninstall\\A", u"UninstallString", u"\"C:\\P\\a b.exe\" /x");
    SeedUser(Concat(kWindowsKey, u"\\Explorer\\MenuOrder\\Start Menu2\\Programs\\A"), u"Order", u"");
    SeedWindows(u"Installer\\Folders", u"C:\\P\\Folder\\", u"");
    SeedWindows(u"Installer\\UserData\\S-1\\Patches\\1", u"LocalPackage", u"C:\\P\\a.msp");
    SeedWindows(u"Installer\\UserData\\S-1\\Products\\1\\InstallProperties", u"LocalPackage",
                u"C:\\P\\a.msi");
  }
  // The functions that find something, with the number of their rows.
  static std::map<Text, size_t> Found() {
    std::map<Text, size_t> found;
    for (const TextView function :
         {u"Missing Shared DLLs", u"ActiveX and Class Issues", u"Application Shells Issues", u"Fonts Issues",
          u"Application Paths Issues", u"Help Files Issues", u"Run at Startup Issues", u"MUI Cache Issues",
          u"Uninstaller Issues", u"Start Menu Ordering Issues", u"Redundant Installers"}) {
      if (const size_t rows = Scan(function).size(); rows > 0) found[Text(function)] = rows;
    }
    return found;
  }
};

TEST_F(RegistryLists, FindNothingWhereNoFileCanBeLookedAt) {
  EXPECT_EQ(Found().size(), 11U) << "only where the file is known to be missing";
  machine.files.faults.Fail(u"FileExists");
  machine.files.faults.Fail(u"FolderExists");
  EXPECT_EQ(Found(), (std::map<Text, size_t>()));
}

TEST_F(RegistryLists, FindNoMenuEntryWhereOneOfTheMenusFoldersCantBeTold) {
  EXPECT_EQ(FoundBy(u"Start Menu Ordering Issues"), Texts{u"A"});
  for (const TextView folder : {u"AllUsersPrograms", u"Programs"}) {
    machine.shell.faults.Fail(u"SpecialFolderByName", folder);
    EXPECT_EQ(FoundBy(u"Start Menu Ordering Issues"), Texts{}) << Narrow(folder);
    machine.shell.faults.Clear();
  }
}

TEST_F(RegistryLists, FindNothingBelowAFolderThatCantBeRead) {
  machine.store.faults.Fail(u"Find", u"P");
  EXPECT_EQ(Found(), (std::map<Text, size_t>()));
}

TEST_F(RegistryLists, FindNothingOnAnotherComputer) {
  SeedWindows(u"SharedDlls", u"\\\\server\\share\\a.dll", u"1");
  EXPECT_EQ(FoundBy(u"Missing Shared DLLs"), Texts{u"C:\\P\\a.dll"});
}

TEST_F(RegistryLists, FindSoftwareObsoleteOnlyWhereItsKeyCanBeRead) {
  machineRegistry.MakeKey(Hive::CurrentUser, u"Software\\Empty");
  SeedUser(u"Software\\Sound\\Below", u"v", u"1");
  const auto isListed = [](TextView name) {
    const Texts found = FoundBy(u"Obsolete Software");
    return std::ranges::find(found, name) != found.end();
  };
  EXPECT_TRUE(isListed(u"Empty"));
  EXPECT_FALSE(isListed(u"Sound"));
  machineRegistry.Deny(Hive::CurrentUser, u"Software\\Empty");
  machineRegistry.Deny(Hive::CurrentUser, u"Software\\Sound");
  EXPECT_FALSE(isListed(u"Empty"));
  EXPECT_FALSE(isListed(u"Sound"));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
