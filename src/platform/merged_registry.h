#pragma once

#include "platform/registry.h"

namespace tavix::platform {

// A registry whose HKEY_CLASSES_ROOT shows `Software\Classes` of HKEY_CURRENT_USER and of
// HKEY_LOCAL_MACHINE as one: the user's spelling of a key and the user's value where both have it, the
// user's values first. Writing and deleting there go to the user's hive where the key or value stands
// there, otherwise to the machine's; DeleteKey takes the key of one of the two. The other hives are those
// of `plain`, which must outlive this and need not know HKEY_CLASSES_ROOT.
class MergedRegistry : public Registry {
 public:
  explicit MergedRegistry(Registry& plain) : plain_(plain) {}

  bool VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) override;
  bool VisitValues(Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(Hive hive, TextView key, TextView name) override;
  Existence KeyExists(Hive hive, TextView key) override;
  bool WriteString(Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(Hive hive, TextView key) override;
  bool DeleteValue(Hive hive, TextView key, TextView name) override;

 private:
  Registry& plain_;
};

}  // namespace tavix::platform
