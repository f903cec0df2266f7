#pragma once

#include <optional>
#include <string_view>

#include "text/text.h"

namespace tavix::windows {

// The target of the bytes of a shortcut file, read by the system's own reader, as platform::Shell's
// ShortcutTarget. The target is not looked for and nothing is shown. At most the 259 characters that the
// system's reader gives.
std::optional<Text> ReadLinkTarget(std::string_view bytes);

}  // namespace tavix::windows
