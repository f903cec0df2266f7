#include "controls/list_view.h"

#include <algorithm>
#include <iterator>

#include "controls/row_order.h"
#include "text/letter_case.h"

namespace tavix {

TextView ListView::Item::SubItems(int column) const { return list_->Field(row_, column); }
void ListView::Item::SetSubItems(int column, TextView text) { list_->SetField(row_, column, text); }
TextView ListView::Item::Tag() const { return list_->Field(row_, kTag); }
void ListView::Item::SetTag(TextView tag) { list_->SetField(row_, kTag, tag); }
uint16_t ListView::Item::ItemData() const { return list_->Data(row_).itemData; }
void ListView::Item::SetItemData(uint16_t data) { list_->Data(row_).itemData = data; }
bool ListView::Item::Checked() const { return list_->Data(row_).checked; }

void ListView::Item::SetChecked(bool checked) {
  RowData& data = list_->Data(row_);
  if (data.checked == checked) return;
  data.checked = checked;
  list_->PropertyChanged();
}

bool ListView::Item::Selected() const { return list_->Data(row_).selected; }

void ListView::Item::SetSelected(bool selected) {
  if (Selected() == selected) return;
  list_->Select(row_, selected);
  list_->PropertyChanged();
}

std::optional<Color> ListView::Item::ForeColor() const {
  const RowData& data = list_->Data(row_);
  return data.hasForeColor ? std::optional(data.foreColor) : std::nullopt;
}

void ListView::Item::SetForeColor(Color color) {
  RowData& data = list_->Data(row_);
  data.foreColor = color;
  data.hasForeColor = true;
  list_->PropertyChanged();
}

uint32_t ListView::NewRow() {
  const uint32_t row = rows_++;
  if (row % kRowsInBlock == 0) blocks_.push_back(std::make_unique<RowData[]>(kRowsInBlock));
  order_.PushBack(row);
  return row;
}

ListView::Item ListView::Add(TextView text) {
  const uint32_t row = NewRow();
  SetField(row, 0, text);
  return {this, row};
}

ListView::Item ListView::Add(const std::array<TextView, kColumns>& texts, TextView tag, bool checked) {
  const uint32_t row = NewRow();
  RowData& data = Data(row);
  for (int field = 0; field < kColumns; ++field) data.fields[field] = Store(field, texts[field]);
  data.fields[kTag] = Store(kTag, tag);
  data.checked = checked;
  PropertyChanged();
  return {this, row};
}

ListView::Item ListView::Row(int position) {
  SortNewRows();
  return {this, order_[position - 1]};
}

void ListView::Remove(int position) {
  SortNewRows();
  if (order_[position - 1] == focused_) focused_ = kNone;
  Select(order_[position - 1], false);
  order_.Remove(position - 1);
  if (position <= sortedCount_) --sortedCount_;
  PropertyChanged();
}

void ListView::Clear() {
  order_.Clear();
  blocks_.clear();
  rows_ = 0;
  texts_.Clear();
  last_ = {};
  kinds_ = {};
  sortedCount_ = 0;
  sortedBelow_ = 0;
  focused_ = kNone;
  selectedCount_ = 0;
  PropertyChanged();
}

void ListView::SortByClick(int header) {
  Sorted = true;
  SortKey = KeyOf(header);
  SortOrder = SortOrder == 0 ? 1 : 0;
}

int ListView::SortedHeader() const {
  for (int header = 0; Sorted && header < kColumns; ++header) {
    if (KeyOf(header) == SortKey) return header;
  }
  return -1;
}

int ListView::SelectedRow() {
  if (focused_ == kNone) return 0;
  SortNewRows();
  for (int i = 0; i < Count(); ++i) {
    if (order_[i] == focused_) return i + 1;
  }
  return 0;
}

void ListView::Select(uint32_t row, bool selected) {
  RowData& data = Data(row);
  selectedCount_ += static_cast<int>(selected) - static_cast<int>(data.selected);
  data.selected = selected;
}

void ListView::SelectAll(bool selected) { SelectRows(1, Count(), selected); }

void ListView::SelectRows(int first, int last, bool selected) {
  if (!selected && selectedCount_ == 0) return;
  SortNewRows();
  for (int i = std::max(first, 1) - 1; i < std::min(last, Count()); ++i) Select(order_[i], selected);
  PropertyChanged();
}

void ListView::CheckSelected(bool checked) {
  for (int i = 0; i < Count(); ++i) {
    RowData& data = Data(order_[i]);
    if (data.selected) data.checked = checked;
  }
  PropertyChanged();
}

void ListView::SelectRow(int position) {
  SelectAll(false);
  FocusRow(position);
  if (focused_ != kNone) Select(focused_, true);
}

void ListView::FocusRow(int position) {
  SortNewRows();
  focused_ = position >= 1 && position <= Count() ? order_[position - 1] : kNone;
  PropertyChanged();
}

void ListView::PropertyChanged() {
  ApplySortSettings();
  Control::PropertyChanged();
}

StoredText ListView::Store(int field, TextView text) {
  StoredText& last = last_[field];
  if (!SameText(texts_.Get(last), text)) last = texts_.Put(text, kinds_[field]);
  return last;
}

void ListView::SetField(uint32_t row, int field, TextView text) {
  const StoredText stored = Store(field, text);
  RowData& data = Data(row);
  if (data.fields[field] == stored) return;
  data.fields[field] = stored;
  // A row already sorted in may be at the wrong position now: sort anew. Later rows are still to be sorted.
  if (sorted_ && field == key_ && row < sortedBelow_) sortedCount_ = 0;
  Control::PropertyChanged();
}

// Sorting is stable, so the old order is completed before a sort by another column starts from it. Reversing
// the same column needs no such step.
void ListView::ApplySortSettings() {
  if (sorted_ == Sorted && key_ == SortKey && direction_ == SortOrder) return;
  const bool turned = sorted_ && Sorted && key_ == SortKey;
  if (!turned) SortNewRows();
  sorted_ = Sorted;
  key_ = SortKey;
  direction_ = SortOrder;
  sortedCount_ = 0;
}

void ListView::SortNewRows() {
  if (!sorted_ || sortedCount_ == Count() || key_ < 0 || key_ >= kColumns) return;
  std::vector<uint32_t>& order = order_.Whole();
  const bool descending = direction_ != 0;
  const auto textOf = [this](uint32_t row) { return Field(row, key_); };
  SortRows(std::span(order).subspan(static_cast<size_t>(sortedCount_)), descending, textOf);
  std::inplace_merge(order.begin(), order.begin() + sortedCount_, order.end(), [&](uint32_t a, uint32_t b) {
    const int difference = CompareIgnoringCase(textOf(a), textOf(b));
    return descending ? difference > 0 : difference < 0;
  });
  sortedCount_ = Count();
  sortedBelow_ = rows_;
}

}  // namespace tavix
