#pragma once

#include <string>

#include "export/name_mask.h"
#include "platform/machine/formats/registry_store.h"

namespace tavix::exporting {

// A registry with the names and data of `registry` masked. Binary data become zeros.
machine::RegistryStore Masked(const machine::RegistryStore& registry, const NameMask& mask);

// The content of a file that the program reads, masked: a shortcut with its targets alone, any other file as
// text. A file with a zero byte is no text and becomes empty.
std::string MaskedContent(const std::string& content, const NameMask& mask);

}  // namespace tavix::exporting
