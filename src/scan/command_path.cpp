#include "scan/command_path.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "text/attempt.h"
#include "text/pattern.h"

namespace tavix::mdlPubSelf {
namespace {

// Positions count from 1; 0 means not found. They are 16-bit integers: a position that doesn't fit isn't
// assigned, and the variable keeps its value.
std::optional<int16_t> Position(size_t found) {
  if (found == TextView::npos) return int16_t{0};
  if (found >= INT16_MAX) return std::nullopt;
  return static_cast<int16_t>(found + 1);
}

std::optional<int16_t> Find(TextView text, TextView part) { return Position(text.find(part)); }

std::optional<int16_t> FindLast(TextView text, char16_t c) { return Position(text.rfind(c)); }

// The first position of `part`, which is in lower case, in the text put into lower case.
size_t FindInLowerCase(TextView text, TextView part) {
  const auto fits = [](char16_t c, char16_t wanted) {
    return (c >= u'A' && c <= u'Z' ? c + (u'a' - u'A') : c) == wanted;
  };
  const auto found = std::search(text.begin(), text.end(), part.begin(), part.end(), fits);
  return found == text.end() ? TextView::npos : static_cast<size_t>(found - text.begin());
}

Text Unquote(TextView text) {
  Text plain(text);
  std::erase(plain, u'"');
  return plain;
}

bool HasResourcePrefix(TextView text) {
  return MatchesPattern(text, u"@?:\\*") || MatchesPattern(text, u"@\"?:\\*") || MatchesPattern(text, u"@%*");
}

// The position after the path's end in the text; 0 if the path is the whole text. Nothing if the text can't
// be judged.
std::optional<int16_t> FindEnd(TextView text) {
  constexpr int16_t kLastColon = 3;
  int16_t end = 0;
  Set(end, Find(text, u"/"));
  if (end >= 1) return end;
  Set(end, Find(text, u":"));
  if (end > kLastColon || end < 1) return std::nullopt;
  if (FindInLowerCase(text, u"genuinst.exe") != TextView::npos) return std::nullopt;
  for (const TextView mark : {u" -", u" \"%1\"", u" %1"}) {
    Set(end, Find(text, mark));
    if (end >= 1) return end;
  }
  Set(end, Find(text, u",-"));
  return end;
}

// Drops all words after the last backslash except the first. False if there is no backslash.
bool StripTrailingWords(Text& path) {
  int16_t backslash = 0;
  int16_t blank = 0;
  for (size_t last = path.rfind(u'\\'); last != Text::npos;) {
    Set(backslash, Position(last));
    Set(blank, FindLast(path, u' '));
    if (blank == 0 || blank <= backslash) return true;
    path.resize(static_cast<size_t>(blank - 1));
    // A backslash beyond 16 bits is lost with what is cut.
    if (last >= path.size()) last = path.rfind(u'\\');
  }
  return false;
}

// The cut position counts the quotes of the text but is applied to the path without them: a quote before the
// path leaves one more character after it.
void CutBehindExtension(TextView text, Text& path) {
  constexpr TextView kExtension = u".exe";
  int16_t extension = 0;
  Set(extension, Position(FindInLowerCase(text, kExtension)));
  if (extension < 1) return;
  const size_t length = static_cast<size_t>(extension) + kExtension.size() - 1;
  if (path.size() > length) path.resize(length);
}

}  // namespace

CommandTarget FindCommandTarget(TextView command, KnownFiles& files) {
  Text whole = Unquote(Trim(command));
  // If it can't be told whether the file exists, the text is taken apart.
  if (files.FileExists(whole) == true) return {std::move(whole), true};
  if (HasResourcePrefix(command)) command.remove_prefix(1);
  const std::optional<int16_t> end = FindEnd(command);
  if (!end) return {};
  Text path = Unquote(Trim(*end == 0 ? command : command.substr(0, static_cast<size_t>(*end - 1))));
  if (!StripTrailingWords(path)) return {};
  CutBehindExtension(command, path);
  return {std::move(path), false};
}

Text ExtractCommandPath(TextView command) {
  KnownFiles files;
  return FindCommandTarget(command, files).Path;
}

}  // namespace tavix::mdlPubSelf
