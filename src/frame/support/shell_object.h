#pragma once

#include <optional>

#include "platform/shell.h"

namespace tavix {

// The scripting runtime's shell object, used only for its special folders. One made without a shell has
// none.
class ShellObject {
 public:
  ShellObject() = default;
  explicit ShellObject(platform::Shell* shell) : shell_(shell) {}

  // A folder by its name, or by its position in the collection in decimal digits.
  std::optional<Text> SpecialFolders(TextView item) const { return shell_->SpecialFolderByName(item); }

 private:
  platform::Shell* shell_ = platform::noShell;
};

namespace mdlPubSelf {
inline ShellObject shellObject;
}

}  // namespace tavix
