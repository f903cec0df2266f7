#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "platform/machine/host/host_handle_posix.h"

namespace tavix::machine {

// Watches paths of folders: whether each still leads to the same folder, and no name was added to that
// folder. To ask takes one call that is several times cheaper than to open the path again.
//
// Watches are taken off one by one: the host takes milliseconds to close a descriptor that has watches.
class HostWatch {
 public:
  // Starts to watch each folder on a path below an open folder. False when the host can't.
  bool Add(int root, const std::string& path);
  // True when, since the paths were added, no folder on them was renamed or removed, no name was added to the
  // last one, and nothing was mounted. A false answer drops all watches.
  bool Quiet();
  // The number of watched paths.
  int Count() const { return count_; }
  // Changes whenever watches are dropped.
  unsigned Generation() const { return generation_; }
  void Clear();

 private:
  bool Start();
  bool Watch(int folder, uint32_t events);

  HostHandle changes_;
  HostHandle mounts_;
  std::set<int> watches_;
  int count_ = 0;
  unsigned generation_ = 0;
};

}  // namespace tavix::machine
