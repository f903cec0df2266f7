#include "window/layout.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/screen.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix {
namespace {

using Controls = std::map<std::string, Control*>;

Controls PlacedControls() {
  MainForm& f = frmPubMain;
  return {
      {"picTitle", &f.picTitle},
      {"picMini", &f.picMini},
      {"picClose", &f.picClose},
      {"picHelp", &f.picHelp},
      {"picCommend", &f.picCommend},
      {"lblVer", &f.lblVer},
      {"lblCompLogo", &f.lblCompLogo},
      {"lblProdLogo", &f.lblProdLogo},
      {"picPrivacy", &f.picPrivacy},
      {"picSystem", &f.picSystem},
      {"picRegistry", &f.picRegistry},
      {"picAdv", &f.picAdv},
      {"picOpt", &f.picOpt},
      {"picOne", &f.picOne},
      {"lst", &f.lst},
      {"trvPrivacy", &f.trvPrivacy},
      {"trvRes", &f.trvRes},
      {"cbxAll", &f.cbxAll},
      {"lsvResult", &f.lsvResult},
      {"sbtToolbar0", &f.sbtToolbar[0]},
      {"sbtToolbar1", &f.sbtToolbar[1]},
      {"sbtToolbar2", &f.sbtToolbar[2]},
      {"sbtToolbar3", &f.sbtToolbar[3]},
      {"lblFrame", &f.lblFrame},
      {"lblBorder", &f.lblBorder},
      {"lblProgS", &f.lblProgS},
      {"lblOpt", &f.lblOpt},
      {"lblOptPrompt", &f.lblOptPrompt},
      {"lblProgMO", &f.lblProgMO},
      {"lblTimeP", &f.lblTimeP},
      {"lblTime", &f.lblTime},
      {"lblSum", &f.lblSum},
      {"webGIF", &f.webGIF},
      {"sbtScan", &f.sbtScan},
      {"sbtCancel", &f.sbtCancel},
      {"sbtClean", &f.sbtClean},
      {"sbtRepair", &f.sbtRepair},
  };
}

// Controls that may overlap: backgrounds, pairs that share a place, and the scope tree over the free part of
// the function list.
bool MayOverlap(const std::string& a, const std::string& b) {
  static const std::set<std::pair<std::string, std::string>> pairs = {
      {"lst", "trvPrivacy"},    {"lst", "trvRes"},         {"trvPrivacy", "trvRes"},
      {"sbtCancel", "sbtScan"}, {"sbtClean", "sbtRepair"},
  };
  static const std::set<std::string> onTitle = {"lblCompLogo", "lblProdLogo", "lblVer", "picClose",
                                                "picCommend",  "picHelp",     "picMini"};
  static const std::set<std::string> onFrame = {"lblProgS", "lblOpt",    "lblOptPrompt", "lblProgMO",
                                                "lblTimeP", "lblTime",   "lblSum",       "webGIF",
                                                "sbtScan",  "sbtCancel", "sbtClean",     "sbtRepair"};
  if (a == "lblBorder" || b == "lblBorder") return true;
  if (a == "picTitle" || b == "picTitle") return onTitle.contains(a) || onTitle.contains(b);
  if (a == "lblFrame" || b == "lblFrame") return onFrame.contains(a) || onFrame.contains(b);
  return pairs.contains({a, b});
}

bool Overlap(const Control& a, const Control& b) {
  return a.Left < b.Left + b.Width && b.Left < a.Left + a.Width && a.Top < b.Top + b.Height &&
         b.Top < a.Top + a.Height;
}

bool Within(const Control& inner, int left, int top, int width, int height) {
  return inner.Left >= left && inner.Top >= top && inner.Left + inner.Width <= left + width &&
         inner.Top + inner.Height <= top + height;
}

class LayOut : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    platform::screen = {};
    frmPubMain.BigInterface = GetParam();
    LayOutMainForm();
  }
  void TearDown() override {
    platform::screen = {};
    frmPubMain.BigInterface = false;
  }
  bool Big() const { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(BothSizes, LayOut, testing::Bool(),
                         [](const auto& size) { return size.param ? "Big" : "Small"; });

TEST_P(LayOut, WindowHasItsSizeAndIsCentered) {
  EXPECT_EQ(frmPubMain.Width, Big() ? 14895 : 11529);
  EXPECT_EQ(frmPubMain.Height, Big() ? 11175 : 8650);
  EXPECT_EQ(frmPubMain.Left, (1024 * 15 - frmPubMain.Width) / 2);
  EXPECT_EQ(frmPubMain.Top, Big() ? 100 : (768 * 15 - 8650) / 2 - 200);
}

TEST_P(LayOut, TitleButtonsAreWhereTheTitlePictureShowsThem) {
  EXPECT_EQ(frmPubMain.picMini.Left, Big() ? 14250 : 10905);
  EXPECT_EQ(frmPubMain.picMini.Top, 30);
  EXPECT_EQ(frmPubMain.picClose.Left, Big() ? 14550 : 11205);
  EXPECT_EQ(frmPubMain.picClose.Top, 30);
}

TEST_P(LayOut, PageIconsFormAColumn) {
  const auto pages = frmPubMain.PagePictures();
  EXPECT_EQ(pages[0], &frmPubMain.picPrivacy);
  for (size_t i = 0; i < pages.size(); ++i) {
    EXPECT_EQ(pages[i]->Left, 140);
    const int under = i == 0 ? 1230 : pages[i - 1]->Top + pages[i - 1]->Height + 90;
    EXPECT_EQ(pages[i]->Top, under);
  }
}

TEST_P(LayOut, FunctionListsAreRightOfTheIcons) {
  const MainForm& f = frmPubMain;
  EXPECT_EQ(f.trvPrivacy.Left, f.picPrivacy.Left + f.picPrivacy.Width + 90);
  EXPECT_EQ(f.trvPrivacy.Top, f.picPrivacy.Top);
  EXPECT_EQ(f.trvPrivacy.Width, 2860);
  EXPECT_EQ(f.trvPrivacy.Height, Big() ? 6810 : 4150);
  EXPECT_EQ(f.lst.Left, f.trvPrivacy.Left);
  EXPECT_EQ(f.lst.Top, f.trvPrivacy.Top);
  EXPECT_EQ(f.lst.Width, f.trvPrivacy.Width);
  EXPECT_EQ(f.lst.Height, f.trvPrivacy.Height);
}

TEST_P(LayOut, ResultListFillsTheRestOfTheWidth) {
  const MainForm& f = frmPubMain;
  EXPECT_EQ(f.lsvResult.Left, f.trvPrivacy.Left + f.trvPrivacy.Width + 90);
  EXPECT_EQ(f.lsvResult.Left + f.lsvResult.Width, f.Width - 140);
}

TEST_P(LayOut, ButtonsThatReplaceEachOtherShareAPlace) {
  const auto place = [](const Control& of) {
    return std::array{of.Left.Get(), of.Top.Get(), of.Width.Get(), of.Height.Get()};
  };
  EXPECT_EQ(place(frmPubMain.sbtScan), place(frmPubMain.sbtCancel));
  EXPECT_EQ(place(frmPubMain.sbtClean), place(frmPubMain.sbtRepair));
}

TEST_P(LayOut, ProgressBarStartsEmptyInItsFrame) {
  const MainForm& f = frmPubMain;
  EXPECT_GT(f.lblProgMO.Width, 0);
  EXPECT_EQ(f.lblProgMI.Width, 0);
  EXPECT_EQ(f.lblProgMI.Left, f.lblProgMO.Left);
  EXPECT_EQ(f.lblProgMI.Top, f.lblProgMO.Top);
  EXPECT_EQ(f.lblProgMI.Height, f.lblProgMO.Height);
}

TEST_P(LayOut, BusyPageIsBesideTheScanButton) {
  const MainForm& f = frmPubMain;
  EXPECT_EQ(f.webGIF.Width, 700);
  EXPECT_EQ(f.webGIF.Height, 700);
  EXPECT_EQ(f.webGIF.Left, 3300);
  EXPECT_EQ(f.webGIF.Top, f.sbtScan.Top - 50);
}

TEST_P(LayOut, EveryControlIsInsideTheWindow) {
  for (const auto& [name, control] : PlacedControls()) {
    EXPECT_GT(control->Width, 0) << name;
    EXPECT_GT(control->Height, 0) << name;
    EXPECT_TRUE(Within(*control, 0, 0, frmPubMain.Width, frmPubMain.Height)) << name;
  }
}

TEST_P(LayOut, PanelHoldsTheControlsOfTheJob) {
  MainForm& f = frmPubMain;
  const Label& frame = f.lblFrame;
  for (const Control* control : std::initializer_list<const Control*>{
           &f.lblProgS, &f.lblOpt, &f.lblOptPrompt, &f.lblProgMO, &f.lblTimeP, &f.lblTime, &f.lblSum,
           &f.webGIF, &f.sbtScan, &f.sbtClean}) {
    EXPECT_TRUE(Within(*control, frame.Left, frame.Top, frame.Width, frame.Height))
        << Case(control->Left.Get()) << Case(control->Top.Get());
  }
}

TEST_P(LayOut, NothingOverlapsThatShouldNot) {
  const Controls controls = PlacedControls();
  for (auto a = controls.begin(); a != controls.end(); ++a) {
    for (auto b = std::next(a); b != controls.end(); ++b) {
      if (!MayOverlap(a->first, b->first)) {
        EXPECT_FALSE(Overlap(*a->second, *b->second)) << a->first << " and " << b->first;
      }
    }
  }
}

TEST(LayOutOnAnotherScreen, IsCentered) {
  platform::screen = {1920, 1080};
  LayOutMainForm();
  EXPECT_EQ(frmPubMain.Left, (1920 * 15 - 11529) / 2);
  EXPECT_EQ(frmPubMain.Top, (1080 * 15 - 8650) / 2 - 200);
  platform::screen = {};
}

TEST(InterfaceSize, FollowsTheSettingAndTheScreen) {
  const struct {
    TextView setting;
    int width, height;
    bool big;
  } table[] = {{u"Auto", 1024, 768, true},  {u"Auto", 1023, 768, false},  {u"Auto", 800, 600, false},
               {u"Big", 800, 600, true},    {u"Small", 4000, 768, false}, {u"", 4000, 768, false},
               {u"big", 4000, 768, false},  {u"AUTO", 4000, 768, false},  {u"Auto", 1280, 720, false},
               {u"Auto", 1024, 744, false}, {u"Auto", 1024, 745, true},   {u"Big", 1280, 720, true},
               {u"Auto", 1920, 1040, true}};
  for (const auto& row : table) {
    mdlPubSelf::InterfaceSize = Text(row.setting);
    // The task bar's height doesn't count.
    platform::screen = {.Width = row.width, .Height = 2000, .WorkHeight = row.height};
    ChooseInterfaceSize();
    EXPECT_EQ(frmPubMain.BigInterface, row.big) << "row " << &row - table;
  }
  mdlPubSelf::InterfaceSize.clear();
  platform::screen = {};
  frmPubMain.BigInterface = false;
}

int Right(const Control& control) { return control.Left + control.Width; }

// A letter is 100 twips wide, as in a wide font at 96 DPI.
int WidthOf(TextView text) { return 100 * static_cast<int>(text.size()); }

class FitTexts : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    frmPubMain.BigInterface = GetParam();
    LayOutMainForm();
  }
  void TearDown() override { ResetProcess(); }
  static void Name(const std::array<TextView, 4>& tools, TextView all) {
    for (size_t i = 0; i < tools.size(); ++i) frmPubMain.sbtToolbar[i].Caption = Text(tools[i]);
    frmPubMain.cbxAll.Caption = Text(all);
  }
  // No caption is cut, nothing overlaps, and the toolbar ends where the list does.
  static void CheckToolbar() {
    const auto& tools = frmPubMain.sbtToolbar;
    EXPECT_GE(frmPubMain.cbxAll.Width, WidthOf(frmPubMain.cbxAll.Caption.Get()) + 300);
    EXPECT_GE(tools[0].Left, Right(frmPubMain.cbxAll) + 90);
    for (size_t i = 0; i < tools.size(); ++i) {
      EXPECT_GE(tools[i].Width, WidthOf(tools[i].Caption.Get()) + 2 * 90) << i;
      if (i > 0) {
        EXPECT_EQ(tools[i].Left, Right(tools[i - 1]) + 90);
      }
    }
    EXPECT_EQ(Right(tools[3]), Right(frmPubMain.lsvResult));
  }
};

INSTANTIATE_TEST_SUITE_P(BothSizes, FitTexts, testing::Bool(),
                         [](const auto& size) { return size.param ? "Big" : "Small"; });

TEST_P(FitTexts, ShortCaptionsGetButtonsOfOneWidth) {
  Name({u"Run", u"Open", u"More", u"Invert"}, u"All");
  tavix::FitTexts(WidthOf);
  CheckToolbar();
  for (const Button& tool : frmPubMain.sbtToolbar)
    EXPECT_EQ(tool.Width, frmPubMain.sbtToolbar[0].Width.Get());
}

TEST_P(FitTexts, LongCaptionsGetTheRoomThatTheyTake) {
  Name({u"Ausf\u00fchren", u"\u00d6ffnen", u"Eigenschaften", u"Umkehren"}, u"Alle ankreuzen");
  tavix::FitTexts(WidthOf);
  CheckToolbar();
}

TEST_P(FitTexts, WordsFollowTheLinkAndTheTimeItsWord) {
  MainForm& f = frmPubMain;
  const int promptEnd = Right(f.lblOptPrompt), timeEnd = Right(f.lblTime);
  f.lblOpt.Caption = Text(u"Hier klicken,");
  tavix::FitTexts(WidthOf);
  // The outline of the link needs room at both sides of its words, which stand in line with the other texts.
  EXPECT_EQ(f.lblOpt.Left, f.lblProgS.Left - 45);
  EXPECT_EQ(f.lblOpt.Width, 45 + 1300 + 45);
  EXPECT_EQ(f.lblOptPrompt.Left, f.lblProgS.Left + 1300 + 60);
  EXPECT_EQ(Right(f.lblOptPrompt), promptEnd);
  EXPECT_EQ(f.lblTime.Left, f.lblTimeP.Left + WidthOf(u"Expended") + 60);
  EXPECT_EQ(Right(f.lblTime), timeEnd);
}

}  // namespace
}  // namespace tavix
