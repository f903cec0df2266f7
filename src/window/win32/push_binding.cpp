#include "window/win32/push_binding.h"

#include "window/win32/paint.h"
#include "window/win32/palette.h"

namespace tavix::win32 {
namespace {

bool IsEnter(LPARAM longer) {
  const auto* const message = reinterpret_cast<const MSG*>(longer);
  return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

constexpr UINT kOneLineCentred = DT_CENTER | DT_VCENTER | DT_SINGLELINE;

}  // namespace

void PushBinding::OnCommand(int code) {
  // The second of two quick presses comes as the other code.
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) OnPress();
}

std::optional<LRESULT> PushBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_GETDLGCODE && IsEnter(longer)) return DLGC_BUTTON | DLGC_WANTMESSAGE;
  if (message == WM_KEYDOWN && wide == VK_RETURN) {
    OnPress();
    return 0;
  }
  return WindowBinding::OnMessage(message, wide, longer);
}

void ButtonBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  const ButtonLook look = LookOf(draw.itemState, accented_);
  DrawButtonFace(draw.hDC, draw.rcItem, look, draw.itemState);
  WriteText(draw.hDC, model_.Caption.Get(), draw.rcItem,
            (accented_ ? context_.boldFont : context_.font).Get(), look.text, kOneLineCentred);
}

void LinkBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  FillArea(draw.hDC, draw.rcItem, kPanelColor);
  WriteText(draw.hDC, model_.Caption.Get(), draw.rcItem, context_.linkFont.Get(), kLinkColor,
            DT_LEFT | DT_TOP | DT_SINGLELINE);
  if ((draw.itemState & ODS_FOCUS) != 0) DrawFocusRect(draw.hDC, &draw.rcItem);
}

PictureBinding::PictureBinding(PictureBox& model, WindowContext& context, int id, TextView name,
                               TextView sign, bool onTitle)
    : PushBinding(model, context, id), model_(model), name_(name), sign_(sign), onTitle_(onTitle) {}

std::optional<LRESULT> PictureBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_RBUTTONUP) model_.MouseUp(kRightButton);
  return PushBinding::OnMessage(message, wide, longer);
}

void PictureBinding::Show() {
  SetName(model_.AccessibleName.Get().empty() ? name_ : model_.AccessibleName.Get());
  InvalidateRect(Window(), nullptr, FALSE);
}

void PictureBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  RECT area = draw.rcItem;
  if (onTitle_) {
    const bool pressed = (draw.itemState & ODS_SELECTED) != 0;
    DrawButtonFace(draw.hDC, area, {pressed ? kAccentDarkColor : kTitleColor, kAccentColor, kTitleTextColor},
                   draw.itemState);
    WriteText(draw.hDC, sign_, area, context_.boldFont.Get(), kTitleTextColor, kOneLineCentred);
    return;
  }
  const ButtonLook look = LookOf(draw.itemState, model_.BorderStyle == 1);
  DrawButtonFace(draw.hDC, area, look, draw.itemState);
  area.bottom -= context_.Pixels(300);
  WriteText(draw.hDC, sign_, area, context_.largeFont.Get(),
            model_.BorderStyle == 1 ? look.text : kAccentColor, kOneLineCentred);
  area = {draw.rcItem.left, area.bottom - context_.Pixels(60), draw.rcItem.right, draw.rcItem.bottom};
  WriteText(draw.hDC, name_, area, context_.font.Get(), look.text, DT_CENTER | DT_TOP | DT_SINGLELINE);
}

}  // namespace tavix::win32
