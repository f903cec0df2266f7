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

// Network and optical drives may take long to answer.
bool IsOnFastDrive(TextView folder) {
  if (folder.starts_with(u"\\\\")) return false;
  const UINT type = GetDriveTypeW(Wide(Text(folder.substr(0, 3))));
  return type == DRIVE_FIXED || type == DRIVE_REMOVABLE || type == DRIVE_RAMDISK;
}

// The file name of a process's program, without its folder. Empty when it can't be told.
Text ProgramOf(HANDLE process) {
  Text path(32768, u'\0');
  auto size = static_cast<DWORD>(path.size());
  if (!QueryFullProcessImageNameW(process, 0, WideBuffer(path.data()), &size)) return {};
  path.resize(size);
  return Text(NameOf(path));
}

// Whether a process may be a running copy of this program. True when that can't be told.
bool MayBeCopy(DWORD id) {
  if (id == GetCurrentProcessId()) return false;
  const ProcessHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
  if (!process) return GetLastError() != ERROR_INVALID_PARAMETER;
  DWORD status = STILL_ACTIVE;
  if (GetExitCodeProcess(process.Get(), &status) && status != STILL_ACTIVE) return false;
  // All our programs have names with this beginning.
  constexpr TextView kOurs = u"tavix";
  const Text program = ProgramOf(process.Get());
  return program.empty() || EqualIgnoringCase(TextView(program).substr(0, kOurs.size()), kOurs);
}

// Deletes an ordinary file that nobody has open. The handle that shows it to be ordinary also deletes it.
void DeleteUnused(TextView path) {
  const Text extended = ExtendedPath(path);
  const FileHandle file(CreateFileW(Wide(extended), DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, 0,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  BY_HANDLE_FILE_INFORMATION facts;
  if (!file || !GetFileInformationByHandle(file.Get(), &facts)) return;
  constexpr DWORD kNotOrdinary = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  if ((facts.dwFileAttributes & kNotOrdinary) != 0) return;
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
  if (!IsOnFastDrive(folder)) return;
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
