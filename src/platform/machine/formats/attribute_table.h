#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/machine/formats/file_store.h"
#include "text/letter_case.h"

namespace tavix::machine {

// The file attributes that differ from 0, by path. With a store they are read from attributes.ini at its
// root, and Save writes changes back.
class AttributeTable {
 public:
  explicit AttributeTable(FileStore* store = nullptr);

  // False when attributes.ini exists and can't be read. Then Save fails, so that the file isn't overwritten.
  bool Readable() const { return readable_; }
  bool Empty() const { return attributes_.empty(); }
  uint32_t Get(TextView path) const;
  // Answers for the entries of one folder, in the order of their upper-cased names. Most folders have no
  // attributes, and most of these questions need no search. A change of the table meanwhile may be missed.
  class InFolder {
   public:
    InFolder(const AttributeTable& table, TextView folder);
    // `name` must not come before the one asked for last.
    uint32_t Get(TextView name);

   private:
    void GoTo(TextView name);

    const AttributeTable& table_;
    Text path_;      // of the folder, with a backslash, and of the last name that was searched
    size_t length_;  // of the folder's path with the backslash
    // The first path at or after that name, without the folder's, and its attributes. Nothing if the folder
    // has no more.
    std::optional<std::pair<Text, uint32_t>> next_;
  };
  void Set(TextView path, uint32_t attributes);
  // Removes the entries of a path and everything below it.
  void Erase(TextView path);
  // Moves the entries of a path and everything below it to another path. Entries that were there are removed.
  void Move(TextView from, TextView to);
  // Calls `visit` with each path at or below `path` and its attributes, until a call returns false. Returns
  // whether all calls returned true.
  template <class Visitor>
  bool VisitTree(TextView path, const Visitor& visit) const {
    for (auto at = attributes_.lower_bound(path); at != attributes_.end() && StartsAt(at->first, path);
         ++at) {
      if (IsBelow(at->first, path) && !visit(at->first, at->second)) return false;
    }
    return true;
  }

  // Whether Save has anything to write.
  bool Changed() const { return changed_; }
  // Writes the changes. A crash leaves the old file or the new one. False on failure; the changes stay for
  // another try.
  bool Save();

 private:
  static bool StartsAt(TextView path, TextView start);
  // Whether a path is `folder` or lies below it.
  static bool IsBelow(TextView path, TextView folder);

  FileStore* store_;
  std::map<Text, uint32_t, LessIgnoringCase> attributes_;
  bool changed_ = false;
  bool readable_ = true;
};

}  // namespace tavix::machine
