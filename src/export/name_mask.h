#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "export/record.h"
#include "text/text.h"

namespace tavix::exporting {

// Replaces the words of texts by made-up ones, so that an export doesn't tell names of files, users and
// hosts. A word is a run of letters and digits. Wherever it stands it becomes the same made-up word, letter
// case aside, and different words become different ones: names that are equal stay equal, and a path in the
// registry still names its file. A made-up word is as long as the word, with its capitals, small letters and
// digits in the same places.
//
// Kept are the words that Windows and the program use, single letters, numbers, and class identifiers such as
// {00021401-0000-0000-C000-000000000046}.
class NameMask {
 public:
  // The same secret makes up the same words. With a random one nobody can find out a word by trying.
  explicit NameMask(uint64_t secret);

  // Keeps the words of a text from now on.
  void Keep(TextView text);
  // The text with its words replaced, as long as before.
  Text Apply(TextView text) const;

 private:
  const Text& MadeUp(const Text& capitals) const;

  const uint64_t secret_;
  Texts kept_;
  // In capitals, as both are compared without letter case.
  mutable std::map<Text, Text> madeUp_;   // word: made-up word
  mutable std::map<Text, Text> meaning_;  // made-up word: word
};

}  // namespace tavix::exporting
