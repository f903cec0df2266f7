#pragma once

#include <optional>

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::windows {

// Shows a dialog with a prompt, one line of text to edit, OK and Cancel. The field begins with `offered`, all
// of it selected. Returns the text after OK. Nothing when it is cancelled or can't be shown.
std::optional<Text> ShowInputBox(HWND owner, TextView caption, TextView prompt, TextView offered);

}  // namespace tavix::windows
