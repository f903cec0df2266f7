#pragma once

#include <optional>

#include "text/text.h"

// Where the system keeps its folders. The contract is that of platform::Shell.
namespace tavix::windows {

std::optional<Text> FolderByNumber(int number);
std::optional<Text> FolderByName(TextView name);
std::optional<Text> UserTemp();
std::optional<Text> SystemTemp();

}  // namespace tavix::windows
