#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix::machine {

// Where a file of text can't be read, and why in plain words.
struct TextError {
  size_t Line = 0;  // counted from 1
  std::string Reason;
};

// The text of a whole file without its mark: UTF-16 of either byte order with its mark, UTF-8 with or
// without one. Nothing on bytes that are no such text; `error` then tells where.
std::optional<Text> DecodeText(std::string_view bytes, TextError& error);

// The number of the line, counted from 1, that the code unit at a position stands in.
size_t LineAt(TextView text, size_t position);

// A piece of text between single quotes for a line of an error: what is long is cut, what is no character
// to print is a question mark.
std::string Quoted(TextView text);

}  // namespace tavix::machine
