#include "platform/windows/input_box.h"

#include <cstring>
#include <vector>

#include "platform/dialogs.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide.h"

namespace tavix::windows {
namespace {

constexpr WORD kPromptId = 100;
constexpr WORD kFieldId = 101;

// The numbers of control classes in a dialog template.
constexpr WORD kButton = 0x80;
constexpr WORD kEdit = 0x81;
constexpr WORD kStatic = 0x82;

// In dialog units, which grow with the font.
struct Area {
  short x, y, width, height;
};
constexpr Area kDialog = {0, 0, 260, 96};
constexpr Area kPrompt = {7, 7, 246, 44};
constexpr Area kField = {7, 54, 246, 14};
constexpr Area kOkButton = {149, 75, 50, 14};
constexpr Area kCancelButton = {203, 75, 50, 14};

// A font as a dialog template names it.
struct DialogFont {
  Text face = u"MS Shell Dlg";
  WORD points = 8;
};

// The font of the system's messages.
DialogFont MessageFont() {
  constexpr int kPointsPerInch = 72;
  DialogFont font;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) == FALSE) return font;
  const LONG height = metrics.lfMessageFont.lfHeight;
  const int dpi = GetDeviceCaps(ScreenContext(GetDC(nullptr)).Get(), LOGPIXELSY);
  font.face = FromWide(metrics.lfMessageFont.lfFaceName);
  font.points = static_cast<WORD>(MulDiv(height < 0 ? -height : height, kPointsPerInch, dpi));
  return font;
}

Text ButtonWord(int answer, TextView builtIn) {
  const Text word = platform::buttonWord ? platform::buttonWord(answer) : Text();
  return word.empty() ? Text(builtIn) : word;
}

// A dialog template built in memory.
class Template {
 public:
  Template(TextView caption, WORD controls, const DialogFont& font) {
    Align();
    const DLGTEMPLATE head = {DS_MODALFRAME | DS_CENTER | DS_SHELLFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU,
                              0,
                              controls,
                              kDialog.x,
                              kDialog.y,
                              kDialog.width,
                              kDialog.height};
    Put(&head, sizeof(head));
    PutWord(0);  // no menu
    PutWord(0);  // the default window class
    PutText(caption);
    PutWord(font.points);
    PutText(font.face);
  }

  void Add(WORD controlClass, WORD id, const Area& area, DWORD style, TextView text) {
    Align();
    const DLGITEMTEMPLATE item = {
        WS_CHILD | WS_VISIBLE | style, 0, area.x, area.y, area.width, area.height, id};
    Put(&item, sizeof(item));
    PutWord(0xFFFF);
    PutWord(controlClass);
    PutText(text);
    PutWord(0);  // no creation data
  }

  const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  void Align() {
    if (words_.size() % 2 != 0) words_.push_back(0);
  }
  void Put(const void* data, size_t size) {
    const size_t start = words_.size();
    words_.resize(start + size / sizeof(WORD));
    std::memcpy(words_.data() + start, data, size);
  }
  void PutWord(WORD word) { words_.push_back(word); }
  void PutText(TextView text) {
    const TextView whole = text.substr(0, text.find(u'\0'));
    words_.insert(words_.end(), whole.begin(), whole.end());
    words_.push_back(0);
  }

  std::vector<WORD> words_;
};

void ReadField(HWND dialog, Text& answer) {
  const HWND field = GetDlgItem(dialog, kFieldId);
  answer.resize(static_cast<size_t>(GetWindowTextLengthW(field)) + 1);
  const int length = GetWindowTextW(field, WideBuffer(answer.data()), static_cast<int>(answer.size()));
  answer.resize(static_cast<size_t>(length));
}

INT_PTR CALLBACK Handle(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    return TRUE;
  }
  if (message != WM_COMMAND) return FALSE;
  if (LOWORD(wParam) == IDOK)
    ReadField(dialog, *reinterpret_cast<Text*>(GetWindowLongPtrW(dialog, DWLP_USER)));
  if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(dialog, LOWORD(wParam));
  return TRUE;
}

}  // namespace

std::optional<Text> ShowInputBox(HWND owner, TextView caption, TextView prompt, TextView offered) {
  Template box(caption, 4, MessageFont());
  box.Add(kStatic, kPromptId, kPrompt, SS_LEFT | SS_NOPREFIX, prompt);
  box.Add(kEdit, kFieldId, kField, WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, offered);
  box.Add(kButton, IDOK, kOkButton, BS_DEFPUSHBUTTON | WS_TABSTOP, ButtonWord(platform::kOk, u"OK"));
  box.Add(kButton, IDCANCEL, kCancelButton, BS_PUSHBUTTON | WS_TABSTOP,
          ButtonWord(platform::kCancel, u"Cancel"));
  Text answer;
  const INT_PTR pressed = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), box.Get(), owner, Handle,
                                                  reinterpret_cast<LPARAM>(&answer));
  if (pressed != IDOK) return std::nullopt;
  return answer;
}

}  // namespace tavix::windows
