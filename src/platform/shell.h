#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/shortcut.h"
#include "text/text.h"

namespace tavix::platform {

// A window of the system; 0 is none.
using WindowHandle = intptr_t;

// The show style of a maximised window.
constexpr int kMaximized = 3;

// The system's shell. Calls that start something return at once: true when it was started. No call asks the
// user or shows an error; only a started program may.
class Shell {
 public:
  virtual ~Shell() = default;

  // Starts a web or mail address, a program, or a command line with arguments. `style` is the show style of
  // the window. A system program named without a folder is always started from where Windows keeps it. When
  // this program is elevated, an address is opened with the user's ordinary rights.
  virtual bool RunTarget(TextView target, int style) = 0;
  // Opens a file or folder with its default action. When this program is elevated, with the user's ordinary
  // rights.
  virtual bool OpenPath(TextView path, int style) = 0;
  // Starts a target as RunTarget does, without a window.
  virtual bool RunHidden(TextView target) = 0;
  // Opens the properties sheet of a file or folder. False when it is missing.
  virtual bool ShowFileProperties(WindowHandle owner, TextView path) = 0;

  // Moves a file or folder to the recycle bin without a question. Takes nothing else along. False, and the
  // item stays, when the bin can't take it: on a share or a volume without a bin, with the bin turned off,
  // when the item is too large or its path too long.
  virtual bool DeleteToRecycleBin(TextView path) = 0;
  // Empties the bins of all drives without a question. False when that fails.
  virtual bool EmptyRecycleBin(WindowHandle owner) = 0;
  // The number of items in the bins of all drives, a bar, their size in bytes: "3|4096". "over" stands for a
  // size of 2^31 or more. Nothing when the bins can't be counted.
  virtual std::optional<Text> RecycleBinInfo() = 0;
  // Marks a file for deletion at the next start of the system. The file needn't exist. False on failure.
  virtual bool DeleteAtRestart(TextView path) = 0;

  // A shell folder by its CSIDL number; 9966 is the system folder. No backslash at the end but a drive's.
  // Nothing when the system has no such folder.
  virtual std::optional<Text> SpecialFolderByNumber(int number) = 0;
  // A folder of the scripting shell's list, by its name ("Recent", "Fonts", "AllUsersPrograms",
  // "Programs") or by its position in decimal digits, counted from 0: 0 all users' desktop, 1 all users'
  // start menu, 5 the user's application data, 10 the user's desktop, 11 the user's start menu. Nothing for
  // others.
  virtual std::optional<Text> SpecialFolderByName(TextView name) = 0;
  virtual std::optional<Text> UserTempFolder() = 0;
  virtual std::optional<Text> SystemTempFolder() = 0;
  // Every folder that the system names: the Windows folder, the temporary folders, those of the routines
  // above, and on Windows each known folder of the machine and of all its users. Each once, ignoring letter
  // case, in any order, with no backslash at the end but a drive's. Folders aren't made or looked for, so one
  // may be missing. Nothing when they can't be told.
  virtual std::optional<std::vector<Text>> NamedFolders() = 0;

  // Nothing when the variable isn't set.
  virtual std::optional<Text> EnvironmentVariable(TextView name) = 0;
  // The text with each `%NAME%` replaced by the variable's value. Names that aren't set stay as they are.
  virtual Text ExpandEnvironment(TextView text) = 0;

  // The targets that a shortcut file names; whether they exist isn't looked at. Nothing when the file can't
  // be read as a shortcut.
  virtual std::optional<Shortcut> OpenShortcut(TextView path) = 0;
};

// Never null. Without a host it is noShell (platform/nothing.h).
extern Shell* shell;
extern Shell* const noShell;

}  // namespace tavix::platform
