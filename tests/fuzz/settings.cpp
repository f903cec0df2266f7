#include "frame/settings.h"

#include <array>
#include <cstdint>

#include "frame/data_paths.h"
#include "frame/start_up.h"
#include "frame/support/file_system_object.h"
#include "platform/machine/memory_host.h"
#include "require.h"

namespace {

using namespace tavix;
using namespace tavix::mdlPubSelf;

// A machine that has been started, with nothing above the frame.
machine::MemoryHost& Machine() {
  static machine::MemoryHost host;
  if (!fileSystemObject) {
    host.files.AddFolder(u"C:\\");
    Form_Load();
  }
  return host;
}

std::array<Text, 13> Settings() {
  return {DuplicateSize, DuplicateModified, OnlyCommon,       LeastSize,            NeedLeast,
          CommonTypes,   Functions,         CleaningMethod,   BackupFolder,         InterfaceSize,
          LastAccessedFile, LastAccessedPrefetch, ExceptFolders};
}

}  // namespace

// Any bytes in the settings file give settings no longer than they are; a setting that is written is read
// back and leaves the others alone; defaults over them are the same a second time.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Machine().files.AddFile(kSettingsFile, {.content = bytes});
  LoadSettings();
  const auto before = Settings();
  for (const Text& value : before) Require(value.size() <= bytes.size());

  const Text value = CommonTypes + u" \"x";
  WriteSetting(u"Cleaning Method", u"Backup Folder", value);
  LoadSettings();
  auto expected = before;
  expected[8] = value;
  if (value.find_first_of(u"\r\n") == Text::npos) Require(Settings() == expected);

  WriteDefaultSettings();
  LoadSettings();
  const auto defaults = Settings();
  Require(defaults[7] == u"D" && defaults[8] == kDefaultBackupFolder);
  const auto written = Machine().files.ReadFile(kSettingsFile);
  WriteDefaultSettings();
  Require(written && Machine().files.ReadFile(kSettingsFile) == written);
  return 0;
}
