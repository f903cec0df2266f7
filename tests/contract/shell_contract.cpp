#include "contract/shell_contract.h"

#include <algorithm>
#include <set>

#include "support/case.h"
#include "text/letter_case.h"

namespace tavix::contract {

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ShellContract);

namespace {

TEST_P(ShellContract, SendsFilesToTheBinAndEmptiesIt) {
  ASSERT_EQ(shell.RecycleBinInfo(), u"0|0");
  ASSERT_TRUE(files.WriteFile(In(u"Ä.txt"), "12345"));
  EXPECT_TRUE(shell.DeleteToRecycleBin(In(u"Ä.txt")));
  EXPECT_EQ(files.FileExists(In(u"Ä.txt")), false);
  EXPECT_EQ(shell.RecycleBinInfo(), u"1|5");
  ASSERT_TRUE(files.WriteFile(In(u"Ä.txt"), "1"));
  EXPECT_TRUE(shell.DeleteToRecycleBin(In(u"Ä.txt")));
  EXPECT_EQ(shell.RecycleBinInfo(), u"2|6");
  EXPECT_TRUE(shell.EmptyRecycleBin(0));
  EXPECT_EQ(shell.RecycleBinInfo(), u"0|0");
}

TEST_P(ShellContract, SendsFoldersToTheBin) {
  ASSERT_TRUE(files.CreateFolder(In(u"folder")));
  ASSERT_TRUE(files.WriteFile(In(u"folder\\a"), "x"));
  EXPECT_TRUE(shell.DeleteToRecycleBin(In(u"folder")));
  EXPECT_EQ(files.FolderExists(In(u"folder")), false);
  ASSERT_TRUE(shell.RecycleBinInfo());
  EXPECT_TRUE(shell.RecycleBinInfo()->starts_with(u"1|"));
  EXPECT_EQ(shell.EmptyRecycleBin(0), stage->EmptiesTheBinOfFolders());
}

TEST_P(ShellContract, SendsNothingToTheBinThatIsNotThere) {
  ASSERT_TRUE(files.WriteFile(In(u"a"), "x"));
  for (const Text& path :
       {Text(), In(u"none"), In(u"none\\a"), Text(u"a"), Text(u"C:a"), In(u"*"), In(u"?")}) {
    EXPECT_FALSE(shell.DeleteToRecycleBin(path)) << testing::PrintToString(path);
  }
  EXPECT_EQ(files.FileExists(In(u"a")), true);
  EXPECT_EQ(shell.RecycleBinInfo(), u"0|0");
}

TEST_P(ShellContract, MarksForRestartAndLeavesTheFile) {
  ASSERT_TRUE(files.WriteFile(In(u"a"), "x"));
  EXPECT_TRUE(shell.DeleteAtRestart(In(u"a")));
  EXPECT_TRUE(shell.DeleteAtRestart(In(u"none")));
  EXPECT_FALSE(shell.DeleteAtRestart(u""));
  EXPECT_FALSE(shell.DeleteAtRestart(u"a"));
  EXPECT_EQ(files.FileExists(In(u"a")), true);
}

TEST_P(ShellContract, KnowsTheSpecialFolders) {
  const auto expectFolder = [](const std::optional<Text>& folder) {
    ASSERT_TRUE(folder);
    EXPECT_GT(folder->size(), 3U);
    EXPECT_EQ((*folder)[1], u':');
    EXPECT_NE(folder->back(), u'\\');
  };
  for (const int number : {32, 33, 34, 9966}) expectFolder(shell.SpecialFolderByNumber(number));
  for (const TextView name :
       {u"Recent", u"Fonts", u"AllUsersPrograms", u"Programs", u"0", u"1", u"5", u"10", u"11"}) {
    expectFolder(shell.SpecialFolderByName(name));
  }
  expectFolder(shell.UserTempFolder());
  expectFolder(shell.SystemTempFolder());
  EXPECT_EQ(shell.SpecialFolderByName(u"RECENT"), shell.SpecialFolderByName(u"Recent"));
  EXPECT_FALSE(shell.SpecialFolderByNumber(9999));
  EXPECT_FALSE(shell.SpecialFolderByNumber(-1));
  for (const TextView name : {u"", u"None", u"99", u"-1", u"1x"})
    EXPECT_FALSE(shell.SpecialFolderByName(name)) << Case(name);
}

TEST_P(ShellContract, NamesTheFoldersThatItsOtherAnswersName) {
  const std::vector<Text> named = shell.NamedFolders().value();
  const auto expectNamed = [&named](const std::optional<Text>& folder) {
    ASSERT_TRUE(folder);
    EXPECT_TRUE(std::ranges::any_of(named, [&folder](TextView one) {
      return EqualIgnoringCase(one, *folder);
    })) << testing::PrintToString(*folder);
  };
  expectNamed(shell.EnvironmentVariable(u"WinDir"));
  for (const int number : {32, 33, 34, 9966}) expectNamed(shell.SpecialFolderByNumber(number));
  for (const TextView name :
       {u"Recent", u"Fonts", u"AllUsersPrograms", u"Programs", u"0", u"1", u"5", u"10", u"11"}) {
    expectNamed(shell.SpecialFolderByName(name));
  }
  expectNamed(shell.UserTempFolder());
  expectNamed(shell.SystemTempFolder());
}

TEST_P(ShellContract, NamesEachFolderOnceAndWithoutABackslashAtItsEnd) {
  const std::optional<std::vector<Text>> named = shell.NamedFolders();
  ASSERT_TRUE(named);
  std::set<Text, LessIgnoringCase> seen;
  for (const Text& folder : *named) {
    EXPECT_GE(folder.size(), 3U);
    EXPECT_TRUE(folder.size() == 3 || folder.back() != u'\\') << testing::PrintToString(folder);
    EXPECT_TRUE(seen.insert(folder).second) << testing::PrintToString(folder);
  }
  EXPECT_FALSE(seen.empty());
}

TEST_P(ShellContract, MakesNoFolderByNamingIt) {
  const std::optional<std::vector<Text>> named = shell.NamedFolders();
  ASSERT_TRUE(named);
  std::vector<Text> missing;
  for (const Text& folder : *named) {
    if (files.FolderExists(folder) == false) missing.push_back(folder);
  }
  shell.NamedFolders();
  for (const Text& folder : missing)
    EXPECT_EQ(files.FolderExists(folder), false) << testing::PrintToString(folder);
}

TEST_P(ShellContract, ExpandsVariables) {
  const auto windows = shell.EnvironmentVariable(u"WinDir");
  ASSERT_TRUE(windows);
  EXPECT_EQ(shell.EnvironmentVariable(u"WINDIR"), windows);
  EXPECT_FALSE(shell.EnvironmentVariable(u"TavixNoSuchVariable"));
  EXPECT_FALSE(shell.EnvironmentVariable(u""));
  EXPECT_EQ(shell.ExpandEnvironment(u"%windir%\\a %"), Concat(*windows, u"\\a %"));
  EXPECT_EQ(shell.ExpandEnvironment(u"%TavixNoSuchVariable%\\a"), u"%TavixNoSuchVariable%\\a");
  EXPECT_EQ(shell.ExpandEnvironment(u""), u"");
}

TEST_P(ShellContract, ReadsNoTargetOfWhatIsNoShortcut) {
  ASSERT_TRUE(files.WriteFile(In(u"a.lnk"), "no shortcut"));
  EXPECT_FALSE(shell.OpenShortcut(In(u"a.lnk")));
  EXPECT_FALSE(shell.OpenShortcut(In(u"none.lnk")));
  EXPECT_FALSE(shell.OpenShortcut(u""));
}

TEST_P(ShellContract, OpensNothingThatIsNotThere) {
  EXPECT_FALSE(shell.OpenPath(In(u"none"), 3));
  EXPECT_FALSE(shell.OpenPath(u"", 3));
  EXPECT_FALSE(shell.RunTarget(u"", 3));
  EXPECT_FALSE(shell.RunHidden(u""));
}

TEST_P(ShellContract, CountsAndClearsEventLogs) {
  const auto log = logs.Open(u"Application");
  ASSERT_NE(log, 0);
  EXPECT_TRUE(logs.Count(log));
  EXPECT_TRUE(logs.Clear(log));
  EXPECT_EQ(logs.Count(log), 0U);
  logs.Close(log);
  EXPECT_FALSE(logs.Count(0));
  EXPECT_FALSE(logs.Clear(0));
}

}  // namespace
}  // namespace tavix::contract
