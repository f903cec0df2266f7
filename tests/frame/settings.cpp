#include "frame/settings.h"

#include "frame/data_paths.h"
#include "frame/start_up.h"
#include "frame/support/pub_system.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class Settings : public ProgramTest {
 protected:
  Settings() {
    SetWindows();
    SetUserTemp(u"C:\\Users\\Ann\\Temp");
    SetSystemTemp(u"C:\\WINDOWS\\Temp");
    SetCache(u"C:\\Users\\Ann\\Cache");
    SetCookies(u"C:\\Users\\Ann\\Cookies");
    machine.files.AddFolder(u"C:\\");
  }
  std::string File() { return machine.files.ReadFile(kSettingsFile).value_or("missing"); }
  void WriteFile(std::string_view content) {
    machine.files.AddFile(kSettingsFile, {.content = std::string(content)});
  }
};

constexpr std::string_view kAllDefaults =
    "[Duplicate Files]\r\nSize=Y\r\nModified=Y\r\nOnly Common=Y\r\nLeast Size=10\r\nNeed Least=Y\r\n"
    "Common "
    "Types=*.txt;*.pdf;*.doc;*.xls;*.ppt;*.avi;*.wmv;*.mp3;*.mpg;*.mpeg;*.mp4;*.rm;*.rmvb;*.mov;*.vob;*.flv;"
    "*.jpg;*.gif;*.bmp;*.zip;*.rar;*.7z;*.exe\r\n"
    "[One-click "
    "Clean/Repair]\r\nFunctions=|ietif|iec|ieh|iertu|ieafh|ieaph|ieif|werud|werh|wesh|weurah|weosh|weoem|"
    "Temporary Files|Memory Dumps|CHKDSK File Fragments|Windows System Logs|Invalid Shortcuts in User "
    "Folders|"
    "Uninstall Files for Windows Update|Windows Update Source Files|Menu Order Caches|Tray Notifications "
    "Cache|"
    "Windows Size and Location Caches|Old Prefetch data|Application Shells Issues|Fonts Issues|"
    "Application Paths Issues|Help Files Issues|Run at Startup Issues|Start Menu Ordering Issues|MUI Cache "
    "Issues|"
    "Uninstaller Issues|\r\n"
    "[Cleaning Method]\r\nMethod=D\r\nBackup Folder=C:\\TVXBak\r\n"
    "[Other Options]\r\nInterface Size=Small\r\nLast Accessed File=365\r\nLast Accessed Prefetch=30\r\n"
    "Except Folders=Recycle Bin/All Recycle Bins|C:\\WINDOWS/Windows System Folder|"
    "C:\\WINDOWS\\Temp/Windows Temporary Folder|C:\\Users\\Ann\\Temp/User Temporary Folder|"
    "C:\\Users\\Ann\\Cache/Internet Temporary Folder|C:\\Users\\Ann\\Cookies/Cookies Folder\r\n";

// The text without the blank lines between sections, which mean nothing.
std::string WithoutBlankLines(std::string text) {
  for (size_t at; (at = text.find("\r\n\r\n")) != std::string::npos;) text.erase(at, 2);
  return text;
}

TEST_F(Settings, AMissingFileLeadsToACompleteOneAtStart) {
  Start();
  EXPECT_EQ(WithoutBlankLines(File()), kAllDefaults);
  EXPECT_EQ(DuplicateSize, u"Y");
  EXPECT_EQ(DuplicateModified, u"Y");
  EXPECT_EQ(OnlyCommon, u"Y");
  EXPECT_EQ(LeastSize, u"10");
  EXPECT_EQ(NeedLeast, u"Y");
  EXPECT_TRUE(CommonTypes.starts_with(u"*.txt;*.pdf;"));
  EXPECT_TRUE(Functions.starts_with(u"|ietif|"));
  EXPECT_TRUE(Functions.ends_with(u"|Uninstaller Issues|"));
  EXPECT_EQ(CleaningMethod, u"D");
  EXPECT_EQ(BackupFolder, u"C:\\TVXBak");
  EXPECT_EQ(InterfaceSize, u"Small");
  EXPECT_EQ(LastAccessedFile, u"365");
  EXPECT_EQ(LastAccessedPrefetch, u"30");
  EXPECT_TRUE(ExceptFolders.starts_with(u"Recycle Bin/All Recycle Bins|C:\\WINDOWS/Windows System Folder|"));
}

TEST_F(Settings, BlankCommonTypesCountAsAFirstRun) {
  WriteFile("[Duplicate Files]\r\nCommon Types=\"   \"\r\nSize=N\r\n[Cleaning Method]\r\nMethod=R\r\n");
  Start();
  EXPECT_EQ(DuplicateSize, u"Y");
  EXPECT_EQ(CleaningMethod, u"D");
}

TEST_F(Settings, WithCommonTypesPresentTheOthersStayEmpty) {
  WriteFile("[Duplicate Files]\r\nCommon Types=*.txt\r\n");
  Start();
  EXPECT_EQ(CommonTypes, u"*.txt");
  for (const Setting* setting : Setting::All()) {
    if (setting == &CommonTypes) continue;
    EXPECT_EQ(*setting, u"") << Narrow(setting->key);
  }
}

TEST_F(Settings, DefaultsReplaceKnownValuesAndKeepUnknownKeys) {
  WriteFile("; mine\r\n[Cleaning Method]\r\nMethod=S\r\nColour=blue\r\n[Elsewhere]\r\nx=1\r\n");
  Start();
  EXPECT_EQ(CleaningMethod, u"D");
  const std::string file = File();
  for (const char* kept : {"; mine\r\n", "Colour=blue\r\n", "[Elsewhere]\r\nx=1\r\n", "Method=D\r\n"}) {
    EXPECT_NE(file.find(kept), std::string::npos) << kept;
  }
}

TEST_F(Settings, LoadReplacesEveryVariable) {
  Start();
  WriteSetting(CleaningMethod, u"R");
  EXPECT_EQ(CleaningMethod, u"D") << "the variables mirror the file only after they are loaded";
  LoadSettings();
  EXPECT_EQ(CleaningMethod, u"R");
  machine.files.DeleteFile(kSettingsFile, true);
  LoadSettings();
  EXPECT_EQ(CleaningMethod, u"");
  EXPECT_EQ(Functions, u"");
}

TEST_F(Settings, AreFoundByTheirExactSectionAndKey) {
  EXPECT_EQ(Setting::Find(u"One-click Clean/Repair", u"Functions"), &Functions);
  EXPECT_EQ(Setting::Find(u"Other Options", u"Except Folders"), &ExceptFolders);
  EXPECT_EQ(Setting::Find(u"Other Options", u"Functions"), nullptr);
  EXPECT_EQ(Setting::Find(u"other options", u"Except Folders"), nullptr);
}

TEST_F(Settings, AFileThatCannotBeWrittenLeavesTheSettingsEmpty) {
  machine.files.faults.Fail(u"WriteFile");
  Start();
  EXPECT_EQ(CommonTypes, u"");
  EXPECT_EQ(CleaningMethod, u"");
  EXPECT_EQ(File(), "missing");
}

TEST_F(Settings, FoldersThatTheSystemDoesNotNameAreEmptyInTheDefault) {
  SetCache(u"C:\\Elsewhere");
  Start();
  WriteDefaultSettings();
  LoadSettings();
  EXPECT_NE(ExceptFolders.find(u"|C:\\Elsewhere/Internet Temporary Folder|"), Text::npos) << "asked again";
}

}  // namespace
}  // namespace tavix::mdlPubSelf
