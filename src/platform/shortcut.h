#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/byte_reader.h"
#include "text/text.h"

namespace tavix::platform {

// The targets that a shortcut file names. It has up to four places for a target: a path with environment
// variables, a path on a volume, a path on a share, and a list of shell items. The shell uses the first that
// it can read; here are all of them.
struct Shortcut {
  // The paths in these places, each once, as stored: variables are not expanded, and a path on a share begins
  // with two backslashes.
  std::vector<Text> paths;
  // Whether it also names a target without a path: an object of the shell (control panel, store app, a folder
  // that only the shell can place), a share without a name, an advertised program.
  bool others = false;
};

// Reads a shortcut (.lnk) file. Nothing when the bytes are no shortcut, or end within the item list, the
// location or the strings. Safe for any bytes. Doesn't look at the targets.
//
// The system's own reader isn't used: it returns only one of the places, cut to 259 characters, and which one
// differs between systems.
std::optional<Shortcut> ReadShortcut(std::string_view bytes, NarrowDecoder decode = FromWindows1252);

}  // namespace tavix::platform
