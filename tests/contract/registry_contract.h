#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/registry.h"

namespace tavix::contract {

using platform::Hive;

// A registry under test, with the operations that its interface lacks: values of any type, keys that can't be
// read. It merges HKEY_CLASSES_ROOT. It starts without the keys named below and deletes them at its end.
class RegistryStage {
 public:
  virtual ~RegistryStage() = default;
  // The registry. Earlier changes are stored when it returns, as the next program would see them.
  virtual platform::Registry& Use() = 0;
  virtual bool MakeKey(Hive hive, TextView key) = 0;
  // `bytes` is the data exactly as the registry stores it.
  virtual bool SetValue(Hive hive, TextView key, TextView name, uint32_t type, std::string bytes) = 0;
  // Denies all access to the key itself. False if this system has no access lists.
  virtual bool Deny(Hive hive, TextView key) = 0;
  // False if the system doesn't list values in the order in which they were made.
  virtual bool KeepsOrderOfValues() { return true; }
};

// Keys for the tests, in the hives of both the user and the machine.
inline constexpr TextView kPlace = u"Software\\Tavix Contract";
inline constexpr TextView kClass = u"Tavix.Contract";  // below HKEY_CLASSES_ROOT
inline constexpr TextView kClassPlace = u"Software\\Classes\\Tavix.Contract";

struct StageMaker {
  const char* name;
  std::unique_ptr<RegistryStage> (*make)();
};
inline void PrintTo(const StageMaker& maker, std::ostream* out) { *out << maker.name; }

using NamesAndData = std::vector<std::pair<Text, Text>>;

class RegistryContract : public testing::TestWithParam<StageMaker> {
 protected:
  RegistryContract() : stage(GetParam().make()) {}

  std::vector<Text> SubKeys(Hive hive, TextView key);
  NamesAndData Values(Hive hive, TextView key);
  std::optional<Text> Read(Hive hive, TextView key, TextView name);
  bool Exists(Hive hive, TextView key);
  bool Write(Hive hive, TextView key, TextView name, TextView data);

  std::unique_ptr<RegistryStage> stage;
};

// A path below kPlace.
Text In(TextView key);
// The bytes of a text's code units, without a terminator.
std::string Bytes(TextView text);

}  // namespace tavix::contract
