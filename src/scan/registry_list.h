#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/registry.h"
#include "scan/known_files.h"
#include "scan/substring_index.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

struct RegistryEntry;

// Judges an entry: the name of its result row, or nothing if the entry is in order.
using RegistryTest = std::optional<Text> (*)(const RegistryEntry& entry);

enum class RegistryEntries : uint8_t { SubKeys, ValueNames, Values };

// A list of registry entries to be tested one by one; each finding becomes a row. The row's action deletes
// the entry: an "RK" for a key, an "RI" for a value.
struct RegistryList {
  TextView Status;  // the status line during the scan
  platform::Hive Hive;
  TextView Root;
  // If not empty, each subkey of the root has a list of its own at this path below it, and those lists are
  // tested in place of the root.
  TextView Inner = {};
  RegistryEntries Entries;
  // For an entry that is a key: the value that the test reads, in the key at this path below the entry. An
  // empty name is the default value.
  TextView ValueKey = {};
  TextView ValueName = {};
  RegistryTest Test;
  TextView Type;
  TextView Location;  // a `*` in it stands for the entry's name
  bool Ticked = true;
  bool Yields = false;  // runs the user interface after each entry
};

// What the tests of one function look up only once.
class RegistryLookups {
 public:
  // The files that commands lead to.
  KnownFiles Files;
  // A special folder of the shell. Nothing if there is none or it can't be told.
  const std::optional<Text>& SpecialFolder(TextView name);
  // The folded names of all type libraries; null if they can't all be read.
  SubstringIndex* TypeLibraries();

 private:
  struct Folder {
    TextView Name;
    std::optional<Text> Path;
  };
  std::vector<Folder> folders_;
  bool typeLibrariesAsked_ = false;
  std::optional<SubstringIndex> typeLibraries_;
};

struct RegistryEntry {
  const RegistryList& List;
  TextView Key;   // the key that holds it
  TextView Name;  // name of the subkey or value
  TextView Data;  // data of the value, in a list of values
  RegistryLookups& Lookups;
  platform::KeysBelow* Below = nullptr;  // of Key, for entries that are keys; null if it has none

  // The path of an entry that is a key.
  Text Path() const { return Concat(Key, u"\\", Name); }
  // The value named by the list; empty if it is missing.
  Text Value() const;
};

// Tests the lists one after the other and adds a row for each finding. Entries keep the order of the
// registry; nothing is merged. Files are looked up once for all lists. Cancel doesn't end it.
void ScanRegistryLists(std::span<const RegistryList> lists);

}  // namespace tavix::mdlPubSelf
