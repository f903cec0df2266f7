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

  bool VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) override;
  bool VisitValues(Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(Hive hive, TextView key, TextView name) override;
  platform::Existence KeyExists(Hive hive, TextView key) override;
  bool WriteString(Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(Hive hive, TextView key) override;
  bool DeleteValue(Hive hive, TextView key, TextView name) override;

 private:
  // What opening a key for reading gives: the key, one of the two, or none of them.
  struct Reached {
    RegistryKeyHandle key;
    bool missing = false;
    bool denied = false;
  };

  // The handle of a hive, opened at its first use; null for what is none and for a path of another form
  // than the interface asks for.
  HKEY Base(Hive hive, TextView key);
  RegistryKeyHandle Open(Hive hive, TextView key, REGSAM access);
  Reached Reach(Hive hive, TextView key, REGSAM access);

  std::map<Hive, RegistryKeyHandle> hives_;
};

}  // namespace tavix::windows
