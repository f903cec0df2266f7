#include "platform/machine/services/recycle_bin.h"

#include <vector>

namespace tavix::machine {
namespace {

constexpr size_t kLongestName = 255;

// A free name: the name itself or, if it is taken, with a number before it.
Text FreeName(StoreFolder& folder, TextView name) {
  Text free(name);
  for (int number = 2; folder.Find(free); ++number) {
    free = Concat(ToText(number), u"~", name).substr(0, kLongestName);
    while (free.back() == u' ' || free.back() == u'.') free.pop_back();
  }
  return free;
}

}  // namespace

std::unique_ptr<StoreFolder> RecycleBin::Open() { return store_.Open({Text(kRecycleFolder)}); }

bool RecycleBin::Take(StoreFolder& folder, const StoreEntry& entry) {
  auto bin = Open();
  if (bin == nullptr) {
    const auto root = store_.Root();
    if (root == nullptr || !root->MakeFolder(kRecycleFolder)) return false;
    bin = Open();
    if (bin == nullptr) return false;
  }
  const Text name = FreeName(*bin, entry.name);
  const MoveResult moved = folder.Move(entry.name, *bin, name);
  if (moved != MoveResult::OtherVolume) return moved == MoveResult::Done;
  if (entry.kind != EntryKind::File || !folder.Copy(entry.name, *bin, name)) return false;
  if (folder.Remove(entry.name)) return true;
  bin->Remove(name);
  return false;
}

bool RecycleBin::Empty() {
  const auto bin = Open();
  if (bin == nullptr) return true;
  std::vector<StoreEntry> entries;
  bool empty = bin->Read(entries);
  for (const StoreEntry& entry : entries) {
    const bool removed =
        entry.kind == EntryKind::Folder ? bin->RemoveTree(entry.name) : bin->Remove(entry.name);
    empty = removed && empty;
  }
  return empty;
}

std::optional<RecycleBin::Content> RecycleBin::Count() {
  Content content;
  const auto bin = Open();
  if (bin == nullptr) return content;
  std::vector<StoreEntry> entries;
  if (!bin->Read(entries)) return std::nullopt;
  for (const StoreEntry& entry : entries) {
    ++content.items;
    if (entry.kind == EntryKind::File) content.bytes += entry.size;
    if (entry.kind != EntryKind::Folder) continue;
    const std::optional<uint64_t> size = bin->TreeSize(entry.name);
    if (!size) return std::nullopt;
    content.bytes += *size;
  }
  return content;
}

}  // namespace tavix::machine
