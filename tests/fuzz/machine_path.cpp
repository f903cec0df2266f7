#include "platform/machine/formats/machine_path.h"

#include <cstdint>
#include <cstring>

#include "require.h"

namespace {

using namespace tavix;

void Check(TextView text) {
  const auto path = machine::ReadMachinePath(text);
  if (!path) return;
  for (const Text& name : path->names) Require(machine::IsFileName(name));
  const Text shown = path->ToText();
  Require(shown.size() <= text.size() + 1);
  const auto again = machine::ReadMachinePath(shown);
  Require(again && again->drive == path->drive && again->names == path->names);
}

}  // namespace

// Reads the input as UTF-16 and as one byte for each character, alone and below a drive. The names of an
// accepted path are valid file names, the path isn't longer than the input, and its text reads back as the
// same path.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Text wide(size / sizeof(char16_t), u'\0');
  std::memcpy(wide.data(), data, wide.size() * sizeof(char16_t));
  const Text narrow(data, data + size);
  for (const Text& text :
       {wide, narrow, u"c:/" + narrow, Text(machine::kApplicationFolder) + u"\\" + narrow}) {
    Check(text);
  }
  return 0;
}
