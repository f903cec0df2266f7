#include "window/win32/buttons.h"

#include <utility>

#include "forms/main_form.h"
#include "window/place.h"
#include "window/win32/accessible_name.h"
#include "window/win32/input.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

bool IsEnter(LPARAM lParam) {
  const auto* const message = reinterpret_cast<const MSG*>(lParam);
  return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

// The name says which page is the current one: it is seen by an outline alone.
ControlName PictureName(const PictureBox& model) {
  return {[&model] {
    const Text& name = model.ToolTipText.Get();
    return model.BorderStyle == 1 ? Concat(name, u", ", frmPubMain.sayCurrentPage) : name;
  }};
}

}  // namespace

void PushBinding::OnCommand(int code) {
  // The second of two quick presses arrives as BN_DOUBLECLICKED.
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) OnPress();
}

void PushBinding::SetHot(bool hot) {
  if (std::exchange(hot_, hot) == hot) return;
  Redraw();
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Window(), 0};
  if (hot) TrackMouseEvent(&track);
}

std::optional<LRESULT> PushBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return TRUE;
  if (message == WM_MOUSEMOVE || message == WM_MOUSELEAVE) SetHot(message == WM_MOUSEMOVE);
  if (message == WM_GETDLGCODE && IsEnter(lParam)) return DLGC_BUTTON | DLGC_WANTMESSAGE;
  if (message == WM_KEYDOWN && wParam == VK_RETURN) {
    // A key held down presses once: the press may have moved the focus to this button.
    if (!IsRepeated(lParam)) OnPress();
    return 0;
  }
  return WindowBinding::OnMessage(message, wParam, lParam);
}

void ButtonBinding::Paint(HDC canvas, const RECT& area, UINT state) {
  const ButtonLook look = LookOf(context_.colors, state, accented_, IsHot());
  DrawButtonFace(canvas, area, look, state, context_.Line());
  WriteCaption(canvas, model_.Caption.Get(), area, (accented_ ? context_.boldFont : context_.font).Get(),
               look.text, DT_CENTER, (state & ODS_NOACCEL) != 0);
}

LinkBinding::LinkBinding(Label& model, WindowContext& context, int id)
    : PushBinding(model, context, id, CaptionName(model.Caption)), model_(model) {
  SetLinkRole(Window());
}

void LinkBinding::Paint(HDC canvas, const RECT& area, UINT state) {
  RECT words = area;
  InflateRect(&words, -context_.Pixels(kLinkPadding), 0);
  FillArea(canvas, area, context_.colors.panel);
  WriteText(canvas, model_.Caption.Get(), words, context_.linkFont.Get(), context_.colors.link,
            DT_LEFT | DT_TOP | DT_SINGLELINE);
  if ((state & ODS_FOCUS) != 0) DrawOutline(canvas, area, context_.colors.link);
}

std::optional<LRESULT> LinkBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETCURSOR && LOWORD(lParam) == HTCLIENT) {
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    return TRUE;
  }
  if (message == WM_DESTROY) ClearLinkRole(Window());
  return PushBinding::OnMessage(message, wParam, lParam);
}

PictureBinding::PictureBinding(PictureBox& model, WindowContext& context, int id, COLORREF Palette::*back)
    : PushBinding(model, context, id, PictureName(model)), model_(model), back_(back) {}

void PictureBinding::Show() {
  if (context_.skin->Has(model_.Picture.Get())) picture_ = model_.Picture.Get();
  Redraw();
}

void PictureBinding::OnPress() {
  model_.MouseUp(kLeftButton);
  model_.Click();
}

std::optional<LRESULT> PictureBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_RBUTTONUP) model_.MouseUp(kRightButton);
  return message == WM_KEYDOWN || message == WM_KEYUP ? OnKey(message, wParam, lParam)
                                                      : PushBinding::OnMessage(message, wParam, lParam);
}

// A menu that a key opens pops up below the picture. The character of the key, which is on its way already,
// is not for the menu.
LRESULT PictureBinding::OnKey(UINT message, WPARAM wParam, LPARAM lParam) {
  RECT place;
  GetWindowRect(Window(), &place);
  const auto before = std::exchange(context_.menuCorner, POINT{place.left, place.bottom});
  MSG character;
  if (wParam == VK_RETURN) PeekMessageW(&character, Window(), WM_CHAR, WM_CHAR, PM_REMOVE);
  const std::optional<LRESULT> done = PushBinding::OnMessage(message, wParam, lParam);
  const LRESULT result = done ? *done : PassOn(message, wParam, lParam);
  context_.menuCorner = before;
  return result;
}

void PictureBinding::Paint(HDC canvas, const RECT& area, UINT state) {
  const COLORREF back = context_.colors.*back_;
  FillArea(canvas, area, back);
  context_.skin->Draw(canvas, {area.left, area.top}, picture_);
  RECT outline = area;
  const int line = context_.Line();
  if (model_.BorderStyle == 1) {
    for (int i = 0; i < 2 * line; ++i) {
      DrawOutline(canvas, outline, context_.colors.accent);
      InflateRect(&outline, -1, -1);
    }
    const RECT bar{area.left, area.top, area.left + 4 * line, area.bottom};
    FillArea(canvas, bar, context_.colors.accent);
  }
  if ((state & ODS_FOCUS) == 0) return;
  InflateRect(&outline, -line, -line);
  SetTextColor(canvas, context_.colors.text);
  SetBkColor(canvas, back);
  DrawFocusRect(canvas, &outline);
}

}  // namespace tavix::win32
