#pragma once

#include <optional>

#include "platform/shell.h"

namespace tavix {

// The scripting runtime's shell object, used for its special folders alone. With no shell behind it there
// are none.
class ShellObject {
 public:
  ShellObject() = default;
  explicit ShellObject(platform::Shell* shell) : shell_(shell) {}

  // A folder by its name, or by its position in the collection in decimal digits.
  std::optional<Text> SpecialFolders(TextView item) const {
    return shell_ != nullptr ? shell_->SpecialFolderByName(item) : std::nullopt;
  }

 private:
  platform::Shell* shell_ = nullptr;
};

namespace mdlPubSelf {
inline ShellObject shellObject;
}

}  // namespace tavix
