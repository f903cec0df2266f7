#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace tavix {

enum class TextEncoding : uint8_t { Utf8, Utf8WithMark, Utf16WithMark, Windows1252 };

// What stands in a text file, without its mark, and how it is written there.
struct FileText {
  Text text;
  TextEncoding encoding = TextEncoding::Utf8;
};

// Reads any bytes: UTF-16 (little-endian) and UTF-8 by their marks, without one UTF-8 where the bytes are
// valid UTF-8, else Windows-1252. Behind a mark that the bytes don't hold to they are Windows-1252 as well,
// mark and all. Half a character at the end of UTF-16 is dropped.
FileText DecodeTextFile(std::string_view bytes);

// The bytes of a file in the same encoding, or as UTF-8 with its mark where a character doesn't fit or the
// bytes would be read as another text.
std::string EncodeTextFile(const FileText& file);

// The lines of a text in order, without their ends. A line ends at a line feed, with or without a carriage
// return before it, or where the text ends. Nothing else ends a line: a path with a line or paragraph
// separator in it stays whole.
std::vector<Text> TextLines(TextView text);

}  // namespace tavix
