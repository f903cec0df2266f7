#include "clean/clean_oracle.h"

#include <algorithm>
#include <array>
#include <functional>

#include "platform/hive_name.h"
#include "text/number.h"
#include "text/plain_name.h"

namespace tavix::lost {
namespace {

// HKEY_CLASSES_ROOT is a view of two of these.
constexpr std::array kHives = {platform::Hive::CurrentUser, platform::Hive::LocalMachine,
                               platform::Hive::Users, platform::Hive::CurrentConfig};

bool EndsWith(TextView name, TextView ending) {
  return name.size() >= ending.size() && EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

Text ReadHive(TextView name) { return Text(platform::FindHive(name) ? name : u"HKEY_USERS"); }

// The part of a tag between its kind and the next ": ".
std::optional<TextView> Payload(TextView tag) {
  const auto parts = Split(tag, u": ");
  return parts.size() < 2 ? std::nullopt : std::optional(Trim(parts[1]));
}

TextView Kind(TextView tag) { return tag.substr(0, std::min(tag.find(u": "), tag.size())); }

}  // namespace

RegistryPicture PictureOf(platform::Registry& registry) {
  RegistryPicture picture;
  for (const platform::Hive hive : kHives) {
    const std::function<void(const Text&)> read = [&](const Text& key) {
      auto& values = picture[Concat(platform::HiveName(hive), key.empty() ? u"" : u"\\", key)];
      registry.VisitValues(hive, key, [&](TextView name, TextView data) { values.emplace(name, data); });
      std::vector<Text> subKeys;
      registry.VisitSubKeys(hive, key, [&](TextView name) { subKeys.emplace_back(name); });
      for (const Text& subKey : subKeys) read(Concat(key, key.empty() ? u"" : u"\\", subKey));
    };
    read({});
  }
  return picture;
}

CleanOracle::CleanOracle(DiskPicture disk, RegistryPicture registry, CleanSettings settings)
    : disk_(std::move(disk)), registry_(std::move(registry)), settings_(std::move(settings)) {
  constexpr TextView kMakers = u"C:\\MORVDataPath";
  constexpr TextView kData = u"C:\\MORVDataPath\\TVX";
  constexpr TextView kDefaultBackup = u"C:\\TVXBak";
  const auto folder = [this](TextView path) {
    return disk_.IsFolder(path) ? disk_.Resolve(path, true) : std::nullopt;
  };
  const auto hold = [this](const std::optional<Text>& key) {
    if (!key) return;
    for (const Text& above : WithParents(*key)) holding_.insert(above);
  };
  backup_ = folder(settings_.backupFolder);
  if (settings_.systemFolder) system_ = folder(*settings_.systemFolder);
  for (const TextView path : {kMakers, kData}) {
    if (const auto key = folder(path)) own_.insert(*key);
    hold(folder(path));
  }
  for (const auto& key : {backup_, folder(kDefaultBackup)}) {
    if (key && !IsRoot(*key)) own_.insert(*key);
    hold(key);
  }
  for (const Text& path : settings_.namedFolders) hold(folder(path));
}

std::optional<CleanOracle::Place> CleanOracle::PlaceOf(const Row& row) {
  if (Kind(row.fields.tag) != u"FT") return Place{row.fields.location, row.fields.name, row.start};
  const Text path(Payload(row.fields.tag).value_or(u""));
  const size_t cut = path.find_last_of(u'\\');
  if (cut == Text::npos) return std::nullopt;
  return Place{path.substr(0, cut), path.substr(cut + 1), path.substr(0, cut)};
}

std::optional<Text> CleanOracle::Below(const Place& place) const {
  auto at = disk_.IsFolder(place.start) ? disk_.Resolve(place.start, true) : std::nullopt;
  if (!at || place.name.empty()) return std::nullopt;
  const Text below = Concat(TextView(place.folder).substr(place.start.size()), u"\\", place.name);
  for (const TextView name : Split(below, u"\\")) {
    if (name.empty()) continue;
    if (disk_.Find(*at)->kind != EntryKind::Folder) return std::nullopt;
    const auto found = disk_.items.find(Concat(*at, u"\\", name));
    if (found == disk_.items.end()) return std::nullopt;
    at = found->first;
  }
  return at;
}

bool CleanOracle::KeepsContent(TextView folder) const {
  const auto key = disk_.IsFolder(folder) ? disk_.Resolve(folder, true) : std::nullopt;
  if (!key) return true;
  return std::ranges::any_of(WithParents(*key), [this](const Text& above) { return own_.contains(above); });
}

bool CleanOracle::IsEmptyFolder(TextView key) const {
  return std::ranges::all_of(disk_.Children(key), [this](const Text& child) {
    const DiskItem& item = *disk_.Find(child);
    if (item.kind == EntryKind::Folder) return IsEmptyFolder(child);
    return item.kind == EntryKind::File && item.content.empty();
  });
}

std::optional<Text> CleanOracle::FileTarget(const Place& place) const {
  const auto key = Below(place);
  if (!key || KeepsContent(place.folder)) return std::nullopt;
  if (EndsWith(place.name, u".dll") && disk_.Resolve(place.folder, true) == system_) return std::nullopt;
  if (disk_.IsFolder(place.Path())) return std::nullopt;
  return key;
}

std::optional<Text> CleanOracle::FolderTarget(const Place& place) const {
  const auto key = Below(place);
  const auto folder = disk_.IsFolder(place.Path()) ? disk_.Resolve(place.Path(), true) : std::nullopt;
  if (!key || !folder || KeepsContent(place.folder)) return std::nullopt;
  if (IsRoot(*folder) || holding_.contains(*folder) || !IsEmptyFolder(*folder)) return std::nullopt;
  return key;
}

std::optional<Text> CleanOracle::Target(const Row& row) const {
  const TextView kind = Kind(row.fields.tag);
  const auto place = PlaceOf(row);
  if (!place || !HasPlainNames(place->Path())) return std::nullopt;
  if (kind == u"F" || kind == u"FT") return FileTarget(*place);
  return kind == u"P" ? FolderTarget(*place) : std::nullopt;
}

std::optional<Text> CleanOracle::LinkTarget(const Row& row) const {
  const auto place = PlaceOf(row);
  if (row.fields.tag != u"F" || !place || KeepsContent(place->folder)) return std::nullopt;
  const auto key = Below(*place);
  return key && disk_.Find(*key)->kind == EntryKind::Link ? key : std::nullopt;
}

void CleanOracle::AddWhatMayGo(const Row& row) {
  if (const auto key = Target(row)) disk_.AddTree(mayGo_, *key);
  if (const auto key = LinkTarget(row)) mayGo_.insert(*key);
}

void CleanOracle::Recycle(const Text& key, const Text& path) {
  calls_.emplace_back(u"DeleteToRecycleBin", path);
  if (settings_.everyFolderIsAVolume && disk_.Find(key)->kind != EntryKind::File) return;
  Text name(NameOf(key));
  for (int number = 2; disk_.Find(Concat(u"recycle\\", name)) != nullptr; ++number) {
    name = Concat(ToText(number), u"~", NameOf(key));
  }
  disk_.Move(key, Concat(u"recycle\\", name));
}

// The key for an item of this name in the backup folder. Nothing if the name is taken or there is no backup
// folder.
std::optional<Text> CleanOracle::InBackup(TextView name) const {
  if (!backup_) return std::nullopt;
  const Text key = Concat(*backup_, u"\\", name);
  return disk_.Find(key) == nullptr ? std::optional(key) : std::nullopt;
}

bool CleanOracle::LinkStandsAt(TextView path) const {
  const auto key = disk_.Resolve(path, false);
  return key && disk_.Find(*key) != nullptr && disk_.Find(*key)->kind == EntryKind::Link;
}

// A link to nothing stands, though there is neither a file nor a folder.
bool CleanOracle::FileIsGone(TextView path) const {
  return !disk_.IsFile(path) && (disk_.IsFolder(path) || !LinkStandsAt(path));
}

bool CleanOracle::FolderIsGone(TextView path) const {
  return !disk_.IsFolder(path) && (disk_.IsFile(path) || !LinkStandsAt(path));
}

bool CleanOracle::CleanFile(const Row& row) {
  const auto place = PlaceOf(row);
  if (!place) return FileIsGone(*Payload(row.fields.tag));
  const Text path = place->Path();
  if (!HasPlainNames(path)) return false;
  if (const auto key = FileTarget(*place)) {
    if (settings_.method == u"D") {
      disk_.Remove(*key);
    } else if (settings_.method == u"R") {
      Recycle(*key, path);
    } else if (settings_.method == u"S") {
      const bool taken = disk_.IsFile(Concat(settings_.backupFolder, u"\\", place->name));
      const auto saved = InBackup(Concat(place->name, taken ? u".1" : u""));
      const bool otherVolume =
          settings_.everyFolderIsAVolume || (!settings_.oneVolume && saved && (*saved)[7] != (*key)[7]);
      if (saved && !(otherVolume && disk_.Find(*key)->kind == EntryKind::Link)) disk_.Move(*key, *saved);
    }
  }
  return FileIsGone(path);
}

bool CleanOracle::CleanFolder(const Row& row) {
  const auto place = *PlaceOf(row);
  const Text path = place.Path();
  if (!HasPlainNames(path)) return false;
  if (const auto key = FolderTarget(place)) {
    if (settings_.method == u"D") {
      disk_.Remove(*key);
    } else if (settings_.method == u"R") {
      Recycle(*key, path);
    } else if (settings_.method == u"S") {
      const bool taken = disk_.IsFolder(Concat(settings_.backupFolder, u"\\", place.name));
      if (const auto saved = InBackup(Concat(place.name, taken ? u".1" : u""))) disk_.items[*saved] = {};
      disk_.Remove(*key);
    }
  }
  return FolderIsGone(path);
}

void CleanOracle::DeleteKey(Text hive, TextView key) {
  if (key.empty()) return;
  Text whole(key);
  if (hive == platform::HiveName(platform::Hive::ClassesRoot)) {
    whole = Concat(u"Software\\Classes\\", key);
    hive = registry_.contains(Concat(u"HKEY_CURRENT_USER\\", whole)) ? u"HKEY_CURRENT_USER"
                                                                     : u"HKEY_LOCAL_MACHINE";
  }
  const Text path = Concat(hive, u"\\", whole);
  std::erase_if(registry_, [&path](const auto& entry) {
    const TextView name = entry.first;
    return EqualIgnoringCase(name.substr(0, path.size()), path) &&
           (name.size() == path.size() || name[path.size()] == u'\\');
  });
}

void CleanOracle::DeleteValue(Text hive, TextView key, TextView name) {
  Text whole(key);
  const auto erase = [this, &name](const Text& path) {
    const auto found = registry_.find(path);
    return found != registry_.end() && found->second.erase(Text(name)) > 0;
  };
  if (hive == platform::HiveName(platform::Hive::ClassesRoot)) {
    whole = Concat(u"Software\\Classes\\", key);
    if (erase(Concat(u"HKEY_CURRENT_USER\\", whole))) return;
    hive = u"HKEY_LOCAL_MACHINE";
  }
  erase(Concat(hive, whole.empty() ? u"" : u"\\", whole));
}

void CleanOracle::CleanRegistryKey(TextView target) {
  const auto fields = Split(target, u", ");
  if (fields.size() > 1) DeleteKey(ReadHive(fields[0]), fields[1]);
}

void CleanOracle::CleanRegistryValue(TextView target) {
  const auto fields = Split(target, u", ");
  if (fields.size() > 2) DeleteValue(ReadHive(fields[0]), fields[1], fields[2]);
}

// Does what the row asks for. True if the row is removed from the list.
bool CleanOracle::Execute(const Row& row) {
  const TextView kind = Kind(row.fields.tag);
  const auto payload = Payload(row.fields.tag);
  if (kind == u"F") return CleanFile(row);
  if (kind == u"P") return CleanFolder(row);
  if (kind == u"DUR") {
    const Text path = Concat(row.fields.location, u"\\", row.fields.name);
    if (HasPlainNames(path)) calls_.emplace_back(u"DeleteAtRestart", path);
  } else if (kind == u"RE") {
    calls_.emplace_back(u"EmptyRecycleBin", u"");
    for (const Text& item : disk_.Children(u"recycle")) disk_.Remove(item);
  } else if (!payload) {
    return true;
  } else if (kind == u"FT") {
    return CleanFile(row);
  } else if (kind == u"Cmd") {
    calls_.emplace_back(u"RunTarget", *payload);
  } else if (kind == u"WSL") {
    calls_.emplace_back(u"ClearEventLog", *payload);
  } else if (kind == u"RK") {
    CleanRegistryKey(*payload);
  } else if (kind == u"RI") {
    CleanRegistryValue(*payload);
  } else if (kind == u"RIs") {
    for (const TextView piece : Split(*payload, u"MORVTVXRISSEP")) CleanRegistryValue(piece);
  }
  return true;
}

void CleanOracle::Clean(const std::vector<Row>& rows) {
  int cleaned = 0;
  float kilobytes = 0;
  for (size_t i = rows.size(); i-- > 0;) {
    if (rows[i].fields.checked) AddWhatMayGo(rows[i]);
    if (!rows[i].fields.checked || !Execute(rows[i])) {
      left_.push_back(i);
      continue;
    }
    ++cleaned;
    if (const auto size = ParseNumber(rows[i].fields.size)) kilobytes += static_cast<float>(*size);
  }
  std::ranges::reverse(left_);
  sum_ = Concat(u"Sum: ", ToText(cleaned), cleaned < 2 ? u" item, " : u" items, ", FormatGrouped(kilobytes),
                u" KB cleaned.");
}

}  // namespace tavix::lost
