#pragma once

#include <optional>
#include <vector>

#include "platform/registry.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// What a row's tag says: what kind of thing is to be done, and to what. It is cut at every ": ", so a
// payload ends at the first one in it; the blanks at both its ends fall away.
struct Action {
  TextView kind;
  std::optional<TextView> payload;
};
Action ReadAction(TextView tag);

// A key or value named by a payload, cut at every ", ": what stands behind such a cut is lost.
struct RegistryTarget {
  platform::Hive hive = platform::Hive::Users;
  std::optional<TextView> key;
  std::optional<TextView> value;
};
RegistryTarget ReadRegistryTarget(TextView payload);

// The pieces of a payload that names several values. They keep the blanks around the separator, so that the
// first value's name ends in one and the second hive's name, which begins with one, is no known hive.
std::vector<TextView> SplitRegistryTargets(TextView payload);

// The hive of exactly that name, HKEY_USERS for any other text.
platform::Hive HiveByName(TextView name);

}  // namespace tavix::mdlPubSelf
