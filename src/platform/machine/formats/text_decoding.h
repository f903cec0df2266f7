#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix::machine {

// The place of an error in a text file and its reason in plain words.
struct TextError {
  size_t Line = 0;  // counted from 1
  std::string Reason;
};

// Decodes a whole file: UTF-16 of either byte order with its byte order mark, or UTF-8 with or without one.
// The text has no mark. Nothing for any other bytes; `error` then says where.
std::optional<Text> DecodeText(std::string_view bytes, TextError& error);

// The line, counted from 1, of the code unit at a position.
size_t LineAt(TextView text, size_t position);

// A text in single quotes for an error message in UTF-8. A long text is cut; unprintable characters become
// question marks.
std::string Quoted(TextView text);

}  // namespace tavix::machine
