#include "scan/registry_page.h"

#include "frame/support/file_system_object.h"
#include "frame/support/pub_registry.h"
#include "frame/support/shell_object.h"
#include "scan/registry_page_test.h"
#include "scan/scan_driver.h"
#include "scan/scan_watch.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

TEST_F(RegistryPageTest, EveryFunctionHasItsRowsStatusesAndYields) {
  for (const RegistryPageFunction& function : RegistryPageFunctions()) {
    ScanWatch watch;
    EXPECT_EQ(Scan(function.key), function.rows) << Narrow(function.key);
    std::vector<Text> statuses;
    for (const Text& path : function.statuses) {
      statuses.push_back(Concat(u"Scanning in '", path, u"', please wait..."));
    }
    EXPECT_EQ(watch.statuses, statuses) << Narrow(function.key);
    EXPECT_EQ(watch.yields, function.yields) << Narrow(function.key);
  }
}

TEST_F(RegistryPageTest, ItsFunctionsAreThoseAndNoOthers) {
  std::vector<Text> keys, expected;
  for (const Scanner& scanner : kRegistryScanners) keys.emplace_back(scanner.Key);
  for (const RegistryPageFunction& function : RegistryPageFunctions()) expected.emplace_back(function.key);
  EXPECT_EQ(keys, expected);
}

TEST_F(RegistryPageTest, AKeyIsComparedExactly) {
  for (const TextView key : {u"time zones", u"Time Zones ", u"Time Zone"})
    EXPECT_TRUE(Scan(key).empty()) << Case(key);
}

TEST_F(RegistryPageTest, AfterCancelNoFunctionRuns) {
  for (const RegistryPageFunction& function : RegistryPageFunctions()) {
    SCOPED_TRACE(Case(function.key));
    ScanWatch watch;
    CancelRequested = true;
    EXPECT_TRUE(Scan(function.key).empty());
    EXPECT_TRUE(watch.statuses.empty());
    CancelRequested = false;
  }
}

TEST_F(RegistryPageTest, AFunctionThatRunsIsNotEndedByCancel) {
  ScanWatch watch;
  watch.atYield = [] { CancelRequested = true; };
  EXPECT_EQ(Scan(u"ActiveX and Class Issues").size(), 4u);
  EXPECT_EQ(watch.statuses.size(), 3u);
}

TEST_F(RegistryPageTest, AMissingRootIsNoFindingButItsStatusIsShown) {
  for (const TextView key : {u"Software", u"Control Panel"}) {
    machineRegistry.DeleteKey(Hive::LocalMachine, key);
    machineRegistry.DeleteKey(Hive::CurrentUser, key);
  }
  for (const RegistryPageFunction& function : RegistryPageFunctions()) {
    ScanWatch watch;
    EXPECT_TRUE(Scan(function.key).empty()) << Narrow(function.key);
    EXPECT_EQ(watch.statuses.size(), function.statuses.size());
    EXPECT_EQ(watch.yields, 0);
  }
}

TEST_F(RegistryPageTest, AScanChangesNothing) {
  machineRegistry.MarkUnchanged();
  for (const RegistryPageFunction& function : RegistryPageFunctions()) Scan(function.key);
  EXPECT_FALSE(machineRegistry.Changed());
}

TEST_F(RegistryPageTest, WithoutServicesNothingIsFound) {
  pubRegistry = {};
  fileSystemObject = {};
  shellObject = {};
  for (const RegistryPageFunction& function : RegistryPageFunctions())
    EXPECT_TRUE(Scan(function.key).empty()) << Case(function.key);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
