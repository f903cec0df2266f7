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
  // The target of a link: names with backslashes between them. It starts with a backslash if it is counted
  // from the root of the machine. "?" is a target outside the machine.
  Text link = {};

  bool operator==(const DiskItem&) const = default;
};

using Keys = std::set<Text, LessIgnoringCase>;

// All files of a machine at one moment. It resolves paths by code of its own, so that it shares no error with
// the program. The key of an item is its names from the machine's root ("drives\C\Users"), without regard to
// case.
class DiskPicture {
 public:
  using Items = std::map<Text, DiskItem, LessIgnoringCase>;

  Items items;
  std::set<char16_t> notReady;  // letters of drives

  // The key of the item at an absolute path of the machine; nothing if there is none. Follows links on the
  // way, and with `followLast` a link at the end of the path.
  std::optional<Text> Resolve(TextView path, bool followLast) const;
  bool IsFolder(TextView path) const;
  bool IsFile(TextView path) const;
  const DiskItem* Find(TextView key) const&;
  const DiskItem* Find(TextView key) && = delete;  // the item would go with the picture
  bool Has(TextView key) const { return Find(key) != nullptr; }

  // The keys of the items directly in a folder.
  std::vector<Text> Children(TextView key) const;
  // Adds the keys of an item and of all below it.
  void AddTree(Keys& keys, const Text& key) const;
  // Removes an item with all below it.
  void Remove(const Text& key);
  void Move(const Text& key, const Text& newKey);
};

// The names of "drives\C\a" for "C:\a"; nothing if it is no absolute path on a drive.
std::optional<std::vector<Text>> NamesOfPath(TextView path);
// "C:\a" for "drives\C\a".
Text PathOfKey(TextView key);
Text ParentOf(TextView key);
TextView NameOf(TextView key);
// The key and the keys of all its parents, except "drives".
std::vector<Text> WithParents(TextView key);
// Whether a key is the root of a drive.
bool IsRoot(TextView key);

// The differences of two pictures, one line for each item.
std::string Difference(const DiskPicture& expected, const DiskPicture& found);

}  // namespace tavix::lost
