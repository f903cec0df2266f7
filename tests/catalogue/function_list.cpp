#include "catalogue/function_list.h"

#include "catalogue/functions.h"
#include "catalogue/selection.h"
#include "forms/main_form.h"
#include "forms/options_form.h"
#include "frame/settings.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class FunctionList : public ProgramTest {
 protected:
  FunctionList() {
    Start();
    LastAccessedFile = u"365";
    frmPubOptions.ShowModal = [this] { shownAt.push_back(frmPubOptions.piPage); };
  }

  static void Click(int row) {
    frmPubMain.lst.ListIndex = row;
    frmPubMain.lst.Click();
  }
  static bool LinkShown() {
    EXPECT_EQ(frmPubMain.lblOpt.Visible, frmPubMain.lblOptPrompt.Visible);
    return frmPubMain.lblOpt.Visible;
  }
  static Text Status() { return frmPubMain.lblProgS.Caption; }

  std::vector<int> shownAt;  // pages of the options window, each time that it was shown
};

TEST_F(FunctionList, AClickShowsTheDescriptionAndTheLinkWhereThereAreOptions) {
  const struct {
    PictureBox* picture;
    std::span<const CleaningFunction> functions;
  } pages[] = {{&frmPubMain.picSystem, kSystemFunctions},
               {&frmPubMain.picRegistry, kRegistryFunctions},
               {&frmPubMain.picAdv, kAdvancedFunctions}};
  for (const auto& page : pages) {
    page.picture->MouseUp(kLeftButton);
    for (size_t i = 0; i < page.functions.size(); ++i) {
      Click(static_cast<int>(i) + 1);
      EXPECT_EQ(Status(), DescriptionOf(page.functions[i]));
      EXPECT_EQ(LinkShown(), page.functions[i].OptionsPage != kNoOptions)
          << Narrow(page.functions[i].Caption);
    }
  }
}

TEST_F(FunctionList, TheLinkGoesWhenAFunctionWithoutOptionsIsClicked) {
  frmPubMain.picSystem.MouseUp(kLeftButton);
  Click(13);
  EXPECT_TRUE(LinkShown());
  Click(12);
  EXPECT_FALSE(LinkShown());
  Click(13);
  Click(0);
  EXPECT_FALSE(LinkShown());
}

TEST_F(FunctionList, TheMasterRowShowsTheDescriptionOfItsCurrentCaption) {
  frmPubMain.picSystem.MouseUp(kLeftButton);
  Click(0);
  EXPECT_EQ(Status(), u"Unchecks all clean/repair functions for this category.");
  frmPubMain.lst.SetSelected(0, false);
  Click(0);
  EXPECT_EQ(Status(), u"Checks all clean/repair functions for this category.");
  frmPubMain.lst.SetSelected(0, true);
  Click(0);
  EXPECT_EQ(Status(), u"Unchecks all clean/repair functions for this category.");
}

TEST_F(FunctionList, AClickOnACaptionWithOldDaysShowsNoDescriptionAndNoLink) {
  frmPubMain.picAdv.MouseUp(kLeftButton);
  Click(4);
  EXPECT_EQ(Status(),
            u"Checks it for finding the files that last accessed 365 days before in your specified "
            u"drives/folders according to your setting.");
  EXPECT_TRUE(LinkShown());
  LastAccessedFile = u"90";
  frmPubMain.lblProgS.Caption = u"as it was";
  Click(4);
  EXPECT_EQ(Status(), u"as it was");
  EXPECT_FALSE(LinkShown());
}

TEST_F(FunctionList, AClickWithNoRowInFocusHidesTheLinkAndShowsNothing) {
  frmPubMain.picAdv.MouseUp(kLeftButton);
  Click(2);
  frmPubMain.lblProgS.Caption = u"as it was";
  for (const int row : {-1, 99}) {
    SCOPED_TRACE(Case(row));
    Click(row);
    EXPECT_EQ(Status(), u"as it was");
    EXPECT_FALSE(LinkShown());
  }
}

TEST_F(FunctionList, AReopenedPageHasNoRowInFocus) {
  frmPubMain.picAdv.MouseUp(kLeftButton);
  Click(2);
  frmPubMain.picSystem.MouseUp(kLeftButton);
  EXPECT_EQ(frmPubMain.lst.ListIndex, -1);
}

TEST_F(FunctionList, TheLinkOpensTheOptionsAtThePageOfTheFunction) {
  frmPubMain.picAdv.MouseUp(kLeftButton);
  for (const int row : {6, 2, 4}) {
    Click(row);
    frmPubMain.lblOpt.Click();
  }
  frmPubMain.picSystem.MouseUp(kLeftButton);
  Click(13);
  frmPubMain.lblOpt.Click();
  EXPECT_EQ(shownAt, (std::vector<int>{2, 3, 5, 5}));
}

TEST_F(FunctionList, ForAnyOtherTextTheLinkOpensTheOptionsAtTheirLastPage) {
  frmPubOptions.piPage = 4;
  frmPubMain.lblOpt.Click();
  frmPubMain.picSystem.MouseUp(kLeftButton);
  for (const int row : {-1, 0, 1}) {
    frmPubMain.lst.ListIndex = row;
    frmPubMain.lblOpt.Click();
  }
  frmPubMain.picAdv.MouseUp(kLeftButton);
  frmPubMain.lst.ListIndex = 4;
  LastAccessedFile = u"90";
  frmPubMain.lblOpt.Click();
  EXPECT_EQ(shownAt, (std::vector<int>{4, 4, 4, 4, 4}));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
