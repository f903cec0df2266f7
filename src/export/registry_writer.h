#pragma once

#include "platform/machine/formats/registry_store.h"
#include "platform/machine/host/host_directory.h"

namespace tavix::exporting {

// Writes registry/ of a machine folder, one file for each hive that isn't empty. False when it can't be
// written; a part may be there then.
bool WriteRegistry(machine::HostDirectory& folder, const machine::RegistryStore& registry);

}  // namespace tavix::exporting
