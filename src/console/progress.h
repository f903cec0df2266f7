#pragma once

#include <chrono>

#include "controls/control.h"

namespace tavix::console {

// Shows the percentage and the status line of the running job on standard error, in one line that changes, if
// that is a terminal and `wanted` is true.
class Progress : public ControlPeer {
 public:
  explicit Progress(bool wanted);
  ~Progress() override;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  void ModelChanged() override;
  // Clears the line, so that other output starts at its beginning.
  static void Clear();

 private:
  bool shown_;
  std::chrono::steady_clock::time_point last_;
  static inline bool onScreen_ = false;
};

}  // namespace tavix::console
