#include "platform/windows/windows_trust.h"

#include <gtest/gtest.h>

#include "platform/windows/access_list.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/opened_item.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/shell_folders.h"
#include "platform/windows/wide.h"
#include "support/case.h"

namespace tavix::windows {
namespace {

using platform::Protection;

class TrustOfWindows : public testing::Test {
 protected:
  static FileHandle Open(const Text& path, DWORD access) {
    return FileHandle(CreateFileW(Wide(path), access, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  }
  // Grants everybody full control. A new folder in the root of a drive has almost such an access list.
  static void LayOpen(const Text& path) {
    const FileHandle file = Open(path, WRITE_DAC);
    SECURITY_DESCRIPTOR descriptor;
    ASSERT_TRUE(InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION));
    const auto everybody = Identity::WellKnown(WinWorldSid);
    ASSERT_TRUE(everybody);
    alignas(ACL) char buffer[256];
    const auto list = reinterpret_cast<PACL>(buffer);
    ASSERT_TRUE(InitializeAcl(list, sizeof(buffer), ACL_REVISION));
    ASSERT_TRUE(AddAccessAllowedAceEx(list, ACL_REVISION, OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE,
                                      FILE_ALL_ACCESS, everybody->Get()));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE));
    ASSERT_TRUE(SetKernelObjectSecurity(file.Get(), DACL_SECURITY_INFORMATION, &descriptor));
    ASSERT_TRUE(OthersMayChange(path));
  }
  static bool OthersMayChange(const Text& path) {
    const FileHandle file = Open(path, READ_CONTROL);
    const auto security = Security::Read(file.Get());
    EXPECT_TRUE(security);
    return !security || security->OthersMayChange({*Identity::ThisUser(),
                                                   *Identity::WellKnown(WinBuiltinAdministratorsSid),
                                                   *Identity::WellKnown(WinLocalSystemSid)});
  }

  ScratchPlace place;
  WindowsTrust trust;
};

TEST_F(TrustOfWindows, ProtectTakesTheRightToChangeFromAllOthers) {
  const Text folder = place.Folder(u"folder"), file = place.File(u"folder\\file");
  for (const Text& path : {folder, file}) {
    SCOPED_TRACE(Case(path));
    LayOpen(path);
    EXPECT_EQ(trust.Protect(path), Protection::Set);
    EXPECT_FALSE(OthersMayChange(path));
    EXPECT_EQ(trust.Protect(path), Protection::Unchanged);
  }
  EXPECT_EQ(ContentOf(file), "content");
}

TEST_F(TrustOfWindows, WhatIsMadeInAProtectedFolderIsProtectedToo) {
  const Text folder = place.Folder(u"folder");
  LayOpen(folder);
  ASSERT_EQ(trust.Protect(folder), Protection::Set);
  if (IsWine()) GTEST_SKIP() << "Wine hands no access lists down";
  EXPECT_FALSE(OthersMayChange(place.Folder(u"folder\\below")));
  EXPECT_FALSE(OthersMayChange(place.File(u"folder\\file")));
}

TEST_F(TrustOfWindows, WhatALinkLeadsToIsNotProtected) {
  const Text folder = place.Folder(u"folder");
  LayOpen(folder);
  const Text link = place.FolderLink(u"link", folder);
  EXPECT_EQ(trust.Protect(link), Protection::Failed);
  EXPECT_TRUE(OthersMayChange(folder));
}

TEST_F(TrustOfWindows, ElevatedMeansWhatTheShellMeans) {
  using Asked = BOOL(WINAPI*)();
  const HMODULE shell = LoadLibraryW(L"shell32.dll");
  const auto isAdministrator =
      reinterpret_cast<Asked>(reinterpret_cast<void*>(GetProcAddress(shell, "IsUserAnAdmin")));
  ASSERT_NE(isAdministrator, nullptr);
  EXPECT_EQ(trust.Elevated(), isAdministrator() != FALSE);
}

TEST_F(TrustOfWindows, KnowsWhatLiesAmongPrograms) {
  const Text windows = *FolderByNumber(0x24), programs = *FolderByNumber(0x26);
  for (const Text& folder : {windows, Concat(windows, u"\\System32"), Concat(u"\\\\?\\", windows),
                             Concat(windows, u"\\Not There\\Yet"), Concat(windows, u"\\\\x\\..\\"), programs,
                             Concat(programs, u"\\App"), Text(u"c:/WINDOWS/temp")}) {
    EXPECT_TRUE(trust.LiesAmongPrograms(folder)) << std::string(folder.begin(), folder.end());
  }
  for (const Text& folder : {place.Path(), place.In(u"missing"), Text(u"C:\\"), Text(u"C:\\TVXBak"), Text(),
                             Text(u"windows"), Text(u"Q:\\Windows")}) {
    EXPECT_FALSE(trust.LiesAmongPrograms(folder)) << std::string(folder.begin(), folder.end());
  }
}

// Some drives (RAM disks, drives made by a program) can't report the path of an open file.
TEST_F(TrustOfWindows, KnowsWhatLiesAmongProgramsWhereADriveReportsNoFinalPath) {
  const Text windows = *FolderByNumber(0x24);
  const HandleCalls before = handleCalls;
  handleCalls.getFinalPath = [](HANDLE, LPWSTR, DWORD, DWORD) -> DWORD {
    SetLastError(ERROR_INVALID_FUNCTION);
    return 0;
  };
  const bool inWindows = trust.LiesAmongPrograms(Concat(windows, u"\\system32"));
  const bool elsewhere = trust.LiesAmongPrograms(place.Path());
  const bool missing = trust.LiesAmongPrograms(place.In(u"missing"));
  handleCalls = before;
  EXPECT_TRUE(inWindows);
  EXPECT_FALSE(elsewhere);
  EXPECT_FALSE(missing);
}

TEST_F(TrustOfWindows, KnowsWhatLeadsAmongProgramsByALink) {
  const Text windows = *FolderByNumber(0x24);
  const Text link = place.FolderLink(u"link", Concat(windows, u"\\system32"));
  EXPECT_TRUE(trust.LiesAmongPrograms(link));
  EXPECT_TRUE(trust.LiesAmongPrograms(Concat(link, u"\\drivers")));
  EXPECT_TRUE(trust.LiesAmongPrograms(Concat(link, u"\\Not There\\Yet")));
  const Text folder = place.Folder(u"folder");
  EXPECT_FALSE(trust.LiesAmongPrograms(place.FolderLink(u"harmless", folder)));
}

TEST_F(TrustOfWindows, RenamingALinkNeverRenamesWhatItLeadsTo) {
  const Text folder = place.Folder(u"folder");
  place.File(u"folder\\a");
  const Text link = place.FolderLink(u"link", folder);
  const bool renamed = trust.Rename(link, u"aside");
  EXPECT_NE(renamed, IsWine()) << "Wine opens the folder behind, so the link keeps its name there";
  EXPECT_EQ(ContentOf(place.In(u"folder\\a")), "content");
  EXPECT_EQ(AttributesOf(link) == INVALID_FILE_ATTRIBUTES, renamed);
  // Take the name back, so that the link is deleted with the test's folder.
  if (renamed) {
    EXPECT_TRUE(trust.Rename(place.In(u"aside"), u"link"));
  }
}

}  // namespace
}  // namespace tavix::windows
