// The Registry page from its opening to Repair.

#include "forms/main_form.h"
#include "platform/machine/formats/registry_text.h"
#include "scan/action_string.h"
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

// Deletes the key or value that a row's tag names. A key of HKEY_CLASSES_ROOT is deleted from the user's hive
// if it is there, otherwise from the machine's. A key that an earlier row deleted is skipped.
void Drop(RegistryStore& store, TextView tag) {
  const Action action = ReadAction(tag);
  const RegistryTarget target = ReadRegistryTarget(*action.payload);
  platform::Hive hive = target.hive;
  Text key(*target.key);
  if (hive == platform::Hive::ClassesRoot) {
    key = Concat(u"Software\\Classes\\", key);
    hive = store.Find(platform::Hive::CurrentUser, key) != nullptr ? platform::Hive::CurrentUser
                                                                   : platform::Hive::LocalMachine;
  }
  if (target.value) {
    ASSERT_TRUE(store.Find(hive, key)->DeleteValue(*target.value)) << Narrow(tag);
  } else if (store.Find(hive, key) != nullptr) {
    const size_t cut = key.rfind(u'\\');
    ASSERT_TRUE(store.Find(hive, key.substr(0, cut))->DeleteKey(key.substr(cut + 1))) << Narrow(tag);
  }
}

// Deletes what Repair deletes if no tick is changed. The font stays: its name ends with a blank, which the
// tag loses, so the tag names another value.
void DropTicked(RegistryStore& store) {
  for (const RegistryPageFunction& function : RegistryPageFunctions()) {
    for (const RowFields& row : function.rows) {
      if (row.checked && row.type != u"Font Issue") Drop(store, row.tag);
    }
  }
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

TEST_F(RegistryRepair, ASecondScanFindsWhatCouldNotBeDeleted) {
  frmPubMain.sbtScan.Click();
  frmPubMain.sbtRepair.Click();
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(Names(ResultRows()),
            (Texts{u"gone.ttf", u"Brick", u"Dinosaur", u"United Kingdom", u"GMT Standard Time"}));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 5 items  found."));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
