#pragma once

#include <initializer_list>
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
  // False only where the target of the shortcut is known to be missing: its path, variables expanded, leads
  // to a fixed drive that is ready, and the folder on the way in which it should be can be listed and hasn't
  // got it. True for all else: a shortcut that can't be read or has no path, a path with a variable that
  // isn't set, a network path, a drive of another kind, not ready or not there.
  void IsShortcutValid(TextView path, bool& valid) const;
  void GetSystemTempFolder(Text& path) const;

 private:
  void LoadTexts(const std::vector<NamedText>& texts, TextView section, TextView file) const;
  bool IsKnownToBeMissing(TextView path) const;
  bool IsOnReadyFixedDrive(TextView path) const;

  platform::FileSystem* files_ = nullptr;
  platform::Shell* shell_ = nullptr;
};

namespace mdlPubSelf {
inline clsPubCommon pubCommon;
}

}  // namespace tavix
