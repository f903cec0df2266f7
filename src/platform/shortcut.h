#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/byte_reader.h"
#include "text/text.h"

namespace tavix::platform {

// What a shortcut file names as its target. It may do so in up to four places: a path with environment
// variables, the location's path on a volume and its path on a share, and the list of items. The shell itself
// tells the first of these that it can read; all of them are here.
struct Shortcut {
  // The paths of those places, each once, as they are stored: variables are not expanded, and a path on a
  // share begins with two backslashes.
  std::vector<Text> paths;
  // Whether it also names something that has no path here: an object of the shell (control panel, store app,
  // a folder that only the shell can place), a share without a name, an advertised program.
  bool others = false;
};

// Reads the bytes of a shortcut (.lnk) file. Nothing when they are no shortcut, or when the file ends in the
// middle of its item list, its location or its strings. Takes any bytes without harm, and looks at nothing
// that it names.
//
// This reader serves every platform. That of the system's shell gives one place of several, at most 259
// characters of it, and which one it is differs from system to system.
std::optional<Shortcut> ReadShortcut(std::string_view bytes, NarrowDecoder decode = FromWindows1252);

}  // namespace tavix::platform
