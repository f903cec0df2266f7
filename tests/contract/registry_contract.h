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

// A registry to try the contract on, with what the interface leaves out: values of any type and keys that
// can't be read. HKEY_CLASSES_ROOT is merged in it. It starts without the keys named below and takes them
// away at its end.
class RegistryStage {
 public:
  virtual ~RegistryStage() = default;
  // Everything that was done before is settled when it returns, as it would be for the next program.
  virtual platform::Registry& Use() = 0;
  virtual bool MakeKey(Hive hive, TextView key) = 0;
  // `bytes` as the registry holds them.
  virtual bool SetValue(Hive hive, TextView key, TextView name, uint32_t type, std::string bytes) = 0;
  // Takes away all rights on the key itself. False where this machine doesn't know rights.
  virtual bool Deny(Hive hive, TextView key) = 0;
  // False on a system that lists values in another order than the one in which they were made.
  virtual bool KeepsOrderOfValues() { return true; }
};

// Keys that belong to the tests, in the hives of the user and of the machine alike.
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
// The bytes of a text's code units, with no terminator.
std::string Bytes(TextView text);

}  // namespace tavix::contract
