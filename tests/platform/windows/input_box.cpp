#include "platform/windows/input_box.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/dialogs.h"
#include "platform/windows/test_window.h"

namespace tavix::windows {
namespace {

// Looks at the box and acts on it once, in a timer on the dialog's thread.
struct Visit {
  Text caption;
  Text prompt;
  Text found;
  Text ok, cancel;
  LONG fontHeight = 0;
  const wchar_t* entered = nullptr;
  int button = IDCANCEL;
  bool made = false;
};
Visit* visit = nullptr;

Text TextOf(HWND window) {
  wchar_t text[256];
  return GetWindowTextW(window, text, 256) > 0 ? FromWide(text) : Text();
}

void CALLBACK Answer(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND box = FindWindowW(L"#32770", L"Tavix Test Box");
  if (box == nullptr) return;
  KillTimer(nullptr, timer);
  visit->made = true;
  visit->caption = TextOf(box);
  visit->prompt = TextOf(GetDlgItem(box, 100));
  visit->found = TextOf(GetDlgItem(box, 101));
  visit->ok = TextOf(GetDlgItem(box, IDOK));
  visit->cancel = TextOf(GetDlgItem(box, IDCANCEL));
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(box, WM_GETFONT, 0, 0)), sizeof font, &font);
  visit->fontHeight = font.lfHeight;
  if (visit->entered != nullptr) SetWindowTextW(GetDlgItem(box, 101), visit->entered);
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(visit->button), 0);
}

std::optional<Text> Show(Visit& one, TextView offered = u"") {
  visit = &one;
  SetTimer(nullptr, 0, 20, Answer);
  return ShowInputBox(nullptr, u"Tavix Test Box", u"Name && number,\nplease", offered);
}

class InputBoxOfWindows : public testing::Test {
 protected:
  void SetUp() override {
    if (!MakeWindow(u"window")) GTEST_SKIP() << "no display";
  }
};

TEST_F(InputBoxOfWindows, GivesWhatWasEntered) {
  Visit one;
  one.entered = L"  \u00C4 text ";
  one.button = IDOK;
  EXPECT_EQ(Show(one), u"  \u00C4 text ");
  EXPECT_TRUE(one.made);
  EXPECT_EQ(one.caption, u"Tavix Test Box");
  EXPECT_EQ(one.prompt, u"Name && number,\nplease");
}

TEST_F(InputBoxOfWindows, GivesAnEmptyTextForOkAlone) {
  Visit one;
  one.button = IDOK;
  EXPECT_EQ(Show(one), u"");
}

TEST_F(InputBoxOfWindows, BeginsWithWhatIsOffered) {
  Visit one;
  one.button = IDOK;
  EXPECT_EQ(Show(one, u"*.doc & more"), u"*.doc & more");
  EXPECT_EQ(one.found, u"*.doc & more");
}

TEST_F(InputBoxOfWindows, GivesNothingWhenCancelled) {
  Visit one;
  one.entered = L"text";
  EXPECT_EQ(Show(one), std::nullopt);
  EXPECT_TRUE(one.made);
}

TEST_F(InputBoxOfWindows, ItsButtonsHaveTheProgramsWordsOrElseEnglishOnes) {
  Visit english;
  Show(english);
  EXPECT_EQ(english.ok, u"OK");
  EXPECT_EQ(english.cancel, u"Cancel");
  platform::buttonWord = [](int answer) { return Text(answer == platform::kOk ? u"Gut" : u"Abbrechen"); };
  Visit german;
  Show(german);
  platform::buttonWord = nullptr;
  EXPECT_EQ(german.ok, u"Gut");
  EXPECT_EQ(german.cancel, u"Abbrechen");
}

TEST_F(InputBoxOfWindows, HasTheFontOfTheSystemsMessages) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  ASSERT_NE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0), FALSE);
  const LONG usual = metrics.lfMessageFont.lfHeight;
  metrics.lfMessageFont.lfHeight = -24;
  ASSERT_NE(SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0), FALSE);
  Visit large;
  Show(large);
  metrics.lfMessageFont.lfHeight = usual;
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  EXPECT_EQ(large.fontHeight, -24);
}

}  // namespace
}  // namespace tavix::windows
