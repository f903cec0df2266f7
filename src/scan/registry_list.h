#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/registry.h"
#include "scan/substring_index.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

struct RegistryEntry;

// The name under which an entry is listed, or nothing where it is no finding.
using RegistryTest = std::optional<Text> (*)(const RegistryEntry& entry);

enum class RegistryEntries : uint8_t { SubKeys, ValueNames, Values };

// A list of the registry whose entries are tested one by one, each that fails being a row. The row's tag
// follows from the rest: "RK" with the key of an entry that is a key, "RI" with key and name of a value.
struct RegistryList {
  TextView Status;  // shown at the start, as it stands
  platform::Hive Hive;
  TextView Root;
  // Where this is not empty, the entries are not those of the root: each subkey of it has a list of its own
  // at this path below it.
  TextView Inner = {};
  RegistryEntries Entries;
  // What the test reads of an entry that is a key: a value, the default one for the empty name, of the key
  // at this path below it.
  TextView ValueKey = {};
  TextView ValueName = {};
  RegistryTest Test;
  TextView Type;
  TextView Location;  // a `*` in it stands for the entry's name
  bool Ticked = true;
  bool Yields = false;  // lets the user interface run after each entry
};

// What tests look up once a list.
class RegistryLookups {
 public:
  // A special folder of the shell; empty where there is none.
  const Text& SpecialFolder(TextView name);
  // The names of all type libraries, as one folded text; null where they can't all be read.
  SubstringIndex* TypeLibraries();

 private:
  struct Folder {
    TextView Name;
    Text Path;
  };
  std::vector<Folder> folders_;
  bool typeLibrariesAsked_ = false;
  std::optional<SubstringIndex> typeLibraries_;
};

struct RegistryEntry {
  const RegistryList& List;
  TextView Key;   // the key that it was found in
  TextView Name;  // of the subkey or value
  TextView Data;  // of a value of a list of values
  RegistryLookups& Lookups;

  // The key of an entry that is one.
  Text Path() const { return Concat(Key, u"\\", Name); }
  // The value that the list says is to be read; empty where it is missing.
  Text Value() const;
};

// Goes through the lists one after the other and adds a row for each finding. Entries are taken in the order
// of the registry; nothing is merged. Cancel does not end it.
void ScanRegistryLists(std::span<const RegistryList> lists);

}  // namespace tavix::mdlPubSelf
