#pragma once

#include <optional>
#include <vector>

#include "platform/windows/windows_api.h"

namespace tavix::windows {

// Who somebody is to the system.
class Identity {
 public:
  // Copied. Nothing of a null one.
  static std::optional<Identity> Of(PSID identity);
  // The user that the process runs as. Nothing where the system doesn't say.
  static std::optional<Identity> ThisUser();
  static std::optional<Identity> WellKnown(WELL_KNOWN_SID_TYPE type);

  // As the system takes it; not changed.
  PSID Get() const { return const_cast<char*>(bytes_.data()); }
  bool operator==(const Identity& other) const { return EqualSid(Get(), other.Get()) != 0; }

 private:
  std::vector<char> bytes_;
};

// Owner and access list of something open, which needs the right READ_CONTROL.
struct Security {
  // Nothing where they can't be read.
  static std::optional<Security> Read(HANDLE file);

  std::optional<Identity> owner;
  // Whether somebody who isn't among these, the owner or the creator of what is to come may change it, or
  // what will be made in it. True without a list: then everybody may do everything.
  bool OthersMayChange(const std::vector<Identity>& except) const;

 private:
  PACL list_ = nullptr;  // lies in bytes_
  std::vector<char> bytes_;
};

// Gives something open, with the right WRITE_DAC, an access list of its own, which takes nothing from the
// folder above: everything to `full`, reading to all users. A folder hands it down to what will be made in
// it; nothing that is in it already is touched.
bool SetAccessList(HANDLE file, bool folder, const std::vector<Identity>& full);

}  // namespace tavix::windows
