#pragma once

#include "forms/main_form.h"

namespace tavix::mdlPubSelf {

// While it lives, the result list isn't painted: walks add rows to it. Can't be nested.
class PaintingPause {
 public:
  PaintingPause() { frmPubMain.lsvResult.PaintingSuspended = true; }
  ~PaintingPause() { frmPubMain.lsvResult.PaintingSuspended = false; }
  PaintingPause(const PaintingPause&) = delete;
  PaintingPause& operator=(const PaintingPause&) = delete;
};

}  // namespace tavix::mdlPubSelf
