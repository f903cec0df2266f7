#include "text/text_file.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using namespace std::string_literals;

TEST(TextFile, KnowsEachEncodingAndKeepsIt) {
  const struct {
    std::string bytes;
    TextEncoding encoding;
    TextView text;
  } kCases[] = {
      {"", TextEncoding::Utf8, u""},
      {"abc", TextEncoding::Utf8, u"abc"},
      {"\xC3\xA9", TextEncoding::Utf8, u"\u00E9"},
      {"\xEF\xBB\xBF", TextEncoding::Utf8WithMark, u""},
      {"\xEF\xBB\xBF"s + "a\xC3\xA9", TextEncoding::Utf8WithMark, u"a\u00E9"},
      {"\xFF\xFE"s, TextEncoding::Utf16WithMark, u""},
      {"\xFF\xFE"s + "a\0\xF4\x8B"s, TextEncoding::Utf16WithMark, u"a\u8BF4"},
      {"caf\xE9 \x80", TextEncoding::Windows1252, u"caf\u00E9 \u20AC"},
      {"\xEF\xBB\xBF\xE9", TextEncoding::Windows1252, u"\u00EF\u00BB\u00BF\u00E9"},
  };
  for (const auto& [bytes, encoding, text] : kCases) {
    const FileText file = DecodeTextFile(bytes);
    EXPECT_EQ(file.text, text);
    EXPECT_EQ(file.encoding, encoding) << bytes;
    EXPECT_EQ(EncodeTextFile(file), bytes);
  }
}

TEST(TextFile, HalfACharacterAtTheEndOfUtf16IsDropped) {
  EXPECT_EQ(DecodeTextFile("\xFF\xFE"s + "a\0b"s).text, u"a");
}

TEST(TextFile, LineEndsStayAsTheyAre) {
  EXPECT_EQ(EncodeTextFile(DecodeTextFile("a\r\nb\nc\rd")), "a\r\nb\nc\rd");
}

TEST(TextFile, CharacterThatDoesntFitTurnsTheFileToUtf8WithItsMark) {
  EXPECT_EQ(EncodeTextFile({u"\u00E9\u8BF4", TextEncoding::Windows1252}), "\xEF\xBB\xBF\xC3\xA9\xE8\xAF\xB4");
}

TEST(TextFile, BytesThatWouldBeReadAsAnotherTextAreUtf8WithItsMark) {
  for (const FileText& file :
       {FileText{u"\u00C3\u00A9", TextEncoding::Windows1252},
        FileText{u"\u00FF\u00FEa", TextEncoding::Windows1252}, FileText{u"\uFEFFa", TextEncoding::Utf8}}) {
    const FileText again = DecodeTextFile(EncodeTextFile(file));
    EXPECT_EQ(again.text, file.text);
    EXPECT_EQ(again.encoding, TextEncoding::Utf8WithMark);
  }
}

}  // namespace
}  // namespace tavix
