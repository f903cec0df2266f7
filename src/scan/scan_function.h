#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// A cleaning function as the scan knows it.
struct Scanner {
  TextView Key;
  void (*Run)();
};

// The scan over chosen drives and folders, which stands on a higher floor; the wiring puts it in.
inline void (*advancedScan)() = nullptr;

// Whether a key of the privacy tree is that of a branch: a heading above functions and none itself.
bool IsPrivacyBranch(TextView key);

// Runs the scanner of a function, found by an exact comparison of keys; "Advanced" is the advanced scan.
// Its findings are added to lsvResult. Does nothing once Cancel was pressed, or for a key that no scanner
// bears.
void ScanFunction(TextView key);

}  // namespace tavix::mdlPubSelf
