#include <gtest/gtest.h>

#include <chrono>

#include "platform/machine/formats/registry_text.h"
#include "platform/registry_data.h"
#include "support/case.h"
#include "support/processor_time.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

using platform::Hive;
using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::string_view kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";

std::string Utf16(TextView text) {
  std::string bytes = platform::StringData(Concat(u"\uFEFF", text));
  bytes.resize(bytes.size() - 2);
  return bytes;
}

// Reads lines after the header, a blank line and `[HKEY_CURRENT_USER\k]`; the key is line 3.
class RegTextReader : public testing::Test {
 protected:
  bool Read(std::string_view lines, std::string_view key = "[HKEY_CURRENT_USER\\k]\r\n") {
    error = ReadRegistryText(std::string(kHeader) + std::string(key) + std::string(lines), store);
    return !error;
  }
  // "line: reason", or "" if everything was read.
  std::string ErrorOf(std::string_view lines, std::string_view key = "[HKEY_CURRENT_USER\\k]\r\n") {
    return Read(lines, key) ? "" : std::to_string(error->Line) + ": " + error->Reason;
  }
  const RegistryValue* Find(TextView name, TextView key = u"k", Hive hive = Hive::CurrentUser) {
    RegistryKey* found = store.Find(hive, key);
    return found == nullptr ? nullptr : found->FindValue(name);
  }
  std::string DataOf(TextView name) {
    const RegistryValue* value = Find(name);
    return value == nullptr ? "missing" : value->Data;
  }
  uint32_t TypeOf(TextView name) {
    const RegistryValue* value = Find(name);
    return value == nullptr ? 0xDEAD : value->Type;
  }

  RegistryStore store;
  std::optional<TextError> error;
};

TEST_F(RegTextReader, TakesEachTypeOfValue) {
  ASSERT_EQ(ErrorOf("@=\"default\"\r\n"
                    "\"text\"=\"a\"\r\n"
                    "\"empty\"=\"\"\r\n"
                    "\"dword\"=dword:0001e240\r\n"
                    "\"short\"=dword:fF\r\n"
                    "\"binary\"=hex:00,0a,FF\r\n"
                    "\"none\"=hex(0):\r\n"
                    "\"expand\"=hex(2):25,00,00,00\r\n"
                    "\"odd\"=hex(4):00\r\n"
                    "\"multi\"=hex(7):61,00,00,00,00,00\r\n"
                    "\"qword\"=hex(B):01,00,00,00,00,00,00,80\r\n"
                    "\"any\"=hex(ffff0012):1,2\r\n"),
            "");
  struct Case {
    TextView name;
    uint32_t type;
    std::string data;
  };
  const Case kCases[] = {
      {u"", 1, platform::StringData(u"default")},
      {u"text", 1, "a\0\0\0"s},
      {u"empty", 1, "\0\0"s},
      {u"dword", 4, "\x40\xE2\x01\0"s},
      {u"short", 4, "\xFF\0\0\0"s},
      {u"binary", 3, "\0\x0A\xFF"s},
      {u"none", 0, ""},
      {u"expand", 2, "%\0\0\0"s},
      {u"odd", 4, "\0"s},
      {u"multi", 7, "a\0\0\0\0\0"s},
      {u"qword", 11, "\1\0\0\0\0\0\0\x80"s},
      {u"any", 0xFFFF0012, "\1\2"s},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(TypeOf(c.name), c.type) << ToUtf8(c.name);
    EXPECT_EQ(DataOf(c.name), c.data) << ToUtf8(c.name);
  }
}

TEST_F(RegTextReader, TakesUtf16OfBothByteOrdersAndUtf8) {
  const TextView text = u"Windows Registry Editor Version 5.00\n[HKEY_USERS\\日本]\n\"あ\"=\"😀\"";
  std::string swapped = Utf16(text);
  for (size_t i = 0; i < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
  for (const std::string& bytes : {Utf16(text), swapped, ToUtf8(text), "\xEF\xBB\xBF" + ToUtf8(text)}) {
    SCOPED_TRACE(Case(bytes));
    RegistryStore read;
    EXPECT_FALSE(ReadRegistryText(bytes, read));
    RegistryKey* key = read.Find(Hive::Users, u"日本");
    ASSERT_NE(key, nullptr);
    ASSERT_NE(key->FindValue(u"あ"), nullptr);
    EXPECT_EQ(key->FindValue(u"あ")->Data, platform::StringData(u"😀"));
  }
}

TEST_F(RegTextReader, KeepsHalfASurrogatePair) {
  Text text = u"Windows Registry Editor Version 5.00\n[HKEY_USERS\\k]\n\"?\"=\"?\"\n";
  for (char16_t& c : text) {
    if (c == u'?') c = 0xD800;
  }
  EXPECT_FALSE(ReadRegistryText(Utf16(text), store));
  const RegistryValue* value = Find(Text(1, 0xD800), u"k", Hive::Users);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->Data, "\0\xD8\0\0"s);
}

TEST_F(RegTextReader, JoinsContinuedLines) {
  EXPECT_EQ(ErrorOf("\"a\"=hex:00,\\\r\n  01,\\ ; comment\r\n ; a line of comment\r\n\t02\r\n"
                    "\"b\"=hex(7):\\\n  61,00\\\n,00,\\\n00 ; end\n"
                    "\"c\"=hex:01\\\n\n"
                    "\"d\"=hex: 01 , 02\t\n"),
            "");
  EXPECT_EQ(DataOf(u"a"), "\0\1\2"s);
  EXPECT_EQ(DataOf(u"b"), "a\0\0\0"s);
  EXPECT_EQ(DataOf(u"c"), "\1"s);
  EXPECT_EQ(DataOf(u"d"), "\1\2"s);
}

TEST_F(RegTextReader, UnescapesNamesAndTexts) {
  EXPECT_EQ(ErrorOf(R"("a\\b\"c"="C:\\x \"q\"\\")"
                    "\n"
                    R"("n"="1\r\n2")"
                    "\n"),
            "");
  EXPECT_EQ(DataOf(u"a\\b\"c"), platform::StringData(u"C:\\x \"q\"\\"));
  EXPECT_EQ(DataOf(u"n"), platform::StringData(u"1\r\n2"));
}

TEST_F(RegTextReader, LetsQuotedTextRunOverLineEnds) {
  EXPECT_EQ(ErrorOf("\"a\nb\"=\"1\r\n\r\n[2]\n;\"\r\n\"next\"=\"\"\n"), "");
  EXPECT_EQ(DataOf(u"a\nb"), platform::StringData(u"1\r\n\r\n[2]\n;"));
  EXPECT_EQ(DataOf(u"next"), "\0\0"s);
}

TEST_F(RegTextReader, TakesBlanksCommentsAndLetterCaseAsTheyCome) {
  store = {};
  const std::string_view text =
      "\n; comment\n \tWindows Registry Editor Version 5.00 ;blah\n\n"
      "  [hkey_current_user\\K]\t; blah\n;\n ; \"x\"=1\n\t\"a\" = \"1\" ; c\n@\t=\tDWORD:1;c\n "
      "\"h\"=HEX(1F):AB;c\r\n"
      "\"semi;colons\"=\"and;\";blah\r";
  error = ReadRegistryText(text, store);
  EXPECT_FALSE(error) << error->Line << error->Reason;
  EXPECT_EQ(DataOf(u"a"), "1\0\0\0"s);
  EXPECT_EQ(DataOf(u""), "\1\0\0\0"s);
  EXPECT_EQ(TypeOf(u"h"), 0x1FU);
  EXPECT_EQ(DataOf(u"semi;colons"), platform::StringData(u"and;"));
}

TEST_F(RegTextReader, EndsAKeyAtTheLastBracket) {
  EXPECT_EQ(ErrorOf("@=\"\"", "[HKEY_CURRENT_USER\\a]b[c]\"; ]\n"), "");
  EXPECT_NE(Find(u"", u"a]b[c]\"; "), nullptr);
}

TEST_F(RegTextReader, SendsClassesRootToTheMachinesClasses) {
  EXPECT_EQ(ErrorOf("@=\"1\"\n[HKEY_CLASSES_ROOT\\a\\c]\n@=\"2\"\n[HKEY_CLASSES_ROOT]\n@=\"3\"",
                    "[HKEY_CLASSES_ROOT\\a\\b]\n"),
            "");
  EXPECT_NE(Find(u"", u"Software\\Classes\\a\\b", Hive::LocalMachine), nullptr);
  EXPECT_NE(Find(u"", u"Software\\Classes\\a\\c", Hive::LocalMachine), nullptr);
  EXPECT_NE(Find(u"", u"Software\\Classes", Hive::LocalMachine), nullptr);
}

TEST_F(RegTextReader, OpensTheSameKeyUnderEverySpellingOfItsPath) {
  EXPECT_EQ(ErrorOf("[HKEY_CURRENT_USER\\a\\bc\\d]\n@=\"1\"\n[HKEY_CURRENT_USER\\a\\b]\n@=\"2\"\n"
                    "[HKEY_CURRENT_USER\\A\\BC\\D]\n\"v\"=\"3\"\n[HKEY_CURRENT_USER]\n@=\"4\"\n"
                    "[HKEY_USERS\\a]\n@=\"5\"\n"),
            "");
  RegistryKey* key = store.Find(Hive::CurrentUser, u"a\\bc\\d");
  ASSERT_NE(key, nullptr);
  EXPECT_EQ(key->AllValues().size(), 2U);
  EXPECT_EQ(store.Find(Hive::CurrentUser, u"a")->Keys().size(), 2U);
  EXPECT_NE(Find(u"", u"a\\b"), nullptr);
  EXPECT_NE(Find(u"", u""), nullptr);
  EXPECT_NE(Find(u"", u"a", Hive::Users), nullptr);
}

TEST_F(RegTextReader, DeletesKeysAndValues) {
  EXPECT_EQ(
      ErrorOf("@=\"\"\n\"a\"=\"1\"\n\"b\"=\"2\"\n\"A\"=-\n@=- ; gone\n\"missing\"=-\n"
              "[HKEY_CURRENT_USER\\k\\below]\n[-HKEY_CURRENT_USER\\K\\Below]\n[-HKEY_CURRENT_USER\\none\\x]\n"
              "[HKEY_CLASSES_ROOT\\c\\d]\n[-HKEY_CLASSES_ROOT\\c]\n[HKEY_CURRENT_USER\\k\\below]\n@=\"\""),
      "");
  EXPECT_EQ(store.Find(Hive::CurrentUser, u"k")->AllValues().size(), 1U);
  EXPECT_NE(Find(u"", u"k\\below"), nullptr);
  EXPECT_EQ(store.Find(Hive::LocalMachine, u"Software\\Classes\\c"), nullptr);
  EXPECT_NE(store.Find(Hive::LocalMachine, u"Software\\Classes"), nullptr);
}

TEST_F(RegTextReader, TellsWhatItCannotReadAndWhere) {
  std::string deep = "[HKEY_CURRENT_USER";
  for (int i = 0; i < 513; ++i) deep += "\\k";
  const std::pair<std::string, std::string> kCases[] = {
      {"word", "4: neither a key nor a value"},
      {"[HKEY_CURRENT_USER\\k", "4: a key without its closing bracket"},
      {"\n[HKLM\\k]", "5: unknown root 'HKLM'"},
      {"[]", "4: unknown root ''"},
      {"[-HKEY_USERSX\\a]", "4: unknown root 'HKEY_USERSX'"},
      {"[HKEY_USERS\\a] b", "4: text behind the key"},
      {"[HKEY_USERS\\a\\\\b]", "4: a key without a name"},
      {"[HKEY_USERS\\]", "4: a key without a name"},
      {"[-HKEY_USERS\\]", "4: a key without a name"},
      {"[-HKEY_USERS\\a\\]", "4: a key without a name"},
      {"[-HKEY_USERS]", "4: a root can't be deleted"},
      {"[-HKEY_CLASSES_ROOT]", "4: a root can't be deleted"},
      {"[HKEY_USERS\\" + std::string(256, 'k') + "]", "4: the name of a key is longer than 255 characters"},
      {deep + "]", "4: keys lie more than 512 levels deep"},
      {"[HKEY_USERS\\a\rb]", "4: a line end in the name of a key"},
      {"[-HKEY_USERS\\a]\n@=\"\"", "5: a value outside a key"},
      {"\"" + std::string(16384, 'v') + "\"=\"\"", "4: the name of a value is longer than 16383 characters"},
      {"\"a\"", "4: no '=' behind the name of a value"},
      {"\"a\"=", "4: unknown kind of data"},
      {"\"a\"=1", "4: unknown kind of data"},
      {"\"a\"=qword:1", "4: unknown kind of data"},
      {"\"a\"=\"1\" 2", "4: text behind the value"},
      {"\"a\"=-1", "4: text behind the value"},
      {"\"a\"=\"1\n\n", "4: a quote that isn't closed"},
      {"\"a\n\n", "4: a quote that isn't closed"},
      {"\"a\"=\"\\", "4: a backslash in quotes that is not doubled"},
      {"\"a\"=\"C:\\Windows\"", "4: a backslash in quotes that is not doubled"},
      {"\"a\"=dword:", "4: a number is missing"},
      {"\"a\"=dword:1g", "4: text behind the value"},
      {"\"a\"=dword:g", "4: 'g' is no hex digit"},
      {"\"a\"=dword:000000000", "4: a number of more than 8 digits"},
      {"\"a\"=dword:00000000\\\n", "4: text behind the value"},
      {"\"a\"=hex(", "4: a number is missing"},
      {"\"a\"=hex():00", "4: ')' is no hex digit"},
      {"\"a\"=hex(123456789):00", "4: a number of more than 8 digits"},
      {"\"a\"=hex(1:00", "4: no '):' behind the type of a value"},
      {"\"a\"=hex:0g", "4: 'g' is no hex digit"},
      {"\"a\"=hex:g", "4: 'g' is no hex digit"},
      {"\"a\"=hex:000", "4: a byte of more than two digits"},
      {"\"a\"=hex:00,\n", "4: a byte is missing behind the comma"},
      {"\"a\"=hex:00 01\n", "4: a comma is missing between two bytes"},
      {"\"a\"=hex:00,\\\n  01,\\\n  x1", "6: 'x' is no hex digit"},
      {"\"a\"=hex:00,\\", "4: a byte is missing behind the comma"},
      {"\"a\"=hex:00,\\ x\n01", "4: text behind the backslash"},
      {"\"a\"=hex:00,\\\n\"b\"=\"\"", "5: '\"' is no hex digit"},
      {"\"a\"=hex:,", "4: ',' is no hex digit"},
      {"\"a\"=hex:\xC3\xA9", "4: '\xC3\xA9' is no hex digit"},
      {"\n\"a\"=\"\xFF\"\n", "5: bytes that are no UTF-8"},
  };
  for (const auto& [lines, expected] : kCases) EXPECT_EQ(ErrorOf(lines), expected) << lines;
}

TEST_F(RegTextReader, RefusesOtherHeaders) {
  const std::string kHeaders[] = {"",
                                  "REGEDIT4\n",
                                  "Windows Registry Editor Version 4.00\n",
                                  "[HKEY_USERS\\a]\n",
                                  "\xFF\xFE",
                                  "W\0i\0n\0"s,
                                  std::string("\0\0\0\0", 4)};
  for (const std::string& header : kHeaders) {
    SCOPED_TRACE(Case(header));
    error = ReadRegistryText(header, store);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Line, 1U);
    EXPECT_EQ(error->Reason, "the header is not 'Windows Registry Editor Version 5.00'");
  }
  error = ReadRegistryText("Windows Registry Editor Version 5.001\n", store);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Reason, "text behind the header");
}

TEST_F(RegTextReader, TellsTheLineWhereUtf16IsCutOff) {
  error = ReadRegistryText(Utf16(u"Windows Registry Editor Version 5.00\n\n") + "x", store);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Line, 3U);
  EXPECT_EQ(error->Reason, "the text is cut off in the middle of a UTF-16 character");
}

TEST_F(RegTextReader, KeepsWhatStandsBeforeTheError) {
  EXPECT_FALSE(Read("\"a\"=\"1\"\n\"b\"=x\n"));
  EXPECT_NE(Find(u"a"), nullptr);
}

TEST_F(RegTextReader, TakesTimeThatGrowsWithTheTextAlone) {
  // Texts for which a naive reader would take quadratic time.
  std::string brackets = "[";
  std::string continued = "\"a\"=hex:";
  std::string keys;
  std::string values;
  for (int i = 0; i < 100'000; ++i) {
    brackets += "[\n;]\n[";
    continued += "00,\\\n;\n";
    const std::string number = std::to_string(i * 7919 % 100'000);
    keys += "[HKEY_CURRENT_USER\\k\\" + number + "]\n";
    values += "\"" + number + "\"=\"\"\n";
  }
  const auto start = ProcessorTime();
  EXPECT_FALSE(Read(brackets));
  EXPECT_EQ(ErrorOf(continued + "00"), "");
  EXPECT_EQ(ErrorOf(values + keys), "");
  EXPECT_EQ(store.Find(Hive::CurrentUser, u"k")->Keys().size(), 100'000U);
  EXPECT_LT(ProcessorTime() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace tavix::machine
