#pragma once

#include "platform/registry.h"

namespace tavix::platform {

// A registry whose HKEY_CLASSES_ROOT merges `Software\Classes` of HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE.
// If both have a key, the user's spelling is shown; if both have a value, the user's value. The user's values
// come first. Writing and deleting affect the user's hive if the key or value exists there, otherwise the
// machine's. DeleteKey deletes one of the two keys, not both. The other hives are those of `plain`, which
// must outlive this and needn't have HKEY_CLASSES_ROOT.
class MergedRegistry : public Registry {
 public:
  explicit MergedRegistry(Registry& plain) : plain_(plain) {}

  bool VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) override;
  bool VisitValues(Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(Hive hive, TextView key, TextView name) override;
  std::unique_ptr<KeysBelow> Below(Hive hive, TextView key) override;
  Existence KeyExists(Hive hive, TextView key) override;
  bool WriteString(Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(Hive hive, TextView key) override;
  bool DeleteValue(Hive hive, TextView key, TextView name) override;

 private:
  Registry& plain_;
};

}  // namespace tavix::platform
