#include "platform/machine/host/host_names_posix.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/machine/host/host_tree_posix.h"
#include "text/letter_case.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

constexpr size_t kMaxFolders = 64;

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

std::optional<HostNameTable> HostNameTable::Read(int folder) {
  HostNameTable table;
  const bool complete = ReadHostNames(folder, [&table](const char* raw, unsigned char) { table.Add(raw); });
  return complete ? std::optional(std::move(table)) : std::nullopt;
}

const std::string* HostNameTable::Find(TextView name) const {
  const auto found = names.find(ToUpper(name));
  return found == names.end() ? nullptr : &found->second;
}

void HostNameTable::Add(std::string_view name) {
  const std::optional<Text> text = FromUtf8(name);
  if (!text) return;
  const auto [at, isNew] = names.emplace(ToUpper(*text), name);
  if (isNew || at->second == name) return;
  hasCaseDuplicates = true;
  if (name < at->second) at->second = name;
}

std::list<HostNames::Folder>::iterator HostNames::Known(const HostFolderId& id) {
  return std::find_if(folders_.begin(), folders_.end(),
                      [&id](const Folder& folder) { return folder.state.id == id; });
}

std::optional<std::string> HostNames::Find(int folder, TextView name, bool& sure) {
  // Take the state before reading: a change meanwhile makes the table outdated.
  const std::optional<HostFolderState> state = ReadFolderState(folder);
  sure = state.has_value();
  if (!sure) return std::nullopt;
  auto known = Known(state->id);
  if (known == folders_.end() || known->state != *state) {
    if (known != folders_.end()) folders_.erase(known);
    std::optional<HostNameTable> read = HostNameTable::Read(folder);
    sure = read.has_value();
    if (!sure) return std::nullopt;
    folders_.push_front({*state, *std::move(read)});
    if (folders_.size() > kMaxFolders) folders_.pop_back();
    known = folders_.begin();
  }
  folders_.splice(folders_.begin(), folders_, known);
  const std::string* found = known->table.Find(name);
  return found != nullptr ? std::optional(*found) : std::nullopt;
}

HostNames::Folder* HostNames::Changed(int folder) {
  if (folders_.empty()) return nullptr;
  const std::optional<HostFolderState> state = ReadFolderState(folder);
  const auto known = state ? Known(state->id) : folders_.end();
  if (known == folders_.end()) return nullptr;
  if (known->table.hasCaseDuplicates) {
    folders_.erase(known);
    return nullptr;
  }
  known->state = *state;
  return &*known;
}

void HostNames::Added(int folder, std::string_view name) {
  if (Folder* known = Changed(folder)) known->table.Add(name);
}

void HostNames::Removed(int folder, std::string_view name) {
  Folder* known = Changed(folder);
  const std::optional<Text> text = known != nullptr ? FromUtf8(name) : std::nullopt;
  if (text) known->table.names.erase(ToUpper(*text));
}

}  // namespace tavix::machine
