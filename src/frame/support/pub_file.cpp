#include "frame/support/pub_file.h"

#include <algorithm>

#include "text/text_file.h"
#include "text/utf8.h"

namespace tavix {
namespace {

constexpr TextView kLineEnd = u"\r\n";

// The line at the start of a text, its line end included.
TextView FirstLine(TextView text) {
  const size_t end = text.find(u'\n');
  return text.substr(0, end == TextView::npos ? text.size() : end + 1);
}

TextView WithoutLineEnd(TextView line) {
  if (line.ends_with(u'\n')) line.remove_suffix(1);
  if (line.ends_with(u'\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

void clsPubFile::AppendLine(TextView file, TextView text) const {
  const Text line = Concat(text, kLineEnd);
  const auto content = files_->ReadFile(file);
  if (!content && files_->FileExists(file) != false) return;
  FileText decoded = DecodeTextFile(content.value_or(""));
  if (decoded.encoding == TextEncoding::Utf8 || decoded.encoding == TextEncoding::Utf8WithMark) {
    files_->AppendToFile(file, ToUtf8(line));
  } else {
    decoded.text += line;
    files_->WriteFile(file, EncodeTextFile(decoded));
  }
}

void clsPubFile::CountLines(TextView file, int& count) const {
  if (files_ == platform::noFileSystem) return;
  const auto content = files_->ReadFile(file);
  count = content ? static_cast<int>(std::ranges::count(DecodeTextFile(*content).text, u'\n')) + 1 : 0;
}

void clsPubFile::RemoveLine(TextView file, TextView text, TextView separator, int field) const {
  const auto content = files_->ReadFile(file);
  if (!content) return;
  FileText decoded = DecodeTextFile(*content);
  Text kept;
  for (TextView rest = decoded.text; !rest.empty();) {
    const TextView line = FirstLine(rest);
    const auto fields = Split(WithoutLineEnd(line), separator);
    const auto index = static_cast<size_t>(field);
    if (index >= fields.size() || fields[index] != text) kept += line;
    rest.remove_prefix(line.size());
  }
  if (kept.size() == decoded.text.size()) return;
  decoded.text = std::move(kept);
  files_->WriteFile(file, EncodeTextFile(decoded));
}

std::vector<Text> ReadTextLines(TextView file) {
  const auto content = platform::fileSystem->ReadFile(file);
  return content ? TextLines(DecodeTextFile(*content).text) : std::vector<Text>();
}

}  // namespace tavix
