#include "window/win32/lists.h"

#include <algorithm>
#include <utility>

#include "platform/windows/wide.h"
#include "window/win32/input.h"

namespace tavix::win32 {
namespace {
constexpr int kRowPadding = 45;  // of a list box, twips above and below a text together
}  // namespace

//--- Check list

CheckListBinding::CheckListBinding(CheckList& model, WindowContext& context, int id, ControlName name)
    : VirtualList(model, context, id, LVS_NOCOLUMNHEADER | LVS_SINGLESEL, std::move(name)), model_(model) {
  AddColumn(0, u"", 0);
}

// The column fills the client area, which a scroll bar makes narrower: so the rows come first.
void CheckListBinding::Show() {
  ShowRows();
  RECT area;
  GetClientRect(Window(), &area);
  const int width = area.right - area.left;
  if (static_cast<int>(Send(LVM_GETCOLUMNWIDTH, 0)) != width) Send(LVM_SETCOLUMNWIDTH, 0, width);
}

void CheckListBinding::OnRowFocused(int row) {
  clickReported_ = true;
  model_.ListIndex = row;
  model_.Click();
}

// A click on a box is also one on its row. The tick turns first, so the row's click handler sees it.
void CheckListBinding::Toggle(int row) {
  model_.SetSelected(row, !model_.Selected(row));
  if (Has(row)) OnRowFocused(row);
}

void CheckListBinding::OnRowClick(int row) {
  if (row >= 0 && !clickReported_) OnRowFocused(row);
}

std::optional<LRESULT> CheckListBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_LBUTTONDOWN) clickReported_ = false;
  return VirtualList::OnMessage(message, wParam, lParam);
}

//--- List box

ListBoxBinding::ListBoxBinding(ListBox& model, WindowContext& context, int id, ControlName name)
    : OutlinedBinding(model, context, std::move(name)), model_(model) {
  CreateOutlined(id, L"LISTBOX", LBS_NOTIFY | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT | WS_VSCROLL);
  ShowLook();
}

void ListBoxBinding::ShowLook() {
  Send(LB_SETITEMHEIGHT, 0, TextHeight(context_) + context_.Pixels(kRowPadding));
}

void ListBoxBinding::Show() {
  ShowRows();
  for (int row = 0; row < model_.ListCount(); ++row) {
    if (model_.Selected(row) != IsSelected(row)) Send(LB_SETSEL, model_.Selected(row) ? TRUE : FALSE, row);
  }
}

void ListBoxBinding::ShowRows() {
  std::vector<Text> rows;
  rows.reserve(static_cast<size_t>(model_.ListCount()));
  for (int row = 0; row < model_.ListCount(); ++row) rows.emplace_back(model_.List(row));
  if (rows == rows_) return;
  // The list scrolls to an added row. Otherwise it keeps its position.
  const LRESULT top =
      rows.size() > rows_.size() ? static_cast<LRESULT>(rows.size()) - 1 : Send(LB_GETTOPINDEX);
  const bool first = rows_.empty();
  rows_ = std::move(rows);
  Send(WM_SETREDRAW, FALSE);
  Send(LB_RESETCONTENT);
  for (const Text& row : rows_) Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(windows::Wide(row)));
  if (!first) Send(LB_SETTOPINDEX, static_cast<WPARAM>(top));
  Send(WM_SETREDRAW, TRUE);
  Redraw(true);
}

void ListBoxBinding::GoToLetter(char16_t letter) {
  const auto textOf = [this](int row) {
    const TextView text = model_.List(row);
    return text.substr(std::min(text.find_first_not_of(u"*?."), text.size()));
  };
  const auto row = context_.letters.Type(
      Window(), letter, {model_.ListCount(), static_cast<int>(Send(LB_GETCARETINDEX)), textOf});
  if (row < 0) return;
  Send(LB_SETSEL, FALSE, -1);
  Send(LB_SETSEL, TRUE, row);
  Send(LB_SETCARETINDEX, static_cast<WPARAM>(row), FALSE);
  OnCommand(LBN_SELCHANGE);
}

void ListBoxBinding::OnCommand(int code) {
  if (code != LBN_SELCHANGE) return;
  for (int row = 0; row < model_.ListCount(); ++row) model_.SetSelected(row, IsSelected(row));
}

HBRUSH ListBoxBinding::OnColors(HDC context) {
  const COLORREF back = model_.Enabled ? context_.colors.panel : context_.colors.background;
  SetBkColor(context, back);
  SetTextColor(context, model_.Enabled ? context_.colors.text : context_.colors.faintText);
  SetDCBrushColor(context, back);
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

std::optional<LRESULT> ListBoxBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KEYUP) model_.KeyUp(static_cast<int>(wParam), HeldShiftKeys());
  if (message == WM_CHAR && wParam > VK_SPACE) return GoToLetter(static_cast<char16_t>(wParam)), 0;
  return OutlinedBinding::OnMessage(message, wParam, lParam);
}

}  // namespace tavix::win32
