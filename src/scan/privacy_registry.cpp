#include "scan/privacy_registry.h"

#include "forms/main_form.h"
#include "frame/support/pub_registry.h"
#include "scan/folded_values.h"
#include "scan/result_items.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr platform::Hive kHive = platform::Hive::CurrentUser;

// A key whose values are all findings.
struct ValueList {
  TextView Label;
  TextView Key;
  TextView Type;
};

constexpr ValueList kTypedUrls = {
    u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer', please wait...",
    u"Software\\Microsoft\\Internet Explorer\\TypedUrls", u"Recently Typed URL"};
constexpr ValueList kRunHistory = {
    u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion', please wait...",
    u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU", u"Run History (in Start menu)"};
constexpr ValueList kSearchHistory = {
    u"Scanning in 'HKEY_CURRENT_USER\\Software\\Microsoft\\Search Assistant', please wait...",
    u"Software\\Microsoft\\Search Assistant\\ACMru", u"Search History"};

void ShowStatus(TextView status) {
  frmPubMain.lblProgS.Caption = Text(status);
  frmPubMain.Refresh();
}

void AddValuesOf(TextView key, TextView type) {
  Text folded;
  pubRegistry.EnumValues(kHive, key, folded);
  VisitFoldedValues(folded, [&](TextView name, TextView data) {
    if (data.empty()) return;
    AddResultItem(type, data, kNoSize, u"Registry", kNoSizeKey,
                  Concat(u"RI: HKEY_CURRENT_USER, ", key, u", ", name));
  });
}

void ScanValues(const ValueList& list) {
  ShowStatus(list.Label);
  AddValuesOf(list.Key, list.Type);
}

void ScanValuesOfSubKeys(const ValueList& list) {
  ShowStatus(list.Label);
  Text folded;
  pubRegistry.EnumSubKeys(kHive, list.Key, folded);
  for (const TextView subKey : Split(folded, clsPubRegistry::kSubKeySeparator)) {
    AddValuesOf(Concat(list.Key, u"\\", subKey), list.Type);
  }
}

// One row for a whole store, whether it is empty or not.
void AddStandingRow(TextView type, TextView actionString) {
  AddResultItem(type, type, kNoSize, u"Registry", kNoSizeKey, actionString);
}

constexpr Scanner kScanners[] = {
    {u"iertu", [] { ScanValues(kTypedUrls); }},
    {u"werh", [] { ScanValues(kRunHistory); }},
    {u"wesh", [] { ScanValuesOfSubKeys(kSearchHistory); }},
    {u"ieafh",
     [] {
       AddStandingRow(u"Auto-fill Form History", u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 16");
     }},
    {u"ieaph",
     [] {
       AddStandingRow(u"Auto-fill Password History",
                      u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 32");
     }},
    {u"weosh",
     [] {
       AddStandingRow(u"Open/Save History",
                      u"RK: HKEY_CURRENT_USER, "
                      u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\OpenSaveMRU");
     }},
    {u"weoem",
     [] {
       AddStandingRow(u"Other Explorer MRUs",
                      u"RK: HKEY_CURRENT_USER, "
                      u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32\\LastVisitedMRU");
     }},
    {u"weurah",
     [] {
       AddStandingRow(u"User Ran Applications History",
                      u"RK: HKEY_CURRENT_USER, "
                      u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\UserAssist");
     }},
};

}  // namespace

constinit const std::span<const Scanner> kPrivacyRegistryScanners = kScanners;

}  // namespace tavix::mdlPubSelf
