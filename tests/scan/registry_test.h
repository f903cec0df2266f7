#pragma once

#include "platform/registry.h"
#include "scan/scan_test.h"

namespace tavix::mdlPubSelf {

using Texts = std::vector<Text>;

constexpr TextView kWindowsKey = u"Software\\Microsoft\\Windows\\CurrentVersion";

// The program over a machine in memory with a registry.
class RegistryScanTest : public ScanTest {
 protected:
  using Hive = platform::Hive;

  void SeedMachine(TextView key, TextView name, TextView data) { Seed(Hive::LocalMachine, key, name, data); }
  void SeedUser(TextView key, TextView name, TextView data) { Seed(Hive::CurrentUser, key, name, data); }
  // A default value below HKEY_LOCAL_MACHINE\Software\Classes.
  void SeedClass(TextView key, TextView data) { SeedMachine(Concat(u"Software\\Classes\\", key), u"", data); }
  // Below HKEY_LOCAL_MACHINE\Software\Microsoft\Windows\CurrentVersion.
  void SeedWindows(TextView key, TextView name, TextView data) {
    SeedMachine(Concat(kWindowsKey, u"\\", key), name, data);
  }
};

// A row of the Registry page.
inline RowFields RegistryRow(TextView type, TextView name, TextView location, TextView tag,
                             bool checked = true) {
  return {Text(type), Text(name), u"N/A", Concat(u"Registry: ", location), u"00000000.0", Text(tag), checked};
}

// The names of the rows, or their tags.
inline std::vector<Text> Names(const std::vector<RowFields>& rows) {
  std::vector<Text> names;
  for (const RowFields& row : rows) names.push_back(row.name);
  return names;
}
inline std::vector<Text> Tags(const std::vector<RowFields>& rows) {
  std::vector<Text> tags;
  for (const RowFields& row : rows) tags.push_back(row.tag);
  return tags;
}

// Runs one function and returns what it finds.
class RegistryFunctionTest : public RegistryScanTest {
 protected:
  static std::vector<Text> FoundBy(TextView function) { return Names(Scan(function)); }
  static std::vector<Text> TagsBy(TextView function) { return Tags(Scan(function)); }
};

}  // namespace tavix::mdlPubSelf
