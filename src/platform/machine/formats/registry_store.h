#pragma once

#include <array>

#include "platform/machine/formats/registry_key.h"
#include "platform/registry.h"

namespace tavix::machine {

// The hives of a registry in memory. HKEY_CLASSES_ROOT isn't one of them: it is a merged view of two others.
class RegistryStore {
 public:
  static constexpr std::array kHives = {platform::Hive::CurrentConfig, platform::Hive::CurrentUser,
                                        platform::Hive::LocalMachine, platform::Hive::Users};
  // Limits of the Windows registry: depth of keys below the hive, and lengths of names in characters.
  static constexpr size_t kMaxDepth = 512;
  static constexpr size_t kMaxKeyName = 255;
  static constexpr size_t kMaxValueName = 16383;

  // The reason why a key can't have this name or be this deep (1 is directly below the hive). Empty when it
  // can. A line end is refused because the text form can't hold one.
  static std::string_view WhyNoKey(TextView name, size_t depth);
  // The reason for the first bad name of a path. Empty for a good path; the empty path is good.
  static std::string_view WhyNoPath(TextView path);

  // The root key of a hive. Null when the store doesn't have it.
  RegistryKey* Root(platform::Hive hive);
  const RegistryKey* Root(platform::Hive hive) const;
  // The key at a path. Null when it is missing.
  RegistryKey* Find(platform::Hive hive, TextView path);
  // Finds or makes the key at a path, with all keys above it. Sets `made` to true when anything was made. For
  // a path that WhyNoPath refuses: null, and nothing is made.
  RegistryKey* Make(platform::Hive hive, TextView path, bool& made);

  bool operator==(const RegistryStore&) const = default;

 private:
  std::array<RegistryKey, kHives.size()> roots_;
};

}  // namespace tavix::machine
