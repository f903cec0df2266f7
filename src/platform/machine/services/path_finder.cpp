#include "platform/machine/services/path_finder.h"

#include <algorithm>

#include "text/letter_case.h"

namespace tavix::machine {
namespace {

constexpr TextView kDrives = u"drives";
constexpr TextView kApplication = u"app";
// A path through more links than this counts as a circle.
constexpr int kMaxLinks = 40;

std::vector<Text> RootNames(char16_t drive) {
  if (drive == 0) return {Text(kApplication)};
  return {Text(kDrives), Text(1, drive)};
}

}  // namespace

// The state of a search. `real` are the names of `folder` in the store, `shown` those of the resulting path.
struct PathFinder::Walk {
  MachinePath asked;
  std::vector<Step> pending;  // the next step is the last element
  std::vector<Text> shown;
  std::vector<Text> real;
  std::unique_ptr<StoreFolder> folder;
  int links = 0;
};

std::optional<Place> PathFinder::Find(TextView path, Last last, bool make) {
  bool sure = true;
  return Find(path, last, make, sure);
}

platform::Existence PathFinder::Exists(TextView path, EntryKind kind) {
  bool sure = true;
  const std::optional<Place> place = Find(path, Last::Followed, false, sure);
  if (!sure) return std::nullopt;
  return place && place->entry && place->entry->kind == kind;
}

std::optional<Place> PathFinder::Find(TextView path, Last last, bool make, bool& sure) {
  std::optional<MachinePath> asked = ReadMachinePath(path);
  if (!asked) {
    sure = !LeadsToAnotherComputer(path);
    return std::nullopt;
  }
  const platform::Drive* drive = asked->drive != 0 ? facts_.FindDrive(asked->drive) : nullptr;
  if (drive != nullptr && !drive->ready) return std::nullopt;
  std::optional<Place> place = FindFrom(*asked, last, sure);
  if (!sure || (place && place->entry)) return place;
  if (drive == nullptr || (place && !place->root) || HasFolder(asked->drive)) return place;
  if (!asked->names.empty()) {
    if (!make || !MakeFolder(asked->drive)) return std::nullopt;
    return FindFrom(*asked, last, sure);
  }
  Place empty;
  empty.path = empty.realPath = asked->ToText();
  empty.storeName = Text(1, asked->drive);
  empty.entry = StoreEntry{empty.storeName, EntryKind::Folder, 0, 0, 0};
  empty.root = true;
  return empty;
}

std::optional<FolderPlace> PathFinder::FindFolder(TextView path) {
  const std::optional<MachinePath> asked = ReadMachinePath(path);
  if (!asked) return std::nullopt;
  const platform::Drive* drive = asked->drive != 0 ? facts_.FindDrive(asked->drive) : nullptr;
  if (drive != nullptr && !drive->ready) return std::nullopt;
  std::vector<Text> names = RootNames(asked->drive);
  names.insert(names.end(), asked->names.begin(), asked->names.end());
  if (auto folder = store_.Open(names))
    return FolderPlace{asked->ToText(), asked->ToText(), std::move(folder)};
  std::optional<Place> place = Find(path, Last::Followed);
  if (!place || !place->IsFolder()) return std::nullopt;
  FolderPlace found{std::move(place->path), std::move(place->realPath), nullptr};
  if (place->parent == nullptr) return found;
  found.folder = place->parent->Open(place->storeName);
  return found.folder != nullptr ? std::optional(std::move(found)) : std::nullopt;
}

std::unique_ptr<StoreFolder> PathFinder::OpenDrives() {
  const auto root = store_.Root();
  const std::optional<StoreEntry> drives = root != nullptr ? root->Find(kDrives) : std::nullopt;
  return drives ? root->Open(drives->name) : nullptr;
}

bool PathFinder::HasFolder(char16_t drive) {
  const auto drives = OpenDrives();
  return drives != nullptr && drives->Find(TextView(&drive, 1));
}

bool PathFinder::MakeFolder(char16_t drive) {
  auto drives = OpenDrives();
  if (drives == nullptr) {
    const auto root = store_.Root();
    if (root != nullptr && root->MakeFolder(kDrives)) drives = OpenDrives();
  }
  return drives != nullptr && drives->MakeFolder(TextView(&drive, 1));
}

// When a folder just seen can't be opened, `sure` is set to false.
std::optional<Place> PathFinder::FindFrom(const MachinePath& asked, Last last, bool& sure) {
  Walk walk;
  walk.asked = asked;
  std::vector<Text> names = RootNames(asked.drive);
  const size_t roots = names.size();
  names.insert(names.end(), asked.names.begin(), asked.names.end());
  // Fast way: usually all names are spelled as stored, and none is a link.
  Text lastName = std::move(names.back());
  names.pop_back();
  walk.folder = store_.Open(names);
  if (walk.folder != nullptr) {
    walk.pending.push_back({std::move(lastName), !asked.names.empty()});
    if (!asked.names.empty()) walk.shown.assign(asked.names.begin(), asked.names.end() - 1);
    walk.real = std::move(names);
  } else {
    walk.folder = store_.Root();
    names.push_back(std::move(lastName));
    for (size_t i = names.size(); i-- > 0;) walk.pending.push_back({std::move(names[i]), i >= roots});
  }
  while (walk.folder != nullptr && !walk.pending.empty()) {
    const Step step = std::move(walk.pending.back());
    walk.pending.pop_back();
    if (step.name == u"..") {
      if (walk.real.empty()) return std::nullopt;
      walk.real.pop_back();
      walk.folder = store_.Open(walk.real);
      continue;
    }
    std::optional<StoreEntry> entry = walk.folder->Find(step.name, sure);
    if (!sure) return std::nullopt;
    if (step.shown) walk.shown.push_back(entry ? entry->name : step.name);
    const bool atEnd = walk.pending.empty();
    if (entry && entry->kind == EntryKind::Link && !(atEnd && step.shown && last == Last::Itself)) {
      if (!FollowLink(walk, entry->name, sure)) return std::nullopt;
      continue;
    }
    if (atEnd) return Finish(walk, step.name, std::move(entry));
    if (!entry || entry->kind != EntryKind::Folder) return std::nullopt;
    walk.folder = walk.folder->Open(entry->name);
    walk.real.push_back(std::move(entry->name));
  }
  // A link's target ended in `..` or is a root: the walk is in the place itself, not in its parent.
  if (walk.folder != nullptr && walk.real.empty()) return std::nullopt;
  Text name;
  if (walk.folder != nullptr) {
    name = std::move(walk.real.back());
    walk.real.pop_back();
    walk.folder = store_.Open(walk.real);
  }
  sure = walk.folder != nullptr;
  if (!sure) return std::nullopt;
  std::optional<StoreEntry> entry = walk.folder->Find(name, sure);
  return sure ? Finish(walk, name, std::move(entry)) : std::nullopt;
}

bool PathFinder::FollowLink(Walk& walk, TextView name, bool& sure) {
  if (++walk.links > kMaxLinks) {
    sure = false;
    return false;
  }
  std::optional<LinkTarget> target = walk.folder->ReadLink(name);
  if (!target) return false;
  if (target->fromRoot) {
    walk.real.clear();
    walk.folder = store_.Root();
  }
  for (size_t i = target->names.size(); i-- > 0;) {
    walk.pending.push_back({std::move(target->names[i]), false});
  }
  return true;
}

// A place must be on a ready drive or in the application folder.
std::optional<Place> PathFinder::Finish(Walk& walk, const Text& name, std::optional<StoreEntry> entry) {
  std::vector<Text> all = walk.real;
  all.push_back(entry ? entry->name : name);
  size_t roots = 1;
  char16_t drive = 0;
  if (EqualIgnoringCase(all[0], kDrives)) {
    if (all.size() < 2 || all[1].size() != 1) return std::nullopt;
    drive = ToUpper(all[1][0]);
    roots = 2;
    const platform::Drive* known = facts_.FindDrive(drive);
    if (known != nullptr && !known->ready) return std::nullopt;
  } else if (!EqualIgnoringCase(all[0], kApplication)) {
    return std::nullopt;
  }
  Place place;
  place.root = all.size() == roots || walk.shown.empty();
  place.storeName = all.back();
  all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(roots));
  place.path = MachinePathText(walk.asked.drive, walk.shown);
  place.realPath = MachinePathText(drive, all);
  if (!walk.shown.empty()) place.name = walk.shown.back();
  place.parent = std::move(walk.folder);
  place.entry = std::move(entry);
  return place;
}

std::optional<FolderPlace> PathFinder::FindBelow(TextView start, TextView below) {
  std::optional<FolderPlace> found = FindFolder(start);
  if (!found || found->folder == nullptr) return std::nullopt;
  if (below.empty()) return found;
  const std::optional<MachinePath> above = ReadMachinePath(found->realPath);
  std::optional<MachinePath> whole = ReadMachinePath(Concat(found->realPath, u"\\", below));
  if (!above || !whole || whole->names.size() <= above->names.size()) return std::nullopt;
  if (!std::equal(above->names.begin(), above->names.end(), whole->names.begin())) return std::nullopt;
  // Fast way: usually all names are spelled as stored.
  std::vector<Text> names = RootNames(whole->drive);
  names.insert(names.end(), whole->names.begin(), whole->names.end());
  if (auto folder = store_.Open(names)) {
    found->folder = std::move(folder);
  } else {
    const auto first = whole->names.begin() + static_cast<std::ptrdiff_t>(above->names.size());
    for (auto name = first; name != whole->names.end(); ++name) {
      const std::optional<StoreEntry> entry = found->folder->Find(*name);
      found->folder = entry ? found->folder->Open(entry->name) : nullptr;
      if (found->folder == nullptr) return std::nullopt;
      *name = entry->name;
    }
  }
  found->path = found->realPath = whole->ToText();
  return found;
}

bool PathFinder::LeadsToFolder(TextView link) {
  const std::optional<Place> target = Find(link, Last::Followed);
  return target && target->IsFolder();
}

}  // namespace tavix::machine
