#include "platform/machine/services/machine_file_system.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "text/letter_case.h"

namespace tavix::machine {
namespace {

constexpr uint32_t kSettable =
    platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive;

Text Below(TextView folder, TextView name) {
  return Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", name);
}

}  // namespace

MachineFileSystem::~MachineFileSystem() { attributes_.Save(); }

bool MachineFileSystem::IsReadOnly(const Text& realPath) const {
  return (attributes_.Get(realPath) & platform::kReadOnly) != 0;
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
  facts.folder = place->IsFolder() || (facts.link && finder_.LeadsToFolder(place->realPath));
  facts.path = std::move(place->path);
  facts.name = std::move(place->name);
  return facts;
}

platform::Existence MachineFileSystem::FileExists(TextView path) {
  return finder_.Exists(path, EntryKind::File);
}

platform::Existence MachineFileSystem::FolderExists(TextView path) {
  return finder_.Exists(path, EntryKind::Folder);
}

std::optional<Text> MachineFileSystem::FolderIdentity(TextView path) {
  std::optional<FolderPlace> place = finder_.FindFolder(path);
  return place ? std::optional(std::move(place->realPath)) : std::nullopt;
}

std::vector<Text> MachineFileSystem::Lineage(TextView path) {
  std::vector<Text> lineage;
  const std::optional<Text> real = FolderIdentity(path);
  std::optional<MachinePath> folder = real ? ReadMachinePath(*real) : std::nullopt;
  if (!folder) return lineage;
  for (;; folder->names.pop_back()) {
    lineage.push_back(folder->ToText());
    if (folder->names.empty()) return lineage;
  }
}

std::optional<Text> MachineFileSystem::ResolveLink(TextView path) {
  std::optional<Place> link = finder_.Find(path, Last::Itself);
  if (!link || !link->IsLink()) return std::nullopt;
  std::optional<Place> target = finder_.Find(path, Last::Followed);
  return target && target->entry ? std::optional(std::move(target->realPath)) : std::nullopt;
}

bool MachineFileSystem::IsOnFixedDrive(TextView realPath) const {
  const std::optional<MachinePath> path = ReadMachinePath(realPath);
  if (!path || path->drive == 0) return false;
  const platform::Drive* drive = facts_.FindDrive(path->drive);
  return drive == nullptr || drive->type == platform::kFixedDrive;
}

class MachineFileSystem::Opened : public platform::OpenFolder {
 public:
  Opened(MachineFileSystem& files, FolderPlace place) : files_(files), path_(std::move(place.realPath)) {
    if (place.folder == nullptr) return;
    folder_.emplace(files.ahead_, std::make_shared<Source>(std::move(place.folder)),
                    [this] { return files_.IsOnFixedDrive(path_); });
  }
  Opened(MachineFileSystem& files, Text realPath, platform::ReadAhead::Folder folder)
      : files_(files), path_(std::move(realPath)), folder_(std::move(folder)) {}

  bool List(const EntryVisitor& visit, const NameFilter& wanted, const platform::GoesOn& goesOn) override {
    if (!folder_) return true;
    const auto listing = folder_->List(wanted, goesOn);
    if (!listing) return false;
    AttributeTable::InFolder attributes(files_.attributes_, path_);
    return listing->Visit(
        [&](platform::DirectoryEntry entry) {
          entry.attributes = attributes.Get(entry.name);
          if (entry.link) {
            entry.folder = files_.finder_.LeadsToFolder(Below(path_, entry.name));
            if (!entry.folder && wanted && !wanted(entry.name)) return;
          }
          visit(entry);
        },
        goesOn);
  }

  std::unique_ptr<platform::OpenFolder> Open(TextView name) override {
    auto folder = folder_ ? folder_->Open(name) : std::nullopt;
    if (!folder) return nullptr;
    return std::make_unique<Opened>(files_, Below(path_, name), *std::move(folder));
  }

 private:
  class Source : public platform::FolderSource {
   public:
    explicit Source(std::unique_ptr<StoreFolder> folder) : folder_(std::move(folder)) {}
    std::shared_ptr<const FolderSource> Open(TextView name) const override {
      auto folder = folder_->Open(name);
      return folder != nullptr ? std::make_shared<Source>(std::move(folder)) : nullptr;
    }
    bool Read(platform::FolderListing& listing, const NameFilter& wanted) const override {
      return folder_->List(listing, wanted);
    }

   private:
    const std::unique_ptr<StoreFolder> folder_;
  };

  MachineFileSystem& files_;
  const Text path_;                                    // its links resolved
  std::optional<platform::ReadAhead::Folder> folder_;  // nothing for an empty drive without a folder
};

std::unique_ptr<platform::OpenFolder> MachineFileSystem::Open(TextView folder) {
  std::optional<FolderPlace> place = finder_.FindFolder(folder);
  return place ? std::make_unique<Opened>(*this, *std::move(place)) : nullptr;
}

// Don't inherit attributes of a same-named file deleted outside the program.
bool MachineFileSystem::ResetIfNew(const Place& place, bool succeeded) {
  if (succeeded && !place.entry) attributes_.Erase(place.realPath);
  return succeeded;
}

bool MachineFileSystem::CreateFolder(TextView path) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself, true);
  if (!place || place->entry) return false;
  return ResetIfNew(*place, place->parent->MakeFolder(place->storeName));
}

std::optional<Place> MachineFileSystem::FindForWriting(TextView path) {
  std::optional<Place> place = finder_.Find(path, Last::Followed, true);
  if (!place || (place->entry && (!place->IsFile() || IsReadOnly(place->realPath)))) return std::nullopt;
  return place;
}

bool MachineFileSystem::CreateTextFile(TextView path, bool overwrite) {
  const std::optional<Place> place = FindForWriting(path);
  if (!place || (place->entry && !overwrite)) return false;
  if (place->entry) return place->parent->WriteFile(place->storeName, {});
  return ResetIfNew(*place, place->parent->MakeFile(place->storeName));
}

std::optional<std::string> MachineFileSystem::ReadFile(TextView path) {
  const std::optional<Place> place = finder_.Find(path, Last::Followed);
  if (!place || !place->IsFile()) return std::nullopt;
  return place->parent->ReadFile(place->storeName);
}

bool MachineFileSystem::WriteFile(TextView path, std::string_view content) {
  const std::optional<Place> place = FindForWriting(path);
  return place && ResetIfNew(*place, place->parent->WriteFile(place->storeName, content));
}

bool MachineFileSystem::AppendToFile(TextView path, std::string_view content) {
  const std::optional<Place> place = FindForWriting(path);
  return place && ResetIfNew(*place, place->parent->Append(place->storeName, content));
}

bool MachineFileSystem::DeleteFile(TextView path, bool force) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself);
  return place && place->entry && !place->root && DeleteFile(ItemOf(*place), force);
}

bool MachineFileSystem::DeleteFile(const Item& item, bool force) {
  if (item.entry.kind == EntryKind::Folder) return false;
  if (!force && IsReadOnly(item.realPath)) return false;
  if (item.entry.kind == EntryKind::Link && finder_.LeadsToFolder(item.realPath)) return false;
  if (!item.folder.Remove(item.entry.name)) return false;
  attributes_.Erase(item.realPath);
  return true;
}

// Ignore attributes of files deleted outside the program.
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
    if (!finder_.LeadsToFolder(place->realPath) || (!force && IsReadOnly(place->realPath))) return false;
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
  return from && from->entry && MoveFile(ItemOf(*from), destination);
}

bool MachineFileSystem::MoveFile(const Item& from, TextView destination) {
  const Text& name = from.entry.name;
  if (from.entry.kind == EntryKind::Folder) return false;
  if (from.entry.kind == EntryKind::Link && finder_.LeadsToFolder(from.realPath)) return false;
  const std::optional<Place> to = finder_.Find(destination, Last::Itself, true);
  if (!to || to->entry) return false;
  switch (from.folder.Move(name, *to->parent, to->storeName)) {
    case MoveResult::Failed:
      return false;
    case MoveResult::OtherVolume:
      if (from.entry.kind != EntryKind::File || !from.folder.Copy(name, *to->parent, to->storeName)) {
        return false;
      }
      if (from.folder.Remove(name)) break;
      to->parent->Remove(to->storeName);
      return false;
    case MoveResult::Done:
      break;
  }
  attributes_.Erase(to->realPath);
  attributes_.Move(from.realPath, to->realPath);
  return true;
}

// What the items of a found folder share with it.
struct FoundPlace {
  Text asked;     // the path by which it was opened
  Text realPath;  // as in Place
  std::unique_ptr<StoreFolder> folder;
};

class MachineFileSystem::Found : public platform::FoundItem {
 public:
  Found(MachineFileSystem& files, std::shared_ptr<const FoundPlace> place, StoreEntry entry)
      : files_(files),
        place_(std::move(place)),
        entry_(std::move(entry)),
        realPath_(Below(place_->realPath, entry_.name)) {}
  ~Found() override {
    if (files_.left_ == this) files_.left_ = nullptr;
  }
  Found(const Found&) = delete;
  Found& operator=(const Found&) = delete;

  bool IsFolder() const override { return entry_.kind == EntryKind::Folder; }
  bool DeleteFile() override { return files_.DeleteFile(Itself(), true); }
  bool MoveFileTo(TextView destination) override { return files_.MoveFile(Itself(), destination); }
  bool LeaveToShell() override {
    files_.left_ = this;
    return true;
  }
  bool Recycle(RecycleBin& bin) const { return files_.Recycle(Itself(), bin); }
  // Whether the item was opened by this path.
  bool IsAt(TextView path) const {
    const std::optional<MachinePath> asked = ReadMachinePath(Below(place_->asked, entry_.name));
    const std::optional<MachinePath> other = ReadMachinePath(path);
    return asked && other && EqualIgnoringCase(asked->ToText(), other->ToText());
  }

  bool DeleteEmptyFolder() override {
    const bool gone = IsFolder()
                          ? place_->folder->RemoveEmptyTree(entry_.name)
                          : entry_.kind == EntryKind::Link && files_.finder_.LeadsToFolder(realPath_) &&
                                place_->folder->Remove(entry_.name);
    if (gone) files_.attributes_.Erase(realPath_);
    return gone;
  }

 private:
  Item Itself() const { return {*place_->folder, entry_, realPath_}; }

  MachineFileSystem& files_;
  const std::shared_ptr<const FoundPlace> place_;
  const StoreEntry entry_;
  const Text realPath_;
};

class MachineFileSystem::FoundIn : public platform::FoundFolder {
 public:
  FoundIn(MachineFileSystem& files, FoundPlace place)
      : files_(files), place_(std::make_shared<const FoundPlace>(std::move(place))) {}

  // The real path is one of real folders alone. If that is the path asked for, no link on it can be
  // exchanged.
  bool Stands() override { return place_->asked == place_->realPath && place_->folder->Stands(); }

  std::unique_ptr<platform::FoundItem> Open(TextView name) override {
    if (!IsFileName(name)) return nullptr;
    std::optional<StoreEntry> entry = place_->folder->Find(name);
    return entry ? std::make_unique<Found>(files_, place_, *std::move(entry)) : nullptr;
  }

 private:
  MachineFileSystem& files_;
  const std::shared_ptr<const FoundPlace> place_;
};

std::unique_ptr<platform::FoundFolder> MachineFileSystem::OpenFound(TextView start, TextView below) {
  std::optional<FolderPlace> place = finder_.FindBelow(start, below);
  if (!place) return nullptr;
  return std::make_unique<FoundIn>(*this, FoundPlace{below.empty() ? Text(start) : Below(start, below),
                                                     std::move(place->realPath), std::move(place->folder)});
}

bool MachineFileSystem::SetAttributes(TextView path, uint32_t attributes) {
  const std::optional<Place> place = finder_.Find(path, Last::Itself);
  if (!place || !place->entry || place->root) return false;
  const uint32_t others = attributes_.Get(place->realPath) & ~kSettable;
  attributes_.Set(place->realPath, others | (attributes & kSettable));
  return true;
}

void MachineFileSystem::RemoveTemporaries(TextView folder) {
  const std::optional<FolderPlace> place = finder_.FindFolder(folder);
  if (place && place->folder != nullptr) place->folder->RemoveTemporaries();
}

std::vector<platform::Drive> MachineFileSystem::Drives() {
  std::vector<platform::Drive> drives = facts_.Drives();
  for (platform::Drive& drive : drives) {
    if (drive.type == platform::kNetworkDrive) drive = {drive.path, drive.type, false, {}};
  }
  std::vector<StoreEntry> entries;
  if (const auto folder = store_.Open({u"drives"})) folder->Read(entries);
  for (const StoreEntry& entry : entries) {
    const char16_t letter = ToUpper(entry.name.front());
    if (entry.name.size() != 1 || letter < u'A' || letter > u'Z') continue;
    const Text path{letter, u':'};
    const bool known = std::any_of(drives.begin(), drives.end(),
                                   [&](const platform::Drive& drive) { return drive.path == path; });
    if (!known && FolderExists(path) == true) drives.push_back({path, platform::kFixedDrive, true, {}});
  }
  std::sort(drives.begin(), drives.end(),
            [](const platform::Drive& left, const platform::Drive& right) { return left.path < right.path; });
  return drives;
}

std::optional<int> MachineFileSystem::DriveType(char16_t letter) {
  if (const platform::Drive* drive = facts_.FindDrive(ToUpper(letter))) return drive->type;
  return FolderExists(Text{letter, u':'}) == true ? std::optional(platform::kFixedDrive) : std::nullopt;
}

bool MachineFileSystem::IsDriveReady(char16_t letter) {
  if (const platform::Drive* drive = facts_.FindDrive(ToUpper(letter))) return drive->ready;
  return FolderExists(Text{letter, u':'}) == true;
}

bool MachineFileSystem::Rename(TextView path, TextView name) {
  const std::optional<Place> from = finder_.Find(path, Last::Itself);
  if (!from || !from->entry || from->root || !IsFileName(name)) return false;
  const TextView folder = TextView(from->path).substr(0, from->path.size() - from->name.size());
  const std::optional<Place> to = finder_.Find(Concat(folder, name), Last::Itself);
  if (!to || to->entry) return false;
  if (from->parent->Move(from->storeName, *to->parent, to->storeName) != MoveResult::Done) return false;
  attributes_.Move(from->realPath, to->realPath);
  return true;
}

bool MachineFileSystem::Recycle(TextView path, RecycleBin& bin) {
  if (left_ != nullptr && left_->IsAt(path)) return left_->Recycle(bin);
  const std::optional<Place> place = finder_.Find(path, Last::Itself);
  return place && place->entry && !place->root && Recycle(ItemOf(*place), bin);
}

bool MachineFileSystem::Recycle(const Item& item, RecycleBin& bin) {
  if (!bin.Take(item.folder, item.entry)) return false;
  attributes_.Erase(item.realPath);
  return true;
}

}  // namespace tavix::machine
