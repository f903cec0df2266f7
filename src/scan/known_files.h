#pragma once

#include <functional>
#include <unordered_map>

#include "platform/existence.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// Answers which files exist, and asks the disk only once about each path: many entries of the registry name
// the same file. A file that appears or vanishes later isn't noticed, so use one for a short time.
class KnownFiles {
 public:
  // As platform::FileSystem::FileExists. "Can't tell" isn't remembered.
  platform::Existence FileExists(TextView path);

 private:
  struct Hash {
    using is_transparent = void;
    size_t operator()(TextView path) const { return std::hash<TextView>()(path); }
  };
  struct Same {
    using is_transparent = void;
    bool operator()(TextView left, TextView right) const { return SameText(left, right); }
  };
  static constexpr size_t kMost = 50'000;  // paths remembered at most

  std::unordered_map<Text, bool, Hash, Same> answers_;
};

}  // namespace tavix::mdlPubSelf
