#include "frame/settings.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>

#include "doubles/memory_file_system.h"
#include "doubles/memory_host.h"
#include "doubles/memory_store.h"
#include "frame/data_paths.h"
#include "frame/start_up.h"
#include "frame/support/file_system_object.h"
#include "require.h"

namespace {

using namespace tavix;
using namespace tavix::mdlPubSelf;

// A disk with direct access to its settings file, which saves the time to resolve its path.
class Disk : public machine::MemoryFileSystem {
 public:
  using MemoryFileSystem::MemoryFileSystem;
  std::optional<std::string> ReadFile(TextView path) override {
    return path == kSettingsFile ? content : MemoryFileSystem::ReadFile(path);
  }
  bool WriteFile(TextView path, std::string_view bytes) override {
    if (path != kSettingsFile) return MemoryFileSystem::WriteFile(path, bytes);
    content = bytes;
    return true;
  }
  std::optional<std::string> content;
};

// The disk of a machine on which start, settings and data paths are set up.
Disk& SettingsDisk() {
  static machine::MemoryHost host;
  static Disk disk(host.store, host.facts);
  if (!fileSystemObject) {
    host.files.AddFolder(u"C:\\");
    platform::fileSystem = &disk;
    Form_Load();
  }
  return disk;
}

std::map<TextView, Text> Settings() {
  std::map<TextView, Text> values;
  for (const Setting* setting : Setting::All()) values.emplace(setting->key, *setting);
  return values;
}

// Frees all memory: the fuzzer checks a run that keeps some for leaks, which is slow.
void Forget() {
  for (Setting* setting : Setting::All()) Text().swap(*setting);
  SettingsDisk().content.reset();
}

void CheckWriting() {
  auto expected = Settings();
  const Text value = CommonTypes + u" \"x";
  WriteSetting(BackupFolder, value);
  LoadSettings();
  expected[BackupFolder.key] = value;
  if (value.find_first_of(u"\r\n") == Text::npos) Require(Settings() == expected);
}

void CheckDefaults() {
  WriteDefaultSettings();
  LoadSettings();
  const auto defaults = Settings();
  Require(CleaningMethod == u"D" && BackupFolder == kDefaultBackupFolder);
  const auto written = SettingsDisk().content;
  WriteDefaultSettings();
  LoadSettings();
  Require(SettingsDisk().content == written && Settings() == defaults);
}

}  // namespace

// The settings file can hold any bytes; no setting is longer than the file. For some inputs, chosen by a hash
// because this is slow: a written setting is read back, the other settings stay, and writing the defaults
// twice gives the same settings.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMost = 300;
  const std::string bytes(reinterpret_cast<const char*>(data), std::min(size, kMost));
  SettingsDisk().content = bytes;
  LoadSettings();
  for (const Setting* setting : Setting::All()) Require(setting->size() <= bytes.size());
  const size_t choice = std::hash<std::string>()(bytes) % 256;
  if (choice < 16) CheckWriting();
  if (choice == 16) CheckDefaults();
  Forget();
  return 0;
}
