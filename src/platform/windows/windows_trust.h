#pragma once

#include <map>
#include <optional>
#include <vector>

#include "platform/trust.h"
#include "platform/windows/access_list.h"

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

 private:
  // The trusted owners of the program's data: this user, the administrators, the system.
  const std::vector<Identity>& TrustedOwners();

  // Whether the volume of an open file keeps owners and access lists. False when it can't be told which
  // volume that is, true when the volume doesn't tell. Asking a volume takes long, so each is asked once.
  bool VolumeKeepsOwners(HANDLE file);

  std::map<DWORD, bool> keepOwners_;  // by the serial number of the volume
  // A process keeps its user and its rights. Nothing until asked for.
  std::optional<bool> elevated_;
  std::vector<Identity> owners_;
};

}  // namespace tavix::windows
