#include <gtest/gtest.h>

#include <random>

#include "platform/machine/formats/registry_text.h"
#include "platform/registry_data.h"

namespace tavix::machine {
namespace {

using platform::Hive;
using namespace std::string_literals;
using namespace std::string_view_literals;

RegistryKey& Make(RegistryStore& store, TextView path) {
  bool made = false;
  return *store.Make(Hive::CurrentUser, path, made);
}

// The written text without its byte order mark.
Text Written(const RegistryStore& store) {
  TextError error;
  const std::string bytes = WriteRegistryText(store, Hive::CurrentUser);
  EXPECT_TRUE(bytes.starts_with("\xFF\xFEW"));
  return DecodeText(bytes, error).value_or(Text());
}

TEST(RegTextWriter, WritesEveryKeyInOrderOnALineOfItsOwn) {
  RegistryStore store;
  Make(store, u"b\\d\\e");
  Make(store, u"b\\C");
  Make(store, u"A").SetValue(u"z", 1, platform::StringData(u"1"));
  Make(store, u"A").SetValue(u"", 1, platform::StringData(u"2"));
  EXPECT_EQ(Written(store),
            u"Windows Registry Editor Version 5.00\r\n"
            u"\r\n[HKEY_CURRENT_USER]\r\n"
            u"\r\n[HKEY_CURRENT_USER\\A]\r\n\"z\"=\"1\"\r\n@=\"2\"\r\n"
            u"\r\n[HKEY_CURRENT_USER\\b]\r\n"
            u"\r\n[HKEY_CURRENT_USER\\b\\C]\r\n"
            u"\r\n[HKEY_CURRENT_USER\\b\\d]\r\n"
            u"\r\n[HKEY_CURRENT_USER\\b\\d\\e]\r\n");
}

TEST(RegTextWriter, WritesEachTypeInItsForm) {
  struct Case {
    uint32_t type;
    std::string data;
    TextView form;
  };
  const Case kCases[] = {
      {1, platform::StringData(u"a\\b\"c"), u"\"a\\\\b\\\"c\""},
      {1, "\0\0"s, u"\"\""},
      {1, "", u"hex(1):"},
      {1, "a\0"s, u"hex(1):61,00"},
      {1, "a\0\0\0\0\0"s, u"hex(1):61,00,00,00,00,00"},
      {1, "a\0\n\0\0\0"s, u"hex(1):61,00,0a,00,00,00"},
      {1, "a\0\0\0b"s, u"hex(1):61,00,00,00,62"},
      {2, "%\0\0\0"s, u"hex(2):25,00,00,00"},
      {3, "\xAB", u"hex:ab"},
      {3, "", u"hex:"},
      {4, "\x40\xE2\x01\0"s, u"dword:0001e240"},
      {4, "\x40"s, u"hex(4):40"},
      {0, "", u"hex(0):"},
      {11, "\1\0\0\0\0\0\0\0"s, u"hex(b):01,00,00,00,00,00,00,00"},
      {0xFFFF0012, "\1", u"hex(ffff0012):01"},
      {0x10, "", u"hex(10):"},
  };
  for (const Case& c : kCases) {
    RegistryStore store;
    Make(store, u"").SetValue(u"v", c.type, c.data);
    EXPECT_EQ(Written(store),
              Concat(u"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER]\r\n\"v\"=", c.form,
                     u"\r\n"));
  }
}

TEST(RegTextWriter, BreaksLinesOfBytesAsTheRegistryEditorDoes) {
  RegistryStore store;
  Make(store, u"").SetValue(u"DispFileName", 2, std::string(45, '\0'));
  Make(store, u"").SetValue(Text(80, u'n'), 3, std::string(2, '\0'));
  const auto bytes = [](int count) {
    Text text;
    for (int i = 0; i < count; ++i) text += u"00,";
    return text;
  };
  EXPECT_EQ(Written(store), Concat(u"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER]\r\n",
                                   u"\"DispFileName\"=hex(2):", bytes(19), u"\\\r\n  ", bytes(25),
                                   u"\\\r\n  00\r\n", u"\"", Text(80, u'n'), u"\"=hex:00,\\\r\n  00\r\n"));
}

class RandomRegistry {
 public:
  explicit RandomRegistry(unsigned seed) : random_(seed) {}

  RegistryStore Make() {
    RegistryStore store;
    for (const Hive hive : RegistryStore::kHives) Fill(*store.Root(hive), 3);
    return store;
  }

 private:
  size_t Below(size_t limit) { return random_() % limit; }

  Text Name(bool key) {
    constexpr TextView kTricky = u"\"[];=@-\\ \t\0\r\naAéÉ日\xD800\xDC00\xFEFF\xFFFF"sv;
    Text name;
    for (size_t size = Below(6) + (key ? 1 : 0); name.size() < size;) {
      const char16_t c = kTricky[Below(kTricky.size())];
      if (!key || (c != u'\\' && c != u'\r' && c != u'\n')) name.push_back(c);
    }
    return name;
  }

  void Fill(RegistryKey& key, int depth) {
    for (size_t i = Below(5); i > 0; --i) {
      constexpr uint32_t kTypes[] = {0, 1, 1, 1, 2, 3, 4, 7, 11, 0xFFFFFFFF};
      std::string data = platform::StringData(Name(false));
      if (Below(2) == 0) data.assign(Below(70), static_cast<char>(Below(256)));
      key.SetValue(Name(false), kTypes[Below(std::size(kTypes))], data);
    }
    bool made = false;
    for (size_t i = depth > 0 ? Below(4) : 0; i > 0; --i) Fill(key.MakeKey(Name(true), made), depth - 1);
  }

  std::mt19937 random_;
};

TEST(RegTextWriter, WritesWhatReadsBackEqual) {
  for (unsigned seed = 0; seed < 500; ++seed) {
    const RegistryStore store = RandomRegistry(seed).Make();
    RegistryStore read;
    for (const Hive hive : RegistryStore::kHives) {
      const auto error = ReadRegistryText(WriteRegistryText(store, hive), read);
      ASSERT_FALSE(error) << seed << " line " << error->Line << ": " << error->Reason;
    }
    ASSERT_TRUE(read == store) << seed;
    for (const Hive hive : RegistryStore::kHives) {
      ASSERT_EQ(WriteRegistryText(read, hive), WriteRegistryText(store, hive)) << seed;
    }
  }
}

}  // namespace
}  // namespace tavix::machine
