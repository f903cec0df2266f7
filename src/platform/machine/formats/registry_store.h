#pragma once

#include <array>

#include "platform/machine/formats/registry_key.h"
#include "platform/registry.h"

namespace tavix::machine {

// The hives of a registry in memory. HKEY_CLASSES_ROOT is none of them: it is a view of two others.
class RegistryStore {
 public:
  static constexpr std::array kHives = {platform::Hive::CurrentConfig, platform::Hive::CurrentUser,
                                        platform::Hive::LocalMachine, platform::Hive::Users};
  // Limits of a Windows registry: keys below one another, the hive not counted, and lengths of names.
  static constexpr size_t kMaxDepth = 512;
  static constexpr size_t kMaxKeyName = 255;
  static constexpr size_t kMaxValueName = 16383;

  // Why a key can't have the name, or lie so deep (1 is right below the hive): no name, too long, a line
  // end in it (which the text form has no room for). Empty for one that can.
  static std::string_view WhyNoKey(TextView name, size_t depth);
  // The same for the keys of a path, the first that is wrong; the empty path is right.
  static std::string_view WhyNoPath(TextView path);

  // The key of a hive itself; null for what is no hive of the store.
  RegistryKey* Root(platform::Hive hive);
  const RegistryKey* Root(platform::Hive hive) const;
  // Null when there is no such key.
  RegistryKey* Find(platform::Hive hive, TextView path);
  // Finds the key or makes it with those on the way; `made` is set to true when anything was. Null, and
  // nothing made, for a path that WhyNoPath refuses.
  RegistryKey* Make(platform::Hive hive, TextView path, bool& made);

  bool operator==(const RegistryStore&) const = default;

 private:
  std::array<RegistryKey, kHives.size()> roots_;
};

}  // namespace tavix::machine
