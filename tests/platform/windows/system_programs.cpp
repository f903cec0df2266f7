#include "platform/windows/system_programs.h"

#include <gtest/gtest.h>

#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

Text WindowsFolder() {
  wchar_t path[MAX_PATH];
  EXPECT_NE(GetWindowsDirectoryW(path, MAX_PATH), 0U);
  return FromWide(path);
}

void ExpectAt(TextView name, const Text& path) {
  const std::optional<Text> found = SystemProgram(name);
  ASSERT_TRUE(found) << testing::PrintToString(name);
  EXPECT_TRUE(EqualIgnoringCase(*found, path)) << testing::PrintToString(*found);
}

TEST(SystemPrograms, LieWhereTheSystemKeepsThem) {
  const Text windows = WindowsFolder();
  ExpectAt(u"HH", Concat(windows, u"\\hh.exe"));
  ExpectAt(u"regedit.exe", Concat(windows, u"\\regedit.exe"));
  ExpectAt(u"RunDll32.exe", Concat(windows, u"\\system32\\rundll32.exe"));
  ExpectAt(u"cmd", Concat(windows, u"\\system32\\cmd.exe"));
}

TEST(SystemPrograms, ArePlainNamesOfFilesThatAreThere) {
  for (const TextView name : {u"", u"tavix-none", u"tavix-none.exe", u"drivers", u"..\\regedit.exe",
                              u"a/cmd.exe", u"C:cmd.exe", u".", u"..", u"cmd.*"}) {
    EXPECT_EQ(SystemProgram(name), std::nullopt) << testing::PrintToString(name);
  }
}

TEST(SystemPrograms, TheSystemFolderIsThatOfTheSystem) {
  EXPECT_TRUE(EqualIgnoringCase(SystemFolder(), Concat(WindowsFolder(), u"\\system32")));
}

}  // namespace
}  // namespace tavix::windows
