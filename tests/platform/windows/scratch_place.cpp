#include "platform/windows/scratch_place.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"
#include "support/case.h"
#include "text/utf8.h"

#include <winioctl.h>

namespace tavix::windows {
namespace {

Text Extended(TextView path) {
  return path.starts_with(u"\\\\") ? ExtendedPath(path) : Concat(u"\\\\?\\", path);
}

// The path of a host file, to be passed to Extended(): "/a/b" becomes "unix\a\b". No drive leads there, and
// Tavix refuses such paths.
Text OnHost(TextView path) {
  Text found = Concat(u"unix", path);
  std::replace(found.begin(), found.end(), u'/', u'\\');
  return found;
}

Text FromEnvironment(const wchar_t* name) {
  wchar_t value[1024] = L"";
  GetEnvironmentVariableW(name, value, 1024);
  return FromWide(value);
}

// A junction is a folder with a reparse point. It holds the target twice: in NT form, and in a form to show.
bool MakeJunction(const Text& path, TextView target) {
  if (!CreateDirectoryW(Wide(Extended(path)), nullptr)) return false;
  const Text name = Concat(u"\\??\\", target);
  struct {
    DWORD tag;
    WORD dataLength, reserved;
    WORD nameOffset, nameLength, shownOffset, shownLength;
    char16_t names[512];
  } data = {};
  const size_t nameBytes = name.size() * sizeof(char16_t), shownBytes = target.size() * sizeof(char16_t);
  data.tag = IO_REPARSE_TAG_MOUNT_POINT;
  data.nameLength = static_cast<WORD>(nameBytes);
  data.shownOffset = static_cast<WORD>(nameBytes + sizeof(char16_t));
  data.shownLength = static_cast<WORD>(shownBytes);
  data.dataLength = static_cast<WORD>(8 + nameBytes + shownBytes + 2 * sizeof(char16_t));
  std::copy(name.begin(), name.end(), data.names);
  std::copy(target.begin(), target.end(), data.names + name.size() + 1);
  const FileHandle folder(CreateFileW(Wide(Extended(path)), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  DWORD written = 0;
  if (folder && DeviceIoControl(folder.Get(), FSCTL_SET_REPARSE_POINT, &data, 8U + data.dataLength, nullptr,
                                0, &written, nullptr))
    return true;
  RemoveDirectoryW(Wide(Extended(path)));
  return false;
}

std::string HostPath(const Text& path) {
  using Converter = char*(CDECL*)(const wchar_t*);
  const auto convert = reinterpret_cast<Converter>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
  char* host = convert(Wide(path));
  const std::string found = host == nullptr ? "" : host;
  HeapFree(GetProcessHeap(), 0, host);
  return found;
}

// Runs a host program by Wine. It has no Windows process to wait for, so this waits until the path exists or
// is gone. Wine leaves arbitrary values in the handles of `process`: to close them would close handles that
// belong to others, such as the one that Wine keeps for HKEY_LOCAL_MACHINE.
bool RunOnHost(TextView program, TextView arguments, const Text& path, bool comes) {
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  const Text file = Extended(OnHost(Concat(u"/bin/", program)));
  Text line = Concat(program, u" ", arguments);
  if (!CreateProcessW(Wide(file), WideBuffer(line.data()), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &start, &process))
    return false;
  return WaitUntil([&] { return (AttributesOf(path) != INVALID_FILE_ATTRIBUTES) == comes; });
}

Text HostLinkPath(const Text& path) {
  const size_t cut = path.rfind(u'\\');
  return Concat(*FromUtf8(HostPath(path.substr(0, cut))), u"/", path.substr(cut + 1));
}

void RemoveLink(const Text& path) {
  if (!IsWine()) {
    RemoveDirectoryW(Wide(Extended(path)));
  } else {
    RunOnHost(u"rm", Concat(u"\"", HostLinkPath(path), u"\""), path, false);
  }
}

bool MakeHostLink(const Text& path, const Text& target) {
  return RunOnHost(u"ln", Concat(u"-s \"", *FromUtf8(HostPath(target)), u"\" \"", HostLinkPath(path), u"\""),
                   path, true);
}

void RemoveAll(const Text& folder) {
  WIN32_FIND_DATAW data;
  HANDLE found = FindFirstFileW(Wide(Extended(Concat(folder, u"\\*"))), &data);
  if (found != INVALID_HANDLE_VALUE) {
    do {
      const Text name = FromWide(data.cFileName);
      if (name == u"." || name == u"..") continue;
      const Text path = Concat(folder, u"\\", name);
      SetFileAttributesW(Wide(Extended(path)), FILE_ATTRIBUTE_NORMAL);
      if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        DeleteFileW(Wide(Extended(path)));
      } else if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        RemoveAll(path);
      }
    } while (FindNextFileW(found, &data));
    FindClose(found);
  }
  RemoveDirectoryW(Wide(Extended(folder)));
}

}  // namespace

ScratchPlace::ScratchPlace() {
  wchar_t temp[MAX_PATH + 1] = L"";
  wchar_t longForm[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH, temp);
  GetLongPathNameW(temp, longForm, MAX_PATH);
  static int count = 0;
  path_ = Concat(FromWide(longForm), u"Tavix Test ", ToText(static_cast<long long>(GetTickCount64())), u"-",
                 ToText(GetCurrentProcessId()), u"-", ToText(++count));
  EXPECT_TRUE(CreateDirectoryW(Wide(path_), nullptr));
}

ScratchPlace::~ScratchPlace() {
  for (const Text& link : links_) RemoveLink(link);
  RemoveAll(path_);
}

Text ScratchPlace::In(TextView name) const { return Concat(path_, u"\\", name); }

Text ScratchPlace::File(TextView name, std::string_view content) const {
  const Text path = In(name);
  const FileHandle file(CreateFileW(Wide(Extended(path)), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  EXPECT_TRUE(file &&
              WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr));
  return path;
}

Text ScratchPlace::Folder(TextView name) const {
  Text path = In(name);
  EXPECT_TRUE(CreateDirectoryW(Wide(Extended(path)), nullptr));
  return path;
}

Text ScratchPlace::FolderLink(TextView name, TextView target) const {
  Text path = In(name);
  EXPECT_TRUE(MakeJunction(path, target) || (IsWine() && MakeHostLink(path, Text(target))));
  links_.push_back(path);
  return path;
}

bool ScratchPlace::Swap(TextView name, TextView target) const {
  const Text there = In(name), aside = Concat(there, u" aside");
  if (!IsWine()) {
    if (!MoveFileExW(Wide(Extended(there)), Wide(Extended(aside)), 0)) return false;
  } else {
    const Text arguments = Concat(u"-T \"", HostLinkPath(there), u"\" \"", HostLinkPath(aside), u"\"");
    EXPECT_TRUE(RunOnHost(u"mv", arguments, aside, true));
  }
  FolderLink(name, target);
  return true;
}

namespace {

bool Rename(const Text& from, const Text& to) { return MoveFileExW(Wide(from), Wide(to), 0) != 0; }

// Exchanges two names by way of a third. False, and they are as before, if the first can't be renamed.
bool Exchange(const Text& one, const Text& other, const Text& aside) {
  if (!Rename(one, aside)) return false;
  if (!Rename(other, one)) {
    while (!Rename(aside, one)) Sleep(0);
    return false;
  }
  while (!Rename(aside, other)) Sleep(0);
  return true;
}

}  // namespace

bool ScratchPlace::StartExchanging(TextView one, TextView other, TextView pause) const {
  if (!IsWine()) {
    exchanging_ = std::jthread(
        [one = In(one), other = In(other), aside = In(u"aside"),
         wait = std::stoul(std::string(pause.begin(), pause.end()))](const std::stop_token& ends) {
          // They end as they began.
          for (bool swapped = false; swapped || !ends.stop_requested(); Sleep(wait)) {
            if (Exchange(one, other, aside)) swapped = !swapped;
          }
        });
    return true;
  }
  // The script ends by itself if the test process dies.
  const Text script = File(u"exchange.py", R"(
import ctypes, os, sys, time
here, one, other, pause = sys.argv[1:]
libc, ends, swapped = ctypes.CDLL(None), time.monotonic() + 120, False
open(here + "/running", "w").close()
while time.monotonic() < ends and (swapped or os.path.exists(here + "/running")):
    if libc.renameat2(-100, one.encode(), -100, other.encode(), 2) == 0:
        swapped = not swapped
    if float(pause) > 0:
        time.sleep(float(pause) / 1000)
if os.path.exists(here + "/ends"):
    os.remove(here + "/ends")
)");
  File(u"ends");
  const auto quoted = [](const Text& path) { return Concat(u" \"", HostLinkPath(path), u"\""); };
  return RunOnHost(u"python3",
                   Concat(quoted(script), quoted(path_), quoted(In(one)), quoted(In(other)), u" ", pause),
                   In(u"running"), true);
}

void ScratchPlace::StopExchanging() const {
  if (exchanging_.joinable()) {
    exchanging_.request_stop();
    exchanging_.join();
    return;
  }
  EXPECT_TRUE(DeleteFileW(Wide(In(u"running"))));
  EXPECT_TRUE(WaitUntil([this] { return AttributesOf(In(u"ends")) == INVALID_FILE_ATTRIBUTES; }));
}

bool ScratchPlace::FileLink(TextView name, TextView target) const {
  return !IsWine() && CreateSymbolicLinkW(Wide(In(name)), Wide(Text(target)), 0) != 0;
}

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

namespace {

Text PlaceOfBin() { return FromEnvironment(L"XDG_DATA_HOME"); }

}  // namespace

bool HasBinOfItsOwn() { return IsWine() && PlaceOfBin().ends_with(u".tavix-data"); }

void ClearBin() {
  if (!HasBinOfItsOwn()) return;
  for (const TextView part : {u"/Trash/files", u"/Trash/info"}) {
    SCOPED_TRACE(Case(part));
    const Text folder = OnHost(Concat(PlaceOfBin(), part));
    if (AttributesOf(folder) == INVALID_FILE_ATTRIBUTES) continue;
    RemoveAll(folder);
    EXPECT_TRUE(CreateDirectoryW(Wide(Extended(folder)), nullptr));
  }
}

Text OtherVolume() { return FromEnvironment(L"TAVIX_OTHER_VOLUME"); }

bool WaitUntil(const std::function<bool()>& condition) {
  constexpr ULONGLONG kPatience = 600'000;
  for (const ULONGLONG start = GetTickCount64(); !condition(); Sleep(10)) {
    if (GetTickCount64() - start > kPatience) return false;
  }
  return true;
}

std::string ContentWhenThere(TextView path) {
  WaitUntil([path] { return ContentOf(path).ends_with("\r\n"); });
  return ContentOf(path);
}

DWORD AttributesOf(TextView path) { return GetFileAttributesW(Wide(Extended(path))); }

std::string ContentOf(TextView path) {
  const FileHandle file(CreateFileW(Wide(Extended(path)), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return "(none)";
  std::string content(1 << 16, '\0');
  DWORD count = 0;
  ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &count, nullptr);
  content.resize(count);
  return content;
}

}  // namespace tavix::windows
