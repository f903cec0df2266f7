#pragma once

#include "scan/registry_test.h"

namespace tavix::mdlPubSelf {

// Something to find for every function of the Registry page, and as much beside it that is none.
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

}  // namespace tavix::mdlPubSelf
