#pragma once

#include "window/win32/window_context.h"

namespace tavix::win32 {

// The tool tip of a row of a tree. It lies over the row's text.
class NodeTip {
 public:
  NodeTip() = default;
  NodeTip(const NodeTip&) = delete;
  ~NodeTip() { Close(); }

  // Has the tip show the words of the row at `row`, when the mouse rests there. The tree has them at `text`,
  // or would have with room for all. Both are in the tree's coordinates.
  void Offer(HWND tree, const RECT& row, const RECT& text, HFONT font, TextView words);
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
  RECT text_{};
};

}  // namespace tavix::win32
