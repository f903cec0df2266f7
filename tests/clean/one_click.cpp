#include "clean/one_click.h"

#include <algorithm>

#include "clean/clean_test.h"
#include "forms/main_form.h"
#include "frame/start_up.h"
#include "platform/dialogs.h"
#include "platform/event_queue.h"
#include "platform/machine/formats/machine_path.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/services/machine_dialogs.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/registry.h"
#include "scan/scan_driver.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kRunHistory = u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU";
constexpr TextView kTypedUrls = u"Software\\Microsoft\\Internet Explorer\\TypedURLs";

class OneClick : public CleanTest {
 protected:
  OneClick() {
    Functions = u"|iertu|werh|";
    Seed(platform::Hive::CurrentUser, kRunHistory, u"a", u"calc");
    Seed(platform::Hive::CurrentUser, kTypedUrls, u"url1", u"http://a");
  }

  static void Press() { frmPubMain.picOne.MouseUp(kLeftButton); }
  bool Cleaned() {
    const auto left = [this](TextView key, TextView name) {
      return machineRegistry.ReadValue(platform::Hive::CurrentUser, key, name).has_value();
    };
    const bool urls = left(kTypedUrls, u"url1");
    EXPECT_EQ(left(kRunHistory, u"a"), urls);
    return !urls;
  }
  size_t Questions() const {
    const auto calls = Calls();
    return static_cast<size_t>(std::count(calls.begin(), calls.end(), u"MsgBox"));
  }
};

// Calls a function whenever the status line changes.
class Onlooker : public ControlPeer {
 public:
  explicit Onlooker(std::function<void()> look) : look_(std::move(look)) { frmPubMain.lblProgS.peer = this; }
  ~Onlooker() override { frmPubMain.lblProgS.peer = nullptr; }
  void ModelChanged() override { look_(); }

 private:
  std::function<void()> look_;
};

TEST_F(OneClick, ScansAndCleansTheFunctionsOfTheSetting) {
  Press();
  EXPECT_TRUE(Cleaned());
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Finished."));
  EXPECT_EQ(Sum(), u"Sum: 2 items, 0. KB cleaned.");
}

TEST_F(OneClick, AsksWithTheMessageOfTheCatalogue) {
  machine.files.AddFile(Concat(machine::kApplicationFolder, u"\\tips.dll"),
                        {.content = "[Message & Text]\r\nONE_CLICK=Sure?\r\n"});
  Press();
  ASSERT_EQ(Questions(), 1U);
  EXPECT_EQ(machine.journal.Entries()[0].Get(u"text"), u"Sure?");
  EXPECT_EQ(machine.journal.Entries()[0].Get(u"style"), u"68");
}

TEST_F(OneClick, ItsMarkIsPaintedBeforeTheQuestion) {
  std::vector<const PictureBox*> marked;
  size_t questions = 1;
  frmPubMain.picOne.Picture = u"ONE_ACTV";
  frmPubMain.Refresh = [&] {
    if (!marked.empty()) return;
    questions = Questions();
    for (const PictureBox* picture : frmPubMain.PagePictures())
      if (picture->BorderStyle == 1) marked.push_back(picture);
    EXPECT_EQ(frmPubMain.picOne.Picture, Text(u"ONE_STTC"));
  };
  Press();
  EXPECT_EQ(marked, std::vector<const PictureBox*>{&frmPubMain.picOne});
  EXPECT_EQ(questions, 0U);
  EXPECT_EQ(Questions(), 1U);
}

TEST_F(OneClick, CancelLooksDisabledWhileTheWindowIs) {
  const Onlooker onlooker([] { EXPECT_EQ(frmPubMain.sbtCancel.Enabled, frmPubMain.Enabled); });
  Press();
  EXPECT_TRUE(Cleaned());
  EXPECT_TRUE(frmPubMain.sbtCancel.Enabled);
}

TEST_F(OneClick, NoEndsIt) {
  for (const int answer : {platform::kNo, platform::kCancel, 0}) {
    SCOPED_TRACE(Case(answer));
    machine.dialogs.answers = {answer};
    Press();
    EXPECT_FALSE(Cleaned());
    EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"? second(s).")) << "no scan has run";
    EXPECT_EQ(frmPubMain.picOne.BorderStyle, 0);
    EXPECT_EQ(frmPubMain.picPrivacy.BorderStyle, 1);
    EXPECT_TRUE(frmPubMain.Enabled);
  }
}

TEST_F(OneClick, WithNobodyToAskCleansNothing) {
  platform::dialogs = platform::noDialogs;
  Press();
  EXPECT_FALSE(Cleaned());
}

TEST_F(OneClick, MarksItsPictureAndTheLastPageAgain) {
  for (PictureBox* page :
       {&frmPubMain.picPrivacy, &frmPubMain.picSystem, &frmPubMain.picRegistry, &frmPubMain.picAdv}) {
    page->MouseUp(kLeftButton);
    page->Picture = u"as it was";
    Text seen;
    {
      Onlooker onlooker([&seen] {
        for (PictureBox* picture : frmPubMain.PagePictures()) seen += ToText(picture->BorderStyle);
      });
      Press();
    }
    EXPECT_TRUE(seen.starts_with(u"000001000001")) << Narrow(seen);
    EXPECT_EQ(frmPubMain.picOne.Picture, Text(u"ONE_STTC"));
    for (const PictureBox* picture : frmPubMain.PagePictures()) {
      EXPECT_EQ(picture->BorderStyle, picture == page ? 1 : 0);
    }
    EXPECT_EQ(page->Picture, Text(u"as it was"));
  }
}

TEST_F(OneClick, TheWholeWindowIsDisabledFromTheScanToTheEndOfTheClean) {
  std::vector<bool> enabled;
  {
    Onlooker onlooker([&enabled] { enabled.push_back(frmPubMain.Enabled); });
    Press();
  }
  EXPECT_GE(enabled.size(), 4U) << "two functions, two closing lines at least";
  EXPECT_EQ(std::count(enabled.begin(), enabled.end(), true), 0);
  EXPECT_TRUE(frmPubMain.Enabled);
}

TEST_F(OneClick, TheQuestionComesBeforeTheWindowIsDisabled) {
  struct Asking : machine::MachineDialogs {
    using MachineDialogs::MachineDialogs;
    int MsgBox(TextView, int) override {
      enabled = frmPubMain.Enabled;
      return platform::kNo;
    }
    bool enabled = false;
  } asking(machine.journal);
  platform::dialogs = &asking;
  Press();
  EXPECT_TRUE(asking.enabled);
}

TEST_F(OneClick, ItsPictureRestsAndIsMarkedWhileTheQuestionIsAsked) {
  struct Asking : machine::MachineDialogs {
    using MachineDialogs::MachineDialogs;
    int MsgBox(TextView, int) override {
      picture = frmPubMain.picOne.Picture;
      for (const PictureBox* page : frmPubMain.PagePictures()) marks += ToText(page->BorderStyle);
      return platform::kNo;
    }
    Text picture, marks;
  } asking(machine.journal);
  platform::dialogs = &asking;
  frmPubMain.picOne.Picture = u"ONE_ACTV";
  Press();
  EXPECT_EQ(asking.picture, u"ONE_STTC");
  EXPECT_EQ(asking.marks, u"000001");
}

TEST_F(OneClick, TheTimeShownCoversBoth) {
  clock.Set(1'000'000);
  Onlooker onlooker([this] { clock.Set(clock.Now() + 1'000); });
  Press();
  EXPECT_EQ(frmPubMain.JobStart, 1'000'000);
  EXPECT_EQ(frmPubMain.lblTime.Caption, Concat(ToText((clock.Now() - 1'000'000) / 1000), u" seconds."));
}

TEST_F(OneClick, AllOfTheListIsScannedWhateverPageIsOnScreenAndTicked) {
  frmPubMain.trvPrivacy.UserCheck(*frmPubMain.trvPrivacy.NodeByKey(u"ie"), false);
  frmPubMain.picRegistry.MouseUp(kLeftButton);
  frmPubMain.lst.SetSelected(0, false);
  Press();
  EXPECT_TRUE(Cleaned());
  EXPECT_EQ(frmPubMain.lst.List(0), u"Check All") << "the page on screen stays as it was";
  EXPECT_TRUE(frmPubMain.sbtRepair.Visible);
}

TEST_F(OneClick, RowsThatStartUntickedStay) {
  Add(u"RI: HKEY_CURRENT_USER, Software\\Kept, a");
  Press();
  EXPECT_EQ(ResultCount(), 0) << "rows of before go with the scan";
  // Untick a row during the scan; some scanners add their rows unticked in the same way.
  Seed(platform::Hive::CurrentUser, kTypedUrls, u"url1", u"http://a");
  Onlooker onlooker([] {
    if (ResultCount() == 1) frmPubMain.lsvResult.Row(1).SetChecked(false);
  });
  Press();
  EXPECT_EQ(ResultCount(), 1);
  EXPECT_FALSE(ResultRows()[0].checked);
}

TEST_F(OneClick, AProgramThatIsEndedMeanwhileCleansNothing) {
  Onlooker onlooker([] {
    if (ResultCount() != 1) return;
    Add(u"WSL: Security", u"Windows System", u"Security Category (7 Items)");
    Form_Unload();
  });
  Press();
  EXPECT_GT(ResultCount(), 0);
  for (const auto& entry : machine.journal.Entries()) EXPECT_NE(entry.op, u"ClearEventLog");
}

TEST_F(OneClick, AfterACancelCleansWhatWasFound) {
  Functions = u"|iertu|ieafh|werh|";
  Onlooker onlooker([] {
    if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) sbtCancel_Click();
  });
  Press();
  EXPECT_EQ(Sum(), u"Sum: 1 item, 0. KB cleaned.") << "the function under way ends by itself";
  EXPECT_FALSE(machineRegistry.ReadValue(platform::Hive::CurrentUser, kTypedUrls, u"url1").has_value());
  EXPECT_TRUE(machineRegistry.ReadValue(platform::Hive::CurrentUser, kRunHistory, u"a").has_value());
}

TEST_F(OneClick, WithAnEmptyListOfKeysFindsNothingAndTheCleanReturnsAtOnce) {
  for (const TextView keys : {u"", u"|"}) {
    SCOPED_TRACE(Case(keys));
    Functions = keys;
    Press();
    EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Finished, no item found."));
    EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB found.");
    EXPECT_FALSE(Cleaned());
  }
}

TEST_F(OneClick, TheEmptyElementsOfTheListMoveTheBarWithoutAScan) {
  Functions = u"|ieafh|";
  std::vector<int> widths;
  struct Bar : ControlPeer {
    explicit Bar(std::vector<int>& seen) : seen_(seen) {}
    void ModelChanged() override {
      const int width = frmPubMain.lblProgMI.Width;
      if (seen_.empty() || seen_.back() != width) seen_.push_back(width);
    }
    std::vector<int>& seen_;
  } bar(widths);
  machine.dialogs.answers = {platform::kYes};
  frmPubMain.lblProgMI.peer = &bar;
  Press();
  frmPubMain.lblProgMI.peer = nullptr;
  ASSERT_GE(widths.size(), 4U);
  EXPECT_EQ(std::vector<int>(widths.begin(), widths.begin() + 4), (std::vector<int>{0, 1000, 2000, 3000}));
}

TEST_F(OneClick, IsRefusedWithoutAQuestionWhileAScanOrACleanRuns) {
  frmPubMain.sbtCancel.Visible = true;
  Press();
  frmPubMain.sbtCancel.Visible = false;
  frmPubMain.CleanBusy = true;
  Press();
  EXPECT_EQ(Questions(), 0U);
  EXPECT_FALSE(Cleaned());
  EXPECT_EQ(frmPubMain.picOne.BorderStyle, 0);
  EXPECT_EQ(frmPubMain.picPrivacy.BorderStyle, 1);
}

TEST_F(OneClick, APressDuringAScanLeavesThePageMarkedAndTheScanRunning) {
  frmPubMain.picRegistry.MouseUp(kLeftButton);
  int presses = 0;
  Onlooker onlooker([&presses] {
    if (!frmPubMain.sbtCancel.Visible || presses++ > 0) return;
    Press();
    EXPECT_EQ(frmPubMain.picRegistry.BorderStyle, 1);
    EXPECT_EQ(frmPubMain.picOne.BorderStyle, 0);
  });
  frmPubMain.picPrivacy.MouseUp(kLeftButton);
  frmPubMain.picRegistry.MouseUp(kLeftButton);
  frmPubMain.sbtScan.Click();
  EXPECT_GT(presses, 0);
  EXPECT_EQ(Questions(), 0U);
  EXPECT_FALSE(Cleaned());
}

TEST_F(OneClick, APressWhileItRunsItselfMarksTheLastPageBesideIt) {
  int presses = 0;
  Onlooker onlooker([&presses] {
    if (presses++ > 0) return;
    Press();
    EXPECT_EQ(frmPubMain.picOne.BorderStyle, 1);
    EXPECT_EQ(frmPubMain.picPrivacy.BorderStyle, 1);
    EXPECT_FALSE(frmPubMain.Enabled);
  });
  Press();
  EXPECT_GT(presses, 0);
  EXPECT_EQ(Questions(), 1U);
  EXPECT_TRUE(Cleaned());
  EXPECT_TRUE(frmPubMain.Enabled);
}

TEST_F(OneClick, OtherMouseButtonsDoNothing) {
  for (const int button : {kRightButton, 0, 4}) frmPubMain.picOne.MouseUp(button);
  EXPECT_EQ(Questions(), 0U);
  EXPECT_FALSE(Cleaned());
}

TEST_F(OneClick, RunByItselfLeavesNoPictureMarked) {
  RunOneClick();
  EXPECT_TRUE(Cleaned());
  for (const PictureBox* picture : frmPubMain.PagePictures()) EXPECT_EQ(picture->BorderStyle, 0);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
