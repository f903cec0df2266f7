#include "platform/machine/services/machine_folder.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <vector>

#include "platform/hive_name.h"
#include "platform/machine/formats/registry_text.h"
#include "platform/machine/host/host_files.h"
#include "platform/machine/host/registry_folder.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFacts = "machine.ini";
constexpr const char* kRegistry = "registry";
// Larger files are refused.
constexpr uint64_t kMaxFactsBytes = uint64_t{16} << 20U;
constexpr uint64_t kMaxRegistryBytes = uint64_t{1} << 30U;
constexpr const char* kLeadsOut = "a link that leads out of the machine folder";

bool Fail(std::string& error, const std::string& where, std::string_view what) {
  error = where + ": " + std::string(what);
  return false;
}

bool Exists(const fs::path& path) {
  std::error_code failure;
  return fs::exists(fs::symlink_status(path, failure));
}

// Reads a number of pixels, from 1 to 99999. A missing value leaves `pixels` unchanged. False for any other
// text.
bool ReadPixels(const std::optional<Text>& value, int& pixels) {
  if (!value) return true;
  if (value->empty() || value->size() > 5) return false;
  int number = 0;
  for (const char16_t digit : *value) {
    if (digit < u'0' || digit > u'9') return false;
    number = number * 10 + (digit - u'0');
  }
  if (number > 0) pixels = number;
  return number > 0;
}

// The host has no memory left for a call. Goes the way of a failed allocation.
void EndIfMemoryLacked(const std::error_code& failure) {
  if (failure != std::errc::not_enough_memory) return;
  if (const std::new_handler end = std::get_new_handler()) end();
}

// The names of the registry's files, ordered by their upper-cased form.
std::optional<std::vector<fs::path>> RegistryFiles(const fs::path& folder) {
  std::vector<fs::path> names;
  std::error_code failure;
  for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
       entry.increment(failure)) {
    if (IsRegistryFile(entry->path())) names.push_back(entry->path().filename());
  }
  EndIfMemoryLacked(failure);
  if (failure) return std::nullopt;
  std::sort(names.begin(), names.end(), [](const fs::path& left, const fs::path& right) {
    const int order = CompareIgnoringCase(HostName(left), HostName(right));
    return order != 0 ? order < 0 : left < right;
  });
  return names;
}

}  // namespace

bool MachineFolder::LiesInside(const fs::path& path) const {
  std::error_code failure;
  const fs::path real = fs::canonical(path, failure);
  return !failure && std::mismatch(root_.begin(), root_.end(), real.begin(), real.end()).first == root_.end();
}

std::optional<fs::path> MachineFolder::RegistryFolder() const {
  const fs::path folder = root_ / kRegistry;
  if (!Exists(folder)) return folder;
  if (!LiesInside(folder)) return std::nullopt;
  std::error_code failure;
  fs::path real = fs::canonical(folder, failure);
  return failure ? std::nullopt : std::optional(std::move(real));
}

std::unique_ptr<MachineFolder> MachineFolder::Open(const fs::path& folder, std::string& error) {
  std::unique_ptr<MachineFolder> machine(new MachineFolder);
  std::error_code failure;
  machine->root_ = fs::canonical(folder, failure);
  if (failure || !fs::is_directory(machine->root_, failure)) {
    Fail(error, HostNameUtf8(folder), "no such folder");
    return nullptr;
  }
  std::string reason;
  const std::optional<fs::path> registry = machine->RegistryFolder();
  if (!registry) {
    Fail(error, kRegistry, kLeadsOut);
    return nullptr;
  }
  if (!RecoverRegistryFolder(*registry, reason)) {
    Fail(error, kRegistry, reason);
    return nullptr;
  }
  if (!Exists(machine->root_ / kFacts) && !Exists(machine->root_ / "drives") && !Exists(*registry)) {
    Fail(error, HostNameUtf8(folder), "no machine folder, it has none of machine.ini, drives and registry");
    return nullptr;
  }
  if (!machine->ReadFacts(error) || !machine->ReadRegistry(error)) return nullptr;
  return machine;
}

bool MachineFolder::ReadFacts(std::string& error) {
  const fs::path file = root_ / kFacts;
  if (!Exists(file)) return true;
  if (!LiesInside(file)) return Fail(error, kFacts, kLeadsOut);
  std::string reason;
  const std::optional<std::string> bytes = ReadHostFile(file, kMaxFactsBytes, reason);
  if (!bytes) return Fail(error, kFacts, reason);
  TextError wrong;
  std::optional<MachineIni> ini = MachineIni::Read(*bytes, wrong);
  if (!ini) return Fail(error, kFacts + (":" + std::to_string(wrong.Line)), wrong.Reason);
  ini_ = *std::move(ini);
  if (const std::optional<Text> decimal = ini_.Value(u"Locale", u"Decimal"); decimal && !decimal->empty()) {
    locale_.Decimal = *decimal;
  }
  if (const std::optional<Text> grouping = ini_.Value(u"Locale", u"Grouping")) locale_.Grouping = *grouping;
  if (!ReadPixels(ini_.Value(u"Screen", u"Width"), screen_.Width) ||
      !ReadPixels(ini_.Value(u"Screen", u"Height"), screen_.Height)) {
    return Fail(error, kFacts, "Width and Height of [Screen] are numbers of pixels, from 1 to 99999");
  }
  screen_.WorkHeight = screen_.Height;
  return true;
}

bool MachineFolder::ReadRegistry(std::string& error) {
  const fs::path folder = root_ / kRegistry;
  if (!Exists(folder)) return true;
  const std::optional<std::vector<fs::path>> names = RegistryFiles(folder);
  if (!names) return Fail(error, kRegistry, "can't be read");
  for (const fs::path& name : *names) {
    const fs::path file = folder / name;
    const std::string shown = std::string(kRegistry) + "/" + HostNameUtf8(name);
    if (!LiesInside(file)) return Fail(error, shown, kLeadsOut);
    std::string reason;
    const std::optional<std::string> bytes = ReadHostFile(file, kMaxRegistryBytes, reason);
    if (!bytes) return Fail(error, shown, reason);
    if (const auto wrong = ReadRegistryText(*bytes, registry_.Store())) {
      return Fail(error, shown + ":" + std::to_string(wrong->Line), wrong->Reason);
    }
  }
  return true;
}

bool MachineFolder::Save(std::string& error) {
  if (!registry_.Changed()) return true;
  const std::optional<fs::path> folder = RegistryFolder();
  if (!folder) return Fail(error, kRegistry, kLeadsOut);
  std::vector<NewFile> files;
  for (const platform::Hive hive : RegistryStore::kHives) {
    const RegistryKey& root = *registry_.Store().Root(hive);
    if (root.Keys().empty() && root.AllValues().empty()) continue;
    files.push_back({Concat(platform::HiveName(hive), u".reg"), WriteRegistryText(registry_.Store(), hive)});
  }
  std::string reason;
  if (!ReplaceRegistryFiles(*folder, files, reason)) return Fail(error, kRegistry, reason);
  registry_.MarkUnchanged();
  return true;
}

}  // namespace tavix::machine
