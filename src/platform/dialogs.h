#pragma once

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

// What is asked of the user.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // Returns when it is answered. Where nobody can answer: Yes; Cancel where only OK and Cancel can be
  // chosen; OK where there is nothing else.
  virtual int MsgBox(TextView text, int style) = 0;
  // The text entered, `offered` where the user leaves what stands there from the start; nothing when
  // cancelled.
  virtual std::optional<Text> InputBox(TextView prompt, TextView offered) = 0;
  // The folder chosen; nothing when cancelled.
  virtual std::optional<Text> BrowseForFolder(WindowHandle owner, TextView title) = 0;
};

inline Dialogs* dialogs = nullptr;

}  // namespace tavix::platform
