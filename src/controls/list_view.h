#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "controls/control.h"
#include "controls/gap_sequence.h"
#include "controls/text_store.h"

namespace tavix {

// A report list with check boxes: rows addressed from 1, columns of text, sorted by the text of a column
// on demand. Letter case doesn't count in the order, and equal texts keep the order in which they stood.
class ListView : public Control {
 public:
  static constexpr int kColumns = 5;

  struct ColumnHeader {
    Text Caption;
    int Width = 0;  // twips
    int Icon = 0;   // 0 none, 1 up, 2 down
  };

  // One row, for as long as it stands in the list.
  class Item {
   public:
    TextView Text() const { return SubItems(0); }
    // Column 0 is the row's own text. Fields that were never set are empty.
    TextView SubItems(int column) const;
    void SetSubItems(int column, TextView text);
    TextView Tag() const;
    void SetTag(TextView tag);
    // A number that the list keeps with the row and shows nowhere.
    uint16_t ItemData() const;
    void SetItemData(uint16_t data);
    bool Checked() const;
    void SetChecked(bool checked);
    // Whether the row is highlighted. Any number of rows can be.
    bool Selected() const;
    void SetSelected(bool selected);
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
  Event<> ItemClick;       // the focus has moved to a row, by mouse or keys
  Event<> DblClick;
  Event<int, int> KeyDown;  // virtual key code, shift state
  Event<int> MouseUp;       // the button released
  Event<int> MouseMove;     // the buttons held down

  int Count() const { return static_cast<int>(order_.Size()); }
  // A new row with this text; it stands last, or at its sorted position.
  Item Add(TextView text);
  // Row `position`, 1 to Count(). Where sorting is on, this is what brings new rows into their places.
  Item Row(int position);
  // Removing rows from the last to the first, or from the first to the last, takes one pass in all.
  void Remove(int position);
  void Clear();

  // Grows whenever a row may have been highlighted or not, or a highlighted one may have got another place.
  uint32_t HighlightChanges();
  // Highlights all rows, or none.
  void SelectAll(bool selected);
  // The row in focus, 0 for none.
  int SelectedRow();
  // Puts the focus on a row and highlights it alone; 0 for none.
  void SelectRow(int position);
  // Puts the focus on a row and leaves the highlights alone.
  void FocusRow(int position);

  // While painting is suspended, the real list leaves its window as it is.
  Property<bool> PaintingSuspended{this, false};

  void PropertyChanged() override;
  // Bytes held for rows, texts included.
  size_t MemoryUsed() const;

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
  void SetField(uint32_t row, int field, TextView text);
  void AdoptSorting();
  void EstablishOrder();

  // Rows in order of arrival; a removed row's place stays empty until Clear.
  std::vector<std::unique_ptr<RowData[]>> blocks_;
  uint32_t rows_ = 0;
  TextStore texts_;
  std::array<StoredText, kFields> last_;  // what was written last, shared with the next row if it is the same
  GapSequence<uint32_t> order_;
  int inOrder_ = 0;           // so many rows at the head of `order_` are in the order of the sorting in force
  uint32_t placedBelow_ = 0;  // the rows in their places have lower numbers than those still to be placed
  // The sorting in force, behind the properties until they have changed.
  bool sorted_ = false;
  int key_ = 0;
  int direction_ = 0;
  uint32_t focused_ = kNone;
  uint32_t highlightChanges_ = 0;
};

}  // namespace tavix
