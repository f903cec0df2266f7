// clang-format off
#include "window/win32/buttons.h"
#include <commctrl.h>
// clang-format on

#include <algorithm>

#include "window/caption.h"
#include "window/win32/marks.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

void ShowMark(HWND button, bool marked) {
  const WPARAM mark = marked ? BST_CHECKED : BST_UNCHECKED;
  if (static_cast<WPARAM>(SendMessageW(button, BM_GETCHECK, 0, 0)) == mark) return;
  SendMessageW(button, BM_SETCHECK, mark, 0);
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, button, OBJID_CLIENT, CHILDID_SELF);
}

bool IsArrow(WPARAM key) { return key >= VK_LEFT && key <= VK_DOWN; }

RECT CaptionArea(const WindowContext& context, RECT area) {
  area.left += TickWidth(context) + context.Pixels(60);
  return area;
}

// Tab goes to the chosen button of a group, or to the first one while none is chosen.
void ShowTabStops(std::span<const OptionButton> group) {
  const bool none = std::ranges::none_of(group, &OptionButton::GetValue);
  for (const OptionButton& option : group) {
    const auto button = reinterpret_cast<HWND>(option.hWnd);
    if (button == nullptr) continue;
    const bool stops = option.GetValue() || (none && &option == &group.front());
    const LONG_PTR style = GetWindowLongPtrW(button, GWL_STYLE) & ~LONG_PTR{WS_TABSTOP};
    SetWindowLongPtrW(button, GWL_STYLE, stops ? style | WS_TABSTOP : style);
  }
}

COLORREF CaptionColor(const WindowContext& context, bool enabled) {
  return enabled ? context.colors.text : context.colors.faintText;
}

// An outline around the words of a caption, not around its whole area.
void DrawFocusAroundWords(HDC canvas, const WindowContext& context, RECT area, TextView caption) {
  area.left -= context.Pixels(45);
  area.right =
      std::min<LONG>(area.right, area.left + context.Pixels(TextWidth(context, PlainCaption(caption)) + 90));
  InflateRect(&area, 0, -context.Pixels(30));
  DrawOutline(canvas, area, context.colors.accent);
}

}  // namespace

//--- Check boxes

CheckBoxBinding::CheckBoxBinding(CheckBox& model, WindowContext& context, int id, CheckBoxStyle style)
    : PaintedBinding(model, context, CaptionName(model.Caption)), model_(model), style_(style) {
  Create(id, L"BUTTON", BS_CHECKBOX | WS_TABSTOP);
}

void CheckBoxBinding::OnCommand(int code) {
  if (code == BN_CLICKED) model_.SetValue(model_.GetValue() == 0 ? 1 : 0);
}

HBRUSH CheckBoxBinding::OnColors(HDC context) {
  SetBkMode(context, TRANSPARENT);
  return context_.background.Get();
}

void CheckBoxBinding::Show() { ShowMark(Window(), model_.GetValue() != 0); }

void CheckBoxBinding::Paint(HDC canvas, const RECT& area, UINT) {
  const Text& caption = model_.Caption.Get();
  const COLORREF color = CaptionColor(context_, IsEnabled());
  const bool focused = GetFocus() == Window();
  RECT words = CaptionArea(context_, area);
  FillArea(canvas, area, context_.colors.background);
  DrawTick(canvas, context_, area, model_.GetValue() != 0 ? Tick::kWhole : Tick::kNone, IsEnabled());
  if (style_ == CheckBoxStyle::kDialog) {
    WriteCaption(canvas, caption, words, context_.font.Get(), color, DT_LEFT, HidesMnemonics());
    if (focused) DrawFocusAroundWords(canvas, context_, words, caption);
  } else {
    WriteText(canvas, caption, words, context_.font.Get(), color, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    words.left -= context_.Pixels(30);
    InflateRect(&words, 0, -context_.Pixels(45));
    if (focused) DrawOutline(canvas, words, context_.colors.accent);
  }
}

//--- Option buttons

OptionButtonBinding::OptionButtonBinding(OptionButton& model, WindowContext& context, int id, bool first)
    : PaintedBinding(model, context, CaptionName(model.Caption)), model_(model) {
  Create(id, L"BUTTON", BS_RADIOBUTTON | (first ? WS_GROUP : 0U));
}

void OptionButtonBinding::OnCommand(int code) {
  if (code == BN_CLICKED) Press();
}

void OptionButtonBinding::Show() {
  ShowMark(Window(), model_.GetValue());
  ShowTabStops(model_.Members());
}

std::optional<LRESULT> OptionButtonBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETDLGCODE) return PassOn(message, wParam, lParam) | DLGC_WANTARROWS;
  if (message == WM_KEYDOWN && IsArrow(wParam)) return ChooseNext(wParam == VK_LEFT || wParam == VK_UP), 0;
  if (message != WM_SETFOCUS) return PaintedBinding::OnMessage(message, wParam, lParam);
  // Not passed on: a radio button of Windows takes the focus for a click.
  WindowBinding::OnMessage(message, wParam, lParam);
  Redraw();
  return 0;
}

// Windows and Wine move the choice by arrow keys in different ways, so this doesn't ask them.
void OptionButtonBinding::ChooseNext(bool backwards) {
  const HWND next = GetNextDlgGroupItem(context_.window, Window(), backwards ? TRUE : FALSE);
  auto* const option = next == nullptr ? nullptr : dynamic_cast<OptionButtonBinding*>(Of(next));
  if (option == nullptr) return;
  SetFocus(next);
  option->Press();
}

void OptionButtonBinding::Paint(HDC canvas, const RECT& area, UINT) {
  const Text& caption = model_.Caption.Get();
  const RECT words = CaptionArea(context_, area);
  FillArea(canvas, area, context_.colors.background);
  DrawRing(canvas, context_, area, model_.GetValue(), IsEnabled());
  WriteCaption(canvas, caption, words, context_.font.Get(), CaptionColor(context_, IsEnabled()), DT_LEFT,
               HidesMnemonics());
  if (GetFocus() == Window()) DrawFocusAroundWords(canvas, context_, words, caption);
}

}  // namespace tavix::win32
