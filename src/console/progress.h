#pragma once

#include "controls/control.h"

namespace tavix::console {

// Shows the status line and the percentage of a running job on standard error while that is a terminal.
class Progress : public ControlPeer {
 public:
  explicit Progress(bool wanted);
  ~Progress() override;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  void ModelChanged() override;
  // Takes away what is shown, for other output to be seen at the start of the line.
  static void Clear();

 private:
  bool shown_;
  static inline bool onScreen_ = false;
};

}  // namespace tavix::console
