#pragma once

#include <functional>

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::win32 {

// The rows of a list or the visible nodes of a tree, counted from 0, with their texts.
struct SearchedRows {
  int count;
  int focused;  // -1 for none
  std::function<TextView(int row)> textOf;
};

// The next row from `start` on whose text begins with a word, letter case aside; with `whole`, one whose text
// is the word. After the last row the search goes on with the first one if it `wraps`. -1 if there is none.
int FindRow(const SearchedRows& rows, int start, TextView word, bool whole, bool wraps);

// The letters that the user types in a list or tree lead to the row that begins with them. Letters that
// follow one another quickly are one word, which a key that moves the focus ends. The same letter again goes
// to the next row that begins with it.
class LetterSearch {
 public:
  // A key was pressed at this message time, in milliseconds since the system started.
  void KeyPressed(WPARAM key, DWORD time);
  // Whether a letter typed now in this control goes on with a word.
  bool IsRunning(HWND control, DWORD time) const;
  // Adds a letter typed in a control. The row found, or -1.
  int Type(HWND control, char16_t letter, const SearchedRows& rows);

 private:
  HWND control_ = nullptr;
  Text word_;
  DWORD keyTime_ = 0;
  DWORD letterTime_ = 0;
};

}  // namespace tavix::win32
