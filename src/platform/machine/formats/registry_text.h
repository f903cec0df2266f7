#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/machine/formats/registry_store.h"
#include "platform/machine/formats/text_decoding.h"

namespace tavix::machine {

// The registry in the registry editor's text form, "Windows Registry Editor Version 5.00".

// Carries out what the text says on top of what the store holds. `bytes` are a whole file: UTF-16 with its
// mark, or UTF-8 with or without one. Keys under HKEY_CLASSES_ROOT go to HKEY_LOCAL_MACHINE\Software\Classes.
// Nothing when all of it was read; else the first error, and the store has what stands before it.
std::optional<TextError> ReadRegistryText(std::string_view bytes, RegistryStore& store);

// All of a hive in one form: UTF-16 with its mark, lines ended by CR LF, a line for every key in the order
// of upper-cased names, so that two equal hives give equal bytes. Reading it into an empty store gives the
// hive back.
std::string WriteRegistryText(const RegistryStore& store, platform::Hive hive);

}  // namespace tavix::machine
