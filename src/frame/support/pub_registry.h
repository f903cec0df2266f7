#pragma once

#include <cstdint>

#include "platform/registry.h"

namespace tavix {

// All access to the registry. Keys and names are those of platform/registry.h. An enumeration gives one text:
// the items joined by the separators below. A key that is missing, or can't be read to its end, gives the
// empty text. Results come in the last argument; an operation that fails leaves it unchanged.
//
// One made without a registry is a service that isn't there: each of its operations fails.
class clsPubRegistry {
 public:
  static constexpr TextView kSubKeySeparator = u"*SK*";
  static constexpr TextView kItemSeparator = u"*IS*";
  static constexpr TextView kDataSeparator = u"*NDS*";

  clsPubRegistry() = default;
  explicit clsPubRegistry(platform::Registry* registry) : registry_(registry) {}

  // One value as text, the key's default value for the empty name; `fallback` when key or value are
  // missing.
  void ReadValue(platform::Hive hive, TextView key, TextView name, TextView fallback, Text& value) const;
  // Writes one value. Only type 1, a string, is known. Status 0 means written.
  void WriteValue(int type, platform::Hive hive, TextView key, TextView name, TextView value,
                  int& status) const;
  // All direct subkey names. A name that holds the separator can't be told from two.
  void EnumSubKeys(platform::Hive hive, TextView key, Text& folded) const;
  // All values: name, kDataSeparator, data for each. The default value has an empty name.
  void EnumValues(platform::Hive hive, TextView key, Text& folded) const;
  // All value names.
  void EnumValueNames(platform::Hive hive, TextView key, Text& folded) const;
  // Deletes a key with what is under it.
  void DeleteKey(platform::Hive hive, TextView key) const;
  // Deletes one value. Status 0 means deleted.
  void DeleteValue(platform::Hive hive, TextView key, TextView name, int& status) const;
  // The number of values of a key, 0 of a missing one. One that can't be read is a failure, and so are more
  // than a 16-bit integer holds.
  void CountValues(platform::Hive hive, TextView key, int16_t& count) const;
  // Whether the enumerations of a key tell all there is, so that an empty text means that there is nothing.
  // False where a part of the key can't be read.
  bool IsReadable(platform::Hive hive, TextView key) const;

 private:
  platform::Registry* registry_ = platform::noRegistry;
};

namespace mdlPubSelf {
inline clsPubRegistry pubRegistry;
}

}  // namespace tavix
