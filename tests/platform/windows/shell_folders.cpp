#include "platform/windows/shell_folders.h"

#include <gtest/gtest.h>

#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "support/case.h"
#include "text/letter_case.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

Text KnownFolder(const KNOWNFOLDERID& id) {
  wchar_t* path = nullptr;
  SHGetKnownFolderPath(id, KF_FLAG_DONT_VERIFY, nullptr, &path);
  const Text found = FromWide(path);
  CoTaskMemFree(path);
  return found;
}

TEST(ShellFolders, ByNumberAreThoseOfTheSystem) {
  EXPECT_EQ(FolderByNumber(32), KnownFolder(FOLDERID_InternetCache));
  EXPECT_EQ(FolderByNumber(33), KnownFolder(FOLDERID_Cookies));
  EXPECT_EQ(FolderByNumber(34), KnownFolder(FOLDERID_History));
  EXPECT_EQ(FolderByNumber(0x24), KnownFolder(FOLDERID_Windows));
}

TEST(ShellFolders, TheSystemFolderHasANumberOfItsOwn) {
  wchar_t path[MAX_PATH];
  ASSERT_NE(GetSystemDirectoryW(path, MAX_PATH), 0U);
  EXPECT_EQ(FolderByNumber(9966), FromWide(path));
}

TEST(ShellFolders, UnknownNumbersAndNamesAreNothing) {
  for (const int number : {-1, 0x7F, 0x100, 9967, 0x8000 | 32}) {
    EXPECT_EQ(FolderByNumber(number), std::nullopt) << number;
  }
  for (const TextView name : {u"", u"18", u"-1", u"00", u"Recents"})
    EXPECT_EQ(FolderByName(name), std::nullopt);
}

TEST(ShellFolders, ByNameAndByPositionAreThoseOfTheScriptingShell) {
  const struct {
    TextView position, name;
    const KNOWNFOLDERID& id;
  } kFolders[] = {
      {u"0", u"AllUsersDesktop", FOLDERID_PublicDesktop},
      {u"1", u"AllUsersStartMenu", FOLDERID_CommonStartMenu},
      {u"2", u"AllUsersPrograms", FOLDERID_CommonPrograms},
      {u"3", u"AllUsersStartup", FOLDERID_CommonStartup},
      {u"4", u"Desktop", FOLDERID_Desktop},
      {u"5", u"AppData", FOLDERID_RoamingAppData},
      {u"6", u"PrintHood", FOLDERID_PrintHood},
      {u"7", u"Templates", FOLDERID_Templates},
      {u"8", u"Fonts", FOLDERID_Fonts},
      {u"9", u"NetHood", FOLDERID_NetHood},
      {u"10", u"Desktop", FOLDERID_Desktop},
      {u"11", u"StartMenu", FOLDERID_StartMenu},
      {u"12", u"SendTo", FOLDERID_SendTo},
      {u"13", u"Recent", FOLDERID_Recent},
      {u"14", u"Startup", FOLDERID_Startup},
      {u"15", u"Favorites", FOLDERID_Favorites},
      {u"16", u"MyDocuments", FOLDERID_Documents},
      {u"17", u"Programs", FOLDERID_Programs},
  };
  for (const auto& folder : kFolders) {
    SCOPED_TRACE(Case(folder.name));
    const Text known = KnownFolder(folder.id);
    EXPECT_FALSE(known.empty());
    EXPECT_EQ(FolderByName(folder.position), known);
    EXPECT_EQ(FolderByName(folder.name), known);
    EXPECT_EQ(FolderByName(ToUpper(folder.name)), known);
  }
}

TEST(ShellFolders, TemporaryFoldersHaveNoBackslashAtTheEnd) {
  wchar_t path[MAX_PATH];
  ASSERT_NE(GetWindowsDirectoryW(path, MAX_PATH), 0U);
  EXPECT_EQ(SystemTemp(), Concat(FromWide(path), u"\\Temp"));
  const std::optional<Text> user = UserTemp();
  ASSERT_TRUE(user);
  EXPECT_FALSE(user->ends_with(u'\\'));
  EXPECT_NE(AttributesOf(*user), INVALID_FILE_ATTRIBUTES);
}

TEST(ShellFolders, TheUsersTemporaryFolderHasItsLongName) {
  const ScratchPlace place;
  wchar_t shortForm[MAX_PATH], before[MAX_PATH];
  ASSERT_NE(GetShortPathNameW(Wide(place.Path()), shortForm, MAX_PATH), 0U);
  ASSERT_NE(GetTempPathW(MAX_PATH, before), 0U);
  for (const wchar_t* variable : {L"TMP", L"TEMP"}) {
    ASSERT_TRUE(SetEnvironmentVariableW(variable, shortForm)) << Case(FromWide(variable));
  }
  EXPECT_EQ(UserTemp(), place.Path());
  for (const auto* variable : {L"TMP", L"TEMP"}) SetEnvironmentVariableW(variable, before);
}

}  // namespace
}  // namespace tavix::windows
