#pragma once

#include "scan/registry_list.h"

namespace tavix::mdlPubSelf {

// The tests of registry lists. Each gives the name of the row, or nothing if the entry is no finding. A
// "command" is a text that ExtractCommandPath makes a path of; one that can't be judged is no finding unless
// a test says otherwise. Only a target that is known to be missing makes an entry a finding, not one that
// can't be looked at.

// Lists every entry by its value, which may be empty.
std::optional<Text> ListValue(const RegistryEntry& entry);
// Lists every entry that has a name.
std::optional<Text> ListName(const RegistryEntry& entry);

// The name is the path of a missing file.
std::optional<Text> NameIsNoFile(const RegistryEntry& entry);
// The name is a command that leads to a missing file, or to a missing folder.
std::optional<Text> NameLeadsToNoFile(const RegistryEntry& entry);
std::optional<Text> NameLeadsToNoFolder(const RegistryEntry& entry);
// The value is a command that leads to a missing file.
std::optional<Text> ValueLeadsToNoFile(const RegistryEntry& entry);
// The data is a command that leads to a missing file. One that can't be judged is a finding without a name.
std::optional<Text> DataLeadsToNoFile(const RegistryEntry& entry);

// The data is a name or whole path of a file that is missing in the fonts folder.
std::optional<Text> FontIsMissing(const RegistryEntry& entry);
// The data is a folder, and the name a file missing in it.
std::optional<Text> HelpFileIsMissing(const RegistryEntry& entry);
// The value occurs nowhere in the names of the type libraries. Letter case matters.
std::optional<Text> TypeLibraryIsMissing(const RegistryEntry& entry);
// A key without subkeys and without values, or with its default value only.
std::optional<Text> SoftwareIsObsolete(const RegistryEntry& entry);
// The command leads to a missing file, and the key isn't named like a class identifier.
std::optional<Text> UninstallerIsMissing(const RegistryEntry& entry);
// Neither start menu has a shortcut or folder of this name.
std::optional<Text> MenuItemIsMissing(const RegistryEntry& entry);

}  // namespace tavix::mdlPubSelf
