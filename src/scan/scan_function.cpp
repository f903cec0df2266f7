#include "scan/scan_function.h"

#include <algorithm>
#include <array>
#include <span>

#include "scan/privacy_files.h"
#include "scan/privacy_registry.h"
#include "scan/registry_page.h"
#include "scan/scan_driver.h"
#include "scan/system_page.h"

namespace tavix::mdlPubSelf {
namespace {

void RunAdvancedScan() {
  if (advancedScan != nullptr) advancedScan();
}

constexpr std::array kAdvancedScanner = {Scanner{u"Advanced", RunAdvancedScan}};

// All scanners, grouped by file.
const std::array<std::span<const Scanner>, 5> kScanners = {
    kPrivacyRegistryScanners, kPrivacyFileScanners, kSystemScanners, kRegistryScanners, kAdvancedScanner};

}  // namespace

bool IsPrivacyBranch(TextView key) { return key == u"ie" || key == u"we"; }

void ScanFunction(TextView key) {
  if (CancelRequested) return;
  for (const std::span<const Scanner> family : kScanners) {
    const auto found = std::ranges::find(family, key, &Scanner::Key);
    if (found != family.end()) return found->Run();
  }
}

}  // namespace tavix::mdlPubSelf
