#include "platform/windows/temporary_files.h"

#include <vector>

#include "platform/temporary_name.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

struct ProcessTraits {
  using Handle = HANDLE;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using ProcessHandle = Owned<ProcessTraits>;

// A listing of a folder on such a drive may let the caller wait for long.
bool IsNear(TextView folder) {
  if (folder.starts_with(u"\\\\")) return false;
  const UINT type = GetDriveTypeW(Wide(Text(folder.substr(0, 3))));
  return type == DRIVE_FIXED || type == DRIVE_REMOVABLE || type == DRIVE_RAMDISK;
}

// The name of the program's file, without its folder. Empty when it can't be told.
Text ProgramOf(HANDLE process) {
  Text path(32768, u'\0');
  auto size = static_cast<DWORD>(path.size());
  if (!QueryFullProcessImageNameW(process, 0, WideBuffer(path.data()), &size)) return {};
  path.resize(size);
  return Text(NameOf(path));
}

// Whether a process runs that may be a copy of this program. What can't be told may be.
bool MayBeCopy(DWORD id) {
  if (id == GetCurrentProcessId()) return false;
  const ProcessHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
  if (!process) return GetLastError() != ERROR_INVALID_PARAMETER;
  DWORD status = STILL_ACTIVE;
  if (GetExitCodeProcess(process.Get(), &status) && status != STILL_ACTIVE) return false;
  // The programs of this house have names that begin alike.
  constexpr TextView kOurs = u"tavix";
  const Text program = ProgramOf(process.Get());
  return program.empty() || EqualIgnoringCase(TextView(program).substr(0, kOurs.size()), kOurs);
}

// A file that nobody has open, by the handle that showed it to be one.
void DeleteUnused(TextView path) {
  const Text extended = ExtendedPath(path);
  const FileHandle file(CreateFileW(Wide(extended), DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, 0,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  BY_HANDLE_FILE_INFORMATION facts;
  if (!file || !GetFileInformationByHandle(file.Get(), &facts)) return;
  constexpr DWORD kNoFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  if ((facts.dwFileAttributes & kNoFile) != 0) return;
  if ((facts.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
    FILE_BASIC_INFO plain = {};
    plain.FileAttributes = FILE_ATTRIBUTE_NORMAL;
    SetFileInformationByHandle(file.Get(), FileBasicInfo, &plain, sizeof(plain));
  }
  FILE_DISPOSITION_INFO disposition = {TRUE};
  SetFileInformationByHandle(file.Get(), FileDispositionInfo, &disposition, sizeof(disposition));
}

}  // namespace

void RemoveTemporaryFiles(TextView folder) {
  if (!IsNear(folder)) return;
  const platform::TemporaryNames& form = platform::kTemporaryFiles;
  const Text pattern = ExtendedPath(PathIn(folder, Concat(form.start, u"*", form.end)));
  WIN32_FIND_DATAW found;
  const FindHandle search(FindFirstFileExW(Wide(pattern), FindExInfoBasic, &found, FindExSearchNameMatch,
                                           nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!search) return;
  std::vector<Text> names;
  do {
    names.push_back(FromWide(found.cFileName));
  } while (FindNextFileW(search.Get(), &found));
  for (const Text& name : names) {
    const std::optional<uint32_t> process = form.ProcessOf(name);
    if (process && !MayBeCopy(*process)) DeleteUnused(PathIn(folder, name));
  }
}

}  // namespace tavix::windows
