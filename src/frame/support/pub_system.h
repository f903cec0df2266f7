#pragma once

#include <cstdint>

#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/shell.h"

namespace tavix {

// The interfaces that clsPubSystem uses. Each may be missing; operations that need it then fail.
struct SystemServices {
  platform::Shell* shell = platform::noShell;
  platform::FileSystem* files = platform::noFileSystem;
  platform::Dialogs* dialogs = platform::noDialogs;
  platform::Desktop* desktop = platform::noDesktop;
};

// The services of the system's shell and desktop. Results are returned in the last argument. A failed
// operation leaves it unchanged. Only BrowseForFolder shows a dialog.
class clsPubSystem {
 public:
  clsPubSystem() = default;
  explicit clsPubSystem(const SystemServices& services) : services_(services) {}

  // Sends a message to a window and returns when it has been handled.
  void SendWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) const;
  // Posts a message and returns at once.
  void PostWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) const;
  // Opens a file or folder with its default action. `style` is the show style of the window.
  void OpenPath(TextView path, int style) const;
  // Starts a web or mail address, a program or a command line. `style` is the show style of the window.
  // Returns at once.
  void RunTarget(TextView target, int style) const;
  // The text of an INI file, to read many values from. The empty text when the file can't be read.
  void ReadProfile(TextView file, Text& content) const;
  // One value of an INI file. The empty text when the key is missing or the file can't be read.
  void ReadProfileString(TextView file, TextView section, TextView key, Text& value) const;
  // Writes one value of an INI file. Makes file, section and key if needed. Everything else in the file
  // stays. A crash leaves the old file or the new one.
  void WriteProfileString(TextView file, TextView section, TextView key, TextView value) const;
  // A top-level window by its exact title. 0 when there is none.
  void FindWindowByTitle(TextView title, platform::WindowHandle& window) const;
  // Asks the user for a folder. The empty text when the user cancels.
  void BrowseForFolder(platform::WindowHandle owner, TextView title, Text& path) const;
  // A shell folder by its CSIDL number; 9966 is the system folder.
  void GetSpecialFolder(int number, Text& path) const;
  // The number of items in all bins, a bar, their size in bytes: "3|4096". `drives` is 0 for all drives.
  void GetRecycleBinInfo(int drives, Text& info) const;
  void GetUserTempFolder(Text& path) const;
  // Marks a file for deletion at the next start of the system.
  void DeleteAtRestart(TextView path) const;
  void SetTreeBackColor(platform::WindowHandle tree, uint32_t color) const;
  // Empties the bins of all drives without a question.
  void EmptyRecycleBin(platform::WindowHandle owner, int flags) const;
  // Does nothing: the rows of this program's lists have their own colours.
  void AttachListColorHook(platform::WindowHandle list, bool on, platform::WindowHandle owner,
                           uint32_t color) const;
  // Moves a file or folder to the recycle bin without a question.
  void DeleteToRecycleBin(TextView path) const;
  void ShowFileProperties(platform::WindowHandle owner, TextView path) const;

 private:
  SystemServices services_;
};

namespace mdlPubSelf {
inline clsPubSystem pubSystem;
}

}  // namespace tavix
