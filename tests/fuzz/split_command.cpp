#include <cstdint>

#include "platform/windows/command_line.h"
#include "require.h"

namespace {

using namespace tavix;

// `there` decides which paths exist; it is the last byte of the input.
void Check(TextView text, unsigned there) {
  size_t asked = 0;
  const auto isThere = [&](TextView path) {
    ++asked;
    return there != 0 && path.size() % (there + 1) == there;
  };
  const windows::Command command = windows::SplitCommand(text, isThere);
  Require(asked <= 2 * text.size() + 1);
  Require(command.target.size() + command.arguments.size() <= text.size());
  Require(text.find(command.target) != TextView::npos && text.find(command.arguments) != TextView::npos);
  Require(command.arguments == Trim(command.arguments));
  const bool hasWord = Trim(text).find_first_not_of(u'"') != TextView::npos;
  if (!hasWord) Require(command.arguments.empty() || command.target.empty());
  if (Trim(text).empty()) Require(command.target.empty());
  // Only blanks and quotes may be missing in the parts.
  Text rest(text);
  for (const Text& part : {command.arguments, command.target}) {
    const size_t at = rest.rfind(part);
    if (at != Text::npos) rest.erase(at, part.size());
  }
  Require(rest.find_first_not_of(u" \"") == Text::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const Text text(data, data + size - 1);
  Check(text, 0);
  Check(text, data[size - 1]);
  return 0;
}
