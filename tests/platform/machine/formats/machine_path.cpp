#include "platform/machine/formats/machine_path.h"
#include "support/case.h"

#include <gtest/gtest.h>

namespace tavix::machine {
namespace {

Text Read(TextView path) {
  const std::optional<MachinePath> read = ReadMachinePath(path);
  return read ? read->ToText() : u"refused";
}

TEST(MachinePath, IsReadAsWindowsReadsIt) {
  const std::pair<TextView, TextView> cases[] = {
      {u"C:\\", u"C:\\"},
      {u"c:", u"C:\\"},
      {u"c:\\a\\b", u"C:\\a\\b"},
      {u"C:/a/b/", u"C:\\a\\b"},
      {u"C:\\\\a///b\\\\", u"C:\\a\\b"},
      {u"C:\\a\\.\\b\\.", u"C:\\a\\b"},
      {u"C:\\a\\..\\b", u"C:\\b"},
      {u"C:\\..\\..\\a", u"C:\\a"},
      {u"C:\\a..\\b. .", u"C:\\a\\b"},
      {u"C:\\a\\...\\b", u"C:\\a\\b"},
      {u"C:\\ a", u"C:\\ a"},
      {u"\\\\tavix\\app", u"\\\\tavix\\app"},
      {u"\\\\TAVIX\\App\\tips.dll", u"\\\\tavix\\app\\tips.dll"},
      {u"//tavix/app/../res", u"\\\\tavix\\app\\res"},
  };
  for (const auto& [path, expected] : cases) EXPECT_EQ(Read(path), expected) << testing::PrintToString(path);
}

TEST(MachinePath, IsNoneWhereItIsRelativeOrLeadsElsewhere) {
  for (const TextView path :
       {u"", u"a", u"\\a", u"C:a", u"CC:\\", u"1:\\", u"Ä:\\", u"\\\\server\\share\\a", u"\\\\tavix\\apple",
        u"\\\\?\\C:\\a", u"\\\\.\\C:", u" C:\\a", u"C:\\a:b", u"C:\\*"}) {
    EXPECT_FALSE(ReadMachinePath(path)) << testing::PrintToString(path);
  }
}

TEST(FileName, IsWhatWindowsAllows) {
  for (const TextView name : {u"a", u" a", u".a", u"a b.c", u"[x]=;#", u"ß世"})
    EXPECT_TRUE(IsFileName(name)) << Case(name);
  for (const TextView name : {u"", u".", u"..", u"a.", u"a ", u"a/b", u"a\\b", u"a:b", u"a*", u"a?", u"a\"",
                              u"<", u">", u"|", u"\x1f"}) {
    EXPECT_FALSE(IsFileName(name)) << testing::PrintToString(name);
  }
  EXPECT_TRUE(IsFileName(Text(255, u'a')));
  EXPECT_FALSE(IsFileName(Text(256, u'a')));
}

}  // namespace
}  // namespace tavix::machine
