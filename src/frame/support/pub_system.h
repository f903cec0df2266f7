#pragma once

#include <cstdint>

#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/shell.h"

namespace tavix {

// What a clsPubSystem stands on; each may be missing, and the operations that need it then fail.
struct SystemServices {
  platform::Shell* shell = platform::noShell;
  platform::FileSystem* files = platform::noFileSystem;
  platform::Dialogs* dialogs = platform::noDialogs;
  platform::Desktop* desktop = platform::noDesktop;
};

// The services of the system's shell and desktop. Results come in the last argument; an operation that
// fails leaves it as it was. None shows a dialog but BrowseForFolder.
class clsPubSystem {
 public:
  clsPubSystem() = default;
  explicit clsPubSystem(const SystemServices& services) : on_(services) {}

  // Sends a message to a window and returns when it has been handled.
  void SendWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) const;
  // Posts a message without waiting.
  void PostWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) const;
  // Opens a file or folder with its default action.
  void OpenPath(TextView path, int style) const;
  // Starts a web or mail address, a program or a whole command line, and returns at once.
  void RunTarget(TextView target, int style) const;
  // One key of an INI-style text file; the empty text where file, section or key are missing.
  void ReadProfileString(TextView file, TextView section, TextView key, Text& value) const;
  // Writes one key, making section, key and file if needed; all else in the file stays. A crash leaves the
  // old or the new file.
  void WriteProfileString(TextView file, TextView section, TextView key, TextView value) const;
  // A top-level window by its exact title; 0 where there is none.
  void FindWindowByTitle(TextView title, platform::WindowHandle& window) const;
  // The empty text when the user cancels.
  void BrowseForFolder(platform::WindowHandle owner, TextView title, Text& path) const;
  // A shell folder by its CSIDL number; 9966 is the system folder.
  void GetSpecialFolder(int number, Text& path) const;
  // Number of items in all bins, a bar, their size in bytes. The first argument is 0 for all drives.
  void GetRecycleBinInfo(int drives, Text& info) const;
  void GetUserTempFolder(Text& path) const;
  // Marks a file for removal at the next start of the system.
  void DeleteAtRestart(TextView path) const;
  void SetTreeBackColor(platform::WindowHandle tree, uint32_t color) const;
  // Empties the bins of all drives with no question.
  void EmptyRecycleBin(platform::WindowHandle owner, int flags) const;
  // A decoration of lists that this system's lists do without: their rows bear their colours themselves.
  void AttachListColorHook(platform::WindowHandle list, bool on, platform::WindowHandle owner,
                           uint32_t color) const;
  // Sends a file or folder to the recycle bin without a question.
  void DeleteToRecycleBin(TextView path) const;
  void ShowFileProperties(platform::WindowHandle owner, TextView path) const;

 private:
  SystemServices on_;
};

namespace mdlPubSelf {
inline clsPubSystem pubSystem;
}

}  // namespace tavix
