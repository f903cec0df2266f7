#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>

#include "text/letter_case.h"
#include "text/text.h"

namespace tavix::machine {

// A value: any type number, data as the bytes that a registry would hold.
struct RegistryValue {
  Text Name;
  uint32_t Type = 0;
  std::string Data;

  bool operator==(const RegistryValue&) const = default;
};

// A key in memory. Names are matched without regard to letter case and keep the case they were made with.
// Each operation costs at most the logarithm of what the key holds; making names in order costs less.
class RegistryKey {
 public:
  using SubKeys = std::map<Text, std::unique_ptr<RegistryKey>, LessIgnoringCase>;
  using Values = std::list<RegistryValue>;

  // In the order of the upper-cased names.
  const SubKeys& Keys() const { return keys_; }
  // In the order made; a value that was replaced keeps its place.
  const Values& AllValues() const { return values_; }

  // Null when there is none of the name.
  RegistryKey* FindKey(TextView name) const;
  const RegistryValue* FindValue(TextView name) const;

  // The subkey of the name, made where it is missing; `made` is set to true then.
  RegistryKey& MakeKey(TextView name, bool& made);
  // Makes or replaces a value; one that is replaced keeps the spelling of its name. False when type and
  // data stood there before.
  bool SetValue(TextView name, uint32_t type, std::string data);

  // Delete a subkey with all below it, or a value. False when there is none.
  bool DeleteKey(TextView name);
  bool DeleteValue(TextView name);

  // Spelling, order and data of everything in and below the key.
  bool operator==(const RegistryKey& other) const;

 private:
  // A few values are looked through one by one; more have an index.
  static constexpr size_t kFewValues = 12;
  using Index = std::map<TextView, Values::iterator, LessIgnoringCase>;

  Values::iterator Locate(TextView name);

  SubKeys keys_;
  Values values_;
  Index index_;  // empty while there are few values
};

}  // namespace tavix::machine
