#pragma once

#include "window/win32/framed_binding.h"
#include "window/win32/tick_images.h"

namespace tavix::win32 {

// A report list that keeps no rows of its own: it asks for what it paints. Ticks are turned by a click on
// the box or by the space bar, and only in the model. Rows are counted from 0.
class VirtualList : public FramedBinding {
 public:
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  VirtualList(Control& model, WindowContext& context, int id, DWORD style, TextView name);

  virtual int RowCount() = 0;
  virtual TextView TextAt(int row, int column) = 0;
  virtual bool CheckedAt(int row) = 0;
  virtual void Toggle(int row) = 0;
  virtual int FocusedRow() = 0;  // of the model, -1 for none
  // The user has moved the focus to this row.
  virtual void OnRowFocused(int row) = 0;
  virtual void OnRowClick(int row) = 0;
  virtual void OnColumnClick(int column) { (void)column; }
  // Rows have been highlighted by the user, or not any more; `first` below 0 means all of them.
  virtual void OnRowsHighlighted(int first, int last, bool highlighted) {
    (void)first, (void)last, (void)highlighted;
  }
  // Brings highlights that the program has changed to the list. By default the row in focus has the only one.
  virtual void ShowHighlights() {}
  virtual COLORREF TextColorAt(int row) { return (void)row, GetSysColor(COLOR_WINDOWTEXT); }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

  void AddColumn(int column, TextView caption, int pixels);
  // Tells the list how many rows there are, moves its focus to the model's and has it painted anew.
  void ShowRows();
  // A state (LVIS_...) of one row, or of all for -1.
  void SetState(int row, UINT mask, UINT state) const;
  int ShownFocus() const;
  bool Has(int row) { return row >= 0 && row < RowCount(); }
  // While this is set, changes are the program's.
  bool showing_ = false;

 private:
  LRESULT Fill(LVITEMW& item);
  LRESULT Paint(NMLVCUSTOMDRAW& draw);
  void RowChanged(const NMLISTVIEW& change);
  void RowsChanged(const NMLVODSTATECHANGE& change);
  void ShowFocus();
  int RowOfBoxAt(LPARAM position) const;
  // Whether a row that the program puts the focus on is brought into sight.
  virtual bool ScrollsToFocus() const { return false; }
  bool SelectsOne() const { return (GetWindowLongPtrW(Window(), GWL_STYLE) & LVS_SINGLESEL) != 0; }

  ImageList ticks_;
};

}  // namespace tavix::win32
