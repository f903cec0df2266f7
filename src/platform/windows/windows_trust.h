#pragma once

#include "platform/trust.h"

namespace tavix::windows {

// Owners, access lists and rights of the running system. A link is opened as itself, so its target is never
// changed.
class WindowsTrust : public platform::Trust {
 public:
  bool Elevated() override;
  bool OwnedByOthers(TextView path) override;
  platform::Protection Protect(TextView path) override;
  bool LiesAmongPrograms(TextView folder) override;
  bool Rename(TextView path, TextView name) override;
};

}  // namespace tavix::windows
