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
  // Shows another line in its place. It is asked for at most every tenth of a second.
  template <class MakeLine>
  void ShowLine(const MakeLine& line) {
    if (shown_ && IsDue()) Show(line());
  }
  // Clears the line, so that other output starts at its beginning.
  static void Clear();

 private:
  // Whether the line may change now; it then counts as changed.
  bool IsDue();
  static void Show(TextView line);

  bool shown_;
  std::chrono::steady_clock::time_point last_;
  static inline bool onScreen_ = false;
};

}  // namespace tavix::console
