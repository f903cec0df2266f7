#include "window/win32/label_letters.h"

#include "platform/windows/wide.h"
#include "text/letter_case.h"
#include "window/caption.h"

namespace tavix::win32 {
namespace {

LRESULT DialogCode(HWND control) { return SendMessageW(control, WM_GETDLGCODE, 0, 0); }

bool IsPressedLetter(const MSG& message) {
  if (message.message == WM_SYSCHAR) return true;
  return message.message == WM_CHAR && message.wParam > VK_SPACE &&
         (DialogCode(message.hwnd) & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) == 0;
}

// Labels that show ampersands as they are mark no letter.
bool MarksLetters(HWND control) {
  return IsWindowVisible(control) != FALSE && (DialogCode(control) & DLGC_STATIC) != 0 &&
         (GetWindowLongPtrW(control, GWL_STYLE) & SS_NOPREFIX) == 0;
}

Text CaptionOf(HWND control) {
  Text caption(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, u'\0');
  caption.resize(static_cast<size_t>(
      GetWindowTextW(control, windows::WideBuffer(caption.data()), static_cast<int>(caption.size()))));
  return caption;
}

}  // namespace

bool FollowLabelLetter(HWND window, const MSG& message) {
  if (!IsPressedLetter(message)) return false;
  const auto pressed = ToUpper(static_cast<char16_t>(message.wParam));
  for (HWND label = GetWindow(window, GW_CHILD); label != nullptr; label = GetWindow(label, GW_HWNDNEXT)) {
    if (!MarksLetters(label) || MarkedLetter(CaptionOf(label)) != pressed) continue;
    const HWND named = GetNextDlgTabItem(window, label, FALSE);
    if (named == nullptr) return false;
    SetFocus(named);
    if ((DialogCode(named) & DLGC_HASSETSEL) != 0) SendMessageW(named, EM_SETSEL, 0, -1);
    return true;
  }
  return false;
}

}  // namespace tavix::win32
