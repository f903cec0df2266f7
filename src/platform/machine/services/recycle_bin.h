#pragma once

#include <optional>

#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

inline constexpr TextView kRecycleFolder = u"recycle";

// The recycle bin of a machine: its folder recycle/.
class RecycleBin {
 public:
  struct Content {
    uint64_t items = 0;
    uint64_t bytes = 0;
  };

  explicit RecycleBin(FileStore& store) : store_(store) {}

  // Moves an entry of a folder into the bin, under a free name. False on failure; the entry stays then.
  bool Take(StoreFolder& folder, const StoreEntry& entry);
  // Deletes everything in the bin. True also for an empty bin. False when anything stays.
  bool Empty();
  // The number of items and their size; a folder counts as one item. Nothing when the bin can't be read.
  std::optional<Content> Count();

 private:
  std::unique_ptr<StoreFolder> Open();

  FileStore& store_;
};

}  // namespace tavix::machine
