// clang-format off
#include "window/win32/text_box_binding.h"
#include <commctrl.h>
// clang-format on

#include <algorithm>

#include "platform/windows/wide.h"
#include "window/caption.h"
#include "window/win32/accessible_name.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

constexpr int kPadding = 45;      // twips at both ends of a text
constexpr WPARAM kBackspace = 8;  // the only control character that is typed; the others are commands

}  // namespace

TextBoxBinding::TextBoxBinding(TextBox& model, WindowContext& context, int id, BoxListener& listener,
                               const Property<Text>* caption)
    : FramedBinding(model, context), model_(model), listener_(listener), caption_(caption) {
  // With the style of a border the system's own would paint one inside, too.
  Create(id, L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP);
  Send(EM_SETLIMITTEXT);
  Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(0, 0));
}

void TextBoxBinding::ShowName() {
  const Text name = caption_ == nullptr ? Text() : PlainCaption(caption_->Get());
  if (name == spoken_) return;
  spoken_ = name;
  SetAccessibleName(Window(), name);
}

void TextBoxBinding::Show() {
  ShowName();
  const Text& text = model_.Text.Get();
  Text shown(static_cast<size_t>(GetWindowTextLengthW(Window())) + 1, u'\0');
  shown.resize(static_cast<size_t>(
      GetWindowTextW(Window(), windows::WideBuffer(shown.data()), static_cast<int>(shown.size()))));
  if (shown != text.substr(0, text.find(u'\0'))) {
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
  if (code == EN_CHANGE && !showing_) ReadText();
}

void TextBoxBinding::ReadText() {
  Text text(static_cast<size_t>(GetWindowTextLengthW(Window())) + 1, u'\0');
  text.resize(static_cast<size_t>(
      GetWindowTextW(Window(), windows::WideBuffer(text.data()), static_cast<int>(text.size()))));
  model_.Text = std::move(text);
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

// Shown as part of the ground while it is switched off.
COLORREF TextBoxBinding::Back() const {
  const bool off = !model_.Enabled || model_.BackColor == kButtonFace;
  return off ? context_.colors.ground : context_.colors.panel;
}

HBRUSH TextBoxBinding::OnColors(HDC context) {
  SetBkColor(context, Back());
  SetTextColor(context, model_.Enabled ? context_.colors.text : context_.colors.faintText);
  SetDCBrushColor(context, Back());
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

std::optional<LRESULT> TextBoxBinding::Type(WPARAM character, LPARAM longer) {
  if (character < ' ' && character != kBackspace) return std::nullopt;
  int key = static_cast<int>(character);
  model_.KeyPress(key);
  if (key == 0) return 0;
  return PassOn(WM_CHAR, static_cast<WPARAM>(key), longer);
}

// The text stands in the middle of the height.
LRESULT TextBoxBinding::MakeRoom(RECT& place) const {
  const int line = TextHeight(context_) + 2;
  const int above = std::max<int>(1, (place.bottom - place.top - line) / 2);
  InflateRect(&place, -std::max(1, context_.Pixels(kPadding)), 0);
  place.top += above;
  place.bottom = std::max(place.top, place.bottom - above);
  return 0;
}

LRESULT TextBoxBinding::PaintAround() {
  RECT area, inside;
  GetWindowRect(Window(), &area);
  GetClientRect(Window(), &inside);
  MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
  OffsetRect(&inside, -area.left, -area.top);
  OffsetRect(&area, -area.left, -area.top);
  const HDC context = GetWindowDC(Window());
  ExcludeClipRect(context, inside.left, inside.top, inside.right, inside.bottom);
  FillArea(context, area, Back());
  FrameArea(context, area, GetFocus() == Window() ? context_.colors.accent : context_.colors.line);
  ReleaseDC(Window(), context);
  return 0;
}

std::optional<LRESULT> TextBoxBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCALCSIZE)
    return MakeRoom(wide != FALSE ? reinterpret_cast<NCCALCSIZE_PARAMS*>(longer)->rgrc[0]
                                  : *reinterpret_cast<RECT*>(longer));
  if (message == WM_NCPAINT) return PaintAround();
  if (message == WM_CHAR) return Type(wide, longer);
  if (message == WM_DESTROY && !spoken_.empty()) ClearAccessibleName(Window());
  const std::optional<LRESULT> done = FramedBinding::OnMessage(message, wide, longer);
  if (message == WM_SETFOCUS && !inFocus_) {
    inFocus_ = true;
    const LRESULT result = PassOn(message, wide, longer);
    ReadSelection();
    model_.GotFocus();
    return result;
  }
  if (message == WM_KILLFOCUS && IsChild(context_.window, reinterpret_cast<HWND>(wide)) != FALSE) {
    inFocus_ = false;
    listener_.OnBoxLeft(*this);
  }
  return done;
}

}  // namespace tavix::win32
