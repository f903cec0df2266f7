#pragma once

#include <optional>
#include <unordered_set>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The names of the files in one folder. They are read once, at the first question, so that a walk doesn't ask
// the disk for each of many names that aren't there. Files that are added later aren't known.
class FileNames {
 public:
  // Whether the folder contains a file with this name. False if that can't be told.
  bool Contains(TextView folder, TextView name);

 private:
  void Read(TextView folder);

  Text folder_;
  bool read_ = false;
  std::optional<std::unordered_set<Text>> capitals_;  // empty if the folder can't be listed
};

}  // namespace tavix::mdlPubSelf
