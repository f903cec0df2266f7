#include "catalogue/pages.h"

#include "catalogue/functions.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/event_queue.h"
#include "platform/registry.h"
#include "scan/result_items.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

struct PageRow {
  const char* name;
  PictureBox* picture;
  TextView image;
  int index;
  std::span<const CleaningFunction> functions;
};
const PageRow kPages[] = {
    {"Privacy", &frmPubMain.picPrivacy, u"PRIVACY_STTC", 0, {}},
    {"System", &frmPubMain.picSystem, u"SYS_STTC", 1, kSystemFunctions},
    {"Registry", &frmPubMain.picRegistry, u"REG_STTC", 2, kRegistryFunctions},
    {"Advanced", &frmPubMain.picAdv, u"ADV_STTC", 3, kAdvancedFunctions},
};

class Pages : public ProgramTest {
 protected:
  Pages() { Start(); }

  static void Open(const PageRow& page) { page.picture->MouseUp(kLeftButton); }
  static void OpenAnother(const PageRow& page) { Open(kPages[page.index == 1 ? 2 : 1]); }
  static std::vector<Text> Rows() {
    std::vector<Text> rows;
    for (int row = 0; row < frmPubMain.lst.ListCount(); ++row) rows.emplace_back(frmPubMain.lst.List(row));
    return rows;
  }
  static std::vector<Text> Expected(const PageRow& page) {
    std::vector<Text> rows{u"Uncheck All"};
    for (const CleaningFunction& function : page.functions) rows.push_back(CaptionOf(function));
    return rows;
  }
};

TEST_F(Pages, MarkTheirPictureAloneAndLoadItsImage) {
  for (const PageRow& page : kPages) {
    SCOPED_TRACE(page.name);
    OpenAnother(page);
    page.picture->Picture = u"LIT";
    Open(page);
    for (const PictureBox* picture : frmPubMain.PagePictures()) {
      EXPECT_EQ(picture->BorderStyle, picture == page.picture ? 1 : 0);
    }
    EXPECT_EQ(page.picture->Picture, Text(page.image));
    EXPECT_EQ(frmPubMain.LastPage, page.index);
  }
}

TEST_F(Pages, ShowAndHideTheirControls) {
  const struct {
    const char* name;
    Control* control;
    std::array<bool, 4> shown;
  } table[] = {
      {"trvPrivacy", &frmPubMain.trvPrivacy, {true, false, false, false}},
      {"lst", &frmPubMain.lst, {false, true, true, true}},
      {"lsvResult", &frmPubMain.lsvResult, {true, true, true, true}},
      {"sbtClean", &frmPubMain.sbtClean, {true, true, false, true}},
      {"sbtRepair", &frmPubMain.sbtRepair, {false, false, true, false}},
  };
  for (const PageRow& page : kPages) {
    for (const auto& row : table) {
      OpenAnother(page);
      row.control->Visible = !row.shown[static_cast<size_t>(page.index)];
      Open(page);
      EXPECT_EQ(row.control->Visible, row.shown[static_cast<size_t>(page.index)]) << page.name << row.name;
    }
  }
}

TEST_F(Pages, TheScopeTreeStaysAsItWasOnThePrivacyPage) {
  EXPECT_FALSE(frmPubMain.trvRes.Visible);
  Open(kPages[3]);
  EXPECT_TRUE(frmPubMain.trvRes.Visible);
  Open(kPages[0]);
  EXPECT_TRUE(frmPubMain.trvRes.Visible);
  Open(kPages[1]);
  EXPECT_FALSE(frmPubMain.trvRes.Visible);
  Open(kPages[0]);
  EXPECT_FALSE(frmPubMain.trvRes.Visible);
  Open(kPages[3]);
  Open(kPages[2]);
  EXPECT_FALSE(frmPubMain.trvRes.Visible);
}

TEST_F(Pages, TheOptionsLinkIsHiddenByThePrivacyPageAlone) {
  for (const PageRow& page : kPages) {
    OpenAnother(page);
    frmPubMain.lblOpt.Visible = true;
    frmPubMain.lblOptPrompt.Visible = true;
    Open(page);
    EXPECT_EQ(frmPubMain.lblOpt.Visible, page.index != 0) << page.name;
    EXPECT_EQ(frmPubMain.lblOptPrompt.Visible, page.index != 0) << page.name;
  }
}

TEST_F(Pages, WithAListHoldTheirFunctionsAfterTheMasterRow) {
  for (const PageRow& page : kPages) {
    if (page.functions.empty()) continue;
    Open(page);
    EXPECT_EQ(Rows(), Expected(page)) << page.name;
  }
}

TEST_F(Pages, OpenWithEverythingTickedAndTheMasterRowToUntickIt) {
  for (const PageRow& page : kPages) {
    if (page.functions.empty()) continue;
    SCOPED_TRACE(page.name);
    Open(page);
    ASSERT_EQ(frmPubMain.lst.ListCount(), static_cast<int>(page.functions.size()) + 1);
    for (int row = 0; row < frmPubMain.lst.ListCount(); ++row) EXPECT_TRUE(frmPubMain.lst.Selected(row));
    EXPECT_EQ(frmPubMain.lst.List(0), u"Uncheck All");
    EXPECT_FALSE(frmPubMain.ListGuard);
  }
}

TEST_F(Pages, TicksOfAListNeverSurviveAChangeOfPage) {
  Open(kPages[1]);
  frmPubMain.lst.SetSelected(3, false);
  frmPubMain.lst.SetSelected(0, false);
  Open(kPages[0]);
  Open(kPages[1]);
  EXPECT_EQ(frmPubMain.lst.List(0), u"Uncheck All");
  for (int row = 0; row < frmPubMain.lst.ListCount(); ++row)
    EXPECT_TRUE(frmPubMain.lst.Selected(row)) << Case(row);
}

TEST_F(Pages, TicksOfThePrivacyTreeSurviveAChangeOfPage) {
  frmPubMain.trvPrivacy.UserCheck(*frmPubMain.trvPrivacy.NodeByKey(u"iec"), false);
  Open(kPages[1]);
  Open(kPages[0]);
  EXPECT_FALSE(frmPubMain.trvPrivacy.NodeByKey(u"iec")->Checked);
  EXPECT_EQ(frmPubMain.trvPrivacy.NodeByKey(u"ie")->BackColor, kButtonFace);
  EXPECT_EQ(frmPubMain.trvPrivacy.NodeCount(), std::ssize(kPrivacyFunctions));
}

TEST_F(Pages, AClickOnTheCurrentPageDoesNothing) {
  Open(kPages[2]);
  frmPubMain.lst.SetSelected(3, false);
  frmPubMain.lst.Visible = false;
  frmPubMain.picRegistry.Picture = u"as it was";
  Open(kPages[2]);
  EXPECT_FALSE(frmPubMain.lst.Selected(3));
  EXPECT_FALSE(frmPubMain.lst.Visible);
  EXPECT_EQ(frmPubMain.picRegistry.Picture, Text(u"as it was"));
}

TEST_F(Pages, OtherMouseButtonsDoNothing) {
  for (const int button : {kRightButton, 0, 4, kLeftButton | kRightButton}) {
    for (const PageRow& page : kPages) page.picture->MouseUp(button);
  }
  EXPECT_EQ(frmPubMain.picPrivacy.BorderStyle, 1);
  EXPECT_EQ(frmPubMain.LastPage, 0);
  EXPECT_EQ(frmPubMain.lst.ListCount(), 0);
}

TEST_F(Pages, TheResultsStayAtAChangeOfPage) {
  AddResultItem(u"t", u"n", u"1.", u"l", u"00000001.0", u"F");
  const auto before = ResultRows();
  for (const PageRow& page : kPages) {
    OpenAnother(page);
    Open(page);
    EXPECT_EQ(ResultRows(), before);
  }
}

TEST_F(Pages, TheListTakesThePlaceOfThePrivacyTree) {
  TreeView& place = frmPubMain.trvPrivacy;
  place.Left = 111;
  place.Top = 222;
  place.Height = 3000;
  frmPubMain.trvRes.Top = 1500;
  Open(kPages[1]);
  EXPECT_EQ(frmPubMain.lst.Left, 111);
  EXPECT_EQ(frmPubMain.lst.Top, 222);
  EXPECT_EQ(frmPubMain.lst.Height, 3000);
  place.Left = 333;
  Open(kPages[3]);
  EXPECT_EQ(frmPubMain.lst.Left, 333);
  EXPECT_LT(frmPubMain.lst.Top + frmPubMain.lst.Height, frmPubMain.trvRes.Top) << "the scope tree is below";
  Open(kPages[2]);
  EXPECT_EQ(frmPubMain.lst.Height, 3000);
}

TEST_F(Pages, TheCaptionWithDaysFollowsTheSettingOnlyWhenThePageIsOpenedAgain) {
  LastAccessedFile = u"365";
  Open(kPages[3]);
  EXPECT_EQ(frmPubMain.lst.List(4), u"Last Accessed 365 Days Before");
  LastAccessedFile = u"90";
  Open(kPages[3]);
  EXPECT_EQ(frmPubMain.lst.List(4), u"Last Accessed 365 Days Before");
  Open(kPages[1]);
  Open(kPages[3]);
  EXPECT_EQ(frmPubMain.lst.List(4), u"Last Accessed 90 Days Before");
}

TEST_F(Pages, MarkingTheLastPageLeavesItsPictureAlone) {
  for (const PageRow& page : kPages) {
    OpenAnother(page);
    Open(page);
    page.picture->BorderStyle = 0;
    page.picture->Picture = u"as it was";
    MarkLastPage();
    EXPECT_EQ(page.picture->BorderStyle, 1) << page.name;
    EXPECT_EQ(page.picture->Picture, Text(u"as it was"));
  }
  frmPubMain.LastPage = -1;
  MarkLastPage();
  frmPubMain.LastPage = 4;
  MarkLastPage();
}

TEST_F(Pages, AListPageWithNothingTickedScansNothing) {
  Open(kPages[2]);
  EXPECT_TRUE(frmPubMain.sbtRepair.Visible);
  frmPubMain.lst.SetSelected(0, false);
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Finished, no issue found."));
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 0);
}

// A scan of the System page during which the user opens another page: in row 2, while it lists the temporary
// files.
class PageDuringAScan : public ProgramTest, public platform::EventQueue {
 protected:
  PageDuringAScan() {
    machine.files.AddFile(u"D:\\Temp\\a.tmp");
    SetUserTemp(u"D:\\Temp");
    SetDrive(u"C");
    machine.files.AddFolder(u"C:\\Windows");
    Seed(platform::Hive::LocalMachine, u"Software\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs",
         u"C:\\gone.dll", u"1");
    Seed(platform::Hive::CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Run", u"a",
         u"C:\\gone.exe");
    Seed(platform::Hive::CurrentUser, u"Control Panel\\Appearance\\Schemes", u"a", u"b");
    Start();
    platform::eventQueue = this;
  }
  void Yield() override {
    if (PictureBox* page = std::exchange(page_, nullptr)) page->MouseUp(kLeftButton);
  }
  // Scans, opening this page at the first yield. Returns the types of the rows found.
  std::vector<Text> Scan(PictureBox& opened) {
    page_ = &opened;
    frmPubMain.picSystem.MouseUp(kLeftButton);
    frmPubMain.sbtScan.Click();
    std::vector<Text> types;
    for (const RowFields& row : ResultRows()) types.push_back(row.type);
    return types;
  }

 private:
  PictureBox* page_ = nullptr;
};

TEST_F(PageDuringAScan, TheLoopGoesOnWithTheRowsOfTheNewList) {
  EXPECT_EQ(Scan(frmPubMain.picRegistry),
            (std::vector<Text>{u"Recycle Bins", u"User Temporary File", u"Run at Startup Issue"}));
  EXPECT_EQ(frmPubMain.lst.ListCount(), 18);
  EXPECT_EQ(frmPubMain.LastPage, 2);
  EXPECT_TRUE(frmPubMain.lblProgS.Caption.Get().starts_with(u"Finished, please click <Repair>"));
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 3) << "rows 1 and 14 have findings, too, but were outside the loop";
}

TEST_F(PageDuringAScan, ThePrivacyPageLeavesTheListAndTheLoopReadsItOn) {
  const std::vector<Text> types = Scan(frmPubMain.picPrivacy);
  ASSERT_GT(types.size(), 2U);
  EXPECT_EQ(types[1], u"User Temporary File");
  EXPECT_EQ(types.back(), u"Windows Size and Location Caches")
      << "the row before the last of the System page";
  EXPECT_FALSE(frmPubMain.lst.Visible);
  EXPECT_TRUE(frmPubMain.lblProgS.Caption.Get().starts_with(u"Finished, please click <Clean>"));
}

TEST_F(PageDuringAScan, AShorterListEndsTheLoopWithNothingMoreToFind) {
  EXPECT_EQ(Scan(frmPubMain.picAdv), (std::vector<Text>{u"Recycle Bins", u"User Temporary File"}))
      << "captions of the Advanced page are no keys of scanners";
  EXPECT_EQ(frmPubMain.lst.ListCount(), 7);
  EXPECT_TRUE(frmPubMain.trvRes.Visible);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
