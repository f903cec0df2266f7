#include "window/input.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/main_form.h"
#include "forms/options_form.h"
#include "forms/type_form.h"
#include "platform/machine/services/machine_desktop.h"
#include "support/program_test.h"

namespace tavix {
namespace {

using mdlPubSelf::Form_KeyDown;
using Calls = std::vector<std::string>;

// Records the name of each event that a key raises.
class FormKeyDown : public testing::Test {
 protected:
  void SetUp() override {
    MainForm& f = frmPubMain;
    f.sbtScan.Click = Note("Scan");
    f.sbtClean.Click = Note("Clean");
    f.sbtCancel.Click = Note("Cancel");
    f.Unload = Note("Unload");
    frmPubType.menhh.Click = Note("Help");
    const std::array<const char*, 6> names = {"Privacy", "System", "Registry", "Advanced", "Options", "One"};
    const auto pages = f.PagePictures();
    for (size_t i = 0; i < pages.size(); ++i) {
      pages[i]->MouseUp = [this, name = names[i]](int button) {
        calls.push_back(name + std::string(button == kLeftButton ? "" : " by another button"));
      };
    }
    for (size_t i = 0; i < f.sbtToolbar.size(); ++i) f.sbtToolbar[i].Click = Note("Tool" + std::to_string(i));
  }
  void TearDown() override {
    MainForm& f = frmPubMain;
    f.sbtScan.Click = f.sbtClean.Click = f.sbtCancel.Click = f.Unload = nullptr;
    for (PictureBox* page : f.PagePictures()) page->MouseUp = nullptr;
    for (Button& tool : f.sbtToolbar) tool.Click = nullptr;
    f.sbtCancel.Visible = false;
    frmPubType.menhh.Click = nullptr;
  }
  std::function<void()> Note(std::string name) {
    return [this, name = std::move(name)] { calls.push_back(name); };
  }
  Calls Press(int keyCode, int shift) {
    calls.clear();
    Form_KeyDown(keyCode, shift);
    return calls;
  }

  Calls calls;
};

TEST_F(FormKeyDown, AKeyIsACommandInItsShiftStateAlone) {
  using mdlPubSelf::IsCommandKey;
  for (const char key : {'P', 'S', 'R', 'A', 'O', '1'}) {
    EXPECT_TRUE(IsCommandKey(key, 0)) << key;
    EXPECT_FALSE(IsCommandKey(key, kShift)) << key;
  }
  EXPECT_FALSE(IsCommandKey('C', 0));
  EXPECT_FALSE(IsCommandKey('2', 0));
  EXPECT_TRUE(IsCommandKey('I', kCtrl));
}

TEST_F(FormKeyDown, RunsTheCommandOfEachKeyAndNothingForAnyOtherShiftState) {
  const struct {
    int key, shift;
    const char* call;
  } cases[] = {
      {0x70, 0, "Help"},     {0x72, 0, "Scan"},     {0x74, 0, "Clean"},    {0x73, kAlt, "Unload"},
      {'P', 0, "Privacy"},   {'S', 0, "System"},    {'R', 0, "Registry"},  {'A', 0, "Advanced"},
      {'O', 0, "Options"},   {'1', 0, "One"},       {'X', kCtrl, "Tool0"}, {'O', kCtrl, "Tool1"},
      {'P', kCtrl, "Tool2"}, {'I', kCtrl, "Tool3"},
  };
  for (int key = 0; key < 256; ++key) {
    for (int shift = 0; shift < 8; ++shift) {
      Calls expected;
      for (const auto& c : cases) {
        if (c.key == key && c.shift == shift) expected.push_back(c.call);
      }
      EXPECT_EQ(Press(key, shift), expected) << "key " << key << " shift " << shift;
    }
  }
}

TEST_F(FormKeyDown, CancelsOnlyWhileCancelIsVisible) {
  EXPECT_EQ(Press(0x1B, 0), Calls{});
  frmPubMain.sbtCancel.Visible = true;
  EXPECT_EQ(Press(0x1B, 0), Calls{"Cancel"});
  EXPECT_EQ(Press(0x1B, kShift), Calls{});
}

TEST_F(FormKeyDown, DoesNotLookWhetherTheButtonIsEnabledOrVisible) {
  frmPubMain.sbtScan.Visible = false;
  frmPubMain.sbtClean.Enabled = false;
  EXPECT_EQ(Press(0x72, 0), Calls{"Scan"});
  EXPECT_EQ(Press(0x74, 0), Calls{"Clean"});
  frmPubMain.sbtScan.Visible = true;
  frmPubMain.sbtClean.Enabled = true;
}

class Mouse : public ProgramTest {
 protected:
  void SetUp() override {
    Start();
    frmPubMain.hWnd = 77;
  }
  std::vector<Event<int>*> Handles() {
    MainForm& f = frmPubMain;
    return {&f.lblBorder.MouseMove, &f.lblFrame.MouseMove,   &f.picTitle.MouseMove,
            &f.lst.MouseMove,       &f.trvPrivacy.MouseMove, &f.trvRes.MouseMove};
  }
};

TEST_F(Mouse, TheLeftButtonDragsTheWindowByEachOfSixPlaces) {
  for (Event<int>* handle : Handles()) {
    machine.desktop.messages.clear();
    machine.desktop.captureReleases = 0;
    (*handle)(kLeftButton);
    EXPECT_EQ(machine.desktop.captureReleases, 1);
    ASSERT_EQ(machine.desktop.messages.size(), 1U);
    EXPECT_EQ(machine.desktop.messages[0], (machine::MachineDesktop::Message{77, 161, 2, 0, false}));
  }
}

TEST_F(Mouse, NoOtherButtonDoes) {
  for (Event<int>* handle : Handles()) {
    (*handle)(0);
    (*handle)(kRightButton);
  }
  EXPECT_EQ(machine.desktop.captureReleases, 0);
  EXPECT_TRUE(machine.desktop.messages.empty());
}

TEST_F(Mouse, NoOtherControlMovesTheWindow) {
  MainForm& f = frmPubMain;
  f.lsvResult.MouseMove(kLeftButton);
  f.lblProgS.MouseMove(kLeftButton);
  for (PictureBox* page : f.PagePictures()) page->MouseMove(kLeftButton);
  EXPECT_TRUE(machine.desktop.messages.empty());
}

TEST_F(Mouse, TitleButtonsActOnTheLeftButtonOnly) {
  std::string calls;
  frmPubMain.Minimize = [&] { calls += "minimise "; };
  frmPubMain.Unload = [&] { calls += "unload "; };
  for (const int button : {kRightButton, kLeftButton}) {
    frmPubMain.picMini.MouseUp(button);
    frmPubMain.picClose.MouseUp(button);
  }
  EXPECT_EQ(calls, "minimise unload ");
}

class OptionsIcon : public ProgramTest {
 protected:
  void SetUp() override {
    Start();
    frmPubOptions.ShowModal = [this] {
      ++shown;
      page = frmPubOptions.piPage;
      whileOpen = Marks();
      if (meanwhile) meanwhile();
    };
  }
  // BorderStyle of the page pictures, from top to bottom.
  static std::vector<int> Marks() {
    std::vector<int> marks;
    for (const PictureBox* picture : frmPubMain.PagePictures()) marks.push_back(picture->BorderStyle);
    return marks;
  }

  int shown = 0, page = 0;
  std::vector<int> whileOpen;
  std::function<void()> meanwhile;
};

TEST_F(OptionsIcon, ShowsTheFirstPageOfTheOptionsWindow) {
  frmPubOptions.piPage = 3;
  frmPubMain.picOpt.MouseMove(0);
  frmPubMain.picOpt.MouseUp(kLeftButton);
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(page, 1);
  EXPECT_EQ(whileOpen, (std::vector{0, 0, 0, 0, 1, 0}));
  EXPECT_EQ(frmPubMain.picOpt.Picture.Get(), u"OPT_STTC");
}

TEST_F(OptionsIcon, MarksThePageInUseAgainAfterwards) {
  MainForm& f = frmPubMain;
  for (size_t i = 0; i < 4; ++i) {
    f.PagePictures()[i]->MouseUp(kLeftButton);
    f.picOpt.MouseUp(kLeftButton);
    std::vector<int> expected(6, 0);
    expected[i] = 1;
    EXPECT_EQ(Marks(), expected) << i;
  }
}

TEST_F(OptionsIcon, DoesNothingWhileTheWindowIsOpen) {
  meanwhile = [] { frmPubMain.picOpt.MouseUp(kLeftButton); };
  frmPubMain.picOpt.MouseUp(kLeftButton);
  EXPECT_EQ(shown, 1);
}

TEST_F(OptionsIcon, OtherButtonsDoNothing) {
  frmPubMain.picOpt.MouseUp(kRightButton);
  EXPECT_EQ(shown, 0);
  EXPECT_EQ(Marks(), (std::vector{1, 0, 0, 0, 0, 0}));
}

TEST_F(OptionsIcon, WithoutAWindowThePageInUseIsMarkedAtOnce) {
  frmPubOptions.ShowModal = nullptr;
  frmPubMain.picOpt.MouseUp(kLeftButton);
  EXPECT_EQ(Marks(), (std::vector{1, 0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace tavix
