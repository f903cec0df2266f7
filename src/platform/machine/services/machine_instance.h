#pragma once

#include <filesystem>

#include "platform/instance.h"

namespace tavix::machine {

// Copies of the program over one machine folder. The folder itself is locked where the host can lock
// folders, otherwise a file .lock in it that is there only as long as the lock.
class FolderInstance : public platform::Instance {
 public:
  // `root` without links.
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
