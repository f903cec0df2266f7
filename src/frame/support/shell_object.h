#pragma once

#include <optional>

#include "platform/shell.h"

namespace tavix {

// The scripting runtime's shell object, used only for its special folders. Without a shell it has none.
class ShellObject {
 public:
  ShellObject() = default;
  explicit ShellObject(platform::Shell* shell) : shell_(shell) {}

  // A folder by its name, or by its position in the collection, counted from 0, in decimal digits. Nothing
  // for others.
  std::optional<Text> SpecialFolders(TextView item) const { return shell_->SpecialFolderByName(item); }

 private:
  platform::Shell* shell_ = platform::noShell;
};

namespace mdlPubSelf {
inline ShellObject shellObject;
}

}  // namespace tavix
