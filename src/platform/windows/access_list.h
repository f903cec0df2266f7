#pragma once

#include <optional>
#include <vector>

#include "platform/windows/windows_api.h"

namespace tavix::windows {

// A user, group or system account: a security identifier (SID).
class Identity {
 public:
  // Copies a SID. Nothing for a null or an invalid one.
  static std::optional<Identity> Of(PSID identity);
  // The user this process runs as. Nothing when the system can't tell.
  static std::optional<Identity> ThisUser();
  static std::optional<Identity> WellKnown(WELL_KNOWN_SID_TYPE type);

  // For calls of the API, which take it without const but don't change it.
  PSID Get() const { return const_cast<char*>(bytes_.data()); }
  bool operator==(const Identity& other) const { return EqualSid(Get(), other.Get()) != 0; }

 private:
  std::vector<char> bytes_;
};

// The owner and the access list of an open file or folder.
struct Security {
  // Reads both. The handle needs the right READ_CONTROL. Nothing when they can't be read.
  static std::optional<Security> Read(HANDLE file);

  std::optional<Identity> owner;
  // Whether the list lets anybody change the item, or what will be made in it, besides those in `except`, the
  // owner and the future creators of its content. True when there is no list: then everybody may do
  // everything.
  bool OthersMayChange(const std::vector<Identity>& except) const;

 private:
  PACL list_ = nullptr;  // points into bytes_
  std::vector<char> bytes_;
};

// Gives an open file or folder an access list of its own, which inherits nothing: those in `full` may do
// everything, all users may read. The handle needs the right WRITE_DAC. A folder passes the list on to what
// is made in it later. Items already in it keep their own lists. False when the list can't be set.
bool SetAccessList(HANDLE file, bool folder, const std::vector<Identity>& full);

}  // namespace tavix::windows
