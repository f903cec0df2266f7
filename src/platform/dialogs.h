#pragma once

#include <functional>
#include <optional>

#include "platform/shell.h"
#include "text/text.h"

namespace tavix::platform {

// Styles of a message box, added up.
constexpr int kOkCancel = 1;
constexpr int kYesNoCancel = 3;
constexpr int kYesNo = 4;
constexpr int kQuestion = 32;
constexpr int kWarning = 48;
constexpr int kInformation = 64;

// Its answers.
constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kYes = 6;
constexpr int kNo = 7;

// Dialogs that ask the user.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // Shows a message box and returns its answer. A machine in a folder has nobody to answer: Yes is taken, or
  // Cancel where only OK and Cancel are offered, or OK where it is the only answer.
  virtual int MsgBox(TextView text, int style) = 0;
  // Asks for a text. The box begins with `offered`. Returns the text entered; nothing when cancelled.
  virtual std::optional<Text> InputBox(TextView prompt, TextView offered) = 0;
  // Asks for a folder. Returns its path; nothing when cancelled.
  virtual std::optional<Text> BrowseForFolder(WindowHandle owner, TextView title) = 0;
};

// The program's word on the button that gives an answer; an ampersand marks its letter. Without words, or
// where a word is empty, the buttons have those of the system.
inline std::function<Text(int answer)> buttonWord;

// Never null. Without a host it is noDialogs (platform/nothing.h).
extern Dialogs* dialogs;
extern Dialogs* const noDialogs;

}  // namespace tavix::platform
