#include "scan/system_rows.h"

#include <optional>

#include "frame/support/file_system_object.h"
#include "frame/support/pub_system.h"
#include "platform/event_logs.h"
#include "scan/action_string.h"
#include "scan/result_items.h"
#include "scan/windows_folder.h"
#include "text/attempt.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr auto kHive = platform::Hive::CurrentUser;
constexpr TextView kExplorer = u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer";

struct SizeTexts {
  std::optional<Text> size, key;
};

// The texts for a size that the system gives as a text.
SizeTexts BinSize(TextView size) {
  const auto number = ParseNumber(size);
  if (!number) return {Text(u"Over 2,097,152"), Text(u"99999999.9")};
  const auto bytes = ToInteger32(*number);
  return {bytes.transform(FormatSizeText), bytes.transform(FormatSizeKey)};
}

void AddRegistryRow(TextView type, TextView name, TextView actionString) {
  AddResultItem(type, name, kNoSize, u"Registry", kNoSizeKey, actionString);
}

// Leaves `count` as it is if the log can't be read.
void CountRecords(TextView log, uint32_t& count) {
  const auto handle = platform::eventLogs->Open(log);
  Set(count, platform::eventLogs->Count(handle));
  platform::eventLogs->Close(handle);
}

}  // namespace

void ScanRecycleBins() {
  Text info;
  pubSystem.GetRecycleBinInfo(0, info);
  const auto fields = Split(info, u"|");
  std::optional<Text> name;
  if (!fields.empty()) name = Concat(u"Recycle Bins (", fields[0], u" Items)");
  const SizeTexts texts = fields.size() > 1 ? BinSize(fields[1]) : SizeTexts();
  AddResultItem(u"Recycle Bins", name, texts.size, u"Each Recycle Bin", texts.key, action::kRecycleBins);
}

void ScanMemoryDump() {
  const Text path = Concat(WindowsFolder(), u"\\memory.dmp");
  const Text action = NamedFileAction(path);
  const platform::Existence dump = fileSystemObject.FileExists(path);
  if (dump == std::nullopt) {
    // If it can't be told whether there is a dump, the row has no name and no size.
    AddResultItem(u"Memory Dumps", std::nullopt, std::nullopt, u"System Drive", std::nullopt, action);
    return;
  }
  if (dump == false) {
    // The only size text without a point.
    AddResultItem(u"Memory Dumps", u"System Memory Dumps (0 File)", u"0", u"System Drive", kNoSizeKey,
                  action);
    return;
  }
  const auto size = fileSystemObject.GetFile(path).value_or(File()).Size();
  AddResultItem(u"Memory Dumps", u"System Memory Dumps (1 File)", size.transform(FormatSizeText),
                u"System Drive", size.transform(FormatSizeKey), action);
}

void ScanEventLogs() {
  uint32_t count = 0;
  for (const TextView log : {u"System", u"Application", u"Security"}) {
    CountRecords(log, count);
    AddResultItem(u"Windows System Log", Concat(log, u" Category (", ToText(count), u" Items)"), kNoSize,
                  u"Windows System", kNoSizeKey, EventLogAction(log));
  }
}

void ScanMenuOrder() {
  AddRegistryRow(u"Menu Order Caches", u"in Start Menu and Favorites",
                 RegistryKeyAction(kHive, Concat(kExplorer, u"\\MenuOrder")));
}

void ScanTrayNotifications() {
  AddRegistryRow(
      u"Tray Notifications Cache", u"Tray Notifications Cache",
      RegistryValuesAction(kHive, Concat(kExplorer, u"\\TrayNotify"), u"IconStreams", u"PastIconsStream"));
}

void ScanWindowPlaces() {
  AddRegistryRow(u"Windows Size and Location Caches", u"Windows Size and Location Caches",
                 RegistryKeyAction(kHive, Concat(kExplorer, u"\\StreamMRU")));
}

}  // namespace tavix::mdlPubSelf
