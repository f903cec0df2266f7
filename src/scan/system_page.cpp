#include "scan/system_page.h"

#include "scan/system_rows.h"
#include "scan/system_walks.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr Scanner kScanners[] = {
    {u"Empty Recycle Bin", ScanRecycleBins},
    {u"Temporary Files", ScanTemporaryFiles},
    {u"Memory Dumps", ScanMemoryDump},
    {u"CHKDSK File Fragments", ScanFileFragments},
    {u"Windows Log Files", ScanLogFiles},
    {u"Windows System Logs", ScanEventLogs},
    {u"Invalid Shortcuts in User Folders", ScanUserShortcuts},
    {u"Uninstall Files for Windows Update", ScanUpdateUninstallers},
    {u"Windows Update Source Files", ScanUpdateSources},
    {u"Menu Order Caches", ScanMenuOrder},
    {u"Tray Notifications Cache", ScanTrayNotifications},
    {u"Windows Size and Location Caches", ScanWindowPlaces},
    {u"Old Prefetch data", ScanOldPrefetchData},
};

}  // namespace

constinit const std::span<const Scanner> kSystemScanners = kScanners;

}  // namespace tavix::mdlPubSelf
