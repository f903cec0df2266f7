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

// What the system's shell does for a program. Calls that start something return at once and say whether it
// could be started. Nothing here asks the user or shows an error of its own but a started program.
class Shell {
 public:
  virtual ~Shell() = default;

  // Starts a web or mail address, a program, or a whole command line with arguments. `style` is the show
  // style of the window. A program of the system that is named without a folder is the one
  // in the system's own folder, whatever bears its name elsewhere. An address is opened with the user's
  // ordinary rights where this program has higher ones.
  virtual bool RunTarget(TextView target, int style) = 0;
  // Opens a file or folder with its default action, with the user's ordinary rights like an address.
  virtual bool OpenPath(TextView path, int style) = 0;
  // The same as RunTarget with no window at all.
  virtual bool RunHidden(TextView target) = 0;
  // Opens the properties sheet of a file or folder.
  virtual bool ShowFileProperties(WindowHandle owner, TextView path) = 0;

  // Sends a file or folder to the recycle bin without a question, and nothing along with it. What the bin
  // can't take stays where it is, and the call fails: on a share or a volume without a bin, where the user
  // has turned the bin off, too large, or with a path too long.
  virtual bool DeleteToRecycleBin(TextView path) = 0;
  // Empties the bins of all drives without a question.
  virtual bool EmptyRecycleBin(WindowHandle owner) = 0;
  // Number of items in the bins of all drives, a bar, their bytes: "3|4096", or "3|over" from 2^31 on.
  virtual std::optional<Text> RecycleBinInfo() = 0;
  // Marks a file for removal at the next start of the system. The file needs not exist.
  virtual bool DeleteAtRestart(TextView path) = 0;

  // A folder of the shell by its CSIDL number; 9966 is the system folder. No backslash at the end.
  virtual std::optional<Text> SpecialFolderByNumber(int number) = 0;
  // A folder of the scripting shell's list, by its name ("Recent", "Fonts", "AllUsersPrograms",
  // "Programs") or by its position there, counted from 0: 0 all users' desktop, 1 all users' start menu,
  // 5 the user's application data, 10 the user's desktop, 11 the user's start menu.
  virtual std::optional<Text> SpecialFolderByName(TextView name) = 0;
  virtual std::optional<Text> UserTempFolder() = 0;
  virtual std::optional<Text> SystemTempFolder() = 0;
  // Every folder that the system names: the Windows folder, the temporary folders, what the routines above
  // answer, and on Windows each known folder of the machine and of all its users. Each once, letter case
  // aside, in no order of meaning, without a backslash at the end but a drive's. Nothing is made or looked
  // for: a folder may be missing. What can't be told is left out.
  virtual std::vector<Text> NamedFolders() = 0;

  virtual std::optional<Text> EnvironmentVariable(TextView name) = 0;
  // `%NAME%` replaced where such a variable is set, and left as it stands otherwise.
  virtual Text ExpandEnvironment(TextView text) = 0;

  // What a shortcut file names as its target; none of it is looked at. Nothing when it can't be read as a
  // shortcut.
  virtual std::optional<Shortcut> OpenShortcut(TextView path) = 0;
};

inline Shell* shell = nullptr;

}  // namespace tavix::platform
