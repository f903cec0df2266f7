#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/machine/formats/registry_store.h"
#include "platform/machine/formats/text_decoding.h"

namespace tavix::machine {

// The registry in the registry editor's text form, "Windows Registry Editor Version 5.00".

// Applies a file to the store. `bytes` are a whole file: UTF-16 with a byte order mark, or UTF-8 with or
// without one. Keys under HKEY_CLASSES_ROOT go to HKEY_LOCAL_MACHINE\Software\Classes. Returns nothing on
// success. Otherwise the first error; everything before it has been applied.
std::optional<TextError> ReadRegistryText(std::string_view bytes, RegistryStore& store);

// The file of a whole hive: UTF-16 with a byte order mark, CR LF at line ends, a line for every key, in the
// order of the upper-cased names. Equal hives give equal bytes. Reading the file into an empty store restores
// the hive.
std::string WriteRegistryText(const RegistryStore& store, platform::Hive hive);

}  // namespace tavix::machine
