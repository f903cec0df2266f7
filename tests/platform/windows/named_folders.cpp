#include "platform/windows/named_folders.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/windows/com.h"
#include "platform/windows/shell_folders.h"
#include "platform/windows/wide.h"
#include "text/letter_case.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

bool AreNamed(const std::vector<Text>& folders, TextView path) {
  return std::ranges::any_of(folders, [path](TextView folder) { return EqualIgnoringCase(folder, path); });
}

// Adds a user who isn't signed in, for the lifetime of the object.
class OtherProfile {
 public:
  explicit OtherProfile(const wchar_t* path) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, L"ProfileImagePath", REG_EXPAND_SZ, path,
                    static_cast<DWORD>((wcslen(path) + 1) * sizeof(wchar_t)));
  }
  ~OtherProfile() { RegDeleteKeyW(HKEY_LOCAL_MACHINE, kKey); }
  OtherProfile(const OtherProfile&) = delete;
  OtherProfile& operator=(const OtherProfile&) = delete;

 private:
  static constexpr const wchar_t* kKey =
      L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList\\S-1-5-21-0-0-0-4711";
};

TEST(NamedFolders, AreTheKnownFoldersOfTheMachine) {
  const ComApartment apartment;
  const std::vector<Text> folders = AllNamedFolders().value();
  for (const int number :
       {CSIDL_WINDOWS, CSIDL_SYSTEM, CSIDL_SYSTEMX86, CSIDL_FONTS, CSIDL_PROGRAM_FILES,
        CSIDL_PROGRAM_FILESX86, CSIDL_COMMON_APPDATA, CSIDL_PROFILE, CSIDL_APPDATA, CSIDL_LOCAL_APPDATA,
        CSIDL_DESKTOPDIRECTORY, CSIDL_PERSONAL, CSIDL_MYMUSIC, CSIDL_COMMON_DOCUMENTS}) {
    const std::optional<Text> folder = FolderByNumber(number);
    ASSERT_TRUE(folder) << number;
    EXPECT_TRUE(AreNamed(folders, *folder)) << testing::PrintToString(*folder);
  }
  wchar_t* users = nullptr;
  ASSERT_EQ(SHGetKnownFolderPath(FOLDERID_UserProfiles, KF_FLAG_DONT_VERIFY, nullptr, &users), S_OK);
  EXPECT_TRUE(AreNamed(folders, FromWide(users)));
  CoTaskMemFree(users);
}

// A list without the known folders would let a clean take them.
TEST(NamedFolders, CantBeToldWithoutTheKnownFolders) {
  EXPECT_EQ(AllNamedFolders(), std::nullopt) << "the thread has no apartment, so the call for them fails";
}

TEST(NamedFolders, OfAnotherUserStandInTheirProfileAsTheCurrentUsersDoInTheirs) {
  const ComApartment apartment;
  EXPECT_FALSE(AreNamed(AllNamedFolders().value(), u"C:\\users\\Tavix Other"));
  const OtherProfile other(L"%SystemDrive%\\users\\Tavix Other");
  const std::vector<Text> folders = AllNamedFolders().value();
  EXPECT_TRUE(AreNamed(folders, u"C:\\users\\Tavix Other"));
  const std::optional<Text> own = FolderByNumber(CSIDL_PROFILE);
  ASSERT_TRUE(own);
  for (const int number : {CSIDL_APPDATA, CSIDL_LOCAL_APPDATA, CSIDL_DESKTOPDIRECTORY, CSIDL_FAVORITES}) {
    const std::optional<Text> folder = FolderByNumber(number);
    ASSERT_TRUE(folder && folder->size() > own->size()) << number;
    const Text theirs = Concat(u"C:\\users\\Tavix Other", TextView(*folder).substr(own->size()));
    EXPECT_TRUE(AreNamed(folders, theirs)) << testing::PrintToString(theirs);
  }
}

}  // namespace
}  // namespace tavix::windows
