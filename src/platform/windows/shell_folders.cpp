#include "platform/windows/shell_folders.h"

#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"
#include "text/letter_case.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

constexpr int kSystemFolder = 9966;

// The scripting shell's list, in its order. It has the desktop twice.
struct NamedFolder {
  TextView name;
  int number;
};
constexpr NamedFolder kNamedFolders[] = {
    {u"AllUsersDesktop", CSIDL_COMMON_DESKTOPDIRECTORY},
    {u"AllUsersStartMenu", CSIDL_COMMON_STARTMENU},
    {u"AllUsersPrograms", CSIDL_COMMON_PROGRAMS},
    {u"AllUsersStartup", CSIDL_COMMON_STARTUP},
    {u"Desktop", CSIDL_DESKTOPDIRECTORY},
    {u"AppData", CSIDL_APPDATA},
    {u"PrintHood", CSIDL_PRINTHOOD},
    {u"Templates", CSIDL_TEMPLATES},
    {u"Fonts", CSIDL_FONTS},
    {u"NetHood", CSIDL_NETHOOD},
    {u"Desktop", CSIDL_DESKTOPDIRECTORY},
    {u"StartMenu", CSIDL_STARTMENU},
    {u"SendTo", CSIDL_SENDTO},
    {u"Recent", CSIDL_RECENT},
    {u"Startup", CSIDL_STARTUP},
    {u"Favorites", CSIDL_FAVORITES},
    {u"MyDocuments", CSIDL_PERSONAL},
    {u"Programs", CSIDL_PROGRAMS},
};

// Drops a backslash at the end, except a drive root's. Nothing for an empty path.
std::optional<Text> FolderPath(Text path) {
  constexpr size_t kDriveRootLength = 3;
  while (path.size() > kDriveRootLength && path.back() == u'\\') path.pop_back();
  if (path.empty()) return std::nullopt;
  return path;
}

// Returns the text of an API call that takes a buffer and its size. The call returns the length: without the
// terminator when the buffer was large enough, with it otherwise, 0 for failure.
template <class Call>
Text Fetch(Call call) {
  Text text(MAX_PATH, u'\0');
  for (;;) {
    const DWORD length = call(WideBuffer(text.data()), static_cast<DWORD>(text.size()));
    const bool fits = length < text.size();
    text.resize(length);
    if (fits) return text;
  }
}

Text LongForm(const Text& path) {
  Text found =
      Fetch([&path](wchar_t* buffer, DWORD size) { return GetLongPathNameW(Wide(path), buffer, size); });
  return found.empty() ? path : found;
}

}  // namespace

std::optional<Text> FolderByNumber(int number) {
  if (number == kSystemFolder) {
    return FolderPath(Fetch([](wchar_t* buffer, DWORD size) { return GetSystemDirectoryW(buffer, size); }));
  }
  constexpr int kLargest = 0xFF;
  if (number < 0 || number > kLargest) return std::nullopt;
  wchar_t path[MAX_PATH] = L"";
  // Also gives the path of a folder that doesn't exist.
  const HRESULT result =
      SHGetFolderPathW(nullptr, number | CSIDL_FLAG_DONT_VERIFY, nullptr, SHGFP_TYPE_CURRENT, path);
  if (FAILED(result)) return std::nullopt;
  return FolderPath(FromWide(path));
}

std::optional<Text> FolderByName(TextView name) {
  long long position = 0;
  for (const NamedFolder& folder : kNamedFolders) {
    if (EqualIgnoringCase(name, folder.name) || name == ToText(position))
      return FolderByNumber(folder.number);
    ++position;
  }
  return std::nullopt;
}

std::optional<Text> UserTemp() {
  const Text path = Fetch([](wchar_t* buffer, DWORD size) { return GetTempPathW(size, buffer); });
  return FolderPath(LongForm(path));
}

std::optional<Text> SystemTemp() {
  const std::optional<Text> windows =
      FolderPath(Fetch([](wchar_t* buffer, DWORD size) { return GetSystemWindowsDirectoryW(buffer, size); }));
  return windows.transform([](const Text& path) { return Concat(path, u"\\Temp"); });
}

}  // namespace tavix::windows
