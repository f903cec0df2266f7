#include "frame/start_up.h"

#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_registry.h"
#include "platform/instance.h"
#include "support/program_test.h"
#include "window/wiring.h"

namespace tavix::mdlPubSelf {
namespace {

class StartUp : public ProgramTest {
 protected:
  StartUp() { machine.files.AddFolder(u"C:\\"); }
};

struct OtherCopy : platform::Instance {
  bool PreviousRuns() override { return true; }
};

TEST_F(StartUp, ASecondCopyIsRefusedBeforeAnythingIsTouched) {
  EXPECT_TRUE(Form_Initialize());
  OtherCopy other;
  platform::instance = &other;
  EXPECT_FALSE(Form_Initialize());
  EXPECT_EQ(machine.files.FolderExists(u"C:\\MORVDataPath"), false);
}

TEST_F(StartUp, StepsRunInTheirOrder) {
  std::vector<std::string> order;
  const auto note = [&order](const char* step) { return [&order, step] { order.emplace_back(step); }; };
  frameSteps.BuildPrivacyTree = [&order] {
    order.emplace_back(CommonTypes.empty() ? "tree before settings" : "tree");
  };
  frameSteps.LoadJunkDefinitions = note("junk");
  frameSteps.LayOutWindow = note("layout");
  frameSteps.MakeControls = note("controls");
  frameSteps.SendEmbeddedPage = note("page");
  frameSteps.ColorControls = note("colours");
  frameSteps.CheckForUpdate = note("update");
  frameSteps.UnloadOptions = note("options");
  frameSteps.UnloadTypeEditor = note("editor");
  frameSteps.UnloadAbout = [&order] {
    order.emplace_back("about");
    EXPECT_EQ(fileSystemObject.FolderExists(u"C:\\MORVDataPath"), true)
        << "services are released after the forms";
  };
  Form_Load();
  EXPECT_EQ(order,
            (std::vector<std::string>{"tree", "junk", "layout", "controls", "page", "colours", "update"}));
  order.clear();
  Form_Unload();
  EXPECT_EQ(order, (std::vector<std::string>{"options", "editor", "about"}));
}

TEST_F(StartUp, StopReleasesTheServicesAndASecondStopDoesNothing) {
  Start();
  Seed(platform::Hive::CurrentUser, u"K", u"v", u"d");
  Form_Unload();
  Text data = u"as it was";
  pubRegistry.ReadValue(platform::Hive::CurrentUser, u"K", u"v", u"", data);
  EXPECT_EQ(data, u"as it was");
  EXPECT_EQ(fileSystemObject.FolderExists(u"C:\\MORVDataPath"), std::nullopt);
  machine.files.AddFile(u"C:\\MORVDataPath\\TVX\\DupeFiles\\scanned\\A\\x");
  Form_Unload();
  EXPECT_EQ(machine.files.FileExists(u"C:\\MORVDataPath\\TVX\\DupeFiles\\scanned\\A\\x"), true);
}

TEST_F(StartUp, TheDocumentOfTheEmbeddedPageIsClearedLastOfAll) {
  Start();
  frmPubMain.webGIF.DocumentComplete();
  ASSERT_EQ(frmPubMain.mhtm.Scroll, Text(u"no"));
  Text whileFormsGo;
  frameSteps.UnloadAbout = [&whileFormsGo] { whileFormsGo = frmPubMain.mhtm.Scroll; };
  Form_Unload();
  EXPECT_EQ(whileFormsGo, u"no");
  EXPECT_EQ(frmPubMain.mhtm.Scroll, Text());
}

TEST_F(StartUp, ClosingDuringAScanEndsItInOrder) {
  Start();
  Seed(platform::Hive::CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU", u"a",
       u"x");
  frmPubMain.Unload = Form_Unload;
  struct Closer : ControlPeer {
    void ModelChanged() override {
      if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) frmPubMain.Unload();
    }
  } closer;
  frmPubMain.lblProgS.peer = &closer;
  frmPubMain.sbtScan.Click();
  frmPubMain.lblProgS.peer = nullptr;
  EXPECT_FALSE(frmPubMain.Loaded);
  EXPECT_EQ(machine.files.FileExists(u"C:\\MORVDataPath\\TVX\\tvx.dll"), true);
}

TEST_F(StartUp, WithoutADriveCTheProgramStartsWithEmptySettings) {
  machine.files.faults.Fail(u"CreateFolder");
  machine.files.faults.Fail(u"WriteFile");
  Start();
  EXPECT_EQ(CleaningMethod, u"");
  EXPECT_GT(frmPubMain.trvPrivacy.NodeCount(), 0);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
