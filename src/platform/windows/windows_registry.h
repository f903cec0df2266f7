#pragma once

#include <map>

#include "platform/registry.h"
#include "platform/windows/handle.h"

namespace tavix::windows {

// The registry of the running system. HKEY_CLASSES_ROOT is left to platform::MergedRegistry, so that its
// order and its deletes are the same everywhere; here it has no keys.
//
// DeleteKey opens everything it is to delete before it deletes the first key: where a right is missing,
// nothing goes.
class WindowsRegistry : public platform::Registry {
 public:
  using Hive = platform::Hive;

  void VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) override;
  void VisitValues(Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(Hive hive, TextView key, TextView name) override;
  bool KeyExists(Hive hive, TextView key) override;
  bool WriteString(Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(Hive hive, TextView key) override;
  bool DeleteValue(Hive hive, TextView key, TextView name) override;

 private:
  // The handle of a hive, opened at its first use; null for what is none and for a path of another form
  // than the interface asks for.
  HKEY Base(Hive hive, TextView key);
  RegistryKeyHandle Open(Hive hive, TextView key, REGSAM access);

  std::map<Hive, RegistryKeyHandle> hives_;
};

}  // namespace tavix::windows
