#pragma once

#include "scan/registry_list.h"

namespace tavix::mdlPubSelf {

// The tests of registry lists. Each gives the name of the row, or nothing where the entry is no finding. A
// command is a text of which ExtractCommandPath makes a path; one that can't be judged is no finding unless
// said otherwise. An entry is a finding only if its target is known to be missing: where the test of a file,
// a folder or a key can't be answered, it is none.

// Every entry, by its value, which may be empty.
std::optional<Text> ListValue(const RegistryEntry& entry);
// Every entry with a name.
std::optional<Text> ListName(const RegistryEntry& entry);

// The entry's name is the path of a file, taken as it stands.
std::optional<Text> NameIsNoFile(const RegistryEntry& entry);
// The entry's name is a command, and leads to no file or to no folder.
std::optional<Text> NameLeadsToNoFile(const RegistryEntry& entry);
std::optional<Text> NameLeadsToNoFolder(const RegistryEntry& entry);
// The entry's value is a command, and leads to no file.
std::optional<Text> ValueLeadsToNoFile(const RegistryEntry& entry);
// The entry's data is a command, and leads to no file. One that can't be judged is a finding without a name.
std::optional<Text> DataLeadsToNoFile(const RegistryEntry& entry);

// The data is the name of a file in the fonts folder, a whole path too.
std::optional<Text> FontIsMissing(const RegistryEntry& entry);
// The data is a folder, the name a file in it.
std::optional<Text> HelpFileIsMissing(const RegistryEntry& entry);
// The value occurs nowhere in the names of the type libraries, letter case regarded.
std::optional<Text> TypeLibraryIsMissing(const RegistryEntry& entry);
// A key without subkeys that has no value, or its default value alone.
std::optional<Text> SoftwareIsObsolete(const RegistryEntry& entry);
// The uninstaller of a key that isn't named like a class identifier.
std::optional<Text> UninstallerIsMissing(const RegistryEntry& entry);
// Neither start menu has a shortcut or folder of the name.
std::optional<Text> MenuItemIsMissing(const RegistryEntry& entry);

}  // namespace tavix::mdlPubSelf
