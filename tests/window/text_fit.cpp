#include "window/text_fit.h"

#include <array>

#include "support/program_test.h"
#include "window/layout.h"

namespace tavix {
namespace {

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
  EXPECT_EQ(f.lblOpt.Width, 1300);
  EXPECT_EQ(f.lblOptPrompt.Left, f.lblOpt.Left + 1300 + 60);
  EXPECT_EQ(Right(f.lblOptPrompt), promptEnd);
  EXPECT_EQ(f.lblTime.Left, f.lblTimeP.Left + WidthOf(u"Expended") + 60);
  EXPECT_EQ(Right(f.lblTime), timeEnd);
}

}  // namespace
}  // namespace tavix
