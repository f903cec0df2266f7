#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix {

// The text of UTF-8 bytes. Nothing when the bytes are no valid UTF-8: overlong forms, code points over
// U+10FFFF, a sequence cut short. An encoded surrogate is taken as the code unit that it stands for, so
// that a name with half a pair in it survives the way to UTF-8 and back.
std::optional<Text> FromUtf8(std::string_view bytes);

// The UTF-8 bytes of a text; half of a surrogate pair is encoded by itself, in three bytes.
std::string ToUtf8(TextView text);

}  // namespace tavix
