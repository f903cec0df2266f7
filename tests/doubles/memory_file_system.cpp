#include "doubles/memory_file_system.h"

#include <cassert>

namespace tavix::machine {
namespace {

std::vector<Text> StoreNames(const MachinePath& path) {
  std::vector<Text> names{path.drive == 0 ? Text(u"app") : Text(u"drives")};
  if (path.drive != 0) names.emplace_back(1, path.drive);
  names.insert(names.end(), path.names.begin(), path.names.end());
  return names;
}

// The names of a relative link's target. `..` stays in it.
std::vector<Text> RelativeNames(TextView target) {
  std::vector<Text> names;
  for (const TextView name : Split(target, u"\\")) {
    if (!name.empty() && name != u".") names.emplace_back(name);
  }
  return names;
}

Text Below(TextView folder, TextView name) {
  return Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", name);
}

class FaultyFolder : public platform::OpenFolder {
 public:
  FaultyFolder(Faults& faults, Text path, std::unique_ptr<platform::OpenFolder> folder)
      : faults_(faults), path_(std::move(path)), folder_(std::move(folder)) {}

  // A file that can't be examined is still listed by its name.
  bool List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted,
            const platform::GoesOn& goesOn) override {
    if (faults_.Hit(u"List", path_)) return false;
    const auto visitKnown = [&](const platform::DirectoryEntry& entry) {
      if (!faults_.Fails(u"Look", Below(path_, entry.name))) return visit(entry);
      platform::DirectoryEntry bare;
      bare.name = entry.name;
      bare.folder = entry.folder;
      bare.link = entry.link;
      bare.known = false;
      visit(bare);
    };
    return folder_->List(visitKnown, wanted, goesOn);
  }

  std::unique_ptr<platform::OpenFolder> Open(TextView name) override {
    auto opened = folder_->Open(name);
    if (opened == nullptr) return nullptr;
    return std::make_unique<FaultyFolder>(faults_, Below(path_, name), std::move(opened));
  }

 private:
  Faults& faults_;
  const Text path_;
  std::unique_ptr<platform::OpenFolder> folder_;
};

// After a deletion it looks whether the item has gone, which may fail, too.
class FaultyItem : public platform::FoundItem {
 public:
  FaultyItem(Faults& faults, Text path, std::unique_ptr<platform::FoundItem> item)
      : faults_(faults), path_(std::move(path)), item_(std::move(item)) {}

  bool IsFolder() const override { return item_->IsFolder(); }
  bool DeleteFile() override {
    return !faults_.Hit(u"DeleteFile", path_) && item_->DeleteFile() && !faults_.Hit(u"FileExists", path_);
  }
  bool DeleteEmptyFolder() override {
    return !faults_.Hit(u"DeleteFolder", path_) && item_->DeleteEmptyFolder() &&
           !faults_.Hit(u"FolderExists", path_);
  }
  bool MoveFileTo(TextView destination) override {
    return !faults_.Hit(u"MoveFile", path_) && item_->MoveFileTo(destination) &&
           !faults_.Hit(u"FileExists", path_);
  }
  bool LeaveToShell() override { return !faults_.Hit(u"LeaveToShell", path_) && item_->LeaveToShell(); }

 private:
  Faults& faults_;
  const Text path_;
  std::unique_ptr<platform::FoundItem> item_;
};

class FaultyFoundFolder : public platform::FoundFolder {
 public:
  FaultyFoundFolder(Faults& faults, Text path, std::unique_ptr<platform::FoundFolder> folder)
      : faults_(faults), path_(std::move(path)), folder_(std::move(folder)) {}

  bool Stands() override { return folder_->Stands(); }
  std::unique_ptr<platform::FoundItem> Open(TextView name) override {
    const Text path = Below(path_, name);
    auto item = faults_.Hit(u"OpenFound", path) ? nullptr : folder_->Open(name);
    return item != nullptr ? std::make_unique<FaultyItem>(faults_, path, std::move(item)) : nullptr;
  }

 private:
  Faults& faults_;
  const Text path_;
  std::unique_ptr<platform::FoundFolder> folder_;
};

}  // namespace

void MemoryFileSystem::AddFile(TextView path, const FileSeed& seed) {
  const std::optional<MachinePath> place = ReadMachinePath(path);
  assert(place && !place->names.empty());
  MemoryStore::Node& node = store_.Make(StoreNames(*place), EntryKind::File);
  node.content = seed.content;
  node.size = seed.size.value_or(seed.content.size());
  node.modified = seed.modified;
  node.accessed = seed.accessed;
  Seed(place->ToText(), seed.attributes);
}

void MemoryFileSystem::AddFolder(TextView path) {
  const std::optional<MachinePath> place = ReadMachinePath(path);
  assert(place);
  store_.Make(StoreNames(*place), EntryKind::Folder);
}

void MemoryFileSystem::AddLink(TextView path, TextView target) {
  const std::optional<MachinePath> place = ReadMachinePath(path);
  assert(place && !place->names.empty());
  MemoryStore::Node& node = store_.Make(StoreNames(*place), EntryKind::Link);
  const std::optional<MachinePath> whole = ReadMachinePath(target);
  node.target = whole ? LinkTarget{true, StoreNames(*whole)} : LinkTarget{false, RelativeNames(target)};
}

std::optional<platform::FileFacts> MemoryFileSystem::Look(TextView path) {
  return faults.Hit(u"Look", path) ? std::nullopt : MachineFileSystem::Look(path);
}
platform::Existence MemoryFileSystem::FileExists(TextView path) {
  return faults.Hit(u"FileExists", path) ? platform::Existence() : MachineFileSystem::FileExists(path);
}
platform::Existence MemoryFileSystem::FolderExists(TextView path) {
  return faults.Hit(u"FolderExists", path) ? platform::Existence() : MachineFileSystem::FolderExists(path);
}
std::unique_ptr<platform::OpenFolder> MemoryFileSystem::Open(TextView folder) {
  auto opened = MachineFileSystem::Open(folder);
  return opened != nullptr ? std::make_unique<FaultyFolder>(faults, Text(folder), std::move(opened))
                           : nullptr;
}
std::unique_ptr<platform::FoundFolder> MemoryFileSystem::OpenFound(TextView start, TextView below) {
  auto folder = MachineFileSystem::OpenFound(start, below);
  if (folder == nullptr) return nullptr;
  return std::make_unique<FaultyFoundFolder>(faults, below.empty() ? Text(start) : Below(start, below),
                                             std::move(folder));
}
bool MemoryFileSystem::CreateFolder(TextView path) {
  return !faults.Hit(u"CreateFolder", path) && MachineFileSystem::CreateFolder(path);
}
bool MemoryFileSystem::CreateTextFile(TextView path, bool overwrite) {
  return !faults.Hit(u"CreateTextFile", path) && MachineFileSystem::CreateTextFile(path, overwrite);
}
std::optional<std::string> MemoryFileSystem::ReadFile(TextView path) {
  return faults.Hit(u"ReadFile", path) ? std::nullopt : MachineFileSystem::ReadFile(path);
}
bool MemoryFileSystem::WriteFile(TextView path, std::string_view content) {
  return !faults.Hit(u"WriteFile", path) && MachineFileSystem::WriteFile(path, content);
}
bool MemoryFileSystem::AppendToFile(TextView path, std::string_view content) {
  return !faults.Hit(u"AppendToFile", path) && MachineFileSystem::AppendToFile(path, content);
}
bool MemoryFileSystem::DeleteFile(TextView path, bool force) {
  return !faults.Hit(u"DeleteFile", path) && MachineFileSystem::DeleteFile(path, force);
}
bool MemoryFileSystem::DeleteFolder(TextView path, bool force) {
  return !faults.Hit(u"DeleteFolder", path) && MachineFileSystem::DeleteFolder(path, force);
}
bool MemoryFileSystem::MoveFile(TextView source, TextView destination) {
  return !faults.Hit(u"MoveFile", source) && MachineFileSystem::MoveFile(source, destination);
}
bool MemoryFileSystem::SetAttributes(TextView path, uint32_t attributes) {
  return !faults.Hit(u"SetAttributes", path) && MachineFileSystem::SetAttributes(path, attributes);
}

bool MemoryFileSystem::IsDriveReady(char16_t letter) {
  return !faults.Hit(u"IsDriveReady", Text(1, letter)) && MachineFileSystem::IsDriveReady(letter);
}

}  // namespace tavix::machine
