#include "scan/registry_page.h"

#include "scan/registry_list.h"
#include "scan/registry_tests.h"

namespace tavix::mdlPubSelf {
namespace {

using enum platform::Hive;
using enum RegistryEntries;

// Locations shown by several functions. They name less than the whole key.
constexpr TextView kInWindows = u"Registry: HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows";
constexpr TextView kInUsersWindows = u"Registry: HKEY_CURRENT_USER\\Software\\Microsoft\\Windows";

constexpr RegistryList kSharedDlls[] = {
    {.Status = u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\SharedDlls', "
               u"please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\SharedDlls",
     .Entries = ValueNames,
     .Test = NameIsNoFile,
     .Type = u"Missing Shared DLL",
     .Location = kInWindows}};

// HKEY_CLASSES_ROOT is a view of the other two, so each class is found twice.
constexpr RegistryList kClasses[] = {
    {.Status = u"Scanning in 'HKEY_CLASSES_ROOT\\CLSID', please wait...",
     .Hive = ClassesRoot,
     .Root = u"CLSID",
     .Entries = SubKeys,
     .ValueKey = u"\\InprocServer32",
     .Test = ValueLeadsToNoFile,
     .Type = u"ActiveX and Class Issue",
     .Location = u"Registry: HKEY_CLASSES_ROOT",
     .Yields = true},
    {.Status = u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Classes\\CLSID",
     .Entries = SubKeys,
     .ValueKey = u"\\InprocServer32",
     .Test = ValueLeadsToNoFile,
     .Type = u"ActiveX and Class Issue",
     .Location = u"Registry: HKEY_LOCAL_MACHINE\\Software",
     .Yields = true},
    {.Status = u"Scanning in 'HKEY_CURRENT_USER\\Software\\Classes\\CLSID', please wait...",
     .Hive = CurrentUser,
     .Root = u"Software\\Classes\\CLSID",
     .Entries = SubKeys,
     .ValueKey = u"\\InprocServer32",
     .Test = ValueLeadsToNoFile,
     .Type = u"ActiveX and Class Issue",
     .Location = u"Registry: HKEY_CURRENT_USER\\Software",
     .Yields = true}};

// The status names the libraries, but the interfaces are tested.
constexpr RegistryList kTypeLibraries[] = {
    {.Status = u"Scanning in 'HKEY_CLASSES_ROOT\\TypeLib', please wait...",
     .Hive = ClassesRoot,
     .Root = u"Interface",
     .Entries = SubKeys,
     .ValueKey = u"\\TypeLib",
     .Test = TypeLibraryIsMissing,
     .Type = u"Type Library Issue",
     .Location = u"Registry: HKEY_CLASSES_ROOT\\Interface\\*\\TypeLib",
     .Yields = true}};

constexpr RegistryList kApplicationShells[] = {
    {.Status = u"Scanning in 'HKEY_CLASSES_ROOT\\Applications', please wait...",
     .Hive = ClassesRoot,
     .Root = u"Applications",
     .Inner = u"\\shell",
     .Entries = SubKeys,
     .ValueKey = u"\\command",
     .Test = ValueLeadsToNoFile,
     .Type = u"Application Shell Issue",
     .Location = u"Registry: HKEY_CLASSES_ROOT\\Applications"}};

constexpr RegistryList kFonts[] = {
    {.Status = u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts",
     .Entries = Values,
     .Test = FontIsMissing,
     .Type = u"Font Issue",
     .Location = u"Registry: HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT"}};

constexpr RegistryList kApplicationPaths[] = {
    {.Status =
         u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths",
     .Entries = SubKeys,
     .Test = ValueLeadsToNoFile,
     .Type = u"Application Path Issue",
     .Location = kInWindows}};

constexpr RegistryList kHelpFiles[] = {
    {.Status = u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\Help",
     .Entries = Values,
     .Test = HelpFileIsMissing,
     .Type = u"Help File Issue",
     .Location = kInWindows},
    {.Status = u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\Html Help",
     .Entries = Values,
     .Test = HelpFileIsMissing,
     .Type = u"Help File Issue",
     .Location = kInWindows}};

constexpr TextView kInstallersStatus =
    u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion', please wait...";

constexpr RegistryList kInstallers[] = {
    {.Status = kInstallersStatus,
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\Folders",
     .Entries = ValueNames,
     .Test = NameLeadsToNoFolder,
     .Type = u"Redundant Installer",
     .Location = kInWindows,
     .Yields = true},
    {.Status = kInstallersStatus,
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\UserData",
     .Inner = u"\\Patches",
     .Entries = SubKeys,
     .ValueName = u"LocalPackage",
     .Test = ValueLeadsToNoFile,
     .Type = u"Redundant Installer",
     .Location = kInWindows},
    {.Status = kInstallersStatus,
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Installer\\UserData",
     .Inner = u"\\Products",
     .Entries = SubKeys,
     .ValueKey = u"\\InstallProperties",
     .ValueName = u"LocalPackage",
     .Test = ValueLeadsToNoFile,
     .Type = u"Redundant Installer",
     .Location = kInWindows}};

constexpr RegistryList kSoftware[] = {
    {.Status = u"Scanning in 'HKEY_LOCAL_MACHINE\\Software', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software",
     .Entries = SubKeys,
     .Test = SoftwareIsObsolete,
     .Type = u"Obsolete Software",
     .Location = u"Registry: HKEY_LOCAL_MACHINE\\Software",
     .Yields = true},
    {.Status = u"Scanning in 'HKEY_CURRENT_USER\\Software', please wait...",
     .Hive = CurrentUser,
     .Root = u"Software",
     .Entries = SubKeys,
     .Test = SoftwareIsObsolete,
     .Type = u"Obsolete Software",
     .Location = u"Registry: HKEY_CURRENT_USER\\Software",
     .Yields = true}};

constexpr RegistryList kStartup[] = {
    {.Status = u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run', please "
               u"wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run",
     .Entries = Values,
     .Test = DataLeadsToNoFile,
     .Type = u"Run at Startup Issue",
     .Location = u"Registry: HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"},
    {.Status = u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run', please "
               u"wait...",
     .Hive = CurrentUser,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run",
     .Entries = Values,
     .Test = DataLeadsToNoFile,
     .Type = u"Run at Startup Issue",
     .Location = u"Registry: HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"}};

constexpr RegistryList kMenuOrder[] = {
    {.Status =
         u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion', please wait...",
     .Hive = CurrentUser,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder\\Start Menu2\\Programs",
     .Entries = SubKeys,
     .Test = MenuItemIsMissing,
     .Type = u"Start Menu Ordering Issue",
     .Location = u"Registry: HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion"}};

constexpr RegistryList kMuiCache[] = {
    {.Status = u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Windows', please wait...",
     .Hive = CurrentUser,
     .Root = u"Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache",
     .Entries = ValueNames,
     .Test = NameLeadsToNoFile,
     .Type = u"MUI Cache Issue",
     .Location = kInUsersWindows}};

constexpr RegistryList kUninstallers[] = {
    {.Status =
         u"Scanning in 'HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall",
     .Entries = SubKeys,
     .ValueName = u"UninstallString",
     .Test = UninstallerIsMissing,
     .Type = u"Uninstaller Issue",
     .Location = kInWindows}};

constexpr RegistryList kAppearanceSchemes[] = {
    {.Status = u"Scanning in 'HKEY_CURRENT_USER\\Control Panel\\Appearance\\Schemes', please wait...",
     .Hive = CurrentUser,
     .Root = u"Control Panel\\Appearance\\Schemes",
     .Entries = ValueNames,
     .Test = ListName,
     .Type = u"Appearance Scheme",
     .Location = u"Registry: HKEY_CURRENT_USER",
     .Ticked = false}};

constexpr RegistryList kCursorSchemes[] = {
    {.Status =
         u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Control Panel\\Cursors\\Schemes",
     .Entries = ValueNames,
     .Test = ListName,
     .Type = u"Cursor Scheme",
     .Location = kInWindows,
     .Ticked = false}};

// The status names the other hive; it is shown so.
constexpr RegistryList kCountryCodes[] = {
    {.Status =
         u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows\\CurrentVersion\\Telephony\\Country List",
     .Entries = SubKeys,
     .ValueName = u"Name",
     .Test = ListValue,
     .Type = u"Internet Country Code",
     .Location = kInWindows,
     .Ticked = false}};

constexpr RegistryList kTimeZones[] = {
    {.Status =
         u"Scanning in 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion', please wait...",
     .Hive = LocalMachine,
     .Root = u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Time Zones",
     .Entries = SubKeys,
     .ValueName = u"Std",
     .Test = ListValue,
     .Type = u"Time Zone",
     .Location = kInWindows,
     .Ticked = false}};

template <const auto& kLists>
void Scan() {
  ScanRegistryLists(kLists);
}

constexpr Scanner kScanners[] = {
    {u"Missing Shared DLLs", Scan<kSharedDlls>},
    {u"ActiveX and Class Issues", Scan<kClasses>},
    {u"Type Libraries Issues", Scan<kTypeLibraries>},
    {u"Application Shells Issues", Scan<kApplicationShells>},
    {u"Fonts Issues", Scan<kFonts>},
    {u"Application Paths Issues", Scan<kApplicationPaths>},
    {u"Help Files Issues", Scan<kHelpFiles>},
    {u"Redundant Installers", Scan<kInstallers>},
    {u"Obsolete Software", Scan<kSoftware>},
    {u"Run at Startup Issues", Scan<kStartup>},
    {u"Start Menu Ordering Issues", Scan<kMenuOrder>},
    {u"MUI Cache Issues", Scan<kMuiCache>},
    {u"Uninstaller Issues", Scan<kUninstallers>},
    {u"Appearance Schemes", Scan<kAppearanceSchemes>},
    {u"Cursor Schemes", Scan<kCursorSchemes>},
    {u"Internet Country Codes", Scan<kCountryCodes>},
    {u"Time Zones", Scan<kTimeZones>},
};

}  // namespace

constinit const std::span<const Scanner> kRegistryScanners = kScanners;

}  // namespace tavix::mdlPubSelf
