#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

// What files hold. Paths are normal ones (windows_path.h); links are followed. The contract is that of
// platform::FileSystem.
namespace tavix::windows {

std::optional<std::string> ReadContent(TextView path);
bool ReplaceContent(TextView path, std::string_view content);
bool AppendContent(TextView path, std::string_view content);
bool CreateEmptyFile(TextView path, bool overwrite);

// The path, of any length, of a file in a folder that nothing stands at, for a moment's use.
Text TemporaryPath(TextView folder);

}  // namespace tavix::windows
