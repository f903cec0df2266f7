#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix {

// Decodes UTF-8. Nothing when the bytes are not valid: overlong forms, code points over U+10FFFF, a sequence
// cut short. An encoded surrogate is accepted as that code unit, so that a name with an unpaired surrogate
// survives encoding and decoding.
std::optional<Text> FromUtf8(std::string_view bytes);

// Encodes a text. An unpaired surrogate is encoded by itself, in three bytes.
std::string ToUtf8(TextView text);

}  // namespace tavix
