#include <cstdint>

#include "console/options.h"
#include "require.h"
#include "text/utf8.h"

// Each line of the input is an argument. Accepted options don't contradict each other; others are refused
// with a reason.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tavix;
  std::vector<std::string> arguments(1);
  for (const uint8_t* byte = data; byte != data + size; ++byte) {
    if (*byte == '\n') {
      arguments.emplace_back();
    } else {
      arguments.back().push_back(static_cast<char>(*byte));
    }
  }
  std::string error;
  const auto options = console::ReadOptions(arguments, error);
  Require(options.has_value() == error.empty());
  if (!options || options->help || options->version) return 0;
  Require(options->machine.has_value() != options->live);
  Require(!options->oneClick || (options->functions.empty() && options->scopes.empty()));
  Require(options->scopes.empty() || options->page == u"advanced");
  for (const auto& mark : options->marks) Require(mark.row >= 1);
  for (const auto& setting : options->settings) Require(setting.key.find_first_of(u"/=") == Text::npos);
  size_t most = 0;
  for (const std::string& argument : arguments) most += argument.size();
  size_t held = options->machine ? options->machine->size() : 0;
  for (const auto& list : {options->functions, options->scopes}) {
    for (const Text& text : list) held += ToUtf8(text).size();
  }
  Require(held <= most);
  return 0;
}
