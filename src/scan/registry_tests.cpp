#include "scan/registry_tests.h"

#include "frame/support/file_system_object.h"
#include "frame/support/pub_registry.h"
#include "scan/command_path.h"
#include "text/pattern.h"

namespace tavix::mdlPubSelf {
namespace {

// If a test can't be answered, the entry is no finding.
std::optional<Text> UnlessFile(Text path) {
  if (fileSystemObject.FileExists(path) != false) return std::nullopt;
  return path;
}

// Don't look again for a file that was just seen.
std::optional<Text> UnlessCommandOfAFile(TextView command, KnownFiles& files) {
  CommandTarget target = FindCommandTarget(command, files);
  if (target.IsFile || target.Path.empty() || files.FileExists(target.Path) != false) return std::nullopt;
  return std::move(target.Path);
}

}  // namespace

std::optional<Text> ListValue(const RegistryEntry& entry) { return entry.Value(); }

std::optional<Text> ListName(const RegistryEntry& entry) {
  if (entry.Name.empty()) return std::nullopt;
  return Text(entry.Name);
}

std::optional<Text> NameIsNoFile(const RegistryEntry& entry) { return UnlessFile(Text(entry.Name)); }

std::optional<Text> NameLeadsToNoFile(const RegistryEntry& entry) {
  return UnlessCommandOfAFile(entry.Name, entry.Lookups.Files);
}

std::optional<Text> NameLeadsToNoFolder(const RegistryEntry& entry) {
  Text path = ExtractCommandPath(entry.Name);
  if (path.empty() || fileSystemObject.FolderExists(path) != false) return std::nullopt;
  return path;
}

std::optional<Text> ValueLeadsToNoFile(const RegistryEntry& entry) {
  return UnlessCommandOfAFile(entry.Value(), entry.Lookups.Files);
}

std::optional<Text> DataLeadsToNoFile(const RegistryEntry& entry) {
  CommandTarget target = FindCommandTarget(entry.Data, entry.Lookups.Files);
  if (target.IsFile) return std::nullopt;
  return UnlessFile(std::move(target.Path));
}

std::optional<Text> FontIsMissing(const RegistryEntry& entry) {
  const std::optional<Text>& fonts = entry.Lookups.SpecialFolder(u"Fonts");
  if (!fonts || !UnlessFile(Concat(*fonts, u"\\", Trim(entry.Data)))) return std::nullopt;
  return Text(Trim(entry.Name));
}

std::optional<Text> HelpFileIsMissing(const RegistryEntry& entry) {
  return UnlessFile(Concat(Trim(entry.Data), u"\\", Trim(entry.Name)));
}

std::optional<Text> TypeLibraryIsMissing(const RegistryEntry& entry) {
  Text library = entry.Value();
  SubstringIndex* known = entry.Lookups.TypeLibraries();
  if (known == nullptr || known->Contains(library)) return std::nullopt;
  return library;
}

std::optional<Text> SoftwareIsObsolete(const RegistryEntry& entry) {
  const Text key = entry.Path();
  Text folded;
  pubRegistry.EnumSubKeys(entry.List.Hive, key, folded);
  if (!folded.empty()) return std::nullopt;
  // The count stops at its limit.
  int16_t count = INT16_MAX;
  pubRegistry.CountValues(entry.List.Hive, key, count);
  if (count >= 2) return std::nullopt;
  pubRegistry.EnumValues(entry.List.Hive, key, folded);
  // The default value has no name: if it is alone, the folded text begins with the separator "*NDS*".
  if (!folded.empty() && !MatchesPattern(folded, u"?NDS?*")) return std::nullopt;
  // A key that can't be read looks empty too.
  if (!pubRegistry.IsReadable(entry.List.Hive, key)) return std::nullopt;
  return Text(entry.Name);
}

std::optional<Text> UninstallerIsMissing(const RegistryEntry& entry) {
  constexpr size_t kFirstGroup = 8;
  const size_t hyphen = entry.Name.find(u'-');
  if (entry.Name.starts_with(u'{') && hyphen != TextView::npos && hyphen >= kFirstGroup) return std::nullopt;
  return ValueLeadsToNoFile(entry);
}

std::optional<Text> MenuItemIsMissing(const RegistryEntry& entry) {
  // Copies: each look-up may move the results of the others.
  const std::optional<Text> allUsers = entry.Lookups.SpecialFolder(u"AllUsersPrograms");
  const std::optional<Text> users = entry.Lookups.SpecialFolder(u"Programs");
  if (!allUsers || !users) return std::nullopt;
  const Text inAllUsers = Concat(*allUsers, u"\\", entry.Name);
  const Text inUsers = Concat(*users, u"\\", entry.Name);
  const bool missing = fileSystemObject.FileExists(inAllUsers + u".lnk") == false &&
                       fileSystemObject.FileExists(inUsers + u".lnk") == false &&
                       fileSystemObject.FolderExists(inAllUsers) == false &&
                       fileSystemObject.FolderExists(inUsers) == false;
  return missing ? std::optional(Text(entry.Name)) : std::nullopt;
}

}  // namespace tavix::mdlPubSelf
