#include "catalogue/functions.h"

#include <algorithm>
#include <set>

#include "frame/settings.h"
#include "scan/privacy_files.h"
#include "scan/privacy_registry.h"
#include "scan/registry_page.h"
#include "scan/system_page.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

std::vector<TextView> Captions(std::span<const CleaningFunction> functions) {
  std::vector<TextView> captions;
  for (const CleaningFunction& function : functions) captions.push_back(function.Caption);
  return captions;
}

const CleaningFunction& Find(std::span<const CleaningFunction> functions, TextView caption) {
  return *std::ranges::find(functions, caption, &CleaningFunction::Caption);
}

TEST(CleaningFunctions, OfTheSystemPageStandInTheOrderOfAScan) {
  EXPECT_EQ(Captions(kSystemFunctions),
            (std::vector<TextView>{
                u"Empty Recycle Bin", u"Temporary Files", u"Memory Dumps", u"CHKDSK File Fragments",
                u"Windows Log Files", u"Windows System Logs", u"Invalid Shortcuts in User Folders",
                u"Uninstall Files for Windows Update", u"Windows Update Source Files", u"Menu Order Caches",
                u"Tray Notifications Cache", u"Windows Size and Location Caches", u"Old Prefetch data"}));
}

TEST(CleaningFunctions, OfTheRegistryPageStandInTheOrderOfAScan) {
  EXPECT_EQ(Captions(kRegistryFunctions),
            (std::vector<TextView>{
                u"Missing Shared DLLs", u"ActiveX and Class Issues", u"Type Libraries Issues",
                u"Application Shells Issues", u"Fonts Issues", u"Application Paths Issues",
                u"Help Files Issues", u"Redundant Installers", u"Obsolete Software", u"Run at Startup Issues",
                u"Start Menu Ordering Issues", u"MUI Cache Issues", u"Uninstaller Issues",
                u"Appearance Schemes", u"Cursor Schemes", u"Internet Country Codes", u"Time Zones"}));
}

TEST(CleaningFunctions, OfTheAdvancedPageStandInTheirOrder) {
  EXPECT_EQ(Captions(kAdvancedFunctions),
            (std::vector<TextView>{u"Invalid Shortcuts", u"Duplicate Files", u"Empty Folders and Files",
                                   u"Last Accessed ? Days Before", u"Redundant DLLs", u"Junk Files"}));
}

TEST(CleaningFunctions, OfThePrivacyPageHaveKeysOfTheirOwn) {
  const struct {
    TextView key, caption;
  } table[] = {
      {u"ie", u"Internet Explorer"},
      {u"ietif", u"Temporary Internet Files"},
      {u"iec", u"Cookies"},
      {u"ieh", u"History"},
      {u"iertu", u"Recently Typed URLs"},
      {u"ieafh", u"Auto-fill Form History"},
      {u"ieaph", u"Auto-fill Password History"},
      {u"ietifd", u"Temporary Internet Files Detail"},
      {u"iecd", u"Cookies Detail"},
      {u"ieif", u"Index.dat Files"},
      {u"we", u"Windows Explorer"},
      {u"werud", u"Recently Used Documents"},
      {u"werh", u"Run History (in Start menu)"},
      {u"wesh", u"Search History"},
      {u"weurah", u"User Ran Applications History"},
      {u"weosh", u"Open/Save History"},
      {u"weoem", u"Other Explorer MRUs"},
  };
  ASSERT_EQ(kPrivacyFunctions.size(), std::size(table));
  for (size_t i = 0; i < std::size(table); ++i) {
    EXPECT_EQ(kPrivacyFunctions[i].Key, table[i].key);
    EXPECT_EQ(kPrivacyFunctions[i].Caption, table[i].caption);
  }
}

TEST(CleaningFunctions, OfTheOtherPagesHaveTheirCaptionAsKey) {
  for (const auto page : {kSystemFunctions, kRegistryFunctions, kAdvancedFunctions}) {
    for (const CleaningFunction& function : page) EXPECT_EQ(function.Key, function.Caption);
  }
}

TEST(CleaningFunctions, NoKeyStandsTwiceAndEachHasWords) {
  std::set<TextView> keys;
  for (const auto page : {kPrivacyFunctions, kSystemFunctions, kRegistryFunctions, kAdvancedFunctions}) {
    for (const CleaningFunction& function : page) {
      SCOPED_TRACE(Case(function.Caption));
      EXPECT_TRUE(keys.insert(function.Key).second) << Narrow(function.Key);
      EXPECT_FALSE(function.Caption.empty());
      EXPECT_TRUE(function.Description.ends_with(u".")) << Narrow(function.Key);
    }
  }
  EXPECT_EQ(keys.size(), 17U + 13U + 17U + 6U);
}

// The branches of the privacy tree have none; the Advanced page has one scan for all its functions.
TEST(CleaningFunctions, EachHasItsScannerAndEachScannerItsFunction) {
  std::multiset<TextView> scanners;
  for (const auto family :
       {kPrivacyFileScanners, kPrivacyRegistryScanners, kSystemScanners, kRegistryScanners}) {
    for (const Scanner& scanner : family) scanners.insert(scanner.Key);
  }
  std::multiset<TextView> functions;
  for (const auto page : {kPrivacyFunctions, kSystemFunctions, kRegistryFunctions}) {
    for (const CleaningFunction& function : page) {
      if (!IsPrivacyBranch(function.Key)) functions.insert(function.Key);
    }
  }
  EXPECT_EQ(scanners, functions);
}

TEST(CleaningFunctions, FourHaveOptions) {
  std::vector<std::pair<TextView, int>> found;
  for (const auto page : {kPrivacyFunctions, kSystemFunctions, kRegistryFunctions, kAdvancedFunctions}) {
    for (const CleaningFunction& function : page) {
      if (function.OptionsPage != kNoOptions) found.emplace_back(function.Caption, function.OptionsPage);
    }
  }
  EXPECT_EQ(found, (std::vector<std::pair<TextView, int>>{{u"Old Prefetch data", 5},
                                                          {u"Duplicate Files", 3},
                                                          {u"Last Accessed ? Days Before", 5},
                                                          {u"Junk Files", 2}}));
}

TEST(CleaningFunctions, OddWordingsStay) {
  EXPECT_EQ(Find(kRegistryFunctions, u"MUI Cache Issues").Description,
            u"Includes the MUI caches that are recorded in the Windows registry, but the no longer exist on "
            u"your hard disk.");
  EXPECT_EQ(Find(kPrivacyFunctions, u"Open/Save History").Description,
            u"Stored the history of the Windows common open/save dialog boxes maintain of files you've "
            u"chosen form them.");
}

TEST(CleaningFunctions, TheDaysOfTheSettingArePutIntoTheWords) {
  const CleaningFunction& function = Find(kAdvancedFunctions, u"Last Accessed ? Days Before");
  for (const TextView days : {u"365", u"7", u"", u"a?b"}) {
    LastAccessedFile = days;
    EXPECT_EQ(CaptionOf(function), Concat(u"Last Accessed ", days, u" Days Before"));
    EXPECT_EQ(DescriptionOf(function),
              Concat(u"Checks it for finding the files that last accessed ", days,
                     u" days before in your specified drives/folders according to your setting."));
  }
  ClearSettings();
}

TEST(CleaningFunctions, ThirtyDaysOfPrefetchAreAFixedText) {
  LastAccessedPrefetch = u"7";
  LastAccessedFile = u"8";
  EXPECT_EQ(DescriptionOf(Find(kSystemFunctions, u"Old Prefetch data")),
            u"Stored program data for quick start, this function is designed to clean the old prefetch data "
            u"(default: 30 days ago) that no longer exist or haven't been used in a long time.");
  ClearSettings();
}

}  // namespace
}  // namespace tavix::mdlPubSelf
