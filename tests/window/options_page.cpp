#include "window/options_page.h"

#include "forms/options_form.h"
#include "support/program_test.h"

namespace tavix {
namespace {

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
