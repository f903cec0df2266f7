#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace tavix {

enum class TextEncoding : uint8_t { Utf8, Utf8WithMark, Utf16WithMark, Windows1252 };

// The text of a file, without its mark, and its encoding.
struct FileText {
  Text text;
  TextEncoding encoding = TextEncoding::Utf8;
};

// Reads any bytes. With a mark: UTF-16 (little-endian) or UTF-8. Without one: UTF-8 if the bytes are valid
// UTF-8, else Windows-1252. A UTF-8 mark before invalid UTF-8 makes all of it, the mark too, Windows-1252.
// Half a character at the end of UTF-16 is dropped.
FileText DecodeTextFile(std::string_view bytes);

// The bytes of a file in its encoding. UTF-8 with a mark instead when a character doesn't fit that encoding,
// or the bytes would be read back as another text.
std::string EncodeTextFile(const FileText& file);

// The lines of a text in order, without their ends. A line ends at a line feed, with or without a carriage
// return before it, or where the text ends. Nothing else ends a line: a path with a line or paragraph
// separator in it stays whole.
std::vector<Text> TextLines(TextView text);

}  // namespace tavix
