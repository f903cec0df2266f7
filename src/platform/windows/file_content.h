#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

// The content of files. Paths are normal ones (windows_path.h); links are followed. The contract is that of
// platform::FileSystem's ReadFile, WriteFile, AppendToFile and CreateTextFile.
namespace tavix::windows {

std::optional<std::string> ReadContent(TextView path);
bool ReplaceContent(TextView path, std::string_view content);
bool AppendContent(TextView path, std::string_view content);
bool CreateEmptyFile(TextView path, bool overwrite);

// An unused path in a folder for a temporary file, in the extended form (windows_path.h).
Text TemporaryPath(TextView folder);

}  // namespace tavix::windows
