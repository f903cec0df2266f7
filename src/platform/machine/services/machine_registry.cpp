#include "platform/machine/services/machine_registry.h"

#include <vector>

#include "platform/registry_data.h"

namespace tavix::machine {
namespace {

using platform::Hive;

// Splits a path into its parent and its last name.
std::pair<TextView, TextView> SplitPath(TextView path) {
  const size_t at = path.rfind(u'\\');
  if (at == TextView::npos) return {TextView(), path};
  return {path.substr(0, at), path.substr(at + 1)};
}

}  // namespace

bool MachineRegistry::IsDenied(Hive hive, TextView key) const {
  return !denied_.empty() && denied_.contains({hive, ToUpper(key)});
}

RegistryKey* MachineRegistry::Open(Hive hive, TextView key) {
  return IsDenied(hive, key) ? nullptr : store_.Find(hive, key);
}

RegistryKey* MachineRegistry::OpenOrMake(Hive hive, TextView key) {
  if (IsDenied(hive, key)) return nullptr;
  // The nearest existing key above; new keys would be made in it.
  TextView above = key;
  while (!above.empty() && store_.Find(hive, above) == nullptr) above = SplitPath(above).first;
  if (above.size() < key.size() && IsDenied(hive, above)) return nullptr;
  return store_.Make(hive, key, changed_);
}

bool MachineRegistry::VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) {
  const RegistryKey* found = Open(hive, key);
  if (found == nullptr) return !IsDenied(hive, key);
  for (const auto& [name, subKey] : found->Keys()) visit(name);
  return true;
}

bool MachineRegistry::VisitValues(Hive hive, TextView key, const ValueVisitor& visit) {
  const RegistryKey* found = Open(hive, key);
  if (found == nullptr) return !IsDenied(hive, key);
  for (const RegistryValue& value : found->AllValues()) {
    visit(value.Name, platform::RenderData(value.Type, value.Data));
  }
  return true;
}

std::optional<Text> MachineRegistry::ReadValue(Hive hive, TextView key, TextView name) {
  const RegistryKey* found = Open(hive, key);
  const RegistryValue* value = found == nullptr ? nullptr : found->FindValue(name);
  if (value == nullptr) return std::nullopt;
  return platform::RenderData(value->Type, value->Data);
}

platform::Existence MachineRegistry::KeyExists(Hive hive, TextView key) {
  return store_.Find(hive, key) != nullptr;
}

bool MachineRegistry::WriteString(Hive hive, TextView key, TextView name, TextView data) {
  return SetValue(hive, key, name, static_cast<uint32_t>(platform::DataType::String),
                  platform::StringData(data));
}

bool MachineRegistry::MakeKey(Hive hive, TextView key) { return OpenOrMake(hive, key) != nullptr; }

bool MachineRegistry::SetValue(Hive hive, TextView key, TextView name, uint32_t type, std::string data) {
  if (name.size() > RegistryStore::kMaxValueName) return false;
  RegistryKey* found = OpenOrMake(hive, key);
  if (found == nullptr) return false;
  if (found->SetValue(name, type, std::move(data))) changed_ = true;
  return true;
}

bool MachineRegistry::DeleteTree(Hive hive, const Text& path, RegistryKey& parent, TextView name) {
  RegistryKey* key = parent.FindKey(name);
  if (key == nullptr || IsDenied(hive, path)) return false;
  std::vector<Text> names;
  for (const auto& [subKey, content] : key->Keys()) names.push_back(subKey);
  bool gone = true;
  for (const Text& subKey : names) gone = DeleteTree(hive, Concat(path, u"\\", subKey), *key, subKey) && gone;
  if (!gone) return false;
  parent.DeleteKey(name);
  changed_ = true;
  return true;
}

bool MachineRegistry::DeleteKey(Hive hive, TextView key) {
  if (key.empty() || store_.Find(hive, key) == nullptr) return false;
  const auto [path, name] = SplitPath(key);
  RegistryKey* parent = store_.Find(hive, path);
  if (!denied_.empty()) return DeleteTree(hive, Text(key), *parent, name);
  parent->DeleteKey(name);
  changed_ = true;
  return true;
}

bool MachineRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
  RegistryKey* found = Open(hive, key);
  if (found == nullptr || !found->DeleteValue(name)) return false;
  changed_ = true;
  return true;
}

void MachineRegistry::Deny(Hive hive, TextView key) { denied_.emplace(hive, ToUpper(key)); }

void MachineRegistry::Allow(Hive hive, TextView key) { denied_.erase({hive, ToUpper(key)}); }

}  // namespace tavix::machine
