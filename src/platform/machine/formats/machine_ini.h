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

// The content of an INI file. Names of sections and keys are matched without regard to letter case.
class MachineIni {
 public:
  using Entry = std::pair<Text, Text>;  // key, value

  // Reads UTF-8 with or without its mark. Lines that start with `;` or `#` are comments; a line that is
  // neither section nor `key=value` is skipped. Blanks and tabs around names and values fall away, then one
  // pair of quotes around a value. Sections of one name are one; of two keys of one name the first holds.
  // Nothing when the bytes are no text; `error` then tells where.
  static std::optional<MachineIni> Read(std::string_view bytes, TextError& error);

  // Nothing when section or key are missing; an empty value is a value.
  std::optional<Text> Value(TextView section, TextView key) const;
  // The entries of a section in the order of the file; none when it is missing.
  const std::vector<Entry>& Entries(TextView section) const;
  // Sets a value: replaces the one that Value gives, or adds one at the end of the section.
  void Set(TextView section, TextView key, TextView value);

 private:
  std::map<Text, std::vector<Entry>, LessIgnoringCase> sections_;
};

}  // namespace tavix::machine
