#include "platform/windows/bin_settings.h"

#include <charconv>

#include "platform/windows/file_facts.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_registry.h"

namespace tavix::windows {
namespace {

constexpr TextView kBins = u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\BitBucket\\Volume\\";
constexpr TextView kPolicies = u"Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer";

std::optional<uint64_t> ReadNumber(platform::Hive hive, TextView key, TextView name) {
  WindowsRegistry registry;
  const std::optional<Text> data = registry.ReadValue(hive, key, name);
  if (!data) return std::nullopt;
  const std::string digits(data->begin(), data->end());
  uint64_t number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return std::nullopt;
  return number;
}

bool IsSet(platform::Hive hive, TextView key, TextView name) {
  return ReadNumber(hive, key, name).value_or(0) != 0;
}

// The root of the path's volume, with a backslash. Empty when it can't be told.
Text VolumeRoot(const Text& path) {
  wchar_t root[MAX_PATH + 1] = L"";
  return GetVolumePathNameW(Wide(path), root, MAX_PATH + 1) != FALSE ? FromWide(root) : Text();
}

// The "{...}" part of the volume's name, which is the key of its bin's settings.
std::optional<Text> VolumeIdentity(const Text& root) {
  wchar_t name[MAX_PATH + 1] = L"";
  if (GetVolumeNameForVolumeMountPointW(Wide(root), name, MAX_PATH + 1) == FALSE) return std::nullopt;
  const Text volume = FromWide(name);
  const size_t open = volume.find(u'{'), close = volume.find(u'}');
  if (open == Text::npos || close == Text::npos || close < open) return std::nullopt;
  return volume.substr(open, close - open + 1);
}

// The settings are per volume and user. A bin without written settings uses the system's defaults.
bool FitsBinOf(const Text& volume, const Text& path) {
  constexpr platform::Hive kUser = platform::Hive::CurrentUser;
  constexpr uint64_t kMegabyte = 1024 * 1024;
  const Text key = Concat(kBins, volume);
  if (IsSet(kUser, key, u"NukeOnDelete")) return false;
  const std::optional<uint64_t> limit = ReadNumber(kUser, key, u"MaxCapacity");
  const std::optional<Entry> entry = LookUp(path);
  return !limit || !entry || entry->IsFolder() || entry->size <= *limit * kMegabyte;
}

}  // namespace

bool BinTakes(const Text& path) {
  for (const platform::Hive hive : {platform::Hive::LocalMachine, platform::Hive::CurrentUser}) {
    if (IsSet(hive, kPolicies, u"NoRecycleFiles")) return false;
  }
  if (path.starts_with(u"\\\\")) return false;
  const Text root = VolumeRoot(path);
  if (root.empty()) return true;
  if (GetDriveTypeW(Wide(root)) == DRIVE_REMOTE) return false;
  const std::optional<Text> volume = VolumeIdentity(root);
  return !volume || FitsBinOf(*volume, path);
}

}  // namespace tavix::windows
