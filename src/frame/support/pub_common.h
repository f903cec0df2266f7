#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <variant>

#include "controls/form.h"
#include "platform/file_system.h"
#include "platform/shell.h"

namespace tavix {

// A value that is a number or a text; a text never equals a number.
using Variant = std::variant<double, TextView>;

// Texts of forms, and small tests. Results come in the last argument; an operation that fails leaves it as it
// was. Without the file system or shell that it needs, an operation fails.
class clsPubCommon {
 public:
  clsPubCommon() = default;
  clsPubCommon(platform::FileSystem* files, platform::Shell* shell) : files_(files), shell_(shell) {}

  // Replaces the captions of a form's menus by those that the INI-style file holds in the section of the
  // form's name. What is missing or empty there keeps its caption.
  void LoadFormMenus(Form& form, TextView file) const;
  // The same for all other texts of the form.
  void LoadFormTexts(Form& form, TextView file) const;

  // Whether the value equals one of the array, letter case regarded.
  void InArray(const Variant& value, std::initializer_list<Variant> array, bool& found) const;
  // The number of files that lie directly in a folder. A folder that can't be listed is a failure.
  void CountFolderFiles(TextView folder, int& count) const;
  // False only where every place that the shortcut names is known to be missing: a path, variables expanded,
  // on a fixed drive that is ready, where nothing stands. True for all else: a shortcut that can't be read,
  // that names no path or also something that is none (an object of the shell), a variable that isn't set or
  // whose text makes no path, a network path, a drive of another kind, not ready or not there, and what
  // can't be looked at.
  //
  // A drive is asked at most once, and only when something on it seems to be missing, until ForgetDrives.
  void IsShortcutValid(TextView path, bool& valid);
  // Drives are asked anew from here on; for the start of each walk.
  void ForgetDrives() { drives_.clear(); }
  void GetSystemTempFolder(Text& path) const;

 private:
  void LoadTexts(const std::vector<NamedText>& texts, TextView section, TextView file) const;
  // What is known of a drive.
  struct Drive {
    bool fixed = false;
    std::optional<bool> ready = {};  // once it was asked
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
