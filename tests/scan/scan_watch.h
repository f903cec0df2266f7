#pragma once

#include <functional>
#include <vector>

#include "forms/main_form.h"
#include "platform/event_queue.h"

namespace tavix::mdlPubSelf {

// Records the texts of the status line and counts the yields to the user interface.
struct ScanWatch : platform::EventQueue {
  ScanWatch() {
    platform::eventQueue = this;
    frmPubMain.Refresh = [this] { statuses.push_back(frmPubMain.lblProgS.Caption); };
  }
  ~ScanWatch() override {
    platform::eventQueue = platform::noEventQueue;
    frmPubMain.Refresh = nullptr;
  }
  void Yield() override {
    ++yields;
    if (atYield) atYield();
  }

  std::vector<Text> statuses;
  int yields = 0;
  std::function<void()> atYield;
};

}  // namespace tavix::mdlPubSelf
