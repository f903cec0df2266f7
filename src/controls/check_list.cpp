#include "controls/check_list.h"

namespace tavix {

void CheckList::AddItem(TextView text) {
  rows_.push_back({Text(text), false});
  PropertyChanged();
}

void CheckList::Clear() {
  rows_.clear();
  ListIndex = -1;
  PropertyChanged();
}

TextView CheckList::List(int row) const { return Has(row) ? TextView(rows_[row].text) : TextView(); }

void CheckList::SetList(int row, TextView text) {
  if (!Has(row) || rows_[row].text == text) return;
  rows_[row].text = text;
  PropertyChanged();
  ItemCheck(row);
}

bool CheckList::Selected(int row) const { return Has(row) && rows_[row].selected; }

void CheckList::SetSelected(int row, bool selected) {
  if (!Has(row) || rows_[row].selected == selected) return;
  rows_[row].selected = selected;
  PropertyChanged();
  ItemCheck(row);
}

}  // namespace tavix
