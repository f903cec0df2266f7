#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <variant>

#include "controls/form.h"
#include "platform/file_system.h"
#include "platform/shell.h"

namespace tavix {

// A number or a text. A text never equals a number.
using Variant = std::variant<double, TextView>;

// Texts of forms, and small tests. Results are returned in the last argument. A failed operation leaves it
// unchanged. An operation fails without the file system or shell that it needs.
class clsPubCommon {
 public:
  clsPubCommon() = default;
  clsPubCommon(platform::FileSystem* files, platform::Shell* shell) : files_(files), shell_(shell) {}

  // Replaces the captions of a form's menus by those in an INI file, in the section with the form's name. A
  // caption stays when its entry is missing or empty.
  void LoadFormMenus(Form& form, TextView file) const;
  // The same for all other texts of the form.
  void LoadFormTexts(Form& form, TextView file) const;

  // Whether the value is in the array. Letter case counts.
  void InArray(const Variant& value, std::initializer_list<Variant> array, bool& found) const;
  // The number of files directly in a folder. Fails when the folder can't be listed.
  void CountFolderFiles(TextView folder, int& count) const;
  // False only when the shortcut's target is known to be missing: every place that it names is a path, with
  // variables expanded, on a fixed, ready drive, and doesn't exist there. True in all other cases:
  // - The shortcut can't be read, names no path, or also names something without a path (an object of the
  //   shell).
  // - A path has a variable that isn't set, or isn't a valid path after expanding.
  // - A path is on a network, on a drive of another kind, or on a drive that is missing or not ready.
  // - A path can't be examined.
  //
  // Each drive is asked at most once until ForgetDrives, and only when something on it seems to be missing.
  void IsShortcutValid(TextView path, bool& valid);
  // Forgets what is known of drives. Call it at the start of each scan.
  void ForgetDrives() { drives_.clear(); }
  void GetSystemTempFolder(Text& path) const;

 private:
  void LoadTexts(const std::vector<NamedText>& texts, TextView section, TextView file) const;
  struct Drive {
    bool fixed = false;
    std::optional<bool> ready = {};  // nothing until it was asked
  };

  bool IsKnownToBeMissing(TextView path);
  Drive& DriveOf(char16_t letter);

  platform::FileSystem* files_ = platform::noFileSystem;
  platform::Shell* shell_ = platform::noShell;
  std::map<char16_t, Drive> drives_;
};

namespace mdlPubSelf {
inline clsPubCommon pubCommon;
}

}  // namespace tavix
