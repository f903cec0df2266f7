#include "window/help.h"

#include "controls/control.h"
#include "doubles/memory_shell.h"
#include "forms/about_form.h"
#include "forms/main_form.h"
#include "forms/product.h"
#include "forms/type_form.h"
#include "frame/messages.h"
#include "frame/start_up.h"
#include "platform/application.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_desktop.h"
#include "support/program_test.h"
#include "window/addresses.h"
#include "window/input.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kF1 = 0x70;

class Help : public ProgramTest {
 protected:
  Help() {
    Start();
    machine.journal.Clear();
  }

  // The target that was run since the last call, or empty. Checks that there was one at most, run maximized.
  Text Target() {
    const auto entries = machine.journal.Entries();
    machine.journal.Clear();
    if (entries.empty()) return {};
    EXPECT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].op, u"RunTarget");
    EXPECT_EQ(entries[0].Get(u"style"), u"3");
    return entries[0].Get(u"target");
  }

  const Text site = ProductSite();
  const Text helpCommand = Concat(u"HH ", platform::applicationFolder, u"\\Help.chm");
};

TEST_F(Help, F1AndTheMenuOpenTheHelpFile) {
  Form_KeyDown(kF1, 0);
  EXPECT_EQ(Target(), helpCommand);
  frmPubType.menhh.Click();
  EXPECT_EQ(Target(), helpCommand);
}

TEST_F(Help, F1WithAShiftKeyDoesNothing) {
  for (const int shift : {kShift, kCtrl, kAlt}) Form_KeyDown(kF1, shift);
  EXPECT_EQ(Target(), u"");
}

TEST_F(Help, AViewerThatIsOpenIsLeftAsItIsByF1AndClosedAtTheEnd) {
  machine.desktop.windows[u"TVX Help"] = 77;
  Form_KeyDown(kF1, 0);
  EXPECT_EQ(Target(), u"");
  EXPECT_TRUE(machine.desktop.messages.empty());
  Form_Unload();
  constexpr uint32_t kClose = 16;
  ASSERT_EQ(machine.desktop.messages.size(), 1U);
  EXPECT_EQ(machine.desktop.messages[0], (machine::MachineDesktop::Message{77, kClose, 0, 0, true}));
}

TEST_F(Help, AnotherWindowIsNoViewer) {
  machine.desktop.windows[u"tvx help"] = 77;
  Form_KeyDown(kF1, 0);
  EXPECT_EQ(Target(), helpCommand);
}

TEST_F(Help, WhereTheViewerCantBeStartedNothingIsSaid) {
  machine.shell.faults.Fail(u"RunTarget");
  Form_KeyDown(kF1, 0);
  EXPECT_EQ(Target(), helpCommand);
}

TEST_F(Help, LinksLeadToTheirSites) {
  struct Link {
    const char* what;
    const Event<>& click;
    Text target;
  };
  const Text support = Concat(u"mailto:", SupportMail(),
                              u"?subject=Support Request for TVX.&body=Hi, I have several questions about "
                              u"using TVX as below, and want "
                              u"to get your support as soon as possible, thank you.");
  const Link links[] = {
      {"menhf", frmPubType.menhf.Click, Concat(site, u"/faq.htm")},
      {"menhw", frmPubType.menhw.Click, site},
      {"sbtWeb", frmPubAbout.sbtWeb.Click, site},
      {"menhc", frmPubType.menhc.Click, support},
      {"sbtMailer", frmPubAbout.sbtMailer.Click, support},
  };
  for (const Link& link : links) {
    link.click();
    EXPECT_EQ(Narrow(Target()), Narrow(link.target)) << link.what;
  }
}

TEST_F(Help, TheNamesInTheTitleLeadToTheSitesByTheLeftButtonOnly) {
  frmPubMain.lblProdLogo.MouseUp(kLeftButton);
  EXPECT_EQ(Target(), site);
  frmPubMain.lblCompLogo.MouseUp(kLeftButton);
  EXPECT_EQ(Target(), MakerSite());
  frmPubMain.lblProdLogo.MouseUp(kRightButton);
  frmPubMain.lblCompLogo.MouseUp(kRightButton);
  EXPECT_EQ(Target(), u"");
}

TEST_F(Help, TheRecommendationIsOneMailWordForWord) {
  frmPubMain.picCommend.Click();
  const std::string mail =
      "mailto: ?subject=Recommend software - Tavix: Cleans junk and repairs registry (from 'your name "
      "here').&body="
      "Hi,%0A%0AI'm using Tavix, it's an easy-to-use junk clean and registry repair tool.%0AThrough the "
      "clean-up and "
      "repair, it makes your computer system clean and running faster, you can also get more free disk "
      "space.%0A%0ATVX "
      "classifies the clean/repair functions as 'Privacy', 'System', 'Registry' and 'Advanced' four main "
      "categories, it "
      "also includes the 'One-click Clean/Repair' feature, so as to locate functions and clean/repair system "
      "quickly.%0A%0AYou should have a test!%0A%0AOfficial website: " +
      Narrow(site) + "%0ADirect download URL: " + Narrow(site) + "/tavix-setup.exe";
  EXPECT_EQ(Narrow(Target()), mail);
}

TEST_F(Help, ThePictureHelpPopsUpTheMenuWithItsCaptions) {
  int shown = 0;
  frmPubType.menh.Popup = [&shown] { ++shown; };
  frmPubMain.picHelp.Click();
  frmPubMain.picHelp.Click();
  EXPECT_EQ(shown, 2);
  EXPECT_TRUE(frmPubType.Loaded);
}

TEST_F(Help, TheMenuHasItsEntriesInTheirOrder) {
  const TypeForm& f = frmPubType;
  const std::vector<const MenuItem*> order = {&f.menhh,  &f.menhsa, &f.menhf,  &f.menhw, &f.menhc,
                                              &f.menhsb, &f.menhl,  &f.menhsc, &f.menha};
  EXPECT_EQ(std::vector<const MenuItem*>(f.menh.Items.begin(), f.menh.Items.end()), order);
  for (const MenuItem* item : order) {
    const bool separator = item == &f.menhsa || item == &f.menhsb || item == &f.menhsc;
    EXPECT_EQ(item->IsSeparator(), separator) << Narrow(item->Caption.Get());
    EXPECT_EQ(static_cast<bool>(item->Click), !separator) << Narrow(item->Caption.Get());
  }
}

class About : public ProgramTest {
 protected:
  About() { Start(); }
};

TEST_F(About, TheMenuShowsTheWindow) {
  int shown = 0;
  frmPubAbout.ShowModal = [&shown] { ++shown; };
  frmPubType.menha.Click();
  EXPECT_EQ(shown, 1);
}

TEST_F(About, ShowsTheProductWithItsVersion) {
  EXPECT_EQ(frmPubAbout.lblProduct.Caption, Concat(u"Tavix v", kProductVersion));
  EXPECT_EQ(frmPubMain.lblVer.Caption, Text(u"v2.19.630"));
}

TEST_F(About, ItsTextsComeFromTheCatalogueWhenItIsLoaded) {
  machine.files.AddFile(TextCatalogue(),
                        {.content = "[frmPubAbout]\nsbtClose=Zu\nlblCopyright=Alle Rechte\n"});
  EXPECT_EQ(frmPubAbout.sbtClose.Caption, u"&Close");
  frmPubAbout.LoadOnce();
  EXPECT_EQ(frmPubAbout.sbtClose.Caption, u"Zu");
  EXPECT_EQ(frmPubAbout.lblCopyright.Caption, u"Alle Rechte");
  EXPECT_EQ(frmPubAbout.sbtWeb.Caption, u"&Web Site");
}

TEST_F(About, CloseUnloadsItAndSoDoesTheEndOfTheProgram) {
  int unloads = 0;
  frmPubAbout.Unload = [&unloads] { ++unloads; };
  frmPubAbout.sbtClose.Click();
  EXPECT_EQ(unloads, 1);
  Form_Unload();
  EXPECT_EQ(unloads, 2);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
