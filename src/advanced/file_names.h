#pragma once

#include <optional>
#include <unordered_set>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The names of the files of one folder, read when they are first asked for, so that a walk doesn't look for
// each of many names that aren't there. A file that comes later isn't known.
class FileNames {
 public:
  // Whether the folder holds a file of this name.
  bool Hold(TextView folder, TextView name);

 private:
  void Read(TextView folder);

  Text folder_;
  bool asked_ = false;
  std::optional<std::unordered_set<Text>> capitals_;  // nothing when the folder can't be read
};

}  // namespace tavix::mdlPubSelf
