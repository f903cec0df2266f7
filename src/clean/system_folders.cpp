#include "clean/system_folders.h"

#include "advanced/path_text.h"
#include "frame/support/pub_system.h"
#include "scan/windows_folder.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kCommonData = 35;

// An update of 2025 made inetpub as a protection against planted links, and asks to keep it.
constexpr TextView kOnTheDrive[] = {
    u"$Recycle.Bin", u"$WinREAgent", u"Config.Msi", u"inetpub",
    u"OneDriveTemp", u"PerfLogs",    u"Recovery",   u"System Volume Information"};

// Without PRINTERS nothing can be printed.
constexpr TextView kInWindows[] = {u"CSC",
                                   u"Installer",
                                   u"LiveKernelReports",
                                   u"ModemLogs",
                                   u"SchCache",
                                   u"System32\\config\\RegBack",
                                   u"System32\\LogFiles\\WMI\\RtBackup",
                                   u"System32\\spool\\PRINTERS",
                                   u"System32\\Tasks",
                                   u"SystemTemp",
                                   u"Tasks",
                                   u"tracing",
                                   u"Vss"};

constexpr TextView kInCommonData[] = {u"Microsoft\\Windows\\WER\\ReportArchive",
                                      u"Microsoft\\Windows\\WER\\ReportQueue",
                                      u"Microsoft\\Windows\\WER\\Temp",
                                      u"SoftwareDistribution",
                                      u"ssh",
                                      u"USOPrivate",
                                      u"USOShared"};

}  // namespace

std::vector<Text> FoldersThatWindowsKeeps() {
  std::vector<Text> folders;
  const auto add = [&folders](TextView above, auto& names) {
    if (above.empty()) return;
    for (const TextView name : names) folders.push_back(PathBelow(above, name));
  };
  constexpr size_t kDriveLength = 2;
  const Text windows = WindowsFolder();
  add(TextView(windows).substr(0, kDriveLength), kOnTheDrive);
  add(windows, kInWindows);
  Text data;
  pubSystem.GetSpecialFolder(kCommonData, data);
  add(data, kInCommonData);
  return folders;
}

}  // namespace tavix::mdlPubSelf
