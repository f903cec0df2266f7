#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace tavix {

enum class TextEncoding : uint8_t { Utf8, Utf8WithMark, Utf16WithMark, Windows1252 };

// The text of a file without its byte order mark, and its encoding.
struct FileText {
  Text text;
  TextEncoding encoding = TextEncoding::Utf8;
};

// Decodes any bytes. With a byte order mark: UTF-16 (little-endian) or UTF-8. Without one: UTF-8 if the bytes
// are valid UTF-8, otherwise Windows-1252. If invalid UTF-8 follows a UTF-8 mark, everything including the
// mark is Windows-1252. Half a character at the end of UTF-16 is dropped.
FileText DecodeTextFile(std::string_view bytes);

// Encodes the text in its encoding. Uses UTF-8 with a mark instead when a character doesn't fit the encoding,
// or when the bytes would be read back as another text.
std::string EncodeTextFile(const FileText& file);

// The lines of a text in order, without their ends. A line ends at a line feed, with or without a carriage
// return before it, or where the text ends. Nothing else ends a line: a path with a line or paragraph
// separator in it stays whole.
std::vector<Text> TextLines(TextView text);

}  // namespace tavix
