#pragma once

#include <optional>

#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

inline constexpr TextView kRecycleFolder = u"recycle";

// The folder recycle/ of a machine.
class RecycleBin {
 public:
  struct Content {
    uint64_t items = 0;
    uint64_t bytes = 0;
  };

  explicit RecycleBin(FileStore& store) : store_(store) {}

  // Moves what stands under a name of a folder into the bin, under a name that is free there.
  bool Take(StoreFolder& folder, const StoreEntry& entry);
  // True as well for an empty bin; false when something stays.
  bool Empty();
  // What lies in it, a folder as one item; nothing when it can't be read.
  std::optional<Content> Count();

 private:
  std::unique_ptr<StoreFolder> Open();

  FileStore& store_;
};

}  // namespace tavix::machine
