#include "platform/windows/temporary_files.h"

#include <gtest/gtest.h>

#include "platform/temporary_name.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/wide.h"

namespace tavix::windows {
namespace {

// The id of a process that has ended.
DWORD EndedProcess() {
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  std::wstring command = L"cmd.exe /c exit";
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                      &start, &process)) {
    return 0;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return process.dwProcessId;
}

class TemporaryFilesOnWindows : public testing::Test {
 protected:
  TemporaryFilesOnWindows() { ended = EndedProcess(); }
  static Text NameBy(DWORD process, uint32_t count = 1) {
    return platform::kTemporaryFiles.Make(process, count);
  }
  static bool IsGone(TextView path) { return AttributesOf(path) == INVALID_FILE_ATTRIBUTES; }

  ScratchPlace place;
  WindowsFileSystem files;
  DWORD ended = 0;
};

TEST_F(TemporaryFilesOnWindows, OfAProcessThatHasEndedGo) {
  ASSERT_NE(ended, 0U);
  const Text plain = place.File(NameBy(ended));
  const Text readOnly = place.File(NameBy(ended, 2));
  ASSERT_TRUE(SetFileAttributesW(Wide(readOnly), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
  const Text own = place.File(NameBy(GetCurrentProcessId()));
  const Text other = place.File(u"kept.txt");
  files.RemoveTemporaries(place.Path());
  EXPECT_TRUE(IsGone(plain));
  EXPECT_TRUE(IsGone(readOnly));
  EXPECT_TRUE(IsGone(own)) << "this one makes none while it asks";
  EXPECT_FALSE(IsGone(other));
}

TEST_F(TemporaryFilesOnWindows, ThatSomebodyHasOpenStay) {
  const Text file = place.File(NameBy(ended));
  {
    const FileHandle open(
        CreateFileW(Wide(file), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(open);
    files.RemoveTemporaries(place.Path());
    EXPECT_FALSE(IsGone(file));
  }
  files.RemoveTemporaries(place.Path());
  EXPECT_TRUE(IsGone(file));
}

// The running copy is this test program; it counts as one of our programs.
TEST_F(TemporaryFilesOnWindows, OfACopyThatRunsStay) {
  wchar_t program[MAX_PATH];
  ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION copy = {};
  std::wstring command = L"tavix-tests --gtest_list_tests";
  ASSERT_TRUE(CreateProcessW(program, command.data(), nullptr, nullptr, FALSE,
                             CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr, nullptr, &start, &copy));
  const Text file = place.File(NameBy(copy.dwProcessId));
  files.RemoveTemporaries(place.Path());
  EXPECT_FALSE(IsGone(file));
  TerminateProcess(copy.hProcess, 0);
  WaitForSingleObject(copy.hProcess, INFINITE);
  CloseHandle(copy.hThread);
  CloseHandle(copy.hProcess);
  files.RemoveTemporaries(place.Path());
  EXPECT_TRUE(IsGone(file));
}

TEST_F(TemporaryFilesOnWindows, WithOtherNamesFoldersAndWhatLiesBelowStay) {
  std::vector<Text> kept;
  for (const TextView name : {u"~tvx.tmp", u"~tvx1.tmp", u"~tvx1-1.tmpx", u"~tvx01-1.tmp", u"x~tvx1-1.tmp"}) {
    kept.push_back(place.File(name));
  }
  kept.push_back(place.Folder(NameBy(ended, 3)));
  place.Folder(u"below");
  kept.push_back(place.File(Concat(u"below\\", NameBy(ended))));
  files.RemoveTemporaries(place.Path());
  for (const Text& path : kept) EXPECT_FALSE(IsGone(path)) << std::string(path.begin(), path.end());
}

TEST_F(TemporaryFilesOnWindows, AFolderThatIsMissingOrOnAnotherComputerIsPassedOver) {
  for (const TextView folder : {u"", u"C:", u"relative", u"C:\\no such folder", u"\\\\server\\share\\x"}) {
    files.RemoveTemporaries(folder);
  }
}

}  // namespace
}  // namespace tavix::windows
