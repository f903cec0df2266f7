#pragma once

#include <string>

#include "platform/machine/host/host_handle_posix.h"

namespace tavix::machine {

// Watches over paths of folders: whether each still leads to the folder that it led to, and no name has come
// into that.
class HostWatch {
 public:
  // Watches each folder on a path below an open one, from now on. False where the host can't.
  bool Add(int root, const std::string& path);
  // Whether no folder on a watched path was renamed or removed, no name came into the last one and nothing
  // was mounted since it was added. After a false answer nothing is watched any more.
  bool Quiet();
  // Paths watched.
  int Count() const { return count_; }
  // Another number whenever what was watched is watched no more.
  unsigned Generation() const { return generation_; }
  void Clear();

 private:
  bool Start();

  HostHandle changes_;
  HostHandle mounts_;
  int count_ = 0;
  unsigned generation_ = 0;
};

}  // namespace tavix::machine
