#include "export/masked.h"

#include <gtest/gtest.h>

#include "export/shortcut_writer.h"
#include "platform/registry_data.h"
#include "platform/shortcut.h"

namespace tavix::exporting {
namespace {

using platform::Hive;
using platform::Shortcut;

Shortcut Reread(const Shortcut& shortcut, size_t size = 0) {
  return platform::ReadShortcut(ShortcutBytes(shortcut, size)).value_or(Shortcut());
}

TEST(ShortcutBytes, NameTheSameTargets) {
  const Shortcut cases[] = {
      {{u"C:\\Users\\Ann\\a.txt"}, false},
      {{u"C:\\файл\\a.txt"}, false},
      {{u"\\\\server\\share\\a.txt"}, true},
      {{u"%windir%\\a.exe", u"C:\\Windows\\a.exe"}, false},
      {{Text(u"C:\\").append(400, u'x')}, false},
      {{}, true},
      {{}, false},
  };
  for (const Shortcut& one : cases) {
    const Shortcut again = Reread(one);
    EXPECT_EQ(again.paths, one.paths);
    EXPECT_EQ(again.others, one.others);
  }
}

TEST(ShortcutBytes, HaveTheSizeThatIsAskedForIfItIsEnough) {
  const Shortcut shortcut{{u"C:\\a.txt"}, false};
  EXPECT_EQ(ShortcutBytes(shortcut, 400).size(), 400U);
  EXPECT_EQ(Reread(shortcut, 400).paths, shortcut.paths);
  EXPECT_GT(ShortcutBytes(shortcut, 10).size(), 76U);
}

TEST(ShortcutBytes, ASecondLongPathCountsAsAnotherTarget) {
  const Text one = Text(u"C:\\").append(400, u'x'), other = Text(u"C:\\").append(400, u'y');
  const Shortcut again = Reread({{one, other}, false});
  EXPECT_EQ(again.paths, std::vector<Text>{other});
  EXPECT_TRUE(again.others);
}

TEST(MaskedContent, OfAShortcutHasItsSizeAndMaskedTargetsAlone) {
  const NameMask mask(1);
  const std::string content = ShortcutBytes({{u"C:\\Users\\Ann\\letter.txt"}, false}, 700);
  const std::string masked = MaskedContent(content, mask);
  EXPECT_EQ(masked.size(), 700U);
  EXPECT_EQ(platform::ReadShortcut(masked)->paths,
            std::vector<Text>{mask.Apply(u"C:\\Users\\Ann\\letter.txt")});
}

TEST(MaskedContent, OfATextIsMaskedAndOfAnythingElseEmpty) {
  const NameMask mask(1);
  const std::string masked = MaskedContent("[Files]\r\nx=secret\r\n", mask);
  EXPECT_TRUE(masked.ends_with("\r\n"));
  EXPECT_EQ(masked.find("secret"), std::string::npos);
  EXPECT_EQ(MaskedContent(std::string("s\0e\0c\0", 6), mask), "");
}

TEST(MaskedRegistry, HasMaskedNamesAndTextAndZerosForBinaryData) {
  const NameMask mask(1);
  machine::RegistryStore registry;
  bool made = false;
  const auto text = [](TextView data) { return platform::StringData(data); };
  machine::RegistryKey* key = registry.Make(Hive::CurrentUser, u"Software\\Contoso", made);
  key->SetValue(u"Ann", 1, text(u"C:\\Contoso\\ann.exe"));
  key->SetValue(u"Path", 1, text(u"41 00 6E 00"));
  key->SetValue(u"Flags", 1, text(u"17"));
  const machine::RegistryStore masked = Masked(registry, mask);
  const machine::RegistryKey& software = *masked.Root(Hive::CurrentUser)->FindKey(u"Software");
  const machine::RegistryKey* found = software.FindKey(mask.Apply(u"Contoso"));
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(software.Keys().size(), 1U);
  ASSERT_NE(found->FindValue(mask.Apply(u"Ann")), nullptr);
  EXPECT_EQ(found->FindValue(mask.Apply(u"Ann"))->Data, text(mask.Apply(u"C:\\Contoso\\ann.exe")));
  EXPECT_EQ(found->FindValue(u"Path")->Data, text(u"00 00 00 00"));
  EXPECT_EQ(found->FindValue(u"Flags")->Data, text(u"17"));
}

}  // namespace
}  // namespace tavix::exporting
