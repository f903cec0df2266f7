#pragma once

#include <set>
#include <utility>

#include "platform/machine/formats/registry_store.h"
#include "platform/registry.h"

namespace tavix::machine {

// A registry in memory. It has the plain hives; wrap it in MergedRegistry for HKEY_CLASSES_ROOT.
class MachineRegistry : public platform::Registry {
 public:
  bool VisitSubKeys(platform::Hive hive, TextView key, const NameVisitor& visit) override;
  bool VisitValues(platform::Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(platform::Hive hive, TextView key, TextView name) override;
  platform::Existence KeyExists(platform::Hive hive, TextView key) override;
  bool WriteString(platform::Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(platform::Hive hive, TextView key) override;
  bool DeleteValue(platform::Hive hive, TextView key, TextView name) override;

  // Makes a key with those on the way. False, and nothing changed, on failure.
  bool MakeKey(platform::Hive hive, TextView key);
  // Writes a value of any type, making the key where it is missing. The same on failure.
  bool SetValue(platform::Hive hive, TextView key, TextView name, uint32_t type, std::string data);

  // From now on the key, itself and not those below it, can't be opened: it exists and stands in the list
  // of its parent, but reading it gives nothing, and writing in it, making keys in it and deleting it fail.
  void Deny(platform::Hive hive, TextView key);
  void Allow(platform::Hive hive, TextView key);

  // Whether anything differs since the registry was made or MarkUnchanged was called.
  bool Changed() const { return changed_; }
  void MarkUnchanged() { changed_ = false; }

  // What it holds, for those that load and save it; past Deny and without a mark of the change.
  RegistryStore& Store() { return store_; }
  const RegistryStore& Store() const { return store_; }

 private:
  bool IsDenied(platform::Hive hive, TextView key) const;
  // The key where it exists and may be opened, else null.
  RegistryKey* Open(platform::Hive hive, TextView key);
  RegistryKey* OpenOrMake(platform::Hive hive, TextView key);
  // Deletes what may be deleted in and below the subkey `name` of `parent`. Whether nothing of it stays.
  bool DeleteTree(platform::Hive hive, const Text& path, RegistryKey& parent, TextView name);

  RegistryStore store_;
  std::set<std::pair<platform::Hive, Text>> denied_;  // paths upper-cased
  bool changed_ = false;
};

}  // namespace tavix::machine
