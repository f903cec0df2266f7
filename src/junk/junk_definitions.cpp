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

// Whether the file is missing or too short to be a table. False if that can't be told: then nothing is
// written.
bool IsMissingOrShort(TextView path) {
  constexpr double kShortest = 20;
  if (fileSystemObject.FileExists(path) == false) return true;
  const auto size = fileSystemObject.GetFile(path).and_then([](const File& file) { return file.Size(); });
  return size && *size < kShortest;
}

// One line for each type, without a line end after the last.
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

// When the last chunk is full, the next line opens a new one, and the pattern of that line is lost.
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
  ++JunkListsNumber;
  ReadTypes(kBuiltInJunkFile, u"D");
  // Only if it is known to be missing: creating would empty an existing file that can't be looked at just
  // now.
  if (fileSystemObject.FileExists(kUserJunkFile) == false)
    fileSystemObject.CreateTextFile(kUserJunkFile, true);
  ReadTypes(kUserJunkFile, u"U");
}

}  // namespace tavix::mdlPubSelf
