#include "platform/machine/machine_trust.h"

#include <cassert>
#include <utility>

#include "text/letter_case.h"

namespace tavix::machine {
namespace {

bool IsOrLiesIn(TextView path, TextView folder) {
  return EqualIgnoringCase(path.substr(0, folder.size()), folder) &&
         (path.size() == folder.size() || folder.ends_with(u'\\') || path[folder.size()] == u'\\');
}

}  // namespace

Text MachineTrust::RealPath(TextView folder) {
  std::optional<MachinePath> path = ReadMachinePath(folder);
  if (!path) return {};
  for (;; path->names.pop_back()) {
    if (std::optional<Text> found = files_.FolderIdentity(path->ToText())) return *std::move(found);
    if (path->names.empty()) return {};
  }
}

bool MachineTrust::LiesAmongPrograms(TextView folder) {
  const Text real = RealPath(folder);
  if (real.empty()) return false;
  const auto holdsIt = [&](const std::optional<Text>& programs) {
    const std::optional<Text> place = programs ? files_.FolderIdentity(*programs) : std::nullopt;
    return place && IsOrLiesIn(real, *place);
  };
  return holdsIt(facts_.Value(u"Environment", u"WinDir")) || holdsIt(facts_.Value(u"Folders", u"36")) ||
         holdsIt(facts_.Value(u"Folders", u"38")) || holdsIt(facts_.Value(u"Folders", u"42"));
}

MemoryStore::Node* MemoryTrust::NodeOf(TextView path) {
  const std::optional<MachinePath> place = ReadMachinePath(path);
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
  return std::exchange(node->isProtected, true) ? platform::Protection::Stood : platform::Protection::Set;
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
