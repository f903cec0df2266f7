#include "doubles/memory_trust.h"

#include <cassert>
#include <utility>

#include "platform/machine/formats/machine_path.h"
#include "platform/machine/services/machine_file_system.h"

namespace tavix::machine {

MemoryStore::Node* MemoryTrust::NodeOf(TextView path) {
  // Links to folders above it are followed.
  const size_t cut = path.find_last_of(u'\\');
  const auto folder = cut == TextView::npos ? std::nullopt : files_.FolderIdentity(path.substr(0, cut));
  const std::optional<MachinePath> place =
      ReadMachinePath(folder ? Concat(*folder, path.substr(cut)) : Text(path));
  if (!place || place->drive == 0) return nullptr;
  std::vector<Text> names{u"drives", Text(1, place->drive)};
  names.insert(names.end(), place->names.begin(), place->names.end());
  return store_.Find(names);
}

bool MemoryTrust::OwnedByOthers(TextView path) {
  const MemoryStore::Node* node = NodeOf(path);
  return node != nullptr && node->ofOthers;
}

platform::Protection MemoryTrust::Protect(TextView path) {
  MemoryStore::Node* node = NodeOf(path);
  if (!keepsLists || node == nullptr || node->kind == EntryKind::Link) return platform::Protection::Failed;
  return std::exchange(node->isProtected, true) ? platform::Protection::Unchanged : platform::Protection::Set;
}

bool MemoryTrust::Rename(TextView path, TextView name) {
  return !refusesRename && MachineTrust::Rename(path, name);
}

void MemoryTrust::GiveToOthers(TextView path) {
  MemoryStore::Node* node = NodeOf(path);
  assert(node != nullptr);
  node->ofOthers = true;
}

bool MemoryTrust::IsProtected(TextView path) {
  const MemoryStore::Node* node = NodeOf(path);
  return node != nullptr && node->isProtected;
}

}  // namespace tavix::machine
