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

template <class Table, class Member>
std::vector<TextView> Keys(const Table& table, Member key) {
  std::vector<TextView> keys;
  for (const auto& row : table) keys.push_back(row.*key);
  return keys;
}

const CleaningFunction& Find(std::span<const CleaningFunction> functions, TextView caption) {
  return *std::ranges::find(functions, caption, &CleaningFunction::Caption);
}

TEST(CleaningFunctions, OfTheOtherPagesHaveTheirCaptionAsKey) {
  for (const auto page : {kSystemFunctions, kRegistryFunctions, kAdvancedFunctions}) {
    for (const CleaningFunction& function : page) EXPECT_EQ(function.Key, function.Caption);
  }
}

TEST(CleaningFunctions, HaveUniqueKeysAndADescriptionEach) {
  std::set<TextView> keys;
  for (const auto page : {kPrivacyFunctions, kSystemFunctions, kRegistryFunctions, kAdvancedFunctions}) {
    for (const CleaningFunction& function : page) {
      SCOPED_TRACE(Case(function.Caption));
      EXPECT_TRUE(keys.insert(function.Key).second) << Narrow(function.Key);
      EXPECT_FALSE(function.Caption.empty());
      EXPECT_TRUE(function.Description.ends_with(u".")) << Narrow(function.Key);
    }
  }
}

TEST(CleaningFunctions, OfTheSystemAndRegistryPagesAreInTheOrderOfTheirScanners) {
  EXPECT_EQ(Keys(kSystemFunctions, &CleaningFunction::Key), Keys(kSystemScanners, &Scanner::Key));
  EXPECT_EQ(Keys(kRegistryFunctions, &CleaningFunction::Key), Keys(kRegistryScanners, &Scanner::Key));
}

// The branches of the privacy tree have no scanner. The Advanced page has one scan for all its functions.
TEST(CleaningFunctions, OfThePrivacyPageHaveAScannerEachAndEachScannerItsFunction) {
  std::multiset<TextView> scanners, functions;
  for (const auto family : {kPrivacyFileScanners, kPrivacyRegistryScanners}) {
    for (const Scanner& scanner : family) scanners.insert(scanner.Key);
  }
  for (const CleaningFunction& function : kPrivacyFunctions) {
    if (!IsPrivacyBranch(function.Key)) functions.insert(function.Key);
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

// These wordings look like mistakes but are intended.
TEST(CleaningFunctions, OddWordingsStay) {
  EXPECT_TRUE(
      Find(kRegistryFunctions, u"Missing Shared DLLs").Description.starts_with(u"Includes the DLLs files "));
  EXPECT_TRUE(
      Find(kAdvancedFunctions, u"Junk Files").Description.starts_with(u"Checks it for finding out the "));
  EXPECT_TRUE(Find(kSystemFunctions, u"Windows System Logs")
                  .Description.starts_with(u"Includes the events that recorded in "));
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
