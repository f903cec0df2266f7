#include "console/unattended.h"

namespace tavix::console {

int UnattendedDialogs::MsgBox(TextView, int style) {
  constexpr int kButtons = 15;
  switch (style & kButtons) {
    case platform::kYesNo:
    case platform::kYesNoCancel:
      return platform::kYes;
    case platform::kOkCancel:
      return platform::kCancel;
    default:
      return platform::kOk;
  }
}

std::optional<Text> UnattendedDialogs::InputBox(TextView, TextView) { return std::nullopt; }

std::optional<Text> UnattendedDialogs::BrowseForFolder(platform::WindowHandle, TextView) {
  return std::nullopt;
}

}  // namespace tavix::console
