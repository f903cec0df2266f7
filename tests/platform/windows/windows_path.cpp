#include "platform/windows/windows_path.h"
#include "support/case.h"

#include <gtest/gtest.h>

namespace tavix::windows {
namespace {

TEST(NormalPath, ReadsPathsAsTheSystemDoes) {
  const struct {
    TextView path, normal;
  } kCases[] = {
      {u"C:\\a\\b", u"C:\\a\\b"},
      {u"c:/a//b\\\\c\\", u"C:\\a\\b\\c"},
      {u"C:\\", u"C:\\"},
      {u"C:", u"C:\\"},
      {u"C:\\a\\.\\b", u"C:\\a\\b"},
      {u"C:\\a\\..\\b", u"C:\\b"},
      {u"C:\\..\\..\\b", u"C:\\b"},
      {u"C:\\a\\b\\..\\..", u"C:\\"},
      {u"C:\\a. .\\b ..", u"C:\\a\\b"},
      {u"C:\\a\\ \\b", u"C:\\a\\b"},
      {u"C:\\ a", u"C:\\ a"},
      {u"C:\\.a", u"C:\\.a"},
      {u"C:\\\u00C4\xD800", u"C:\\\u00C4\xD800"},
      {u"\\\\server\\share", u"\\\\server\\share"},
      {u"//server/share/a/", u"\\\\server\\share\\a"},
      {u"\\\\server\\share\\..\\a", u"\\\\server\\share\\a"},
      {u"\\\\?\\C:\\a", u"C:\\a"},
      {u"\\\\?\\unc\\server\\share\\a", u"\\\\server\\share\\a"},
  };
  for (const auto& one : kCases) EXPECT_EQ(NormalPath(one.path), Text(one.normal));
}

TEST(NormalPath, RefusesWhatIsNoPathOfAFile) {
  const TextView kRefused[] = {
      u"",
      u"a",
      u"a\\b",
      u"\\a",
      u"C:a",
      u"1:\\a",
      u"C:\\a*",
      u"C:\\a?\\b",
      u"C:\\a:stream",
      u"C:\\a<",
      u"C:\\a\"",
      u"C:\\a|b",
      u"C:\\a\nb",
      TextView(u"C:\\a\0b", 6),
      u"\\\\server",
      u"\\\\server\\",
      u"\\\\.\\C:",
      u"\\\\?\\C:\\a.",
      u"\\\\?\\C:/a",
      u"\\\\?\\C:\\a\\..\\b",
      u"\\\\?\\a",
      u"\\\\?\\",
      u"\\\\?\\\\\\?\\C:\\a",
      u"\\\\?\\unix\\a",  // a host file in Wine's notation
  };
  for (const TextView path : kRefused)
    EXPECT_EQ(NormalPath(path), std::nullopt) << testing::PrintToString(path);
}

TEST(WindowsPath, KnowsRoots) {
  for (const TextView root : {u"C:\\", u"\\\\server\\share"}) EXPECT_TRUE(IsRoot(root)) << Case(root);
  for (const TextView path : {u"C:\\a", u"\\\\server\\share\\a"}) EXPECT_FALSE(IsRoot(path)) << Case(path);
}

TEST(WindowsPath, TakesAPathApartAndTogether) {
  EXPECT_EQ(FolderOf(u"C:\\a"), u"C:\\");
  EXPECT_EQ(FolderOf(u"C:\\a\\b"), u"C:\\a");
  EXPECT_EQ(FolderOf(u"\\\\s\\h\\a"), u"\\\\s\\h");
  EXPECT_EQ(NameOf(u"C:\\a\\b"), u"b");
  EXPECT_EQ(NameOf(u"C:\\"), u"");
  EXPECT_EQ(PathIn(u"C:\\", u"a"), u"C:\\a");
  EXPECT_EQ(PathIn(u"C:\\a", u"b"), u"C:\\a\\b");
  EXPECT_EQ(ExtendedPath(u"C:\\a"), u"\\\\?\\C:\\a");
  EXPECT_EQ(ExtendedPath(u"\\\\s\\h\\a"), u"\\\\?\\UNC\\s\\h\\a");
}

TEST(NormalNames, AreThoseBelowAFolder) {
  EXPECT_EQ(NormalNames(u"a"), std::vector<Text>{u"a"});
  EXPECT_EQ(NormalNames(u"a b\\c.d/e\\"), (std::vector<Text>{u"a b", u"c.d", u"e"}));
}

TEST(NormalNames, AreNoneThatANormalPathWouldHaveOtherwise) {
  for (const TextView below :
       {u"", u"\\", u".", u"..", u"a\\..\\b", u"a.", u"a ", u"a \\b", u"a:b", u"a*", u"C:\\a"})
    EXPECT_EQ(NormalNames(below), std::nullopt) << testing::PrintToString(below);
}

}  // namespace
}  // namespace tavix::windows
