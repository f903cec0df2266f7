#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

bool StoreFolder::List(platform::FolderListing& listing, const platform::NameFilter& wanted) {
  std::vector<StoreEntry> entries;
  if (!Read(entries)) return false;
  for (const StoreEntry& entry : entries) {
    if (!listing.Continue()) return false;
    if (entry.kind == EntryKind::File && wanted && !wanted(entry.name)) continue;
    platform::DirectoryEntry found;
    found.name = entry.name;
    found.size = entry.size;
    found.modified = entry.modified;
    found.accessed = entry.accessed;
    found.folder = entry.kind == EntryKind::Folder;
    found.link = entry.kind == EntryKind::Link;
    found.known = entry.known;
    listing.Add(found);
  }
  return true;
}

}  // namespace tavix::machine
