#include "window/win32/list_box_binding.h"

#include "platform/windows/wide.h"
#include "window/caption.h"
#include "window/win32/shift_keys.h"

namespace tavix::win32 {
namespace {
constexpr int kRowRoom = 45;  // twips above and below a text together
}  // namespace

ListBoxBinding::ListBoxBinding(ListBox& model, WindowContext& context, int id, const Property<Text>& name)
    : FramedBinding(model, context), model_(model), caption_(name) {
  CreateFramed(id, L"LISTBOX", LBS_NOTIFY | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT | WS_VSCROLL);
  Send(LB_SETITEMHEIGHT, 0, TextHeight(context) + context.Pixels(kRowRoom));
}

void ListBoxBinding::Show() {
  SetName(PlainCaption(caption_.Get()));
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
  // A row that was added is seen; otherwise what is seen stays.
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

void ListBoxBinding::OnCommand(int code) {
  if (code != LBN_SELCHANGE) return;
  for (int row = 0; row < model_.ListCount(); ++row) model_.SetSelected(row, IsSelected(row));
}

HBRUSH ListBoxBinding::OnColors(HDC context) {
  const COLORREF back = model_.Enabled ? context_.colors.panel : context_.colors.ground;
  SetBkColor(context, back);
  SetTextColor(context, model_.Enabled ? context_.colors.text : context_.colors.faintText);
  SetDCBrushColor(context, back);
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

std::optional<LRESULT> ListBoxBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_KEYUP) model_.KeyUp(static_cast<int>(wide), HeldShiftKeys());
  return FramedBinding::OnMessage(message, wide, longer);
}

}  // namespace tavix::win32
