#include "platform/windows/windows_dialogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/windows/test_window.h"

namespace tavix::windows {
namespace {

// The owner of the message box shown last, and its buttons from left to right. The box is closed at once.
HWND owner = nullptr;
bool shown = false;
struct ButtonSeen {
  Text word;
  RECT place{};
};
std::vector<ButtonSeen> buttons;
LONG widestWord = 0;
int pressed = IDOK;

BOOL CALLBACK NoteButton(HWND control, LPARAM) {
  wchar_t text[64];
  if (GetClassNameW(control, text, 64) <= 0 || FromWide(text) != u"Button") return TRUE;
  ButtonSeen seen;
  if (GetWindowTextW(control, text, 64) > 0) seen.word = FromWide(text);
  GetWindowRect(control, &seen.place);
  const HDC context = GetDC(control);
  const HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
  RECT room{};
  DrawTextW(context, text, -1, &room, DT_CALCRECT | DT_SINGLELINE);
  widestWord = std::max(widestWord, room.right);
  SelectObject(context, before);
  ReleaseDC(control, context);
  buttons.push_back(seen);
  return TRUE;
}

void CALLBACK LookAndClose(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND box = FindWindowW(L"#32770", L"Tavix");
  if (box == nullptr) return;
  KillTimer(nullptr, timer);
  shown = true;
  owner = GetWindow(box, GW_OWNER);
  EnumChildWindows(box, NoteButton, 0);
  std::ranges::sort(buttons, {}, [](const ButtonSeen& button) { return button.place.left; });
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(pressed), 0);
}

class DialogsOfWindows : public testing::Test {
 protected:
  void SetUp() override {
    if (!MakeWindow(u"window")) GTEST_SKIP() << "no display";
    owner = nullptr;
    shown = false;
    buttons.clear();
    widestWord = 0;
    pressed = IDOK;
  }
  void TearDown() override { platform::buttonWord = nullptr; }
  // The words on the buttons of a box of a style, from left to right.
  std::vector<Text> WordsOf(int style, int answer) {
    buttons.clear();
    pressed = answer;
    SetTimer(nullptr, 0, 20, LookAndClose);
    EXPECT_EQ(dialogs.MsgBox(u"A text of some length, so that the box has room", style), answer);
    std::vector<Text> words;
    for (const ButtonSeen& button : buttons) words.push_back(button.word);
    return words;
  }
  void ShowBox() {
    SetTimer(nullptr, 0, 20, LookAndClose);
    EXPECT_EQ(dialogs.MsgBox(u"text", platform::kInformation), platform::kOk);
    EXPECT_TRUE(shown);
  }
  WindowsDialogs dialogs;
};

TEST_F(DialogsOfWindows, AMessageBoxBelongsToTheWindowAlsoWhileNoneOfOursIsActive) {
  const OwnedWindow window = MakeWindow(u"not active");
  ShowWindow(window.Get(), SW_SHOWNOACTIVATE);
  ASSERT_EQ(GetActiveWindow(), nullptr);
  ShowBox();
  EXPECT_EQ(owner, window.Get());
}

TEST_F(DialogsOfWindows, AMessageBoxBelongsToTheActiveWindow) {
  const OwnedWindow other = MakeWindow(u"other"), active = MakeWindow(u"active");
  ShowWindow(other.Get(), SW_SHOWNOACTIVATE);
  ShowWindow(active.Get(), SW_SHOW);
  SetActiveWindow(active.Get());
  ASSERT_EQ(GetActiveWindow(), active.Get());
  ShowBox();
  EXPECT_EQ(owner, active.Get());
}

TEST_F(DialogsOfWindows, BeforeAnyWindowIsShownAMessageBoxStandsAlone) {
  const OwnedWindow hidden = MakeWindow(u"hidden");
  ShowBox();
  EXPECT_NE(owner, hidden.Get());
}

Text German(int answer) {
  switch (answer) {
    case platform::kOk:
      return u"In Ordnung";
    case platform::kCancel:
      return u"Abbrechen und alles so lassen";
    case platform::kYes:
      return u"&Ja";
    case platform::kNo:
      return u"&Nein";
    default:
      return {};
  }
}

TEST_F(DialogsOfWindows, TheButtonsOfAMessageBoxHaveTheProgramsWords) {
  platform::buttonWord = German;
  using Words = std::vector<Text>;
  const Text ok = German(platform::kOk), cancel = German(platform::kCancel);
  EXPECT_EQ(WordsOf(platform::kInformation, IDOK), Words{ok});
  EXPECT_EQ(WordsOf(0, IDOK), Words{ok});
  EXPECT_EQ(WordsOf(platform::kYesNo | platform::kInformation, IDNO), (Words{u"&Ja", u"&Nein"}));
  EXPECT_EQ(WordsOf(platform::kOkCancel | platform::kQuestion, IDOK), (Words{ok, cancel}));
  EXPECT_EQ(WordsOf(platform::kYesNoCancel | platform::kQuestion, IDCANCEL),
            (Words{u"&Ja", u"&Nein", cancel}));
}

TEST_F(DialogsOfWindows, LongWordsHaveRoomOnTheirButtons) {
  platform::buttonWord = German;
  WordsOf(platform::kYesNoCancel | platform::kQuestion, IDYES);
  ASSERT_EQ(buttons.size(), 3U);
  for (size_t i = 0; i < buttons.size(); ++i) {
    EXPECT_GT(buttons[i].place.right - buttons[i].place.left, widestWord) << i;
    EXPECT_GE(buttons[i].place.left, i == 0 ? 0 : buttons[i - 1].place.right) << i;
  }
}

TEST_F(DialogsOfWindows, WithoutWordsTheButtonsHaveThoseOfTheSystem) {
  const std::vector<Text> plain = WordsOf(platform::kYesNo, IDYES);
  ASSERT_EQ(plain.size(), 2U);
  platform::buttonWord = [](int) { return Text(); };
  EXPECT_EQ(WordsOf(platform::kYesNo, IDYES), plain);
}

}  // namespace
}  // namespace tavix::windows
