#include "platform/machine/machine_file_system.h"

#include <algorithm>

#include "text/letter_case.h"

namespace tavix::machine {
namespace {

constexpr uint32_t kSettable = platform::kReadOnly | platform::kHidden | platform::kSystem;

// The order in which a folder is listed: that of the capitals, of two alike that of the names.
std::vector<const StoreEntry*> InOrder(const std::vector<StoreEntry>& entries) {
  std::vector<std::pair<Text, const StoreEntry*>> order;
  order.reserve(entries.size());
  for (const StoreEntry& entry : entries) order.emplace_back(ToUpper(entry.name), &entry);
  std::sort(order.begin(), order.end(), [](const auto& left, const auto& right) {
    const int capitals = left.first.compare(right.first);
    return capitals != 0 ? capitals < 0 : left.second->name < right.second->name;
  });
  std::vector<const StoreEntry*> sorted;
  sorted.reserve(order.size());
  for (const auto& [capitals, entry] : order) sorted.push_back(entry);
  return sorted;
}

Text Below(TextView folder, TextView name) {
  return Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", name);
}

}  // namespace

MachineFileSystem::~MachineFileSystem() { attributes_.Save(); }

bool MachineFileSystem::IsReadOnly(const Place& place) const {
  return (attributes_.Get(place.realPath) & platform::kReadOnly) != 0;
}

std::optional<platform::FileFacts> MachineFileSystem::Look(TextView path) {
  std::optional<Place> place = finder_.Find(path, Last::Itself);
  if (!place || !place->entry) return std::nullopt;
  platform::FileFacts facts;
  facts.size = place->entry->size;
  facts.modified = place->entry->modified;
  facts.accessed = place->entry->accessed;
  facts.attributes = attributes_.Get(place->realPath);
  facts.link = place->IsLink();
  facts.folder = place->IsFolder() || (facts.link && finder_.LeadsToFolder(place->path));
  facts.path = std::move(place->path);
  facts.name = std::move(place->name);
  return facts;
}

bool MachineFileSystem::FileExists(TextView path) {
  const std::optional<Place> place = finder_.Find(path, Last::Followed);
  return place && place->IsFile();
}

bool MachineFileSystem::FolderExists(TextView path) {
  const std::optional<Place> place = finder_.Find(path, Last::Followed);
  return place && place->IsFolder();
}

bool MachineFileSystem::List(TextView folder, const EntryVisitor& visit) {
  const std::optional<Place> place = finder_.Find(folder, Last::Followed);
  if (!place || !place->IsFolder()) return false;
  if (place->parent == nullptr) return true;  // a drive with nothing on it
  const auto opened = place->parent->Open(place->storeName);
  std::vector<StoreEntry> entries;
  if (opened == nullptr || !opened->Read(entries)) return false;
  for (const StoreEntry* entry : InOrder(entries)) {
    platform::DirectoryEntry shown;
    shown.name = entry->name;
    shown.size = entry->size;
    shown.modified = entry->modified;
    shown.accessed = entry->accessed;
    if (!attributes_.Empty()) shown.attributes = attributes_.Get(Below(place->realPath, entry->name));
    shown.link = entry->kind == EntryKind::Link;
    shown.folder = entry->kind == EntryKind::Folder ||
                   (shown.link && finder_.LeadsToFolder(Below(place->path, entry->name)));
    visit(shown);
  }
  return true;
}

// What a file of the same name had that went without our doing is not for the new one.
bool MachineFileSystem::Made(const Place& place, bool made) {
  if (made && !place.entry) attributes_.Erase(place.realPath);
  return made;
}

bool MachineFileSystem::CreateFolder(TextView path) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself, true);
  if (!place || place->entry) return false;
  return Made(*place, place->parent->MakeFolder(place->storeName));
}

std::optional<Place> MachineFileSystem::FindForWriting(TextView path) {
  std::optional<Place> place = finder_.Find(path, Last::Followed, true);
  if (!place || (place->entry && (!place->IsFile() || IsReadOnly(*place)))) return std::nullopt;
  return place;
}

bool MachineFileSystem::CreateTextFile(TextView path, bool overwrite) {
  const std::optional<Place> place = FindForWriting(path);
  if (!place || (place->entry && !overwrite)) return false;
  if (place->entry) return place->parent->WriteFile(place->storeName, {});
  return Made(*place, place->parent->MakeFile(place->storeName));
}

std::optional<std::string> MachineFileSystem::ReadFile(TextView path) {
  const std::optional<Place> place = finder_.Find(path, Last::Followed);
  if (!place || !place->IsFile()) return std::nullopt;
  return place->parent->ReadFile(place->storeName);
}

bool MachineFileSystem::WriteFile(TextView path, std::string_view content) {
  const std::optional<Place> place = FindForWriting(path);
  return place && Made(*place, place->parent->WriteFile(place->storeName, content));
}

bool MachineFileSystem::AppendToFile(TextView path, std::string_view content) {
  const std::optional<Place> place = FindForWriting(path);
  return place && Made(*place, place->parent->Append(place->storeName, content));
}

bool MachineFileSystem::DeleteFile(TextView path, bool force) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself);
  if (!place || place->root || !(place->IsFile() || place->IsLink())) return false;
  if (!force && IsReadOnly(*place)) return false;
  if (place->IsLink() && finder_.LeadsToFolder(place->path)) return false;
  if (!place->parent->Remove(place->storeName)) return false;
  attributes_.Erase(place->realPath);
  return true;
}

// What the table still knows of files that went without our doing doesn't count.
bool MachineFileSystem::HoldsReadOnly(const Place& folder) {
  return !attributes_.VisitTree(folder.realPath, [this](const Text& path, uint32_t attributes) {
    if ((attributes & platform::kReadOnly) == 0) return true;
    const std::optional<Place> place = finder_.Find(path, Last::Itself);
    return !place || !place->entry;
  });
}

bool MachineFileSystem::DeleteFolder(TextView path, bool force) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself);
  if (!place || place->root) return false;
  if (place->IsLink()) {
    if (!finder_.LeadsToFolder(place->path) || (!force && IsReadOnly(*place))) return false;
    if (!place->parent->Remove(place->storeName)) return false;
  } else {
    if (!place->IsFolder() || (!force && HoldsReadOnly(*place))) return false;
    if (!place->parent->RemoveTree(place->storeName)) return false;
  }
  attributes_.Erase(place->realPath);
  return true;
}

bool MachineFileSystem::MoveFile(TextView source, TextView destination) {
  const std::optional<Place> from = finder_.Find(source, Last::Itself);
  if (!from || !(from->IsFile() || from->IsLink())) return false;
  if (from->IsLink() && finder_.LeadsToFolder(from->path)) return false;
  const std::optional<Place> to = finder_.Find(destination, Last::Itself, true);
  if (!to || to->entry) return false;
  switch (from->parent->Move(from->storeName, *to->parent, to->storeName)) {
    case MoveResult::Failed:
      return false;
    case MoveResult::OtherVolume:
      if (!from->IsFile() || !from->parent->Copy(from->storeName, *to->parent, to->storeName)) return false;
      if (from->parent->Remove(from->storeName)) break;
      to->parent->Remove(to->storeName);
      return false;
    case MoveResult::Done:
      break;
  }
  attributes_.Erase(to->realPath);
  attributes_.Move(from->realPath, to->realPath);
  return true;
}

bool MachineFileSystem::SetAttributes(TextView path, uint32_t attributes) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself);
  if (!place || !place->entry || place->root) return false;
  const uint32_t others = attributes_.Get(place->realPath) & ~kSettable;
  attributes_.Set(place->realPath, others | (attributes & kSettable));
  return true;
}

std::vector<platform::Drive> MachineFileSystem::Drives() {
  std::vector<platform::Drive> drives = facts_.Drives();
  std::vector<StoreEntry> entries;
  if (const auto folder = store_.Open({u"drives"})) folder->Read(entries);
  for (const StoreEntry& entry : entries) {
    const char16_t letter = ToUpper(entry.name.front());
    if (entry.name.size() != 1 || letter < u'A' || letter > u'Z') continue;
    const Text path{letter, u':'};
    const bool known = std::any_of(drives.begin(), drives.end(),
                                   [&](const platform::Drive& drive) { return drive.path == path; });
    constexpr int kFixed = 2;
    if (!known && FolderExists(path)) drives.push_back({path, kFixed, true, {}});
  }
  std::sort(drives.begin(), drives.end(),
            [](const platform::Drive& left, const platform::Drive& right) { return left.path < right.path; });
  return drives;
}

bool MachineFileSystem::Recycle(TextView path, RecycleBin& bin) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself);
  if (!place || !place->entry || place->root || !bin.Take(*place->parent, *place->entry)) return false;
  attributes_.Erase(place->realPath);
  return true;
}

}  // namespace tavix::machine
