// clang-format off
#include "window/win32/text_box_binding.h"
#include <commctrl.h>
// clang-format on

#include <algorithm>
#include <utility>

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

constexpr int kPadding = 45;      // twips at both ends of a text
constexpr WPARAM kBackspace = 8;  // the only control character that is typed; the others are commands

}  // namespace

TextBoxBinding::TextBoxBinding(TextBox& model, WindowContext& context, int id, ControlName name)
    : OutlinedBinding(model, context, {std::move(name.get), false}), model_(model) {
  // Without WS_BORDER: the system's text box would paint a border inside, too.
  Create(id, L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP);
  Send(EM_SETLIMITTEXT);
  ShowLook();
}

// The client area depends on the font. The system asks for it when the size changes; a box made in its final
// size would never be asked.
void TextBoxBinding::ShowLook() {
  Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(0, 0));
  SetWindowPos(Window(), nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

Text TextBoxBinding::ShownText() const {
  Text text(static_cast<size_t>(GetWindowTextLengthW(Window())) + 1, u'\0');
  text.resize(static_cast<size_t>(
      GetWindowTextW(Window(), windows::WideBuffer(text.data()), static_cast<int>(text.size()))));
  return text;
}

void TextBoxBinding::Show() {
  const Text& text = model_.Text.Get();
  if (ShownText() != text.substr(0, text.find(u'\0'))) {
    showing_ = true;
    SetWindowTextW(Window(), windows::Wide(text));
    showing_ = false;
  }
  if (model_.SelStart != start_ || model_.SelLength != length_) {
    start_ = model_.SelStart;
    length_ = model_.SelLength;
    Send(EM_SETSEL, static_cast<WPARAM>(start_), static_cast<LPARAM>(start_) + length_);
  }
}

void TextBoxBinding::OnCommand(int code) {
  if (code == EN_CHANGE && !showing_) model_.Text = ShownText();
}

void TextBoxBinding::ReadSelection() {
  DWORD from = 0, to = 0;
  Send(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  start_ = static_cast<int>(from);
  length_ = static_cast<int>(to - from);
  model_.SelStart = start_;
  model_.SelLength = length_;
}

bool TextBoxBinding::Leave() {
  ReadSelection();
  model_.LostFocus();
  return context_.form->ActiveControl.Get() != &model_;
}

// A box that is switched off has the window's background.
COLORREF TextBoxBinding::BackColor() const {
  const bool off = !model_.Enabled || model_.BackColor == kButtonFace;
  return off ? context_.colors.background : context_.colors.panel;
}

HBRUSH TextBoxBinding::OnColors(HDC context) {
  SetBkColor(context, BackColor());
  SetTextColor(context, model_.Enabled ? context_.colors.text : context_.colors.faintText);
  SetDCBrushColor(context, BackColor());
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

std::optional<LRESULT> TextBoxBinding::OnChar(WPARAM character, LPARAM lParam) {
  if (character < ' ' && character != kBackspace) return std::nullopt;
  int key = static_cast<int>(character);
  model_.KeyPress(key);
  if (key == 0) return 0;
  return PassOn(WM_CHAR, static_cast<WPARAM>(key), lParam);
}

// Shrinks the box to its client area. A text stands at its top, and then in the middle of the box, where a
// label beside it has its own.
LRESULT TextBoxBinding::ShrinkToClientArea(RECT& area) const {
  const int above = std::max<int>(1, (area.bottom - area.top - TextHeight(context_)) / 2);
  InflateRect(&area, -std::max(1, context_.Pixels(kPadding)), 0);
  area.top += above;
  area.bottom = std::max(area.top, area.bottom - 1);
  return 0;
}

std::optional<LRESULT> TextBoxBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCALCSIZE)
    return ShrinkToClientArea(wParam != FALSE ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0]
                                              : *reinterpret_cast<RECT*>(lParam));
  if (message == WM_NCPAINT) return PaintOutline(BackColor()), 0;
  if (message == WM_CHAR) return OnChar(wParam, lParam);
  const std::optional<LRESULT> done = OutlinedBinding::OnMessage(message, wParam, lParam);
  if (message == WM_SETFOCUS && !inFocus_) {
    inFocus_ = true;
    const LRESULT result = PassOn(message, wParam, lParam);
    ReadSelection();
    model_.GotFocus();
    return result;
  }
  if (message == WM_KILLFOCUS && IsChild(context_.window, reinterpret_cast<HWND>(wParam)) != FALSE) {
    inFocus_ = false;
    context_.boxLeft(*this);
  }
  return done;
}

}  // namespace tavix::win32
