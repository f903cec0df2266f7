#include "catalogue/functions.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr CleaningFunction kFunctions[] = {
    ByCaption(u"Empty Recycle Bin", u"Checks this cleaning function to empty all Recycle Bins."),
    ByCaption(u"Temporary Files",
              u"Includes Windows system temporary files and user temporary files, generally, cleaning these "
              u"files can free a lot of disk space."),
    ByCaption(u"Memory Dumps",
              u"Stored the memory dumps when Windows crashes, so that advanced users can debug the system."),
    ByCaption(u"CHKDSK File Fragments",
              u"Stored the clusters and chains that are left over after you ran Windows 'CHKDSK' tool."),
    ByCaption(
        u"Windows Log Files",
        u"Windows logs many events and activities, such as access, policy changes, Internet use, tasks, and "
        u"so on. As a result, the dozens of logs it creates are scattered across the system."),
    ByCaption(u"Windows System Logs",
              u"Includes the events that recorded in the Application, Security, and System logs. You can "
              u"perform 'Control Panel -> Administrative Tools -> Event Viewer' to see more detail."),
    ByCaption(u"Invalid Shortcuts in User Folders",
              u"Includes the invalid shortcuts (their targets no longer exist) in all users' Start "
              u"Menu/Desktop and current users' Start Menu/Desktop."),
    ByCaption(u"Uninstall Files for Windows Update",
              u"Stored the uninstall files after you downloaded and ran the Hotfix from Microsoft. Usually "
              u"we don't need to uninstall Windows Update patches, so we can remove these files and get a "
              u"lot of disk space."),
    ByCaption(u"Windows Update Source Files",
              u"Stored the installation files after you downloaded the Hotfix from Microsoft. Usually we "
              u"don't need to install Windows Update patches again, so we can remove these files and get a "
              u"lot of disk space."),
    ByCaption(u"Menu Order Caches",
              u"Stores the information about dragging and dropping menus on Start menu into different "
              u"locations. Cleaning it will reset the Start menu order, no items will be removed."),
    ByCaption(u"Tray Notifications Cache",
              u"Stores information about any items that have ever appeared in your System Tray, and any "
              u"visible settings about tray icons. Cleaning it will reset system tray cache, you need to "
              u"restart the 'explorer.exe' process."),
    ByCaption(u"Windows Size and Location Caches",
              u"When you open and close Windows Explorer, Windows records folder settings for window "
              u"position, sort order, columns, folder type, toolbar toggles, and search result views. "
              u"Cleaning it will reset all above."),
    ByCaption(u"Old Prefetch data",
              u"Stored program data for quick start, this function is designed to clean the old prefetch "
              u"data (default: 30 days ago) that no longer exist or haven't been used in a long time.",
              kOtherOptionsPage),
};

}  // namespace

constinit const std::span<const CleaningFunction> kSystemFunctions = kFunctions;

}  // namespace tavix::mdlPubSelf
