#pragma once

#include <optional>

#include "text/text.h"

// Folders of the system. The contract is that of platform::Shell::SpecialFolderByNumber, SpecialFolderByName,
// UserTempFolder and SystemTempFolder.
namespace tavix::windows {

std::optional<Text> FolderByNumber(int number);
std::optional<Text> FolderByName(TextView name);
std::optional<Text> UserTemp();
std::optional<Text> SystemTemp();

}  // namespace tavix::windows
