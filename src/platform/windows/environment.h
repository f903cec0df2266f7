#pragma once

#include <optional>

#include "text/text.h"

// The environment variables of this process. The contract is that of platform::Shell::EnvironmentVariable and
// ExpandEnvironment.
namespace tavix::windows {

std::optional<Text> Variable(TextView name);
Text ExpandVariables(TextView text);

}  // namespace tavix::windows
