#include "platform/windows/windows_shell.h"

#include <gtest/gtest.h>

#include "platform/windows/bin_settings.h"
#include "platform/windows/com.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/restart_list.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "support/case.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

class ShellOfWindows : public testing::Test {
 protected:
  const ComApartment apartment;
  ScratchPlace place;
  WindowsShell shell;
};

// Sets a numeric user setting for the lifetime of the object.
class UserNumber {
 public:
  UserNumber(Text key, const wchar_t* name, DWORD value) : key_(std::move(key)), name_(name) {
    EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, Wide(key_), name_, REG_DWORD, &value, sizeof value), 0);
  }
  ~UserNumber() { RegDeleteKeyValueW(HKEY_CURRENT_USER, Wide(key_), name_); }
  UserNumber(const UserNumber&) = delete;
  UserNumber& operator=(const UserNumber&) = delete;

 private:
  Text key_;
  const wchar_t* name_;
};

// The registry key with the recycle bin settings of the volume that a path is on.
Text BinSettings(const Text& path) {
  wchar_t root[MAX_PATH], volume[MAX_PATH];
  EXPECT_TRUE(GetVolumePathNameW(Wide(path), root, MAX_PATH));
  EXPECT_TRUE(GetVolumeNameForVolumeMountPointW(root, volume, MAX_PATH));
  const Text name = FromWide(volume);
  const size_t open = name.find(u'{');
  return Concat(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\BitBucket\\Volume\\",
                TextView(name).substr(open, name.find(u'}') + 1 - open));
}

// Sets the current folder for the lifetime of the object.
class CurrentFolder {
 public:
  explicit CurrentFolder(const Text& path) {
    GetCurrentDirectoryW(MAX_PATH, before_);
    EXPECT_TRUE(SetCurrentDirectoryW(Wide(path)));
  }
  ~CurrentFolder() { SetCurrentDirectoryW(before_); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  wchar_t before_[MAX_PATH] = L"";
};

TEST_F(ShellOfWindows, RunsACommandLineWithArguments) {
  const Text done = place.In(u"done.txt");
  EXPECT_TRUE(shell.RunTarget(Concat(u"cmd.exe /c echo one two>\"", done, u"\""), 0));
  EXPECT_EQ(ContentWhenThere(done), "one two\r\n");
}

TEST_F(ShellOfWindows, RunsAProgramInAPathWithBlanks) {
  const Text program = place.File(u"a program.cmd", "@echo %1>\"%~dp0done.txt\"\r\n");
  EXPECT_TRUE(shell.RunHidden(Concat(program, u" first")));
  EXPECT_EQ(ContentWhenThere(place.In(u"done.txt")), "first\r\n");
}

TEST_F(ShellOfWindows, OpensAFileWithItsDefaultAction) {
  const Text program = place.File(u"a program.cmd", "@echo opened>\"%~dp0done.txt\"\r\n");
  EXPECT_TRUE(shell.OpenPath(program, 0));
  EXPECT_EQ(ContentWhenThere(place.In(u"done.txt")), "opened\r\n");
}

TEST_F(ShellOfWindows, RunsNoProgramOfTheCurrentFolderThatIsNamedWithoutOne) {
  const Text program = place.File(u"planted.cmd", "@echo planted>\"%~dp0done.txt\"\r\n");
  {
    const CurrentFolder current(place.Path());
    for (const TextView target : {u"planted.cmd", u"planted", u".\\planted.cmd", u"\"planted.cmd\" x"})
      EXPECT_FALSE(shell.RunTarget(target, 0)) << testing::PrintToString(target);
  }
  // Started by its path, the same program writes the file.
  EXPECT_EQ(ContentOf(place.In(u"done.txt")), "(none)");
  EXPECT_TRUE(shell.RunTarget(program, 0));
  EXPECT_EQ(ContentWhenThere(place.In(u"done.txt")), "planted\r\n");
}

TEST_F(ShellOfWindows, WhatItStartsHasNoFolderOfOursAsItsCurrentOne) {
  const Text done = place.In(u"done.txt");
  const CurrentFolder current(place.Path());
  EXPECT_TRUE(shell.RunTarget(Concat(u"cmd.exe /c cd>\"", done, u"\""), 0));
  wchar_t system[MAX_PATH];
  ASSERT_NE(GetSystemDirectoryW(system, MAX_PATH), 0U);
  const std::string found = ContentWhenThere(done);
  EXPECT_EQ(ToLower(FromWide(std::wstring(found.begin(), found.end()))),
            Concat(ToLower(FromWide(system)), u"\r\n"));
}

TEST_F(ShellOfWindows, WhatCantBeStartedFailsWithoutADialog) {
  for (const TextView target : {u"", u"  ", u"tavix-no-such-program.exe /x", u"\"\"", u"tavix-none:address",
                                u"C:\\tavix no such\\a.exe"}) {
    EXPECT_FALSE(shell.RunTarget(target, 3)) << testing::PrintToString(target);
  }
  for (const Text& path : {Text(), Text(u"cmd.exe"), place.In(u"missing")}) {
    SCOPED_TRACE(Case(path));
    EXPECT_FALSE(shell.OpenPath(path, 3));
    EXPECT_FALSE(shell.ShowFileProperties(0, path));
  }
}

TEST_F(ShellOfWindows, SendsFilesAndFoldersToTheBinAndEmptiesIt) {
  if (!HasBinOfItsOwn()) GTEST_SKIP() << "the bin is the user's own";
  ClearBin();
  EXPECT_EQ(shell.RecycleBinInfo(), u"0|0");
  EXPECT_TRUE(shell.EmptyRecycleBin(0));
  const Text file = place.File(u"a file.txt", "twelve bytes");
  EXPECT_TRUE(shell.DeleteToRecycleBin(file));
  EXPECT_EQ(AttributesOf(file), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(shell.RecycleBinInfo(), u"1|12");
  EXPECT_TRUE(shell.EmptyRecycleBin(0));
  EXPECT_EQ(shell.RecycleBinInfo(), u"0|0");
  EXPECT_TRUE(shell.EmptyRecycleBin(0));
}

TEST_F(ShellOfWindows, ABinOverThirtyTwoBitsHasNoNumberForItsSize) {
  if (!HasBinOfItsOwn()) GTEST_SKIP() << "the bin is the user's own";
  ClearBin();
  const struct {
    LONGLONG size;
    TextView info;
  } kCases[] = {{0x7FFFFFFF, u"1|2147483647"}, {0x80000000, u"1|over"}};
  for (const auto& one : kCases) {
    SCOPED_TRACE(Case(one.size));
    const Text file = place.File(u"big.bin");
    // Its bytes are never written, so it takes no disk space.
    const HANDLE open = CreateFileW(Wide(file), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    LARGE_INTEGER end;
    end.QuadPart = one.size;
    ASSERT_TRUE(SetFilePointerEx(open, end, nullptr, FILE_BEGIN) && SetEndOfFile(open));
    CloseHandle(open);
    ASSERT_TRUE(shell.DeleteToRecycleBin(file));
    EXPECT_EQ(shell.RecycleBinInfo(), one.info);
    ClearBin();
  }
}

TEST_F(ShellOfWindows, SendsReadOnlyFilesAndFullFoldersToTheBin) {
  if (!HasBinOfItsOwn()) GTEST_SKIP() << "the bin is the user's own";
  ClearBin();
  const Text file = place.File(u"a file.txt", "twelve bytes"), folder = place.Folder(u"folder");
  ASSERT_TRUE(SetFileAttributesW(Wide(file), FILE_ATTRIBUTE_READONLY));
  place.File(u"folder\\in.txt");
  EXPECT_TRUE(shell.DeleteToRecycleBin(file));
  EXPECT_TRUE(shell.DeleteToRecycleBin(folder));
  EXPECT_EQ(AttributesOf(file), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(AttributesOf(folder), INVALID_FILE_ATTRIBUTES);
  EXPECT_TRUE(shell.RecycleBinInfo()->starts_with(u"2|"));
  // Wine leaves both in the bin but reports success.
  EXPECT_EQ(shell.EmptyRecycleBin(0), !IsWine());
  ClearBin();
  EXPECT_EQ(shell.RecycleBinInfo(), u"0|0");
}

TEST_F(ShellOfWindows, NothingGoesAlongIntoTheBin) {
  if (!HasBinOfItsOwn()) GTEST_SKIP() << "the bin is the user's own";
  const Text page = place.File(u"page.htm"), folder = place.Folder(u"page_files");
  const Text picture = place.File(u"page_files\\a.gif");
  EXPECT_TRUE(shell.DeleteToRecycleBin(page));
  EXPECT_EQ(AttributesOf(page), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(ContentOf(picture), "content");
  ClearBin();
}

TEST_F(ShellOfWindows, WhereTheBinIsTurnedOffNothingIsDeletedInItsPlace) {
  if (!HasBinOfItsOwn()) GTEST_SKIP() << "the bin is the user's own";
  const Text file = place.File(u"a file.txt"), folder = place.Folder(u"folder");
  const Text policies = u"Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer";
  {
    const UserNumber off(BinSettings(file), L"NukeOnDelete", 1);
    EXPECT_FALSE(shell.DeleteToRecycleBin(file));
    EXPECT_FALSE(shell.DeleteToRecycleBin(folder));
  }
  {
    const UserNumber off(policies, L"NoRecycleFiles", 1);
    EXPECT_FALSE(shell.DeleteToRecycleBin(file));
    EXPECT_FALSE(shell.DeleteToRecycleBin(folder));
  }
  EXPECT_EQ(ContentOf(file), "content");
  EXPECT_NE(AttributesOf(folder), INVALID_FILE_ATTRIBUTES);
  {
    const UserNumber on(BinSettings(file), L"NukeOnDelete", 0);
    EXPECT_TRUE(shell.DeleteToRecycleBin(file));
  }
  EXPECT_EQ(AttributesOf(file), INVALID_FILE_ATTRIBUTES);
  ClearBin();
}

TEST_F(ShellOfWindows, AFileLargerThanTheBinMayBecomeStays) {
  if (!HasBinOfItsOwn()) GTEST_SKIP() << "the bin is the user's own";
  const Text file = place.File(u"a file.txt", std::string((1 << 20) + 1, 'x'));
  {
    const UserNumber megabyte(BinSettings(file), L"MaxCapacity", 1);
    EXPECT_FALSE(shell.DeleteToRecycleBin(file));
    const Text fits = place.File(u"fits.txt", std::string(1 << 20, 'x'));
    EXPECT_TRUE(shell.DeleteToRecycleBin(fits));
    EXPECT_EQ(AttributesOf(fits), INVALID_FILE_ATTRIBUTES);
  }
  EXPECT_NE(AttributesOf(file), INVALID_FILE_ATTRIBUTES);
  ClearBin();
}

TEST_F(ShellOfWindows, TheBinTakesNothingOfAShare) {
  EXPECT_FALSE(shell.DeleteToRecycleBin(u"\\\\tavix.invalid\\share\\a"));
  EXPECT_FALSE(BinTakes(u"\\\\tavix.invalid\\share\\a"));
}

TEST_F(ShellOfWindows, TheBinTakesNoRootsPatternsAndMissingFiles) {
  place.File(u"a");
  for (const Text& path :
       {Text(), Text(u"C:\\"), Text(u"C:"), Text(u"a"), place.In(u"*"), place.In(u"missing")}) {
    SCOPED_TRACE(Case(path));
    EXPECT_FALSE(shell.DeleteToRecycleBin(path));
  }
  EXPECT_EQ(ContentOf(place.In(u"a")), "content");
}

TEST_F(ShellOfWindows, WhatIsTooDeepForTheBinStays) {
  if (!HasBinOfItsOwn()) GTEST_SKIP() << "the bin is the user's own";
  WindowsFileSystem files;
  Text path = place.Path();
  while (path.size() < 400) {
    SCOPED_TRACE(Case(path));
    path += u"\\a name that is rather long, as names go";
    ASSERT_TRUE(files.CreateFolder(path));
  }
  path += u"\\file.txt";
  ASSERT_TRUE(files.WriteFile(path, "deep"));
  // The short form of the path may still fit, on a disk that keeps one.
  if (shell.DeleteToRecycleBin(path)) {
    EXPECT_EQ(AttributesOf(path), INVALID_FILE_ATTRIBUTES);
  } else {
    EXPECT_EQ(ContentOf(path), "deep");
  }
}

TEST_F(ShellOfWindows, MarksAFileForTheNextStart) {
  const RestartList keeper;
  const Text file = place.File(u"index.dat");
  if (!shell.DeleteAtRestart(file)) GTEST_SKIP() << "no administrator";
  // A path, and an empty new name, which means: delete.
  const Text entry = Concat(u"\\??\\", file, TextView(u"\0\0", 2));
  EXPECT_NE(RestartList::Read().find(entry), Text::npos);
  EXPECT_EQ(ContentOf(file), "content");
  EXPECT_FALSE(shell.DeleteAtRestart(u"C:\\"));
  EXPECT_FALSE(shell.DeleteAtRestart(u""));
  EXPECT_FALSE(shell.DeleteAtRestart(u"index.dat"));
}

TEST_F(ShellOfWindows, ReadsTheEnvironment) {
  const std::wstring longValue(5000, L'x');
  SetEnvironmentVariableW(L"TAVIX_LONG", longValue.c_str());
  SetEnvironmentVariableW(L"TAVIX_EMPTY", L"");
  SetEnvironmentVariableW(L"TAVIX_NONE", nullptr);
  EXPECT_EQ(shell.EnvironmentVariable(u"tavix_long"), Text(5000, u'x'));
  EXPECT_EQ(shell.EnvironmentVariable(u"TAVIX_NONE"), std::nullopt);
  EXPECT_EQ(shell.EnvironmentVariable(u""), std::nullopt);
  EXPECT_EQ(shell.EnvironmentVariable(TextView(u"TAVIX_LONG\0", 11)), std::nullopt);
  EXPECT_EQ(shell.EnvironmentVariable(u"TAVIX_EMPTY"), u"");
}

TEST_F(ShellOfWindows, ExpandsVariables) {
  SetEnvironmentVariableW(L"TAVIX_ONE", L"1");
  SetEnvironmentVariableW(L"TAVIX_LONG", std::wstring(5000, L'x').c_str());
  const struct {
    TextView text, expanded;
  } kCases[] = {
      {u"", u""},
      {u"plain", u"plain"},
      {u"a%TAVIX_ONE%b%tavix_one%", u"a1b1"},
      {u"%TAVIX_NONE%", u"%TAVIX_NONE%"},
      {u"100%", u"100%"},
  };
  for (const auto& one : kCases) EXPECT_EQ(shell.ExpandEnvironment(one.text), one.expanded);
  EXPECT_EQ(shell.ExpandEnvironment(u"%TAVIX_LONG%%TAVIX_ONE%").size(), 5001U);
}

}  // namespace
}  // namespace tavix::windows
