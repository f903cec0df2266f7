#include "scan/system_page.h"

#include "scan/scan_driver.h"
#include "scan/scan_test.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

class SystemPage : public ScanTest {};

TEST_F(SystemPage, HasThirteenFunctionsInTheOrderOfThePage) {
  std::vector<Text> keys;
  for (const Scanner& scanner : kSystemScanners) keys.emplace_back(scanner.Key);
  EXPECT_EQ(keys,
            (std::vector<Text>{
                u"Empty Recycle Bin", u"Temporary Files", u"Memory Dumps", u"CHKDSK File Fragments",
                u"Windows Log Files", u"Windows System Logs", u"Invalid Shortcuts in User Folders",
                u"Uninstall Files for Windows Update", u"Windows Update Source Files", u"Menu Order Caches",
                u"Tray Notifications Cache", u"Windows Size and Location Caches", u"Old Prefetch data"}));
}

TEST_F(SystemPage, OnAMachineWithoutAnswersOnlyTheStandingRowsAreFound) {
  const struct {
    TextView function;
    size_t rows;
  } table[] = {
      {u"Empty Recycle Bin", 1},
      {u"Temporary Files", 0},
      {u"Memory Dumps", 1},
      {u"CHKDSK File Fragments", 0},
      {u"Windows Log Files", 0},
      {u"Windows System Logs", 3},
      {u"Invalid Shortcuts in User Folders", 0},
      {u"Uninstall Files for Windows Update", 0},
      {u"Windows Update Source Files", 0},
      {u"Menu Order Caches", 1},
      {u"Tray Notifications Cache", 1},
      {u"Windows Size and Location Caches", 1},
      {u"Old Prefetch data", 0},
  };
  for (const auto& row : table) EXPECT_EQ(Scan(row.function).size(), row.rows) << Narrow(row.function);
}

TEST_F(SystemPage, AfterCancelNoScannerRuns) {
  CancelRequested = true;
  for (const Scanner& scanner : kSystemScanners) EXPECT_TRUE(Scan(scanner.Key).empty()) << Case(scanner.Key);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
