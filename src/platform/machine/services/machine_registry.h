#pragma once

#include <set>
#include <utility>

#include "platform/machine/formats/registry_store.h"
#include "platform/registry.h"

namespace tavix::machine {

// A registry in memory, without HKEY_CLASSES_ROOT. Wrap it in MergedRegistry to get that.
class MachineRegistry : public platform::Registry {
 public:
  bool VisitSubKeys(platform::Hive hive, TextView key, const NameVisitor& visit) override;
  bool VisitValues(platform::Hive hive, TextView key, const ValueVisitor& visit) override;
  std::optional<Text> ReadValue(platform::Hive hive, TextView key, TextView name) override;
  platform::Existence KeyExists(platform::Hive hive, TextView key) override;
  bool WriteString(platform::Hive hive, TextView key, TextView name, TextView data) override;
  bool DeleteKey(platform::Hive hive, TextView key) override;
  bool DeleteValue(platform::Hive hive, TextView key, TextView name) override;

  // Makes a key and all keys above it. False on failure; nothing is changed then.
  bool MakeKey(platform::Hive hive, TextView key);
  // Writes a value of any type. Makes the key if it is missing. False on failure; nothing is changed then.
  bool SetValue(platform::Hive hive, TextView key, TextView name, uint32_t type, std::string data);

  // Deny makes a key, but not those below it, impossible to open. It still exists and is listed by its
  // parent. Reading it gives nothing; writing in it, making keys in it and deleting it fail. Allow undoes
  // that.
  void Deny(platform::Hive hive, TextView key);
  void Allow(platform::Hive hive, TextView key);

  // Whether anything differs since the registry was made or MarkUnchanged was called.
  bool Changed() const { return changed_; }
  void MarkUnchanged() { changed_ = false; }

  // The content, for loading and saving. Access here ignores Deny and doesn't set Changed.
  RegistryStore& Store() { return store_; }
  const RegistryStore& Store() const { return store_; }

 private:
  bool IsDenied(platform::Hive hive, TextView key) const;
  // The key. Null when it is missing or denied.
  RegistryKey* Open(platform::Hive hive, TextView key);
  RegistryKey* OpenOrMake(platform::Hive hive, TextView key);
  // Deletes the subkey `name` of `parent` with everything below it, except denied keys and the keys above
  // them. True when nothing of it stays.
  bool DeleteTree(platform::Hive hive, const Text& path, RegistryKey& parent, TextView name);

  RegistryStore store_;
  std::set<std::pair<platform::Hive, Text>> denied_;  // paths upper-cased
  bool changed_ = false;
};

}  // namespace tavix::machine
