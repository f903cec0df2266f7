#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// A cleaning function: its key and its scan.
struct Scanner {
  TextView Key;
  void (*Run)();
};

// The scan over chosen drives and folders. It belongs to a room above this one; the wiring sets it.
inline void (*advancedScan)() = nullptr;

// Whether a key of the privacy tree is a branch: a heading above functions.
bool IsPrivacyBranch(TextView key);

// Runs the scanner with exactly this key, which adds its findings to lsvResult. "Advanced" is the advanced
// scan. Does nothing after Cancel, or for an unknown key.
void ScanFunction(TextView key);

}  // namespace tavix::mdlPubSelf
