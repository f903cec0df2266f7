#include "frame/support/pub_common.h"

#include <gtest/gtest.h>

#include "controls/menu.h"
#include "doubles/memory_file_system.h"
#include "doubles/memory_host.h"
#include "doubles/memory_shell.h"
#include "doubles/memory_store.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/shortcut_bytes.h"
#include "support/case.h"

namespace tavix {
namespace {

machine::FileSeed Content(std::string content, uint32_t attributes = 0) {
  machine::FileSeed seed;
  seed.content = std::move(content);
  seed.attributes = attributes;
  return seed;
}

class SampleForm : public Form {
 public:
  SampleForm() : Form(u"frmSample") {
    Say(u"one", one.Caption, u"one");
    Say(u"two", two.Caption, u"two");
    SayMenu(u"entry", entry, u"entry");
  }

  Button one, two;
  MenuItem entry;
};

class PubCommon : public testing::Test {
 protected:
  void AddShortcut(TextView target) {
    using namespace platform::shortcut_bytes;
    const bool variables = target.find(u'%') != TextView::npos;
    const std::string bytes = variables ? Header(kHasVariablePath) + ExtraBlock(kVariablePath, u"", target)
                                        : Header(kHasLocation) + LocationBlock({.flags = 1, .path = target});
    host.files.AddFile(u"C:\\Links\\a.lnk", Content(bytes));
  }
  bool IsValid(TextView path = u"C:\\Links\\a.lnk") {
    bool valid = false;
    common.IsShortcutValid(path, valid);
    bool again = true;
    common.IsShortcutValid(path, again);
    EXPECT_EQ(valid, again) << "the output was not set";
    return valid;
  }
  bool IsTargetValid(TextView target) {
    AddShortcut(target);
    return IsValid();
  }

  machine::MemoryHost host;
  clsPubCommon common{&host.fileSystem, &host.shell};
};

TEST_F(PubCommon, LoadsTheTextsOfAFormFromItsSection) {
  host.files.AddFile(u"C:\\tips.dll",
                     Content("[frmOther]\none=wrong\n[frmSample]\none=eins\nTWO=' zwei '\nthree=drei\n"));
  SampleForm form;
  common.LoadFormTexts(form, u"C:\\tips.dll");
  EXPECT_EQ(form.one.Caption.Get(), u"eins");
  EXPECT_EQ(form.two.Caption.Get(), u" zwei ");
  EXPECT_EQ(form.entry.Caption.Get(), u"entry");
}

TEST_F(PubCommon, LoadsTheMenusOfAForm) {
  host.files.AddFile(u"C:\\menus.dll", Content("[frmSample]\nentry=Eintrag\none=wrong\n"));
  SampleForm form;
  common.LoadFormMenus(form, u"C:\\menus.dll");
  EXPECT_EQ(form.entry.Caption.Get(), u"Eintrag");
  EXPECT_EQ(form.one.Caption.Get(), u"one");
}

TEST_F(PubCommon, TextThatIsMissingOrEmptyStaysAsBuiltIn) {
  host.files.AddFile(u"C:\\tips.dll", Content("[frmSample]\ntwo=\n"));
  SampleForm form;
  common.LoadFormTexts(form, u"C:\\tips.dll");
  common.LoadFormTexts(form, u"C:\\missing.dll");
  EXPECT_EQ(form.one.Caption.Get(), u"one");
  EXPECT_EQ(form.two.Caption.Get(), u"two");
}

TEST_F(PubCommon, LoadsTextsOfAnyEncoding) {
  for (const char* content : {"[frmSample]\none=\xC3\xA9", "[frmSample]\none=\xE9"}) {
    host.files.AddFile(u"C:\\tips.dll", Content(content));
    SampleForm form;
    common.LoadFormTexts(form, u"C:\\tips.dll");
    EXPECT_EQ(form.one.Caption.Get(), u"\u00E9");
  }
}

TEST_F(PubCommon, FindsAValueInAnArray) {
  const struct {
    Variant value;
    bool expected;
  } kCases[] = {{u"ie", true}, {u"we", true}, {u"WE", false}, {u"", false},
                {u"w", false}, {5.0, true},   {u"5", false}};
  for (const auto& [value, expected] : kCases) {
    bool found = !expected;
    common.InArray(value, {u"ie", u"we", 5.0}, found);
    EXPECT_EQ(found, expected);
  }
  bool found = true;
  common.InArray(u"ie", {}, found);
  EXPECT_FALSE(found);
}

TEST_F(PubCommon, CountsTheFilesDirectlyInAFolder) {
  host.files.AddFile(u"C:\\Cache\\a");
  host.files.AddFile(u"C:\\Cache\\b", Content({}, platform::kHidden | platform::kSystem));
  host.files.AddFile(u"C:\\Cache\\Sub\\c");
  host.files.AddFolder(u"C:\\Empty");
  int count = -1;
  common.CountFolderFiles(u"C:\\Cache", count);
  EXPECT_EQ(count, 2);
  common.CountFolderFiles(u"C:\\Empty", count);
  EXPECT_EQ(count, 0);
}

TEST_F(PubCommon, CountOfAFolderThatIsMissingStaysAsItWas) {
  host.files.AddFolder(u"C:\\Empty");
  int count = -1;
  common.CountFolderFiles(u"C:\\Missing", count);
  common.CountFolderFiles(u"", count);
  EXPECT_EQ(count, -1);
}

TEST_F(PubCommon, ShortcutIsValidWhenItsTargetIsThere) {
  host.files.AddFile(u"C:\\Programs\\a.exe");
  EXPECT_TRUE(IsTargetValid(u"C:\\Programs\\a.exe"));
  EXPECT_TRUE(IsTargetValid(u"c:\\PROGRAMS\\A.EXE"));
  EXPECT_TRUE(IsTargetValid(u"C:\\Programs"));
  EXPECT_TRUE(IsTargetValid(u"C:\\Programs\\"));
  EXPECT_TRUE(IsTargetValid(u"C:\\"));
}

TEST_F(PubCommon, ShortcutIsInvalidWhenItsTargetIsMissing) {
  host.files.AddFile(u"C:\\Programs\\a.exe");
  EXPECT_FALSE(IsTargetValid(u"C:\\Programs\\b.exe"));
  EXPECT_FALSE(IsTargetValid(u"C:\\Missing\\Deep\\b.exe"));
  EXPECT_FALSE(IsTargetValid(u"C:\\b.exe"));
  EXPECT_FALSE(IsTargetValid(u"C:/b.exe"));
  EXPECT_FALSE(IsTargetValid(u"C:\\Programs\\a.exe\\b"));
}

TEST_F(PubCommon, LinkAsTargetCountsAsThere) {
  host.files.AddLink(u"C:\\dangling", u"C:\\nowhere");
  EXPECT_TRUE(IsTargetValid(u"C:\\dangling"));
}

TEST_F(PubCommon, ShortcutIntoADriveThatCantBeLookedAtIsValid) {
  host.facts.Set(u"Drives", u"E", u"2,,not ready");
  host.facts.Set(u"Drives", u"F", u"1,Stick");
  host.facts.Set(u"Drives", u"G", u"3,Share");
  host.facts.Set(u"Drives", u"H", u"4,Disc");
  host.facts.Set(u"Drives", u"I", u"0");
  for (const char16_t letter : {u'E', u'F', u'G', u'H', u'I', u'Z'}) {
    EXPECT_TRUE(IsTargetValid(Concat(Text(1, letter), u":\\missing.exe"))) << static_cast<char>(letter);
  }
  host.facts.Set(u"Drives", u"E", u"2");
  host.files.AddFolder(u"E:\\a");
  EXPECT_TRUE(IsTargetValid(u"E:\\missing.exe")) << "asked once";
  common.ForgetDrives();
  EXPECT_FALSE(IsTargetValid(u"E:\\missing.exe"));
}

TEST_F(PubCommon, ShortcutWithoutALocalPathIsValid) {
  for (const TextView target : {u"", u"\\\\server\\share\\a.exe", u"\\\\?\\C:\\a.exe", u"a.exe", u"C:a.exe",
                                u"http://example.invalid/", u"::{20D04FE0}", u"1:\\a.exe"}) {
    SCOPED_TRACE(Case(target));
    EXPECT_TRUE(IsTargetValid(target));
  }
}

TEST_F(PubCommon, FileThatCantBeReadAsAShortcutIsValid) {
  host.files.AddFile(u"C:\\Links\\a.lnk", Content("no shortcut"));
  EXPECT_TRUE(IsValid());
  EXPECT_TRUE(IsValid(u"C:\\Links\\missing.lnk"));
}

TEST_F(PubCommon, VariablesInATargetAreExpanded) {
  host.facts.Set(u"Environment", u"WinDir", u"C:\\Windows");
  host.files.AddFile(u"C:\\Windows\\a.exe");
  EXPECT_TRUE(IsTargetValid(u"%windir%\\a.exe"));
  EXPECT_FALSE(IsTargetValid(u"%windir%\\b.exe"));
}

TEST_F(PubCommon, TargetWithAVariableThatIsntSetIsValid) {
  EXPECT_TRUE(IsTargetValid(u"%Unknown%\\a.exe"));
  EXPECT_TRUE(IsTargetValid(u"C:\\%Unknown%\\a.exe"));
}

TEST_F(PubCommon, VariableWhoseTextMakesNoPathIsValid) {
  host.facts.Set(u"Environment", u"PSModulePath", u"C:\\Modules;C:\\More");
  EXPECT_TRUE(IsTargetValid(u"%PSModulePath%..\\powershell.exe"));
  host.facts.Set(u"Environment", u"Quoted", u"C:\\\"a\"");
  EXPECT_TRUE(IsTargetValid(u"%Quoted%\\b.exe"));
}

TEST_F(PubCommon, ShortcutIsInvalidOnlyIfEveryPlaceItNamesIsMissing) {
  using namespace platform::shortcut_bytes;
  host.facts.Set(u"Environment", u"App", u"C:\\App");
  host.files.AddFile(u"C:\\App\\a.exe");
  const auto isValid = [this](TextView variables, TextView location, TextView item) {
    std::string bytes = Header(kHasItems | kHasLocation | kHasVariablePath);
    bytes += Items({DriveItem(u"C:\\"), OldFileItem(item, u"")});
    bytes += LocationBlock({.flags = 1, .path = location}) + ExtraBlock(kVariablePath, u"", variables);
    host.files.AddFile(u"C:\\Links\\a.lnk", Content(bytes));
    return IsValid();
  };
  EXPECT_FALSE(isValid(u"%App%\\gone", u"C:\\gone", u"gone"));
  EXPECT_TRUE(isValid(u"%App%\\a.exe", u"C:\\gone", u"gone"));
  EXPECT_TRUE(isValid(u"%App%\\gone", u"C:\\App\\a.exe", u"gone"));
  EXPECT_TRUE(isValid(u"%App%\\gone", u"C:\\gone", u"App"));
  EXPECT_TRUE(isValid(u"%Unknown%\\gone", u"C:\\gone", u"gone"));
  EXPECT_TRUE(isValid(u"%App%\\gone", u"Z:\\gone", u"gone"));
  EXPECT_FALSE(isValid(u"", u"C:\\gone", u"gone"));
}

TEST_F(PubCommon, ShortcutThatAlsoNamesAShareOrAnObjectOfTheShellIsValid) {
  using namespace platform::shortcut_bytes;
  const std::string gone = LocationBlock({.flags = 1, .path = u"C:\\gone"});
  const std::string shared = LocationBlock({.flags = 3, .path = u"C:\\gone", .share = u"\\\\PC\\gone"});
  const std::string panel = Items({ShellFolderItem(kControlPanel)});
  const auto isValid = [this](const std::string& bytes) {
    host.files.AddFile(u"C:\\Links\\a.lnk", Content(bytes));
    return IsValid();
  };
  EXPECT_FALSE(isValid(Header(kHasLocation) + gone));
  EXPECT_TRUE(isValid(Header(kHasLocation) + shared));
  EXPECT_TRUE(isValid(Header(kHasItems | kHasLocation) + panel + gone));
  EXPECT_TRUE(isValid(Header(kHasLocation | kIsAdvertised) + gone));
}

TEST_F(PubCommon, DriveIsAskedOnceAndOnlyForAMissingTarget) {
  host.files.AddFile(u"C:\\there.exe");
  host.facts.Set(u"Drives", u"C", u"2");
  host.facts.Set(u"Drives", u"N", u"3");
  // Whether the drive is asked. If it is, the planted failure of that call counts.
  const auto ready = [this](TextView target) {
    AddShortcut(target);
    host.files.faults.Fail(u"IsDriveReady");
    const bool valid = IsValid();
    host.files.faults.Clear();
    return valid;
  };
  EXPECT_TRUE(ready(u"C:\\gone.exe")) << "asked, and not ready";
  EXPECT_TRUE(IsTargetValid(u"C:\\gone.exe")) << "not asked again";
  common.ForgetDrives();
  EXPECT_FALSE(IsTargetValid(u"C:\\gone.exe"));
  EXPECT_FALSE(ready(u"C:\\gone too.exe")) << "not asked again";
  common.ForgetDrives();

  const auto calls = [this](TextView target) {
    AddShortcut(target);
    const int before = host.files.faults.Calls();
    bool valid = false;
    common.IsShortcutValid(u"C:\\Links\\a.lnk", valid);
    return host.files.faults.Calls() - before;
  };
  EXPECT_EQ(calls(u"C:\\there.exe"), 2) << "read the shortcut, look at the target";
  EXPECT_EQ(calls(u"N:\\gone.exe"), 1) << "no call reaches a network drive";
  EXPECT_EQ(calls(u"C:\\gone.exe"), 5) << "and the drive is asked";
  EXPECT_EQ(calls(u"C:\\gone.exe"), 4);
}

TEST_F(PubCommon, TargetThatCantBeLookedAtIsValid) {
  AddShortcut(u"C:\\Secret\\a.exe");
  EXPECT_FALSE(IsValid());
  host.store.faults.Fail(u"Find", u"Secret");
  EXPECT_TRUE(IsValid());
}

TEST_F(PubCommon, ReturnsTheSystemsTemporaryFolder) {
  Text path = u"before";
  common.GetSystemTempFolder(path);
  EXPECT_EQ(path, u"before");
  host.facts.Set(u"Temporary Folders", u"System", u"C:\\Windows\\Temp");
  common.GetSystemTempFolder(path);
  EXPECT_EQ(path, u"C:\\Windows\\Temp");
}

TEST(PubCommonWithoutServices, LeavesEveryOutputAsItWas) {
  clsPubCommon common;
  SampleForm form;
  common.LoadFormTexts(form, u"C:\\tips.dll");
  common.LoadFormMenus(form, u"C:\\menus.dll");
  int count = -1;
  common.CountFolderFiles(u"C:\\", count);
  bool valid = false;
  common.IsShortcutValid(u"C:\\a.lnk", valid);
  Text path = u"before";
  common.GetSystemTempFolder(path);
  EXPECT_EQ(form.one.Caption.Get(), u"one");
  EXPECT_EQ(form.entry.Caption.Get(), u"entry");
  EXPECT_EQ(count, -1);
  EXPECT_FALSE(valid);
  EXPECT_EQ(path, u"before");
}

}  // namespace
}  // namespace tavix
