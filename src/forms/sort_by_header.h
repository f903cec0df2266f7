#pragma once

#include "controls/list_view.h"

namespace tavix {

// What a click on a column header does to a list: sorts by that column, counted from 1, and turns the
// direction each time, so that the first click gives the descending order.
inline void SortByHeader(ListView& list, int header) {
  list.Sorted = true;
  list.SortKey = header - 1;
  list.SortOrder = list.SortOrder == 0 ? 1 : 0;
}

}  // namespace tavix
