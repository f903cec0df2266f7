// The Registry page from its picture to Repair.

#include "forms/main_form.h"
#include "platform/machine/formats/registry_text.h"
#include "scan/registry_page_test.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

using machine::RegistryStore;

class RegistryRepair : public RegistryPageTest {
 protected:
  RegistryRepair() { frmPubMain.picRegistry.MouseUp(kLeftButton); }

  // A copy of the whole registry.
  RegistryStore Copy() const {
    RegistryStore copy;
    for (const Hive hive : RegistryStore::kHives) {
      SCOPED_TRACE(Case(hive));
      EXPECT_FALSE(ReadRegistryText(WriteRegistryText(machine.registry.Store(), hive), copy));
    }
    return copy;
  }
  bool IsAsIn(const RegistryStore& expected) const { return machine.registry.Store() == expected; }

  static int Unticked() {
    int unticked = 0;
    for (const RowFields& row : ResultRows()) unticked += row.checked ? 0 : 1;
    return unticked;
  }
};

void DropKey(RegistryStore& store, platform::Hive hive, TextView parent, TextView name) {
  ASSERT_TRUE(store.Find(hive, parent)->DeleteKey(name)) << Narrow(parent) << ' ' << Narrow(name);
}

void DropValue(RegistryStore& store, platform::Hive hive, TextView key, TextView name) {
  ASSERT_TRUE(store.Find(hive, key)->DeleteValue(name)) << Narrow(key) << ' ' << Narrow(name);
}

// What Repair takes when the four lists that start without ticks are left so. The font stays: the blank at
// the end of its name is lost with its tag's.
void DropTicked(RegistryStore& store) {
  using enum platform::Hive;
  const auto windows = [](TextView key) { return Concat(kWindowsKey, u"\\", key); };
  DropValue(store, LocalMachine, windows(u"SharedDlls"), u"C:\\gone.dll");
  DropKey(store, LocalMachine, u"Software\\Classes\\CLSID", u"{gone.dll}");
  DropKey(store, CurrentUser, u"Software\\Classes\\CLSID", u"{mine gone.dll}");
  DropKey(store, LocalMachine, u"Software\\Classes\\Interface", u"{I2}");
  DropKey(store, LocalMachine, u"Software\\Classes\\Applications\\a.exe\\shell", u"gone.dll");
  DropKey(store, LocalMachine, windows(u"App Paths"), u"gone.dll");
  for (const TextView key : {u"Help", u"Html Help"}) {
    DropValue(store, LocalMachine, Concat(u"Software\\Microsoft\\Windows\\", key), u"gone.dll");
  }
  DropValue(store, LocalMachine, windows(u"Installer\\Folders"), u"C:\\None\\");
  for (const TextView key : {u"Patches", u"Products"}) {
    DropKey(store, LocalMachine, windows(Concat(u"Installer\\UserData\\S-1\\", key)), u"gone.dll");
  }
  DropKey(store, LocalMachine, u"Software", u"Old");
  DropKey(store, CurrentUser, u"Software", u"Older");
  for (const auto hive : {LocalMachine, CurrentUser}) DropValue(store, hive, windows(u"Run"), u"gone.dll");
  DropKey(store, CurrentUser, windows(u"Explorer\\MenuOrder\\Start Menu2\\Programs"), u"Gone");
  DropValue(store, CurrentUser, u"Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache", u"C:\\gone.dll");
  DropKey(store, LocalMachine, windows(u"Uninstall"), u"gone.dll");
}

TEST_F(RegistryRepair, TakesExactlyTheTickedKeysAndValues) {
  RegistryStore expected = Copy();
  DropTicked(expected);
  frmPubMain.sbtScan.Click();
  frmPubMain.sbtRepair.Click();
  EXPECT_TRUE(IsAsIn(expected));
  EXPECT_EQ(ResultCount(), 4);
}

TEST_F(RegistryRepair, TheFourListsStayWhenCheckAllWasTickedBeforeTheScan) {
  ASSERT_EQ(frmPubMain.cbxAll.Value, 1);
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(Unticked(), 4);
  frmPubMain.sbtRepair.Click();
  std::vector<Text> types;
  for (const RowFields& row : ResultRows()) types.push_back(row.type);
  EXPECT_EQ(types, (std::vector<Text>{u"Appearance Scheme", u"Cursor Scheme", u"Internet Country Code",
                                      u"Time Zone"}));
}

TEST_F(RegistryRepair, TheFourListsAreTickedWhenCheckAllWasUntickedBeforeTheScan) {
  frmPubMain.cbxAll.Value = 0;
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(Unticked(), 0);
  frmPubMain.sbtRepair.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(
      machineRegistry.KeyExists(Hive::LocalMachine, Concat(kWindowsKey, u"\\Telephony\\Country List\\44")),
      false);
  EXPECT_FALSE(machineRegistry.ReadValue(Hive::CurrentUser, u"Control Panel\\Appearance\\Schemes", u"Brick"));
}

TEST_F(RegistryRepair, AUsersClassUnderTheMergedRootGoesFromTheUsersHive) {
  SeedClass(u"CLSID\\{both}\\InprocServer32", u"C:\\gone.dll");
  SeedUser(u"Software\\Classes\\CLSID\\{both}", u"", u"a title");
  for (int row = 1; row <= frmPubMain.lst.ListCount() - 1; ++row) {
    frmPubMain.lst.SetSelected(row, frmPubMain.lst.List(row) == u"ActiveX and Class Issues");
  }
  frmPubMain.sbtScan.Click();
  for (int row = 1; row <= ResultCount(); ++row) {
    const TextView tag = frmPubMain.lsvResult.Row(row).Tag();
    frmPubMain.lsvResult.Row(row).SetChecked(tag == u"RK: HKEY_CLASSES_ROOT, CLSID\\{both}");
  }
  frmPubMain.sbtRepair.Click();
  EXPECT_EQ(machineRegistry.KeyExists(Hive::CurrentUser, u"Software\\Classes\\CLSID\\{both}"), false);
  EXPECT_EQ(machineRegistry.KeyExists(Hive::LocalMachine, u"Software\\Classes\\CLSID\\{both}"), true);
}

TEST_F(RegistryRepair, ASecondScanFindsWhatCouldntBeTaken) {
  frmPubMain.sbtScan.Click();
  frmPubMain.sbtRepair.Click();
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(Names(ResultRows()),
            (Texts{u"gone.ttf", u"Brick", u"Dinosaur", u"United Kingdom", u"GMT Standard Time"}));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 5 items  found."));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
