#include <cstdint>
#include <utility>
#include <vector>

#include "require.h"
#include "text/ini_text.h"
#include "text/letter_case.h"
#include "text/text_file.h"

namespace {

using namespace tavix;

using Entries = std::vector<std::pair<Text, Text>>;

// The entries of a section except those of one key.
Entries EntriesBeside(TextView content, TextView section, TextView key) {
  Entries entries;
  VisitIniSection(content, section, [&](TextView name, TextView value) {
    if (!EqualIgnoringCase(name, key)) entries.emplace_back(name, value);
  });
  return entries;
}

}  // namespace

// Any file can be read and written again. The first three lines of the input are section, key and value. The
// written value is read back, and no other entry changes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const FileText file = DecodeTextFile({reinterpret_cast<const char*>(data), size});
  Require(DecodeTextFile(EncodeTextFile(file)).text == file.text);
  TextView rest = file.text;
  const auto takeLine = [&rest] {
    const TextView line = rest.substr(0, rest.find(u'\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line;
  };
  const TextView section = takeLine();
  const TextView key = takeLine();
  const TextView value = takeLine();
  const Text written = WriteIniValue(rest, section, key, value);
  if (written == rest) return 0;
  const std::optional<Text> again = ReadIniValue(written, section, key);
  Require(again.has_value());
  if (value.find(u'\r') == TextView::npos) Require(*again == value);
  Require(WriteIniValue(written, section, key, value) == written);
  for (const TextView other : {section, TextView(u"s"), TextView(u"t")}) {
    const TextView beside = EqualIgnoringCase(other, section) ? key : TextView();
    Require(EntriesBeside(written, other, beside) == EntriesBeside(rest, other, beside));
  }
  return 0;
}
