#pragma once

#include "platform/machine/services/machine_registry.h"
#include "platform/registry.h"
#include "scan/registry_test.h"

namespace tavix::mdlPubSelf {

// A machine with findings for every function of the Registry page, and with valid entries beside them.
class RegistryPageTest : public RegistryScanTest {
 protected:
  RegistryPageTest() {
    for (const TextView folder : {u"C:\\Fonts", u"C:\\All", u"C:\\Mine"}) machine.files.AddFolder(folder);
    SetSpecialFolder(u"Fonts", u"C:\\Fonts");
    SetSpecialFolder(u"AllUsersPrograms", u"C:\\All");
    SetSpecialFolder(u"Programs", u"C:\\Mine");
    AddFiles({u"C:\\there.dll", u"C:\\Fonts\\there.ttf"});
    for (const TextView name : {u"C:\\gone.dll", u"C:\\there.dll"}) {
      const TextView key = name.substr(3);
      SeedWindows(u"SharedDlls", name, u"1");
      SeedClass(Concat(u"CLSID\\{", key, u"}\\InprocServer32"), name);
      SeedUser(Concat(u"Software\\Classes\\CLSID\\{mine ", key, u"}\\InprocServer32"), u"", name);
      SeedClass(Concat(u"Applications\\a.exe\\shell\\", key, u"\\command"), Concat(name, u" \"%1\""));
      SeedWindows(Concat(u"App Paths\\", key), u"", name);
      SeedWindows(u"Run", key, name);
      SeedUser(Concat(kWindowsKey, u"\\Run"), key, name);
      SeedUser(u"Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache", name, u"title");
      SeedWindows(Concat(u"Uninstall\\", key), u"UninstallString", name);
      SeedWindows(Concat(u"Installer\\UserData\\S-1\\Patches\\", key), u"LocalPackage", name);
      SeedWindows(Concat(u"Installer\\UserData\\S-1\\Products\\", key, u"\\InstallProperties"),
                  u"LocalPackage", name);
    }
    SeedClass(u"TypeLib\\{L1}", u"a library");
    SeedClass(u"Interface\\{I1}\\TypeLib", u"{L1}");
    SeedClass(u"Interface\\{I2}\\TypeLib", u"{L2}");
    for (const TextView file : {u"gone.ttf", u"there.ttf"}) {
      SeedMachine(u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", Concat(u" ", file, u" "), file);
    }
    for (const TextView key : {u"Help", u"Html Help"}) {
      for (const TextView file : {u"gone.dll", u"there.dll"}) {
        SeedMachine(Concat(u"Software\\Microsoft\\Windows\\", key), file, u"C:");
      }
    }
    for (const TextView folder : {u"C:\\None\\", u"C:\\All\\"})
      SeedWindows(u"Installer\\Folders", folder, u"");
    SeedMachine(u"Software\\Old", u"", u"its default value");
    machineRegistry.MakeKey(Hive::CurrentUser, u"Software\\Older");
    for (const TextView item : {u"Gone", u"Mine"}) {
      SeedUser(Concat(kWindowsKey, u"\\Explorer\\MenuOrder\\Start Menu2\\Programs\\", item), u"Order", u"x");
    }
    machine.files.AddFolder(u"C:\\Mine\\Mine");
    SeedUser(u"Control Panel\\Appearance\\Schemes", u"Brick", u"01");
    SeedWindows(u"Control Panel\\Cursors\\Schemes", u"Dinosaur", u"C:\\d.cur");
    SeedWindows(u"Telephony\\Country List\\44", u"Name", u"United Kingdom");
    SeedMachine(u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Time Zones\\GMT", u"Std",
                u"GMT Standard Time");
  }
};

// The expected scan of a function on the machine of RegistryPageTest.
struct RegistryPageFunction {
  TextView key;
  std::vector<Text> statuses;  // the paths in the status lines
  std::vector<RowFields> rows;
  int yields;
};

constexpr TextView kMachine = u"HKEY_LOCAL_MACHINE\\";
constexpr TextView kUser = u"HKEY_CURRENT_USER\\";

inline std::vector<RegistryPageFunction> RegistryPageFunctions() {
  const Text windows = u"HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows";
  const Text version = Concat(windows, u"\\CurrentVersion");
  const Text users = u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion";
  // The first part of the tags of values and of keys.
  const Text value = u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\CurrentVersion\\";
  const Text key = u"RK: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\CurrentVersion\\";
  const Text gone = u"C:\\gone.dll";
  return {
      {u"Missing Shared DLLs",
       {version + u"\\SharedDlls"},
       {RegistryRow(u"Missing Shared DLL", gone, windows, value + u"SharedDlls, C:\\gone.dll")},
       0},
      {u"ActiveX and Class Issues",
       {u"HKEY_CLASSES_ROOT\\CLSID", u"HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID",
        u"HKEY_CURRENT_USER\\Software\\Classes\\CLSID"},
       {RegistryRow(u"ActiveX and Class Issue", gone, u"HKEY_CLASSES_ROOT",
                    u"RK: HKEY_CLASSES_ROOT, CLSID\\{gone.dll}"),
        RegistryRow(u"ActiveX and Class Issue", gone, u"HKEY_CLASSES_ROOT",
                    u"RK: HKEY_CLASSES_ROOT, CLSID\\{mine gone.dll}"),
        RegistryRow(u"ActiveX and Class Issue", gone, Concat(kMachine, u"Software"),
                    u"RK: HKEY_LOCAL_MACHINE, Software\\Classes\\CLSID\\{gone.dll}"),
        RegistryRow(u"ActiveX and Class Issue", gone, Concat(kUser, u"Software"),
                    u"RK: HKEY_CURRENT_USER, Software\\Classes\\CLSID\\{mine gone.dll}")},
       8},
      {u"Type Libraries Issues",
       {u"HKEY_CLASSES_ROOT\\TypeLib"},
       {RegistryRow(u"Type Library Issue", u"{L2}", u"HKEY_CLASSES_ROOT\\Interface\\{I2}\\TypeLib",
                    u"RK: HKEY_CLASSES_ROOT, Interface\\{I2}")},
       2},
      {u"Application Shells Issues",
       {u"HKEY_CLASSES_ROOT\\Applications"},
       {RegistryRow(u"Application Shell Issue", gone, u"HKEY_CLASSES_ROOT\\Applications",
                    u"RK: HKEY_CLASSES_ROOT, Applications\\a.exe\\shell\\gone.dll")},
       0},
      {u"Fonts Issues",
       {windows + u" NT"},
       {RegistryRow(
           u"Font Issue", u"gone.ttf", windows + u" NT",
           u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts,  gone.ttf "
           u"")},
       0},
      {u"Application Paths Issues",
       {version},
       {RegistryRow(u"Application Path Issue", gone, windows, key + u"App Paths\\gone.dll")},
       0},
      {u"Help Files Issues",
       {windows, windows},
       {RegistryRow(u"Help File Issue", gone, windows,
                    u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\Help, gone.dll"),
        RegistryRow(u"Help File Issue", gone, windows,
                    u"RI: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows\\Html Help, gone.dll")},
       0},
      {u"Redundant Installers",
       {version, version, version},
       {RegistryRow(u"Redundant Installer", u"C:\\None\\", windows,
                    value + u"Installer\\Folders, C:\\None\\"),
        RegistryRow(u"Redundant Installer", gone, windows,
                    key + u"Installer\\UserData\\S-1\\Patches\\gone.dll"),
        RegistryRow(u"Redundant Installer", gone, windows,
                    key + u"Installer\\UserData\\S-1\\Products\\gone.dll")},
       2},
      {u"Obsolete Software",
       {Concat(kMachine, u"Software"), Concat(kUser, u"Software")},
       {RegistryRow(u"Obsolete Software", u"Old", Concat(kMachine, u"Software"),
                    u"RK: HKEY_LOCAL_MACHINE, Software\\Old"),
        RegistryRow(u"Obsolete Software", u"Older", Concat(kUser, u"Software"),
                    u"RK: HKEY_CURRENT_USER, Software\\Older")},
       6},
      {u"Run at Startup Issues",
       {version + u"\\Run", users + u"\\Run"},
       {RegistryRow(u"Run at Startup Issue", gone, version + u"\\Run", value + u"Run, gone.dll"),
        RegistryRow(u"Run at Startup Issue", gone, users + u"\\Run",
                    u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Run, gone.dll")},
       0},
      {u"Start Menu Ordering Issues",
       {users},
       {RegistryRow(
           u"Start Menu Ordering Issue", u"Gone", users,
           u"RK: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder\\"
           u"Start Menu2\\Programs\\Gone")},
       0},
      {u"MUI Cache Issues",
       {u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows"},
       {RegistryRow(
           u"MUI Cache Issue", gone, u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows",
           u"RI: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache, C:\\gone.dll")},
       0},
      {u"Uninstaller Issues",
       {u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion"},
       {RegistryRow(u"Uninstaller Issue", gone, windows, key + u"Uninstall\\gone.dll")},
       0},
      {u"Appearance Schemes",
       {u"HKEY_CURRENT_USER\\Control Panel\\Appearance\\Schemes"},
       {RegistryRow(u"Appearance Scheme", u"Brick", u"HKEY_CURRENT_USER",
                    u"RI: HKEY_CURRENT_USER, Control Panel\\Appearance\\Schemes, Brick", false)},
       0},
      {u"Cursor Schemes",
       {version},
       {RegistryRow(u"Cursor Scheme", u"Dinosaur", windows,
                    value + u"Control Panel\\Cursors\\Schemes, Dinosaur", false)},
       0},
      {u"Internet Country Codes",
       {users},
       {RegistryRow(u"Internet Country Code", u"United Kingdom", windows,
                    key + u"Telephony\\Country List\\44", false)},
       0},
      {u"Time Zones",
       {windows + u" NT\\CurrentVersion"},
       {RegistryRow(
           u"Time Zone", u"GMT Standard Time", windows,
           u"RK: HKEY_LOCAL_MACHINE, Software\\Microsoft\\Windows NT\\CurrentVersion\\Time Zones\\GMT",
           false)},
       0},
  };
}

}  // namespace tavix::mdlPubSelf
