#include "contract/registry_contract.h"

#include <cstring>

namespace tavix::contract {

std::vector<Text> RegistryContract::SubKeys(Hive hive, TextView key) {
  std::vector<Text> names;
  stage->Use().VisitSubKeys(hive, key, [&names](TextView name) { names.emplace_back(name); });
  return names;
}

NamesAndData RegistryContract::Values(Hive hive, TextView key) {
  NamesAndData values;
  stage->Use().VisitValues(hive, key,
                           [&values](TextView name, TextView data) { values.emplace_back(name, data); });
  return values;
}

std::optional<Text> RegistryContract::Read(Hive hive, TextView key, TextView name) {
  return stage->Use().ReadValue(hive, key, name);
}

bool RegistryContract::Exists(Hive hive, TextView key) { return stage->Use().KeyExists(hive, key) == true; }

bool RegistryContract::Write(Hive hive, TextView key, TextView name, TextView data) {
  return stage->Use().WriteString(hive, key, name, data);
}

Text In(TextView key) { return Concat(kPlace, u"\\", key); }

std::string Bytes(TextView text) {
  std::string bytes(text.size() * sizeof(char16_t), '\0');
  if (!text.empty()) std::memcpy(bytes.data(), text.data(), bytes.size());
  return bytes;
}

}  // namespace tavix::contract
