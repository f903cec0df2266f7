#include "scan/registry_list.h"

#include <algorithm>

#include "forms/main_form.h"
#include "frame/support/pub_registry.h"
#include "frame/support/shell_object.h"
#include "platform/event_queue.h"
#include "scan/action_string.h"
#include "scan/folded_values.h"
#include "scan/result_items.h"

namespace tavix::mdlPubSelf {
namespace {

Text LocationOf(const RegistryEntry& entry) {
  const TextView location = entry.List.Location;
  const size_t star = location.find(u'*');
  if (star == TextView::npos) return Text(location);
  return Concat(location.substr(0, star), entry.Name, location.substr(star + 1));
}

Text TagOf(const RegistryEntry& entry) {
  const platform::Hive hive = entry.List.Hive;
  return entry.List.Entries == RegistryEntries::SubKeys ? RegistryKeyAction(hive, entry.Path())
                                                        : RegistryValueAction(hive, entry.Key, entry.Name);
}

void ScanEntry(const RegistryEntry& entry) {
  const RegistryList& list = entry.List;
  if (const std::optional<Text> name = list.Test(entry)) {
    AddResultItem(list.Type, *name, kNoSize, LocationOf(entry), kNoSizeKey, TagOf(entry), list.Ticked);
  }
  if (list.Yields) platform::Yield();
}

void ScanSubKeys(const RegistryList& list, TextView key, TextView folded, RegistryLookups& lookups) {
  const auto below = pubRegistry.Below(list.Hive, key);
  for (const TextView name : Split(folded, clsPubRegistry::kSubKeySeparator)) {
    ScanEntry({list, key, name, {}, lookups, below.get()});
  }
}

void ScanValueNames(const RegistryList& list, TextView key, TextView folded, RegistryLookups& lookups) {
  for (const TextView name : Split(folded, clsPubRegistry::kItemSeparator)) {
    ScanEntry({list, key, name, {}, lookups});
  }
}

void ScanValues(const RegistryList& list, TextView key, TextView folded, RegistryLookups& lookups) {
  VisitFoldedValues(folded, [&](TextView name, TextView data) {
    ScanEntry({list, key, name, data, lookups});
  });
}

void ScanKey(const RegistryList& list, TextView key, RegistryLookups& lookups) {
  Text folded;
  switch (list.Entries) {
    case RegistryEntries::SubKeys:
      pubRegistry.EnumSubKeys(list.Hive, key, folded);
      return ScanSubKeys(list, key, folded, lookups);
    case RegistryEntries::ValueNames:
      pubRegistry.EnumValueNames(list.Hive, key, folded);
      return ScanValueNames(list, key, folded, lookups);
    case RegistryEntries::Values:
      pubRegistry.EnumValues(list.Hive, key, folded);
      return ScanValues(list, key, folded, lookups);
  }
}

void ScanRegistryList(const RegistryList& list, RegistryLookups& lookups) {
  frmPubMain.lblProgS.Caption = Text(list.Status);
  frmPubMain.Refresh();
  if (list.Inner.empty()) return ScanKey(list, list.Root, lookups);
  Text folded;
  pubRegistry.EnumSubKeys(list.Hive, list.Root, folded);
  for (const TextView subKey : Split(folded, clsPubRegistry::kSubKeySeparator)) {
    ScanKey(list, Concat(list.Root, u"\\", subKey, list.Inner), lookups);
  }
}

}  // namespace

const std::optional<Text>& RegistryLookups::SpecialFolder(TextView name) {
  auto found = std::ranges::find(folders_, name, &Folder::Name);
  if (found == folders_.end()) {
    std::optional<Text> path = shellObject.SpecialFolders(name);
    if (path && path->empty()) path.reset();
    folders_.push_back({name, std::move(path)});
    found = std::prev(folders_.end());
  }
  return found->Path;
}

SubstringIndex* RegistryLookups::TypeLibraries() {
  constexpr auto kHive = platform::Hive::ClassesRoot;
  constexpr TextView kKey = u"TypeLib";
  if (!typeLibrariesAsked_) {
    typeLibrariesAsked_ = true;
    Text folded;
    pubRegistry.EnumSubKeys(kHive, kKey, folded);
    if (!folded.empty() || pubRegistry.IsReadable(kHive, kKey)) typeLibraries_.emplace(std::move(folded));
  }
  return typeLibraries_ ? &*typeLibraries_ : nullptr;
}

Text RegistryEntry::Value() const {
  if (Below == nullptr) return {};
  return Below->ReadValue(Concat(Name, List.ValueKey), List.ValueName).value_or(Text());
}

void ScanRegistryLists(std::span<const RegistryList> lists) {
  RegistryLookups lookups;
  for (const RegistryList& list : lists) ScanRegistryList(list, lookups);
}

}  // namespace tavix::mdlPubSelf
