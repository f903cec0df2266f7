#pragma once

#include "window/win32/window_context.h"

namespace tavix::win32 {

// The tool tip of a row of a tree. It lies over the row's text.
class NodeTip {
 public:
  NodeTip() = default;
  NodeTip(const NodeTip&) = delete;
  ~NodeTip() { Close(); }

  // Has the tip show a text for the row at `row`, when the mouse rests there. `text` begins at `corner`. Both
  // are in the tree's coordinates.
  void Offer(HWND tree, const RECT& row, POINT corner, HFONT font, TextView text);
  void Withdraw();
  // A mouse message of the tree.
  void Relay(HWND tree, UINT message, WPARAM wParam, LPARAM lParam) const;
  // The tip is about to be shown.
  void Place() const;
  void Close();
  HWND Window() const { return window_; }

 private:
  HWND tree_ = nullptr;
  HWND window_ = nullptr;
  POINT corner_{};
};

}  // namespace tavix::win32
