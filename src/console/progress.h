#pragma once

#include "controls/control.h"

namespace tavix::console {

// Shows the status line and the percentage of the running job on standard error, if that is a terminal and
// `wanted` is true.
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
  static inline bool onScreen_ = false;
};

}  // namespace tavix::console
