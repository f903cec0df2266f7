#include "platform/machine/services/machine_host.h"

#include "doubles/memory_files.h"
#include "doubles/memory_host.h"
#include "doubles/memory_instance.h"
#include "doubles/memory_shell.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/event_logs.h"
#include "platform/file_system.h"
#include "platform/instance.h"
#include "platform/machine/formats/machine_path.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_desktop.h"
#include "platform/machine/services/machine_dialogs.h"
#include "platform/machine/services/machine_event_logs.h"
#include "platform/merged_registry.h"
#include "platform/screen.h"
#include "platform/trust.h"
#include "text/number.h"

namespace tavix::machine {
namespace {

void ExpectNothingBound() {
  EXPECT_EQ(platform::registry, platform::noRegistry);
  EXPECT_EQ(platform::fileSystem, platform::noFileSystem);
  EXPECT_EQ(platform::shell, platform::noShell);
  EXPECT_EQ(platform::eventLogs, platform::noEventLogs);
  EXPECT_EQ(platform::dialogs, platform::noDialogs);
  EXPECT_EQ(platform::desktop, platform::noDesktop);
  EXPECT_EQ(platform::instance, platform::noInstance);
  EXPECT_EQ(platform::clock, platform::noClock);
  EXPECT_EQ(platform::trust, platform::noTrust);
  EXPECT_TRUE(platform::applicationFolder.empty());
  EXPECT_EQ(platform::screen.Width, 1024);
  EXPECT_EQ(userLocale.Decimal, u".");
}

class MachineHostTest : public testing::Test {
 protected:
  MachineHostTest() {
    scratch.Write("machine.ini",
                  "[Drives]\nC=2,System\n[Event Logs]\nSystem=5\n[Locale]\nDecimal=,\n[Screen]\nWidth=800\n");
    scratch.Write("drives/C/Windows/a.txt", "content");
    scratch.Write("app/tips.dll", "tips");
  }
  std::unique_ptr<MachineHost> Open() {
    auto host = MachineHost::Open(scratch.Root(), 1234, error);
    EXPECT_NE(host, nullptr) << error;
    return host;
  }
  ScratchFolder scratch;
  std::string error;
};

TEST_F(MachineHostTest, PutsTheFolderBehindEveryInterfaceAndTakesItAway) {
  {
    const auto host = Open();
    EXPECT_EQ(platform::fileSystem->ReadFile(u"C:\\WINDOWS\\A.TXT"), "content");
    EXPECT_EQ(platform::fileSystem->ReadFile(Concat(platform::applicationFolder, u"\\tips.dll")), "tips");
    EXPECT_TRUE(platform::registry->WriteString(platform::Hive::ClassesRoot, u".x", u"", u"1"));
    EXPECT_NE(platform::shell, platform::noShell);
    EXPECT_NE(platform::eventLogs->Open(u"System"), 0);
    EXPECT_NE(platform::dialogs, platform::noDialogs);
    EXPECT_NE(platform::desktop, platform::noDesktop);
    EXPECT_NE(platform::trust, platform::noTrust);
    EXPECT_FALSE(platform::instance->PreviousRuns());
    EXPECT_EQ(platform::clock->Now(), 1234);
    EXPECT_EQ(platform::screen.Width, 800);
    EXPECT_EQ(userLocale.Decimal, u",");
  }
  ExpectNothingBound();
}

TEST_F(MachineHostTest, LeavesTheFolderAsItIsWhenNothingIsDone) {
  const auto before = scratch.Files();
  {
    const auto host = Open();
    EXPECT_TRUE(platform::fileSystem->List(u"C:\\Windows", [](const platform::DirectoryEntry&) {}));
    EXPECT_TRUE(host->Save(error)) << error;
  }
  EXPECT_EQ(scratch.Files(), before);
}

TEST_F(MachineHostTest, KeepsWhatWasDoneInTheFolder) {
  {
    const auto host = Open();
    EXPECT_TRUE(platform::shell->DeleteToRecycleBin(u"C:\\Windows\\A.TXT"));
    EXPECT_EQ(platform::shell->RecycleBinInfo(), u"1|7");
    EXPECT_TRUE(platform::shell->DeleteAtRestart(u"C:\\index.dat"));
    EXPECT_TRUE(platform::eventLogs->Clear(platform::eventLogs->Open(u"System")));
    EXPECT_TRUE(platform::fileSystem->SetAttributes(u"C:\\Windows", platform::kSystem));
    EXPECT_TRUE(platform::registry->WriteString(platform::Hive::CurrentUser, u"k", u"v", u"1"));
    EXPECT_TRUE(host->Save(error)) << error;
    EXPECT_EQ(host->Journal().Entries().size(), 3U);
  }
  auto files = scratch.Files();
  EXPECT_EQ(files["recycle/a.txt"], "content");
  EXPECT_FALSE(files.contains("drives/C/Windows/a.txt"));
  EXPECT_EQ(files["restart.txt"], "C:\\index.dat\n");
  EXPECT_EQ(files["attributes.ini"], "[Attributes]\nC:\\Windows=4\n");
  EXPECT_EQ(files["machine.ini"],
            "[Drives]\nC=2,System\n[Event Logs]\nSystem=0\n[Locale]\nDecimal=,\n[Screen]\nWidth=800\n");
  EXPECT_EQ(files["journal.jsonl"],
            "{\"op\":\"DeleteToRecycleBin\",\"path\":\"C:\\\\Windows\\\\A.TXT\"}\n"
            "{\"op\":\"DeleteAtRestart\",\"path\":\"C:\\\\index.dat\"}\n"
            "{\"op\":\"ClearEventLog\",\"log\":\"System\"}\n");
  EXPECT_TRUE(files.contains("registry/HKEY_CURRENT_USER.reg"));
  EXPECT_EQ(files.size(), 7U);
}

TEST_F(MachineHostTest, HasTheHostsClockUnlessToldATime) {
  const auto host = MachineHost::Open(scratch.Root(), std::nullopt, error);
  ASSERT_NE(host, nullptr) << error;
  EXPECT_GT(platform::clock->Now(), 1'000'000'000'000);
}

TEST(MachineHost, SaysWhyAFolderIsNoMachine) {
  const ScratchFolder scratch;
  std::string error;
  EXPECT_EQ(MachineHost::Open(scratch.Root() / "none", std::nullopt, error), nullptr);
  EXPECT_NE(error, "");
  ExpectNothingBound();
}

TEST(MemoryHost, PutsAMachineBehindEveryInterfaceAndTakesItAway) {
  {
    MemoryHost host;
    host.files.AddFile(u"C:\\a", {"content"});
    EXPECT_EQ(platform::fileSystem->ReadFile(u"C:\\A"), "content");
    EXPECT_EQ(platform::shell, &host.shell);
    EXPECT_EQ(platform::eventLogs, &host.eventLogs);
    EXPECT_EQ(platform::dialogs, &host.dialogs);
    EXPECT_EQ(platform::desktop, &host.desktop);
    EXPECT_EQ(platform::instance, &host.instance);
    EXPECT_EQ(platform::clock, &host.clock);
    EXPECT_EQ(platform::registry, &host.mergedRegistry);
    EXPECT_EQ(platform::applicationFolder, kApplicationFolder);
  }
  ExpectNothingBound();
}

TEST(MachineDesktop, KeepsWhatWasDoneToItsWindows) {
  MachineDesktop desktop;
  desktop.windows[u"Help"] = 7;
  EXPECT_EQ(desktop.FindWindowByTitle(u"Help"), 7);
  EXPECT_EQ(desktop.FindWindowByTitle(u"help"), 0);
  desktop.PostWindowMessage(7, 16, 0, 0);
  desktop.SendWindowMessage(8, 161, 2, 0);
  desktop.ReleaseCapture();
  desktop.SetTreeBackColor(9, 0xFF);
  EXPECT_EQ(desktop.messages,
            (std::vector<MachineDesktop::Message>{{7, 16, 0, 0, true}, {8, 161, 2, 0, false}}));
  EXPECT_EQ(desktop.captureReleases, 1);
  EXPECT_EQ(desktop.treeColors[9], 0xFFU);
}

}  // namespace
}  // namespace tavix::machine
