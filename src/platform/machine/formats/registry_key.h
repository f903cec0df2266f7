#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>

#include "text/letter_case.h"
#include "text/text.h"

namespace tavix::machine {

// A value: any type number, and the data as the bytes that Windows stores.
struct RegistryValue {
  Text Name;
  uint32_t Type = 0;
  std::string Data;

  bool operator==(const RegistryValue&) const = default;
};

// A key in memory. Names ignore letter case but keep their spelling. Each operation takes logarithmic time;
// adding names in order takes less.
class RegistryKey {
 public:
  using SubKeys = std::map<Text, std::unique_ptr<RegistryKey>, LessIgnoringCase>;
  using Values = std::list<RegistryValue>;

  // In the order of the upper-cased names.
  const SubKeys& Keys() const { return keys_; }
  // In the order of creation. A replaced value keeps its place.
  const Values& AllValues() const { return values_; }

  // Null when there is none with the name.
  RegistryKey* FindKey(TextView name) const;
  const RegistryValue* FindValue(TextView name) const;

  // Finds or makes a subkey. Sets `made` to true when it was made.
  RegistryKey& MakeKey(TextView name, bool& made);
  // Makes or replaces a value. A replaced value keeps the spelling of its name. False when type and data are
  // unchanged.
  bool SetValue(TextView name, uint32_t type, std::string data);

  // Delete a subkey with everything below it, or a value. False when there is none.
  bool DeleteKey(TextView name);
  bool DeleteValue(TextView name);

  // Compares spelling, order and data of everything in and below the key.
  bool operator==(const RegistryKey& other) const;

 private:
  // Up to this many values are searched one by one. More have an index.
  static constexpr size_t kFewValues = 12;
  using Index = std::map<TextView, Values::iterator, LessIgnoringCase>;

  Values::iterator Locate(TextView name);

  SubKeys keys_;
  Values values_;
  Index index_;  // empty while there are few values
};

}  // namespace tavix::machine
