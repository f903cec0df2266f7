#include "platform/windows/windows_path.h"

#include <algorithm>
#include <vector>

#include "text/letter_case.h"

namespace tavix::windows {
namespace {

constexpr TextView kExtended = u"\\\\?\\";
constexpr TextView kExtendedShare = u"\\\\?\\UNC\\";
constexpr size_t kDriveRootLength = 3;

bool IsSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

bool IsDriveLetter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }

bool HasDrive(TextView path) { return path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == u':'; }

bool IsNameCharacter(char16_t c) {
  constexpr TextView kRefused = u"<>:\"|?*";
  return c >= u' ' && kRefused.find(c) == TextView::npos;
}

// Removes the next name, with the separators before it, from `rest`. Empty at the end.
TextView TakeName(TextView& rest) {
  const auto start = std::find_if_not(rest.begin(), rest.end(), IsSeparator);
  const auto end = std::find_if(start, rest.end(), IsSeparator);
  const TextView name(start, end);
  rest = TextView(end, rest.end());
  return name;
}

// Appends the names in `rest` to `path`, which is a root. False when one of them can't be a name.
bool AppendNames(Text& path, TextView rest) {
  const size_t root = path.size();
  for (TextView name = TakeName(rest); !name.empty(); name = TakeName(rest)) {
    if (name == u"..") {
      if (path.size() > root) path.resize(std::max(root, path.rfind(u'\\')));
      continue;
    }
    const size_t last = name.find_last_not_of(u" .");
    if (last == TextView::npos) continue;
    name = name.substr(0, last + 1);
    if (!std::all_of(name.begin(), name.end(), IsNameCharacter)) return false;
    if (path.back() != u'\\') path += u'\\';
    path += name;
  }
  return true;
}

std::optional<Text> NormalShare(TextView rest) {
  const TextView server = TakeName(rest), share = TakeName(rest);
  for (const TextView name : {server, share}) {
    if (name.find_last_not_of(u" .") == TextView::npos) return std::nullopt;
    if (!std::all_of(name.begin(), name.end(), IsNameCharacter)) return std::nullopt;
  }
  Text path = Concat(u"\\\\", server, u"\\", share);
  if (!AppendNames(path, rest)) return std::nullopt;
  return path;
}

std::optional<Text> NormalExtended(TextView path) {
  const bool share = EqualIgnoringCase(path.substr(0, kExtendedShare.size()), kExtendedShare);
  const TextView rest = path.substr(share ? kExtendedShare.size() : kExtended.size());
  const Text plain = share ? Concat(u"\\\\", rest) : Text(rest);
  if (plain.starts_with(kExtended)) return std::nullopt;
  std::optional<Text> normal = NormalPath(plain);
  if (!normal || !EqualIgnoringCase(*normal, plain)) return std::nullopt;
  return normal;
}

}  // namespace

std::optional<Text> NormalPath(TextView path) {
  if (path.starts_with(kExtended)) return NormalExtended(path);
  if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) return NormalShare(path);
  if (!HasDrive(path)) return std::nullopt;
  if (path.size() > 2 && !IsSeparator(path[2])) return std::nullopt;
  Text normal = {ToUpper(path[0]), u':', u'\\'};
  if (!AppendNames(normal, path.substr(2))) return std::nullopt;
  return normal;
}

std::optional<std::vector<Text>> NormalNames(TextView below) {
  std::vector<Text> names;
  for (TextView name = TakeName(below); !name.empty(); name = TakeName(below)) {
    if (name.ends_with(u' ') || name.ends_with(u'.')) return std::nullopt;
    if (!std::all_of(name.begin(), name.end(), IsNameCharacter)) return std::nullopt;
    names.emplace_back(name);
  }
  if (names.empty()) return std::nullopt;
  return names;
}

bool IsRoot(TextView normal) {
  if (!normal.starts_with(u"\\\\")) return normal.size() <= kDriveRootLength;
  return std::count(normal.begin() + 2, normal.end(), u'\\') == 1;
}

Text ExtendedPath(TextView normal) {
  return normal.starts_with(u"\\\\") ? Concat(kExtendedShare, normal.substr(2)) : Concat(kExtended, normal);
}

TextView FolderOf(TextView normal) {
  const size_t cut = normal.rfind(u'\\');
  const bool inRoot = HasDrive(normal) && cut + 1 == kDriveRootLength;
  return normal.substr(0, inRoot ? kDriveRootLength : cut);
}

TextView NameOf(TextView normal) { return normal.substr(normal.rfind(u'\\') + 1); }

Text PathIn(TextView folder, TextView name) {
  return Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", name);
}

}  // namespace tavix::windows
