#include "junk/junk_definitions.h"

#include <algorithm>
#include <span>

#include "frame/data_paths.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_file.h"
#include "junk/built_in_types.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kTab = u"\t";

// Whether the file holds too little to be a table. Of one that can't be looked at that isn't known, and the
// step that would fill it is skipped.
bool IsMissingOrShort(TextView path) {
  constexpr double kShortest = 20;
  if (fileSystemObject.FileExists(path) == false) return true;
  const auto size = fileSystemObject.GetFile(path).and_then([](const File& file) { return file.Size(); });
  return size && *size < kShortest;
}

// All but the line end of the last.
Text Lines(std::span<const BuiltInJunkType> types) {
  Text lines;
  for (const BuiltInJunkType& type : types) {
    if (!lines.empty()) lines += u"\r\n";
    lines += Concat(type.description, kTab, type.pattern, kTab, type.flags);
  }
  return lines;
}

void WriteBuiltInTypes() {
  constexpr size_t kLinesInCall = 27;
  for (std::span<const BuiltInJunkType> rest = kBuiltInJunkTypes; !rest.empty();) {
    const auto some = rest.first(std::min(kLinesInCall, rest.size()));
    pubFile.AppendLine(kBuiltInJunkFile, Lines(some));
    rest = rest.subspan(some.size());
  }
}

// A full text is closed by the next line, whose pattern then goes nowhere.
void AddPattern(const std::vector<TextView>& fields) {
  constexpr size_t kFull = 240;
  if (JunkPatternChunks.back().size() > kFull) {
    JunkPatternChunks.emplace_back();
  } else if (fields.size() > 1) {
    JunkPatternChunks.back() += Concat(fields[1], u";");
  }
}

void ReadTypes(TextView path, TextView origin) {
  for (const Text& whole : ReadTextLines(path)) {
    const TextView line = Trim(whole);
    Text type = Concat(line, u"|", origin);
    std::ranges::replace(type, u'\t', u'|');
    JunkTypes.push_back(std::move(type));
    AddPattern(Split(line, kTab));
  }
  for (Text& chunk : JunkPatternChunks) {
    if (chunk.ends_with(u';')) chunk.pop_back();
  }
}

}  // namespace

void LoadJunkDefinitions() {
  if (IsMissingOrShort(kBuiltInJunkFile)) WriteBuiltInTypes();
  JunkPatternChunks.assign(1, Text());
  JunkTypes.clear();
  ReadTypes(kBuiltInJunkFile, u"D");
  // Making it anew would empty one that can't be looked at just now.
  if (fileSystemObject.FileExists(kUserJunkFile) == false)
    fileSystemObject.CreateTextFile(kUserJunkFile, true);
  ReadTypes(kUserJunkFile, u"U");
}

}  // namespace tavix::mdlPubSelf
