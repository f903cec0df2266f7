#pragma once

#include <optional>

#include "text/text.h"

// The variables of the running program. The contract is that of platform::Shell.
namespace tavix::windows {

std::optional<Text> Variable(TextView name);
Text ExpandVariables(TextView text);

}  // namespace tavix::windows
