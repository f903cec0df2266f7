#include "frame/settings.h"

#include <algorithm>
#include <array>

#include "frame/data_paths.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_system.h"
#include "platform/shell.h"

namespace tavix::mdlPubSelf {
namespace {

// The folders that an advanced scan leaves out, as this system has them.
Text DefaultExceptFolders() {
  constexpr int kInternetCache = 32;
  constexpr int kCookies = 33;
  const Text windows = platform::shell->EnvironmentVariable(u"WinDir").value_or(u"");
  Text systemTemp;
  pubCommon.GetSystemTempFolder(systemTemp);
  Text userTemp;
  pubSystem.GetUserTempFolder(userTemp);
  Text cache;
  pubSystem.GetSpecialFolder(kInternetCache, cache);
  Text cookies;
  pubSystem.GetSpecialFolder(kCookies, cookies);
  return Concat(u"Recycle Bin/All Recycle Bins|", windows, u"/Windows System Folder|", systemTemp,
                u"/Windows Temporary Folder|", userTemp, u"/User Temporary Folder|", cache,
                u"/Internet Temporary Folder|", cookies, u"/Cookies Folder");
}

constexpr TextView kDefaultCommonTypes =
    u"*.txt;*.pdf;*.doc;*.xls;*.ppt;*.avi;*.wmv;*.mp3;*.mpg;*.mpeg;*.mp4;*.rm;*.rmvb;*.mov;*.vob;*.flv;*.jpg;"
    u"*.gif;*.bmp;*.zip;*.rar;*.7z;*.exe";

constexpr TextView kDefaultFunctions =
    u"|ietif|iec|ieh|iertu|ieafh|ieaph|ieif|werud|werh|wesh|weurah|weosh|weoem|Temporary Files|Memory Dumps|"
    u"CHKDSK File Fragments|Windows System Logs|Invalid Shortcuts in User Folders|"
    u"Uninstall Files for Windows Update|Windows Update Source Files|Menu Order Caches|"
    u"Tray Notifications Cache|Windows Size and Location Caches|Old Prefetch data|Application Shells Issues|"
    u"Fonts Issues|Application Paths Issues|Help Files Issues|Run at Startup Issues|"
    u"Start Menu Ordering Issues|MUI Cache Issues|Uninstaller Issues|";

constexpr TextView kDuplicateFiles = u"Duplicate Files";
constexpr TextView kOneClick = u"One-click Clean/Repair";
constexpr TextView kCleaningMethod = u"Cleaning Method";
constexpr TextView kOtherOptions = u"Other Options";

struct Setting {
  TextView section;
  TextView key;
  Text* value;
  TextView fixedDefault;
  int turn;  // when it is read
};

// In the order in which the defaults are written. The one default that isn't fixed is that of ExceptFolders.
constexpr std::array<Setting, 13> kSettings = {{
    {kDuplicateFiles, u"Size", &DuplicateSize, u"Y", 3},
    {kDuplicateFiles, u"Modified", &DuplicateModified, u"Y", 4},
    {kDuplicateFiles, u"Only Common", &OnlyCommon, u"Y", 5},
    {kDuplicateFiles, u"Least Size", &LeastSize, u"10", 6},
    {kDuplicateFiles, u"Need Least", &NeedLeast, u"Y", 7},
    {kDuplicateFiles, u"Common Types", &CommonTypes, kDefaultCommonTypes, 2},
    {kOneClick, u"Functions", &Functions, kDefaultFunctions, 1},
    {kCleaningMethod, u"Method", &CleaningMethod, u"D", 8},
    {kCleaningMethod, u"Backup Folder", &BackupFolder, kDefaultBackupFolder, 9},
    {kOtherOptions, u"Interface Size", &InterfaceSize, u"Small", 10},
    {kOtherOptions, u"Last Accessed File", &LastAccessedFile, u"365", 11},
    {kOtherOptions, u"Last Accessed Prefetch", &LastAccessedPrefetch, u"30", 12},
    {kOtherOptions, u"Except Folders", &ExceptFolders, u"", 13},
}};

Text DefaultOf(const Setting& setting) {
  return setting.value == &ExceptFolders ? DefaultExceptFolders() : Text(setting.fixedDefault);
}

}  // namespace

void ClearSettings() {
  for (const Setting& setting : kSettings) setting.value->clear();
}

void LoadSettings() {
  std::array<Setting, kSettings.size()> byTurn = kSettings;
  std::ranges::sort(byTurn, {}, &Setting::turn);
  for (const Setting& setting : byTurn) {
    setting.value->clear();
    pubSystem.ReadProfileString(kSettingsFile, setting.section, setting.key, *setting.value);
  }
}

void WriteDefaultSettings() {
  for (const Setting& setting : kSettings) {
    pubSystem.WriteProfileString(kSettingsFile, setting.section, setting.key, DefaultOf(setting));
  }
}

bool IsSetting(TextView section, TextView key) {
  return std::ranges::any_of(kSettings, [section, key](const Setting& setting) {
    return setting.section == section && setting.key == key;
  });
}

void WriteSetting(TextView section, TextView key, TextView value) {
  pubSystem.WriteProfileString(kSettingsFile, section, key, value);
}

}  // namespace tavix::mdlPubSelf
