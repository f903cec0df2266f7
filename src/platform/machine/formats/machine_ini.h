#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/machine/formats/text_decoding.h"
#include "text/letter_case.h"

namespace tavix::machine {

// The content of an INI file. Names of sections and keys ignore letter case.
class MachineIni {
 public:
  using Entry = std::pair<Text, Text>;  // key, value

  // Reads UTF-8 with or without a byte order mark, or UTF-16 with one. Lines that begin with `;` or `#` are
  // comments. A line that is neither a section nor `key=value` is skipped. Blanks and tabs around names and
  // values are dropped, then one pair of double quotes around a value. Sections with the same name are one
  // section. Of two keys with the same name, the first counts. Nothing when the bytes can't be decoded;
  // `error` then says where.
  static std::optional<MachineIni> Read(std::string_view bytes, TextError& error);

  // The value of a key. Nothing when the section or the key is missing. A value may be empty.
  std::optional<Text> Value(TextView section, TextView key) const;
  // The entries of a section in the order of the file; none when it is missing.
  const std::vector<Entry>& Entries(TextView section) const;
  // Replaces the value that Value returns, or adds one at the end of the section.
  void Set(TextView section, TextView key, TextView value);

 private:
  std::map<Text, std::vector<Entry>, LessIgnoringCase> sections_;
};

}  // namespace tavix::machine
