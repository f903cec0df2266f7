#pragma once

#include <array>

#include "controls/list_view.h"
#include "window/win32/virtual_list.h"

namespace tavix::win32 {

// The result list: columns with sort marks, rows with colours of their own, any number of rows highlighted.
// No number of rows is too large to be highlighted at once.
class ListViewBinding : public VirtualList {
 public:
  ListViewBinding(ListView& model, WindowContext& context, int id, TextView name);

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  int RowCount() override { return model_.Count(); }
  TextView TextAt(int row, int column) override;
  bool CheckedAt(int row) override { return model_.Row(row + 1).Checked(); }
  void Toggle(int row) override;
  int FocusedRow() override { return model_.SelectedRow() - 1; }
  void OnRowFocused(int row) override { model_.FocusRow(row + 1); }
  void OnRowsHighlighted(int first, int last, bool highlighted) override;
  void ShowHighlights() override;
  void OnRowClick(int row) override;
  void OnColumnClick(int column) override { model_.ColumnClick(column + 1); }
  COLORREF TextColorAt(int row) override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }

 private:
  void ShowColumns();
  void ShowColors();
  LRESULT Select(UINT message, WPARAM wide, LPARAM longer);
  void ReadHighlights();
  void AskForMenu(LPARAM position);
  int HighlightedRows();

  ListView& model_;
  std::array<ListView::ColumnHeader, ListView::kColumns> columns_;
  COLORREF back_ = CLR_NONE;
  uint32_t highlights_ = 0;  // the model's count of changes when they were last shown
};

}  // namespace tavix::win32
