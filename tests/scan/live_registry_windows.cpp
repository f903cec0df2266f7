// The Registry page over the registry of the running system, from the scan to Repair.

#include <gtest/gtest.h>

#include <map>

#include "forms/main_form.h"
#include "frame/start_up.h"
#include "platform/registry.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/windows_host.h"
#include "scan/result_items.h"
#include "support/case.h"
#include "support/program_test.h"
#include "window/wiring.h"

namespace tavix::mdlPubSelf {
namespace {

using platform::Hive;

constexpr TextView kWindows = u"Software\\Microsoft\\Windows\\CurrentVersion";

struct Seeded {
  Hive hive;
  Text key;  // goes with everything below it, unless `value` is set
  Text value;
  Text data;
  bool wholeKey;
};

std::vector<Seeded> Seeds() {
  const Text windows = Concat(kWindows, u"\\");
  return {
      {Hive::LocalMachine, windows + u"SharedDlls", u"C:\\TavixGone\\a.dll", u"1", false},
      {Hive::CurrentUser, windows + u"Run", u"Tavix", u"\"C:\\TavixGone\\a.exe\" /x", false},
      {Hive::CurrentUser, u"Software\\Microsoft\\Windows\\ShellNoRoam\\MUICache", u"C:\\TavixGone\\a.exe",
       u"A", false},
      {Hive::LocalMachine, windows + u"App Paths\\TavixGone.exe", u"", u"C:\\TavixGone\\a.exe", true},
      {Hive::LocalMachine, windows + u"Uninstall\\TavixGone", u"UninstallString", u"C:\\TavixGone\\a.exe /u",
       true},
      {Hive::CurrentUser, u"Software\\TavixGone", u"", u"a default value", true},
      {Hive::CurrentUser, u"Software\\Classes\\CLSID\\{Tavix}\\InprocServer32", u"", u"C:\\TavixGone\\a.dll",
       true},
      {Hive::LocalMachine, u"Software\\Classes\\Applications\\tavix.exe\\shell\\open\\command", u"",
       u"\"C:\\TavixGone\\a.exe\" \"%1\"", true},
  };
}

class LiveRegistryPage : public testing::Test {
 protected:
  void SetUp() override {
    if (!windows::HasBinOfItsOwn()) GTEST_SKIP() << "runs in a throwaway Wine prefix only";
    WireForms();
    Form_Load();
    for (const Seeded& seed : Seeds()) {
      ASSERT_TRUE(platform::registry->WriteString(seed.hive, seed.key, seed.value, seed.data))
          << Case(seed.key);
    }
  }
  void TearDown() override {
    if (!windows::HasBinOfItsOwn()) return;
    for (const Seeded& seed : Seeds()) platform::registry->DeleteValue(seed.hive, seed.key, seed.value);
    platform::registry->DeleteKey(Hive::LocalMachine, u"Software\\Classes\\Applications\\tavix.exe");
    for (const TextView key : {u"Software\\TavixGone", u"Software\\Classes\\CLSID\\{Tavix}"}) {
      platform::registry->DeleteKey(Hive::CurrentUser, key);
    }
    ResetProcess();
  }

  // The keys below one, each with its values.
  using Content = std::map<std::pair<Hive, Text>, std::map<Text, Text>>;
  static void Collect(Hive hive, const Text& key, Content& content) {
    auto& values = content[{hive, key}];
    platform::registry->VisitValues(hive, key,
                                    [&](TextView name, TextView data) { values[Text(name)] = data; });
    std::vector<Text> below;
    platform::registry->VisitSubKeys(hive, key,
                                     [&](TextView name) { below.push_back(Concat(key, u"\\", name)); });
    for (const Text& subKey : below) Collect(hive, subKey, content);
  }
  static Content Everything() {
    Content content;
    Collect(Hive::CurrentUser, u"Software", content);
    Collect(Hive::CurrentUser, u"Control Panel", content);
    Collect(Hive::LocalMachine, Text(kWindows), content);
    Collect(Hive::LocalMachine, u"Software\\Classes", content);
    return content;
  }
  static void Drop(Content& content, Hive hive, const Text& key) {
    std::erase_if(content, [&](const auto& entry) {
      const auto& [place, values] = entry;
      return place.first == hive && (place.second == key || place.second.starts_with(key + u"\\"));
    });
  }

  windows::WindowsHost host_;
};

TEST_F(LiveRegistryPage, RepairTakesTheRealKeysAndValuesAndNothingElse) {
  Content expected = Everything();
  frmPubMain.picRegistry.MouseUp(kLeftButton);
  frmPubMain.sbtScan.Click();
  int ours = 0;
  for (int row = 1; row <= ResultCount(); ++row) {
    const bool seeded = frmPubMain.lsvResult.Row(row).Tag().find(u"avix") != TextView::npos;
    frmPubMain.lsvResult.Row(row).SetChecked(seeded);
    ours += seeded ? 1 : 0;
  }
  // The class is found twice: in the merged view and in its own hive.
  ASSERT_EQ(ours, 9);
  frmPubMain.sbtRepair.Click();
  for (const Seeded& seed : Seeds()) {
    if (!seed.wholeKey) expected[{seed.hive, seed.key}].erase(seed.value);
  }
  Drop(expected, Hive::LocalMachine, Concat(kWindows, u"\\App Paths\\TavixGone.exe"));
  Drop(expected, Hive::LocalMachine, Concat(kWindows, u"\\Uninstall\\TavixGone"));
  Drop(expected, Hive::CurrentUser, u"Software\\TavixGone");
  Drop(expected, Hive::CurrentUser, u"Software\\Classes\\CLSID\\{Tavix}");
  Drop(expected, Hive::LocalMachine, u"Software\\Classes\\Applications\\tavix.exe\\shell\\open");
  EXPECT_TRUE(Everything() == expected) << "exactly the seeded keys and values are missing";
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 9 items, 0. KB cleaned."));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
