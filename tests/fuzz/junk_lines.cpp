#include <algorithm>
#include <cstdint>

#include "doubles/memory_files.h"
#include "doubles/memory_host.h"
#include "frame/data_paths.h"
#include "frame/start_up.h"
#include "frame/support/file_system_object.h"
#include "junk/junk_definitions.h"
#include "require.h"
#include "text/letter_case.h"
#include "text/pattern.h"
#include "text/text_file.h"
#include "text/wildcard.h"

namespace {

using namespace tavix;
using namespace tavix::mdlPubSelf;

// A machine on which start, settings and data paths are set up.
machine::MemoryHost& Machine() {
  static machine::MemoryHost host;
  if (!fileSystemObject) {
    host.files.AddFolder(u"C:\\");
    Form_Load();
  }
  return host;
}

size_t LinesIn(std::string_view bytes) {
  const Text text = DecodeTextFile(bytes).text;
  return static_cast<size_t>(std::ranges::count(text, u'\n')) +
         (text.empty() || text.ends_with(u'\n') ? 0 : 1);
}

}  // namespace

// The two junk files can hold any bytes: each line gives a type, and the lists can be searched. The first
// half of the input is the built-in file, the rest is the user's file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string builtIn(input.substr(0, size / 2));
  const std::string user(input.substr(size / 2));
  Machine().files.AddFile(kBuiltInJunkFile, {.content = builtIn});
  Machine().files.AddFile(kUserJunkFile, {.content = user});
  LoadJunkDefinitions();
  const auto written = Machine().files.ReadFile(kBuiltInJunkFile);
  Require(written && DecodeTextFile(*written).text.starts_with(DecodeTextFile(builtIn).text));
  Require((builtIn.size() < 20) == (written->size() > builtIn.size()));
  const size_t builtInLines = LinesIn(*written);
  Require(JunkTypes.size() == builtInLines + LinesIn(user));
  for (size_t i = 0; i < JunkTypes.size(); ++i) {
    Require(JunkTypes[i].ends_with(i < builtInLines ? u"|D" : u"|U"));
    Require(!JunkTypes[i].contains(u'\t'));
  }
  Require(!JunkPatternChunks.empty());
  for (const Text& chunk : JunkPatternChunks) {
    FilePatterns(chunk).Match(u"name.of.a.file");
    for (const TextView pattern : Split(chunk, u";")) MatchesPattern(u"name.of.a.file", ToLower(pattern));
  }
  const std::vector<Text> types = JunkTypes;
  const std::vector<Text> chunks = JunkPatternChunks;
  LoadJunkDefinitions();
  Require(JunkTypes == types && JunkPatternChunks == chunks);
  return 0;
}
