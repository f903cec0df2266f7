#pragma once

#include "forms/main_form.h"

namespace tavix::mdlPubSelf {

// Suspends the painting of the result list while walks add rows to it. Not nested.
class PaintingPause {
 public:
  PaintingPause() { frmPubMain.lsvResult.PaintingSuspended = true; }
  ~PaintingPause() { frmPubMain.lsvResult.PaintingSuspended = false; }
  PaintingPause(const PaintingPause&) = delete;
  PaintingPause& operator=(const PaintingPause&) = delete;
};

}  // namespace tavix::mdlPubSelf
