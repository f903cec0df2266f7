#pragma once

#include <vector>

#include "frame/data_paths.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// One key of the settings file: where it stands, its default, and as a text its value as loaded last. The
// text is empty where the key is missing: defaults apply only when they are written. Values stay texts; a
// reader that wants a number converts it where it is used. Flags are "Y" and "N".
class Setting : public Text {
 public:
  static constexpr TextView kDuplicateFiles = u"Duplicate Files";
  static constexpr TextView kOneClick = u"One-click Clean/Repair";
  static constexpr TextView kCleaningMethod = u"Cleaning Method";
  static constexpr TextView kOtherOptions = u"Other Options";

  // `line` is that of the definition.
  Setting(TextView inSection, TextView name, TextView fixedDefault, int line = __builtin_LINE())
      : section(inSection), key(name), line_(line), fixedDefault_(fixedDefault) {
    Enroll();
  }
  Setting(TextView inSection, TextView name, Text (*makeDefault)(), int line = __builtin_LINE())
      : section(inSection), key(name), line_(line), makeDefault_(makeDefault) {
    Enroll();
  }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;
  using Text::operator=;

  // Every setting, in the order of this header.
  static std::vector<Setting*>& All();
  // The setting of exactly this section and key; null if there is none.
  static Setting* Find(TextView section, TextView key);

  Text Default() const { return makeDefault_ != nullptr ? makeDefault_() : Text(fixedDefault_); }

  const TextView section;
  const TextView key;

 private:
  // Adds it to All(), whose order is that of the lines: some compilers make the last one first.
  void Enroll();

  const int line_;
  const TextView fixedDefault_;
  Text (*const makeDefault_)() = nullptr;
};

// The functions of a one-click run after a first start.
constexpr TextView kDefaultFunctions =
    u"|ietif|iec|ieh|iertu|ieafh|ieaph|ieif|werud|werh|wesh|weurah|weosh|weoem|Temporary Files|Memory Dumps|"
    u"CHKDSK File Fragments|Windows System Logs|Invalid Shortcuts in User Folders|"
    u"Uninstall Files for Windows Update|Windows Update Source Files|Menu Order Caches|"
    u"Tray Notifications Cache|Windows Size and Location Caches|Old Prefetch data|Application Shells Issues|"
    u"Fonts Issues|Application Paths Issues|Help Files Issues|Run at Startup Issues|"
    u"Start Menu Ordering Issues|MUI Cache Issues|Uninstaller Issues|";

constexpr TextView kDefaultCommonTypes =
    u"*.txt;*.pdf;*.doc;*.xls;*.ppt;*.avi;*.wmv;*.mp3;*.mpg;*.mpeg;*.mp4;*.rm;*.rmvb;*.mov;*.vob;*.flv;*.jpg;"
    u"*.gif;*.bmp;*.zip;*.rar;*.7z;*.exe";

// The entry of ExceptFolders that stands for the recycle bins of all drives.
constexpr TextView kAllRecycleBins = u"Recycle Bin/All Recycle Bins";
// Asks the system for the folders that an advanced scan leaves out. One that it doesn't name is empty.
Text DefaultExceptFolders();

// The settings. Defaults are written in this order.

// Duplicates must have the same size, the same modification time.
inline Setting DuplicateSize{Setting::kDuplicateFiles, u"Size", u"Y"};
inline Setting DuplicateModified{Setting::kDuplicateFiles, u"Modified", u"Y"};
// Only files of CommonTypes are compared.
inline Setting OnlyCommon{Setting::kDuplicateFiles, u"Only Common", u"Y"};
// Kilobytes: smaller files are skipped if NeedLeast is "Y".
inline Setting LeastSize{Setting::kDuplicateFiles, u"Least Size", u"10"};
inline Setting NeedLeast{Setting::kDuplicateFiles, u"Need Least", u"Y"};
// Wildcard patterns joined by ";". Blank means that the program runs for the first time.
inline Setting CommonTypes{Setting::kDuplicateFiles, u"Common Types", kDefaultCommonTypes};
// The functions of a one-click run: their keys in scan order, with "|" before each and after the last.
inline Setting Functions{Setting::kOneClick, u"Functions", kDefaultFunctions};
// "D" deletes, "R" moves to the recycle bin, "S" moves to BackupFolder.
inline Setting CleaningMethod{Setting::kCleaningMethod, u"Method", u"D"};
// Without a backslash at the end.
inline Setting BackupFolder{Setting::kCleaningMethod, u"Backup Folder", kDefaultBackupFolder};
// "Auto", "Big" or "Small"; read at the start only.
inline Setting InterfaceSize{Setting::kOtherOptions, u"Interface Size", u"Small"};
// Days.
inline Setting LastAccessedFile{Setting::kOtherOptions, u"Last Accessed File", u"365"};
inline Setting LastAccessedPrefetch{Setting::kOtherOptions, u"Last Accessed Prefetch", u"30"};
// `path/description`, joined by "|".
inline Setting ExceptFolders{Setting::kOtherOptions, u"Except Folders", DefaultExceptFolders};

// Empties all settings in memory.
void ClearSettings();

// Reads every setting from the file. A file or key that is missing gives the empty text.
void LoadSettings();

// Writes every default into the file. All else in the file stays. A file that can't be written stays as it
// was.
void WriteDefaultSettings();

// Writes one setting into the file. The value in memory stays until LoadSettings.
void WriteSetting(const Setting& setting, TextView value);

}  // namespace tavix::mdlPubSelf
