#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tavix::machine {

// The folder of the registry's files. Its .reg files are replaced together:
// - The new folder is prepared beside the old one as "<folder>~saving", with a file "~saving" in it as a
//   mark.
// - The two folders exchange names. The marked folder is always the new one, so recovery can tell them apart.
// - Everything in the old folder except .reg files moves to the new one. Then the old folder is removed, and
//   last the mark.
struct NewFile {
  std::filesystem::path Name;
  std::string Bytes;
};

// Whether a name is that of a registry file (.reg), ignoring letter case.
bool IsRegistryFile(const std::filesystem::path& name);

// Recovers from a crash of ReplaceRegistryFiles: leaves all old files or all new ones. False with a reason on
// failure; trying again is safe.
bool RecoverRegistryFolder(const std::filesystem::path& folder, std::string& reason);

// Called before every change on disk. Returning false stops there, as a crash would.
using StepHook = std::function<bool()>;

// Replaces all .reg files of a folder. Makes the folder if it is missing. False with a reason on failure.
// After a failure or a crash at any point, RecoverRegistryFolder leaves all old files or all new ones.
bool ReplaceRegistryFiles(const std::filesystem::path& folder, const std::vector<NewFile>& files,
                          std::string& reason, const StepHook& step = {});

}  // namespace tavix::machine
