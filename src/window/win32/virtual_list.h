#pragma once

// clang-format off
#include "window/win32/window_binding.h"
#include <commctrl.h>
// clang-format on

namespace tavix::win32 {

// A report list that keeps no rows of its own: it asks for what it paints. Ticks are turned by a click on
// the box or by the space bar, and only in the model. Rows are counted from 0.
class VirtualList : public WindowBinding {
 public:
  LRESULT OnNotify(NMHDR& header) override;

 protected:
  VirtualList(Control& model, WindowContext& context, int id, DWORD style);

  virtual int RowCount() = 0;
  virtual TextView TextAt(int row, int column) = 0;
  virtual bool CheckedAt(int row) = 0;
  virtual void Toggle(int row) = 0;
  virtual int FocusedRow() = 0;  // of the model, -1 for none
  // The user has moved the focus to this row, or clicked on it where it was already.
  virtual void OnRowFocused(int row) = 0;
  virtual void OnRowClick(int row) = 0;
  virtual void OnColumnClick(int column) { (void)column; }
  virtual COLORREF TextColorAt(int row) { return (void)row, GetSysColor(COLOR_WINDOWTEXT); }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

  void AddColumn(int column, TextView caption, int pixels);
  // Tells the list how many rows there are, moves its focus to the model's and has it painted anew.
  void ShowRows();

 private:
  LRESULT Fill(LVITEMW& item);
  LRESULT Paint(NMLVCUSTOMDRAW& draw);
  void RowChanged(const NMLISTVIEW& change);
  int RowOfBoxAt(LPARAM position) const;
  bool Has(int row) { return row >= 0 && row < RowCount(); }

  bool showing_ = false;
};

}  // namespace tavix::win32
