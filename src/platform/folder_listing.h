#pragma once

#include <cstdint>
#include <vector>

#include "platform/file_system.h"
#include "text/text.h"

namespace tavix::platform {

// Names in the order in which they were added. They share one text.
class NameList {
 public:
  void Add(TextView name);
  size_t Count() const { return ends_.size(); }
  TextView At(size_t index) const;

 private:
  Text text_;
  std::vector<size_t> ends_;
};

// What the reading of one folder has found. The names share one text, so an entry takes little memory.
class FolderListing {
 public:
  FolderListing() = default;
  // A reading that asks `goesOn` now and then, on the thread that reads, whether it goes on.
  explicit FolderListing(GoesOn goesOn) : goesOn_(std::move(goesOn)) {}

  // Call it for each entry that is found, also for one that is left out. False when the reading is given up.
  bool Continue() { return ++found_ % kStep != 0 || !goesOn_ || goesOn_(); }
  void Add(const DirectoryEntry& entry);

  // Call it after the reading: sorts by upper-cased names, equal ones by the names themselves. `goesOn` isn't
  // used any more.
  void Finish();

  size_t Count() const { return entries_.size(); }
  DirectoryEntry At(size_t index) const;
  // The folders that aren't links.
  NameList Folders() const;
  // The memory that it takes.
  size_t Bytes() const;

  // Calls `visit` for each entry, and asks `goesOn` now and then. False when it says no.
  template <class Visitor>
  bool Visit(const Visitor& visit, const GoesOn& goesOn) const {
    for (size_t i = 0; i < entries_.size(); ++i) {
      if (goesOn && i % kStep == kStep - 1 && !goesOn()) return false;
      visit(At(i));
    }
    return true;
  }

 private:
  // Entries between two questions whether to go on.
  static constexpr size_t kStep = 1024;

  struct Entry {
    uint64_t size;
    DateTime modified;
    DateTime accessed;
    size_t nameStart;
    uint16_t nameLength;
    uint8_t attributes;
    bool folder : 1;
    bool link : 1;
    bool known : 1;
  };

  TextView NameOf(const Entry& entry) const {
    return TextView(names_).substr(entry.nameStart, entry.nameLength);
  }

  Text names_;
  std::vector<Entry> entries_;
  GoesOn goesOn_;
  size_t found_ = 0;
};

}  // namespace tavix::platform
