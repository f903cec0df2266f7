#include "controls/list_box.h"

namespace tavix {

void ListBox::AddItem(TextView text) {
  rows_.push_back({Text(text)});
  PropertyChanged();
}

void ListBox::RemoveItem(int row) {
  if (!Has(row)) return;
  rows_.erase(rows_.begin() + row);
  PropertyChanged();
}

void ListBox::Clear() {
  if (rows_.empty()) return;
  rows_.clear();
  PropertyChanged();
}

TextView ListBox::List(int row) const {
  return Has(row) ? TextView(rows_[static_cast<size_t>(row)].text) : TextView();
}

bool ListBox::Selected(int row) const { return Has(row) && rows_[static_cast<size_t>(row)].selected; }

void ListBox::SetSelected(int row, bool selected) {
  if (!Has(row) || Selected(row) == selected) return;
  rows_[static_cast<size_t>(row)].selected = selected;
  PropertyChanged();
}

}  // namespace tavix
