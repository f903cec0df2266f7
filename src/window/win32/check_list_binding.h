#pragma once

#include "controls/check_list.h"
#include "window/win32/virtual_list.h"

namespace tavix::win32 {

// The function list: one column without a header.
class CheckListBinding : public VirtualList {
 public:
  CheckListBinding(CheckList& model, WindowContext& context, int id, TextView name);

 protected:
  void Show() override;
  int RowCount() override { return model_.ListCount(); }
  TextView TextAt(int row, int column) override { return column == 0 ? model_.List(row) : TextView(); }
  bool CheckedAt(int row) override { return model_.Selected(row); }
  void Toggle(int row) override;
  int FocusedRow() override { return model_.ListIndex; }
  void OnRowFocused(int row) override;
  void OnRowClick(int row) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }

 private:
  CheckList& model_;
  bool told_ = false;  // that the click under way has moved the focus
};

}  // namespace tavix::win32
