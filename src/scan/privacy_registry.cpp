#include "scan/privacy_registry.h"

#include "forms/main_form.h"
#include "frame/support/pub_registry.h"
#include "scan/action_string.h"
#include "scan/folded_values.h"
#include "scan/result_items.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr platform::Hive kHive = platform::Hive::CurrentUser;

// A key of which every value is a finding.
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
    AddResultItem(type, data, kNoSize, u"Registry", kNoSizeKey, RegistryValueAction(kHive, key, name));
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

// One row for a whole store, empty or not.
void AddStandingRow(TextView type, TextView actionString) {
  AddResultItem(type, type, kNoSize, u"Registry", kNoSizeKey, actionString);
}

// The same for a store in a key of the Explorer.
void AddExplorerRow(TextView type, TextView key) {
  AddStandingRow(type, RegistryKeyAction(
                           kHive, Concat(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\", key)));
}

constexpr Scanner kScanners[] = {
    {u"iertu", [] { ScanValues(kTypedUrls); }},
    {u"werh", [] { ScanValues(kRunHistory); }},
    {u"wesh", [] { ScanValuesOfSubKeys(kSearchHistory); }},
    {u"ieafh", [] { AddStandingRow(u"Auto-fill Form History", ClearTracksAction(16)); }},
    {u"ieaph", [] { AddStandingRow(u"Auto-fill Password History", ClearTracksAction(32)); }},
    {u"weosh", [] { AddExplorerRow(u"Open/Save History", u"ComDlg32\\OpenSaveMRU"); }},
    {u"weoem", [] { AddExplorerRow(u"Other Explorer MRUs", u"ComDlg32\\LastVisitedMRU"); }},
    {u"weurah", [] { AddExplorerRow(u"User Ran Applications History", u"UserAssist"); }},
};

}  // namespace

constinit const std::span<const Scanner> kPrivacyRegistryScanners = kScanners;

}  // namespace tavix::mdlPubSelf
