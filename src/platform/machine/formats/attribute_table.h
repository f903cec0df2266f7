#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/machine/formats/file_store.h"
#include "text/letter_case.h"

namespace tavix::machine {

// The attributes of files that differ from 0, by their paths. Over a store they are those of
// attributes.ini; what changed is written back by Save.
class AttributeTable {
 public:
  explicit AttributeTable(FileStore* store = nullptr);

  // False when attributes.ini is there and can't be read. Then Save fails, so that it stays as it is.
  bool Readable() const { return readable_; }
  bool Empty() const { return attributes_.empty(); }
  uint32_t Get(TextView path) const;
  void Set(TextView path, uint32_t attributes);
  // Forgets a path and all below it.
  void Erase(TextView path);
  // Gives what a path and all below it have to another path, which has only that then.
  void Move(TextView from, TextView to);
  // Calls with each path at or below `path` and its attributes until a call says false.
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
  // Through a temporary file and a rename. False on failure; the changes are kept for another try.
  bool Save();

 private:
  static bool StartsAt(TextView path, TextView start);
  // The path itself counts.
  static bool IsBelow(TextView path, TextView folder);

  FileStore* store_;
  std::map<Text, uint32_t, LessIgnoringCase> attributes_;
  bool changed_ = false;
  bool readable_ = true;
};

}  // namespace tavix::machine
