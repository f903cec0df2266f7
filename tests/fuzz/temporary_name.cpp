#include "platform/temporary_name.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "require.h"

namespace {

using namespace tavix;

// Whether ToText writes this number.
bool IsPlainNumber(TextView text) {
  constexpr TextView kLargest = u"4294967295";
  return !text.empty() && text.front() != u'0' &&
         std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; }) &&
         (text.size() < kLargest.size() || (text.size() == kLargest.size() && text <= kLargest));
}

// A name is one of these only if it consists of start, process, hyphen, count and end.
void Check(const platform::TemporaryNames& names, const Text& name) {
  const auto process = names.ProcessOf(name);
  const bool framed = name.size() >= names.start.size() + names.end.size() && name.starts_with(names.start) &&
                      name.ends_with(names.end);
  if (!framed) return Require(!process);
  const Text middle = name.substr(names.start.size(), name.size() - names.start.size() - names.end.size());
  const auto parts = Split(middle, u"-");
  const bool isOne = parts.size() == 2 && IsPlainNumber(parts[0]) && IsPlainNumber(parts[1]);
  Require(process.has_value() == isOne);
  if (isOne) Require(ToText(*process) == parts[0]);
}

}  // namespace

// The input is a whole name, and what stands between start and end. Its first eight bytes are two numbers,
// too.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr platform::TemporaryNames kOpenEnd{u".own:", u""};
  constexpr size_t kLongest = 64;
  size = std::min(size, kLongest);
  const Text text(data, data + size);
  for (const platform::TemporaryNames& names : {platform::kTemporaryFiles, kOpenEnd}) {
    Check(names, text);
    Check(names, Concat(names.start, text, names.end));
    uint32_t numbers[2] = {};
    std::memcpy(numbers, data, std::min(size, sizeof numbers));
    const auto process = names.ProcessOf(names.Make(numbers[0], numbers[1]));
    Require(process == (numbers[0] != 0 && numbers[1] != 0 ? std::optional(numbers[0]) : std::nullopt));
  }
  return 0;
}
