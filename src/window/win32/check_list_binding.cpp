#include "window/win32/check_list_binding.h"

namespace tavix::win32 {

CheckListBinding::CheckListBinding(CheckList& model, WindowContext& context, int id, TextView name)
    : VirtualList(model, context, id, LVS_NOCOLUMNHEADER | LVS_SINGLESEL, name), model_(model) {
  AddColumn(0, u"", 0);
}

// The column is as wide as a scroll bar leaves room for, and there is one or not only once the rows are
// known.
void CheckListBinding::Show() {
  ShowRows();
  RECT area;
  GetClientRect(Window(), &area);
  const int width = area.right - area.left;
  if (static_cast<int>(Send(LVM_GETCOLUMNWIDTH, 0)) != width) Send(LVM_SETCOLUMNWIDTH, 0, width);
}

void CheckListBinding::OnRowFocused(int row) {
  told_ = true;
  model_.ListIndex = row;
  model_.Click();
}

// A click on a box is one on the row, too; what it shows is told of the row as it is then.
void CheckListBinding::Toggle(int row) {
  model_.SetSelected(row, !model_.Selected(row));
  if (Has(row)) OnRowFocused(row);
}

void CheckListBinding::OnRowClick(int row) {
  if (row >= 0 && !told_) OnRowFocused(row);
}

std::optional<LRESULT> CheckListBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_LBUTTONDOWN) told_ = false;
  return VirtualList::OnMessage(message, wide, longer);
}

}  // namespace tavix::win32
