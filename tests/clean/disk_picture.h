#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/machine/formats/file_store.h"
#include "text/letter_case.h"
#include "text/text.h"

namespace tavix::lost {

using machine::EntryKind;

struct DiskItem {
  EntryKind kind = EntryKind::Folder;
  std::string content = {};
  // Of a link, names with backslashes between them; the first is a backslash where it leads from the root of
  // the machine on. It leads out of the machine where it is a single "?".
  Text link = {};

  bool operator==(const DiskItem&) const = default;
};

// All files of a machine at one moment, with a reading of paths of its own: nothing here is shared with the
// program. Items stand under their names from the machine's root on ("drives\C\Users"), letter case aside.
class DiskPicture {
 public:
  using Items = std::map<Text, DiskItem, LessIgnoringCase>;

  Items items;
  std::set<char16_t> notReady;  // letters of drives

  // Where an absolute path of the machine leads, as a key of `items`; nothing when nothing stands there.
  // Links on the way are followed, one at the end with `followLast`.
  std::optional<Text> Resolve(TextView path, bool followLast) const;
  bool IsFolder(TextView path) const;
  bool IsFile(TextView path) const;
  const DiskItem* Find(TextView key) const;

  // The keys of what lies directly in a folder.
  std::vector<Text> Children(TextView key) const;
  // With all below it.
  void Remove(const Text& key);
  void Move(const Text& key, const Text& newKey);
};

// "drives\C\a" of "C:\a"; nothing for what is no whole path on a drive.
std::optional<std::vector<Text>> NamesOfPath(TextView path);
// "C:\a" of "drives\C\a".
Text PathOfKey(TextView key);
Text ParentOf(TextView key);
TextView NameOf(TextView key);
// A key and all keys above it but "drives".
std::vector<Text> WithParents(TextView key);
// Whether a key is the root of a drive.
bool IsRoot(TextView key);

// Where they differ, one line an item.
std::string Difference(const DiskPicture& expected, const DiskPicture& found);

}  // namespace tavix::lost
