#pragma once

#include <filesystem>

#include "platform/instance.h"

namespace tavix::machine {

// Detects other copies on the same machine folder by a lock: on the folder itself where the host can lock
// folders, otherwise on a file .lock in it, which exists only while it is locked.
class FolderInstance : public platform::Instance {
 public:
  // `root` contains no links.
  explicit FolderInstance(std::filesystem::path root) : root_(std::move(root)) {}
  ~FolderInstance() override;
  FolderInstance(const FolderInstance&) = delete;
  FolderInstance& operator=(const FolderInstance&) = delete;

  bool PreviousRuns() override;

 private:
  std::filesystem::path root_;
  int lock_ = -1;
};

}  // namespace tavix::machine
