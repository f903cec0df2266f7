#include "export/registry_writer.h"

#include <filesystem>

#include "platform/hive_name.h"
#include "platform/machine/formats/registry_text.h"

namespace tavix::exporting {

bool WriteRegistry(machine::HostDirectory& folder, const machine::RegistryStore& registry) {
  if (!folder.MakeFolder("registry")) return false;
  const auto files = folder.OpenFolder("registry");
  if (files == nullptr) return false;
  for (const platform::Hive hive : machine::RegistryStore::kHives) {
    const machine::RegistryKey& root = *registry.Root(hive);
    if (root.Keys().empty() && root.AllValues().empty()) continue;
    const std::filesystem::path name = Concat(platform::HiveName(hive), u".reg");
    if (!files->WriteNewFile(name, machine::WriteRegistryText(registry, hive))) return false;
  }
  return true;
}

}  // namespace tavix::exporting
