#include "platform/machine/host_names_posix.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/machine/host_tree_posix.h"
#include "text/letter_case.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

constexpr size_t kMostFolders = 64;

int64_t Nanoseconds(const struct statx_timestamp& time) {
  return time.tv_sec * 1'000'000'000 + static_cast<int64_t>(time.tv_nsec);
}

}  // namespace

std::optional<HostFolderState> ReadFolderState(int folder) {
  struct statx facts {};
  if (::statx(folder, "", AT_EMPTY_PATH, STATX_INO | STATX_MTIME | STATX_CTIME, &facts) != 0) {
    return std::nullopt;
  }
  const uint64_t device = uint64_t{facts.stx_dev_major} << 32U | facts.stx_dev_minor;
  return HostFolderState{{device, facts.stx_ino}, Nanoseconds(facts.stx_mtime), Nanoseconds(facts.stx_ctime)};
}

std::list<HostNames::Folder>::iterator HostNames::Known(const HostFolderId& id) {
  return std::find_if(folders_.begin(), folders_.end(),
                      [&id](const Folder& folder) { return folder.state.id == id; });
}

std::optional<std::string> HostNames::Find(int folder, TextView name) {
  // The state from before the reading: what changes meanwhile makes it old.
  const std::optional<HostFolderState> state = ReadFolderState(folder);
  if (!state) return std::nullopt;
  auto known = Known(state->id);
  if (known == folders_.end() || known->state != *state) {
    if (known != folders_.end()) folders_.erase(known);
    Folder read;
    read.state = *state;
    const bool complete = ReadHostNames(folder, [&read](const char* raw, unsigned char) {
      const std::optional<Text> text = FromUtf8(raw);
      if (!text) return;
      const auto [at, isNew] = read.names.emplace(ToUpper(*text), raw);
      if (isNew) return;
      read.twins = true;
      if (raw < at->second) at->second = raw;
    });
    if (!complete) return std::nullopt;
    folders_.push_front(std::move(read));
    if (folders_.size() > kMostFolders) folders_.pop_back();
    known = folders_.begin();
  }
  folders_.splice(folders_.begin(), folders_, known);
  const auto found = known->names.find(ToUpper(name));
  return found == known->names.end() ? std::nullopt : std::optional(found->second);
}

HostNames::Folder* HostNames::Changed(int folder) {
  if (folders_.empty()) return nullptr;
  const std::optional<HostFolderState> state = ReadFolderState(folder);
  const auto known = state ? Known(state->id) : folders_.end();
  if (known == folders_.end()) return nullptr;
  if (known->twins) {
    folders_.erase(known);
    return nullptr;
  }
  known->state = *state;
  return &*known;
}

void HostNames::Added(int folder, std::string_view name) {
  Folder* known = Changed(folder);
  const std::optional<Text> text = known != nullptr ? FromUtf8(name) : std::nullopt;
  if (text) known->names.emplace(ToUpper(*text), name);
}

void HostNames::Removed(int folder, std::string_view name) {
  Folder* known = Changed(folder);
  const std::optional<Text> text = known != nullptr ? FromUtf8(name) : std::nullopt;
  if (text) known->names.erase(ToUpper(*text));
}

}  // namespace tavix::machine
