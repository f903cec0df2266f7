#pragma once

#include <array>

#include "controls/list_view.h"
#include "window/win32/virtual_list.h"

namespace tavix::win32 {

// The result list: columns with sort marks, rows with colours of their own.
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
  void OnRowFocused(int row) override { model_.SelectRow(row + 1); }
  void OnRowClick(int row) override;
  void OnColumnClick(int column) override { model_.ColumnClick(column + 1); }
  COLORREF TextColorAt(int row) override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }

 private:
  void ShowColumns();
  void ShowColors();

  ListView& model_;
  std::array<ListView::ColumnHeader, ListView::kColumns> columns_;
  COLORREF back_ = CLR_NONE;
};

}  // namespace tavix::win32
