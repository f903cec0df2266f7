#pragma once

#include <array>
#include <optional>
#include <utility>

#include "platform/registry.h"
#include "text/text.h"

namespace tavix::platform {

constexpr std::array<std::pair<Hive, TextView>, 5> kHiveNames = {
    {{Hive::ClassesRoot, u"HKEY_CLASSES_ROOT"},
     {Hive::CurrentUser, u"HKEY_CURRENT_USER"},
     {Hive::LocalMachine, u"HKEY_LOCAL_MACHINE"},
     {Hive::Users, u"HKEY_USERS"},
     {Hive::CurrentConfig, u"HKEY_CURRENT_CONFIG"}}};

// The name of a hive; empty for a number that is no hive.
constexpr TextView HiveName(Hive hive) {
  for (const auto& [known, name] : kHiveNames) {
    if (known == hive) return name;
  }
  return {};
}

// The hive of exactly this name, letter case included.
constexpr std::optional<Hive> FindHive(TextView name) {
  for (const auto& [hive, known] : kHiveNames) {
    if (known == name) return hive;
  }
  return std::nullopt;
}

}  // namespace tavix::platform
