#include "catalogue/functions.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr CleaningFunction kFunctions[] = {
    ByCaption(u"Missing Shared DLLs",
              u"Includes the DLLs files that are recorded in the Windows registry, but no longer exist on "
              u"your hard disk."),
    ByCaption(u"ActiveX and Class Issues",
              u"Includes the ActiveX and Class files that are recorded in the Windows registry, but no "
              u"longer exist on your hard disk."),
    ByCaption(u"Type Libraries Issues", u"Includes the remainders for the invalid type libraries."),
    ByCaption(u"Application Shells Issues",
              u"Includes the Application Shell (for instance: Open, Edit, Print) files that are recorded in "
              u"the Windows registry, but no longer exist on your hard disk."),
    ByCaption(u"Fonts Issues",
              u"Includes the font files that are recorded in the Windows registry, but no longer exist on "
              u"your hard disk."),
    ByCaption(u"Application Paths Issues",
              u"Includes the application paths that are recorded in the Windows registry, but no longer "
              u"exist on your hard disk."),
    ByCaption(u"Help Files Issues",
              u"Includes the help files that are recorded in the Windows registry, but no longer exist on "
              u"your hard disk."),
    ByCaption(u"Redundant Installers",
              u"Includes the installers that are recorded in the Windows registry, but no longer exist on "
              u"your hard disk."),
    ByCaption(u"Obsolete Software", u"Includes the remainders for the obsolete software."),
    ByCaption(u"Run at Startup Issues",
              u"Includes the auto-run files that are recorded in the Windows registry, but no longer exist "
              u"on your hard disk."),
    ByCaption(u"Start Menu Ordering Issues",
              u"Includes the menu order caches that are recorded in the Windows registry, but the menu items "
              u"no longer exist on your hard disk."),
    ByCaption(u"MUI Cache Issues",
              u"Includes the MUI caches that are recorded in the Windows registry, but the no longer exist "
              u"on your hard disk."),
    ByCaption(u"Uninstaller Issues",
              u"Includes the Uninstallers that are recorded in the Windows registry, but no longer exist on "
              u"your hard disk."),
    ByCaption(u"Appearance Schemes",
              u"Includes all the Appearance Schemes in your system that are recorded in the Windows "
              u"registry, you can check the unnecessary schemes to clean."),
    ByCaption(u"Cursor Schemes",
              u"Includes all the Cursor Schemes in your system that are recorded in the Windows registry, "
              u"you can check the unnecessary schemes to clean."),
    ByCaption(u"Internet Country Codes",
              u"Includes all the Internet Country Codes in your system that are recorded in the Windows "
              u"registry, you can check the unnecessary codes to clean."),
    ByCaption(u"Time Zones",
              u"Includes all the Time Zones in your system that are recorded in the Windows registry, you "
              u"can check the unnecessary time zones to clean."),
};

}  // namespace

constinit const std::span<const CleaningFunction> kRegistryFunctions = kFunctions;

}  // namespace tavix::mdlPubSelf
