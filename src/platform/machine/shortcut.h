#pragma once

#include <optional>
#include <string_view>

#include "text/text.h"

namespace tavix::machine {

// What a shortcut file tells of its target.
struct ShortcutData {
  // The path as the shell gives it raw: environment variables are not expanded, and a path on a share
  // begins with two backslashes. Empty where the shortcut has no path of its own: an object of the shell
  // (control panel, store app, a folder that only the shell can place) or an advertised program.
  Text target;
};

// Reads the bytes of a shortcut (.lnk) file. Nothing when they are no shortcut, or when the file ends in the
// middle of its item list, its location or its strings. Takes any bytes without harm.
std::optional<ShortcutData> ReadShortcut(std::string_view bytes);

}  // namespace tavix::machine
