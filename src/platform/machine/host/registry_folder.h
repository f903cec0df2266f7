#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tavix::machine {

// The folder that holds the registry's files. Its files are replaced as one: the new folder is made ready
// beside the old as "<folder>~saving", with the file "~saving" in it for a mark, and the two change places.
// Whichever of them bears the mark is the new one, so what a crash left can be told and put right. Then
// everything in the old folder that is no .reg file moves over, the old folder goes, and last the mark.
struct NewFile {
  std::filesystem::path Name;
  std::string Bytes;
};

// Whether a file of this name is one of the registry's; letter case aside.
bool IsRegistryFile(const std::filesystem::path& name);

// Puts right what a crash of ReplaceRegistryFiles left, either all old or all new. False, with a reason,
// when that can't be done; trying again later is safe.
bool RecoverRegistryFolder(const std::filesystem::path& folder, std::string& reason);

// Called before every step that changes something on the disk. False stops there, as a crash would.
using StepHook = std::function<bool()>;

// Replaces all .reg files of a folder, which is made where it is missing. After a failure, or a crash at
// any moment, RecoverRegistryFolder leaves the old files or the new ones.
bool ReplaceRegistryFiles(const std::filesystem::path& folder, const std::vector<NewFile>& files,
                          std::string& reason, const StepHook& step = {});

}  // namespace tavix::machine
