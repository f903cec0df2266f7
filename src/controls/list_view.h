#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "controls/control.h"
#include "controls/gap_sequence.h"
#include "controls/text_store.h"

namespace tavix {

// A list of rows with check boxes and columns of text. Rows are counted from 1, in the order shown. Sorting
// by a column ignores letter case and is stable: rows with equal texts keep their order.
class ListView : public Control {
 public:
  static constexpr int kColumns = 5;

  struct ColumnHeader {
    Text Caption;
    int Width = 0;  // twips
    int Icon = 0;   // beside the caption; 0 for none
    // The column whose texts a click on this header sorts by; none for its own.
    std::optional<int> Key = std::nullopt;
  };

  // A row. Valid until the row is removed or the list cleared.
  class Item {
   public:
    TextView Text() const { return SubItems(0); }
    // The text in a column; column 0 is Text(). Empty if never set.
    TextView SubItems(int column) const;
    void SetSubItems(int column, TextView text);
    TextView Tag() const;
    void SetTag(TextView tag);
    // Kept with the row, not shown.
    uint16_t ItemData() const;
    void SetItemData(uint16_t data);
    bool Checked() const;
    void SetChecked(bool checked);
    // Whether the row is highlighted. Several rows can be.
    bool Selected() const;
    void SetSelected(bool selected);
    // The row's text colour; nullopt for the list's.
    std::optional<Color> ForeColor() const;
    void SetForeColor(Color color);

   private:
    friend class ListView;
    Item(ListView* list, uint32_t row) : list_(list), row_(row) {}
    ListView* list_;
    uint32_t row_;
  };

  ListView() = default;

  Property<bool> Sorted{this, false};
  Property<int> SortKey{this, 0};    // column, from 0
  Property<int> SortOrder{this, 0};  // 0 ascending, 1 descending
  Property<Color> BackColor{this, kWindowBackground};
  Property<Color> ForeColor{this, kWindowText};
  std::array<ColumnHeader, kColumns> ColumnHeaders;
  Event<int> ColumnClick;  // header number, from 1
  Event<> ItemClick;       // the user has moved the focus to a row
  Event<> DblClick;
  Event<int, int> KeyDown;  // virtual key code, shift state
  Event<int> MouseUp;       // the button released
  Event<int> MouseMove;     // the buttons held down

  int Count() const { return static_cast<int>(order_.Size()); }
  // Adds a row: at the end, or, if sorting is on, at its sorted position. Amortised constant time.
  Item Add(TextView text);
  // The same with all that a row has, in one change.
  Item Add(const std::array<TextView, kColumns>& texts, TextView tag, bool checked);
  // The row at `position`, which is 1 to Count(). Sorts rows added since the last call, if sorting is on.
  Item Row(int position);
  // `position` is 1 to Count(). Removing many rows in order, from either end, takes linear time in all.
  void Remove(int position);
  void Clear();

  // The user clicks on a header, counted from 0: sorts by its key and reverses the direction. A new list is
  // ascending, so the first click sorts descending.
  void SortByClick(int header);
  // The header, counted from 0, by whose key the list is sorted; -1 if it isn't sorted.
  int SortedHeader() const;

  // How many rows are highlighted.
  int SelectedCount() const { return selectedCount_; }
  // Highlights all rows, or takes all highlights away. One change, as are the next two.
  void SelectAll(bool selected);
  // The same for the rows from one position to another. Positions out of range are left out.
  void SelectRows(int first, int last, bool selected);
  // Ticks all highlighted rows, or unticks them.
  void CheckSelected(bool checked);
  // The position of the row with the focus; 0 for none.
  int SelectedRow();
  // Puts the focus on a row and highlights only that row. A position out of range: no focus, no highlight.
  void SelectRow(int position);
  // Puts the focus on a row and keeps the highlights.
  void FocusRow(int position);

  // While set, the real list doesn't repaint.
  Property<bool> PaintingSuspended{this, false};

  void PropertyChanged() override;

 private:
  static constexpr int kTag = kColumns;
  static constexpr int kFields = kColumns + 1;
  struct RowData {
    std::array<StoredText, kFields> fields;
    Color foreColor = 0;
    uint16_t itemData = 0;
    bool hasForeColor : 1 = false;
    bool checked : 1 = false;
    bool selected : 1 = false;
  };

  static constexpr uint32_t kNone = UINT32_MAX;
  static constexpr uint32_t kRowsInBlock = 1024;

  RowData& Data(uint32_t row) { return blocks_[row / kRowsInBlock][row % kRowsInBlock]; }
  const RowData& Data(uint32_t row) const { return blocks_[row / kRowsInBlock][row % kRowsInBlock]; }
  TextView Field(uint32_t row, int field) const { return texts_.Get(Data(row).fields[field]); }
  uint32_t NewRow();
  // The text as it is stored. A row with the same text as the row before shares it.
  StoredText Store(int field, TextView text);
  void SetField(uint32_t row, int field, TextView text);
  int KeyOf(int header) const { return ColumnHeaders[static_cast<size_t>(header)].Key.value_or(header); }
  void Select(uint32_t row, bool selected);
  void ApplySortSettings();
  void SortNewRows();

  // All rows in the order they were added. The space of a removed row is freed only by Clear.
  std::vector<std::unique_ptr<RowData[]>> blocks_;
  uint32_t rows_ = 0;
  TextStore texts_;
  std::array<StoredText, kFields> last_;  // the last text of each field: a row with an equal text shares it
  std::array<TextStore::Kind, kFields> kinds_;
  GapSequence<uint32_t> order_;  // row numbers in the order shown
  int sortedCount_ = 0;          // how many rows at the head of `order_` are sorted
  uint32_t sortedBelow_ = 0;     // rows numbered below this are already sorted in
  // Sorted, SortKey and SortOrder as last applied.
  bool sorted_ = false;
  int key_ = 0;
  int direction_ = 0;
  uint32_t focused_ = kNone;  // the row with the focus
  int selectedCount_ = 0;
};

}  // namespace tavix
