#pragma once

#include <cstdint>

#include "platform/registry.h"

namespace tavix {

// All access to the registry. Keys and names are those of platform/registry.h. An enumeration gives one text:
// the items joined by the separators below. It is empty for a key that is missing or can't be read to its
// end. Results are returned in the last argument. A failed operation leaves it unchanged.
//
// Without a registry every operation fails.
class clsPubRegistry {
 public:
  static constexpr TextView kSubKeySeparator = u"*SK*";
  static constexpr TextView kItemSeparator = u"*IS*";
  static constexpr TextView kDataSeparator = u"*NDS*";

  clsPubRegistry() = default;
  explicit clsPubRegistry(platform::Registry* registry) : registry_(registry) {}

  // One value as text; the empty name is the key's default value. `fallback` when the value is missing or
  // can't be read.
  void ReadValue(platform::Hive hive, TextView key, TextView name, TextView fallback, Text& value) const;
  // The keys below a key, as platform::Registry::Below. Null without a registry.
  std::unique_ptr<platform::KeysBelow> Below(platform::Hive hive, TextView key) const;
  // Writes one value. Only type 1, a string, is supported; others fail. `status` is 0 when it was written,
  // otherwise 1.
  void WriteValue(int type, platform::Hive hive, TextView key, TextView name, TextView value,
                  int& status) const;
  // The names of all direct subkeys. A name that contains the separator looks like two.
  void EnumSubKeys(platform::Hive hive, TextView key, Text& folded) const;
  // All values: name, kDataSeparator, data for each. The default value has an empty name.
  void EnumValues(platform::Hive hive, TextView key, Text& folded) const;
  // All value names.
  void EnumValueNames(platform::Hive hive, TextView key, Text& folded) const;
  // Deletes a key with everything below it.
  void DeleteKey(platform::Hive hive, TextView key) const;
  // Deletes one value. `status` is 0 when it was deleted, otherwise 1.
  void DeleteValue(platform::Hive hive, TextView key, TextView name, int& status) const;
  // The number of values of a key; 0 for a missing key. Fails when the key can't be read or has more values
  // than a 16-bit integer holds.
  void CountValues(platform::Hive hive, TextView key, int16_t& count) const;
  // Whether the subkeys and values of a key can be read completely. Then an empty enumeration means that
  // there are none.
  bool IsReadable(platform::Hive hive, TextView key) const;

 private:
  platform::Registry* registry_ = platform::noRegistry;
};

namespace mdlPubSelf {
inline clsPubRegistry pubRegistry;
}

}  // namespace tavix
