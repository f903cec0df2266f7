#pragma once

#include <map>

#include "platform/registry.h"
#include "platform/windows/handle.h"

namespace tavix::windows {

// The registry of the running system. HKEY_CLASSES_ROOT has no keys here: platform::MergedRegistry shows it,
// so that its order and its deletions are the same on every platform.
//
// DeleteKey opens all keys to be deleted before it deletes the first. If one can't be opened, nothing is
// deleted.
class WindowsRegistry : public platform::Registry {
 public:
  using Hive = platform::Hive;

  bool VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) override;
  bool VisitValues(Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(Hive hive, TextView key, TextView name) override;
  std::unique_ptr<platform::KeysBelow> Below(Hive hive, TextView key) override;
  platform::Existence KeyExists(Hive hive, TextView key) override;
  bool WriteString(Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(Hive hive, TextView key) override;
  bool DeleteValue(Hive hive, TextView key, TextView name) override;

 private:
  // The result of opening a key: the key, or why there is none. Neither flag is set for any other failure.
  struct Reached {
    RegistryKeyHandle key;
    bool missing = false;
    bool denied = false;
  };

  // The root key of a hive, opened at its first use. Null for an unknown hive, and when `key` isn't a path as
  // the interface defines it.
  HKEY Base(Hive hive, TextView key);
  RegistryKeyHandle Open(Hive hive, TextView key, REGSAM access);
  Reached Reach(Hive hive, TextView key, REGSAM access);

  std::map<Hive, RegistryKeyHandle> hives_;
};

}  // namespace tavix::windows
