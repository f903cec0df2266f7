#pragma once

#include <vector>

#include "controls/control.h"

namespace tavix {

// A list of lines, each with a check box. Rows are counted from 0. A row that isn't there has an empty text
// and no tick; setting it does nothing.
class CheckList : public Control {
 public:
  Property<int> ListIndex{this, -1};  // the row with the focus, -1 for none
  Property<Color> BackColor{this, kWindowBackground};
  Property<Color> ForeColor{this, kWindowText};
  Event<> Click;
  Event<int> ItemCheck;  // the row whose tick or text has changed
  Event<int> MouseMove;  // the buttons held down

  int ListCount() const { return static_cast<int>(rows_.size()); }
  void AddItem(TextView text);
  void Clear();

  TextView List(int row) const;
  // Raises ItemCheck if the text changes: the real list removes the row and adds it again.
  void SetList(int row, TextView text);

  bool Selected(int row) const;
  // Raises ItemCheck if the tick changes, as a click on the box does.
  void SetSelected(int row, bool selected);

 private:
  struct Row {
    Text text;
    bool selected = false;
  };
  bool Has(int row) const { return row >= 0 && row < ListCount(); }

  std::vector<Row> rows_;
};

}  // namespace tavix
