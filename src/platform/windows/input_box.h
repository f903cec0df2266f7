#pragma once

#include <optional>

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::windows {

// A dialog with a prompt, a field for one line of text, OK and Cancel. The field begins with `offered`, all
// of it selected. Nothing when it is cancelled or can't be shown.
std::optional<Text> ShowInputBox(HWND owner, TextView caption, TextView prompt, TextView offered);

}  // namespace tavix::windows
