#pragma once

#include <vector>

#include "controls/control.h"

namespace tavix {

// A list of lines; any number can be selected. Rows are counted from 0. A row that isn't there has an empty
// text and isn't selected; setting or removing it does nothing. Changes by the program raise no event.
class ListBox : public Control {
 public:
  Event<int, int> KeyUp;  // virtual key code, shift state

  int ListCount() const { return static_cast<int>(rows_.size()); }
  void AddItem(TextView text);
  void RemoveItem(int row);
  void Clear();

  TextView List(int row) const;
  bool Selected(int row) const;
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
