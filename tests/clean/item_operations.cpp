#include "clean/item_operations.h"

#include <utility>

#include "clean/clean_test.h"
#include "doubles/memory_file_system.h"
#include "doubles/memory_shell.h"
#include "doubles/memory_store.h"
#include "forms/main_form.h"
#include "forms/type_form.h"
#include "frame/support/pub_registry.h"
#include "frame/support/pub_system.h"
#include "platform/machine/services/machine_registry.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kExecute = 0;
constexpr int kOpen = 1;
constexpr int kProperties = 2;
constexpr int kInvert = 3;
constexpr TextView kEditorKey = u"Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit";

using Texts = std::vector<Text>;

class ItemOperations : public CleanTest {
 protected:
  static void Press(int index) { frmPubMain.sbtToolbar[static_cast<size_t>(index)].Click(); }
  static void AddSelected(TextView tag, TextView location = u"C:\\Work", TextView name = u"n") {
    Add(tag, location, name);
    frmPubMain.lsvResult.Row(ResultCount()).SetSelected(true);
  }
  // Takes the calls since the last TakeCalls, such as "OpenPath C:\Work".
  Texts TakeCalls() {
    Texts calls;
    for (const auto& entry : machine.journal.Entries()) {
      calls.push_back(Concat(entry.op, u" ", entry.Get(entry.op.starts_with(u"Run") ? u"target" : u"path")));
    }
    machine.journal.Clear();
    return calls;
  }
  Text LastKey() {
    return machineRegistry.ReadValue(platform::Hive::CurrentUser, kEditorKey, u"LastKey").value_or(u"none");
  }
};

const Texts kEditor = {u"RunHidden ntsd -c q -pn regedit.exe cmd.exe", u"RunTarget regedit.exe"};

TEST_F(ItemOperations, InvertCheckOnAnEmptyListDoesNothing) {
  Press(kInvert);
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(TakeCalls(), Texts{});
}

TEST_F(ItemOperations, InvertCheckIgnoresTheSelectionAndFlipsAllRows) {
  AddSelected(u"F");
  Add(u"RE");
  AddSelected(u"RK: HKEY_CURRENT_USER, a");
  Add(u"");
  frmPubMain.lsvResult.Row(2).SetChecked(false);
  Press(kInvert);
  const auto checks = [] {
    std::vector<bool> all;
    for (const RowFields& row : ResultRows()) all.push_back(row.checked);
    return all;
  };
  EXPECT_EQ(checks(), (std::vector<bool>{false, true, false, false}));
  Press(kInvert);
  EXPECT_EQ(checks(), (std::vector<bool>{true, false, true, true}));
  EXPECT_TRUE(frmPubMain.lsvResult.Row(1).Selected());
  EXPECT_EQ(TakeCalls(), Texts{});
}

TEST_F(ItemOperations, EachCommandServesFilesFoldersAndLockedFiles) {
  for (const TextView kind : {u"F", u"P", u"DUR"}) {
    ClearResults();
    AddSelected(kind, u"C:\\Work", u"a b.txt");
    Press(kExecute);
    EXPECT_EQ(TakeCalls(), Texts{u"OpenPath C:\\Work\\a b.txt"});
    Press(kOpen);
    EXPECT_EQ(TakeCalls(), Texts{u"OpenPath C:\\Work"});
    Press(kProperties);
    EXPECT_EQ(TakeCalls(), Texts{u"ShowFileProperties C:\\Work\\a b.txt"});
  }
}

TEST_F(ItemOperations, PathsAreOpenedMaximised) {
  AddSelected(u"F");
  Press(kExecute);
  Press(kOpen);
  for (const auto& entry : machine.journal.Entries()) EXPECT_EQ(entry.Get(u"style"), u"3");
  EXPECT_EQ(machine.journal.Entries().size(), 2U);
}

TEST_F(ItemOperations, OtherKindsAreServedByNoneOfTheThree) {
  for (const TextView tag : {u"FT: C:\\dump.dmp", u"Cmd: x.exe", u"WSL: System", u"RE", u"", u"f", u"F ",
                             u"rk: HKEY_CURRENT_USER, a", u"XX: y"}) {
    AddSelected(tag);
  }
  for (const int index : {kExecute, kOpen, kProperties}) Press(index);
  EXPECT_EQ(TakeCalls(), Texts{});
  EXPECT_EQ(LastKey(), u"none");
}

TEST_F(ItemOperations, ExecuteAndPropertiesPassRegistryRowsOver) {
  AddSelected(u"RK: HKEY_CURRENT_USER, a");
  AddSelected(u"F");
  Press(kExecute);
  EXPECT_EQ(TakeCalls(), Texts{u"OpenPath C:\\Work\\n"});
  Press(kProperties);
  EXPECT_EQ(TakeCalls(), Texts{u"ShowFileProperties C:\\Work\\n"});
  EXPECT_EQ(LastKey(), u"none");
}

TEST_F(ItemOperations, RowsThatAreNotSelectedArePassedOver) {
  Add(u"F", u"C:\\Work", u"ticked but not selected");
  AddSelected(u"F", u"C:\\Work", u"selected");
  frmPubMain.lsvResult.Row(2).SetChecked(false);
  Add(u"RK: HKEY_CURRENT_USER, a");
  for (const int index : {kExecute, kOpen, kProperties}) Press(index);
  EXPECT_EQ(TakeCalls(), (Texts{u"OpenPath C:\\Work\\selected", u"OpenPath C:\\Work",
                                u"ShowFileProperties C:\\Work\\selected"}));
}

TEST_F(ItemOperations, WithTwelveSelectedFilesTheFirstTenAreServedInRowOrder) {
  for (int i = 1; i <= 12; ++i) AddSelected(u"F", u"C:\\Work", ToText(i));
  for (const int index : {kExecute, kOpen, kProperties}) {
    SCOPED_TRACE(Case(index));
    Press(index);
    const Texts calls = TakeCalls();
    ASSERT_EQ(calls.size(), 10U);
    if (index == kOpen) continue;
    EXPECT_TRUE(calls.front().ends_with(u"\\1"));
    EXPECT_TRUE(calls.back().ends_with(u"\\10"));
  }
}

TEST_F(ItemOperations, RowsThatArePassedOverDoNotCountTowardsTheTen) {
  for (int i = 1; i <= 12; ++i) {
    AddSelected(u"RE");
    AddSelected(u"F", u"C:\\Work", ToText(i));
  }
  Press(kExecute);
  EXPECT_EQ(TakeCalls().back(), u"OpenPath C:\\Work\\10");
}

TEST_F(ItemOperations, APathThatFailsCountsTowardsTheTen) {
  machine.shell.faults.Fail(u"OpenPath");
  for (int i = 1; i <= 12; ++i) AddSelected(u"F", u"C:\\Work", ToText(i));
  Press(kExecute);
  EXPECT_EQ(TakeCalls().size(), 10U);
}

TEST_F(ItemOperations, EachClickCountsAnew) {
  for (int i = 1; i <= 6; ++i) AddSelected(u"F", u"C:\\Work", ToText(i));
  Press(kExecute);
  Press(kExecute);
  EXPECT_EQ(TakeCalls().size(), 12U);
}

TEST_F(ItemOperations, TwoFilesOfOneFolderOpenItTwice) {
  AddSelected(u"F", u"C:\\Work", u"a");
  AddSelected(u"F", u"C:\\Work", u"b");
  Press(kOpen);
  EXPECT_EQ(TakeCalls(), (Texts{u"OpenPath C:\\Work", u"OpenPath C:\\Work"}));
}

TEST_F(ItemOperations, OpenEndsAtTheFirstRegistryRow) {
  AddSelected(u"F", u"C:\\Work", u"first");
  AddSelected(u"RK: HKEY_CURRENT_USER, Software\\Second", u"Registry");
  AddSelected(u"F", u"C:\\Third", u"third");
  Press(kOpen);
  EXPECT_EQ(TakeCalls(), (Texts{u"OpenPath C:\\Work", kEditor[0], kEditor[1]}));
  EXPECT_EQ(LastKey(), u"HKEY_CURRENT_USER\\Software\\Second");
}

TEST_F(ItemOperations, OpenReachesARegistryRowAfterTenFiles) {
  for (int i = 1; i <= 10; ++i) AddSelected(u"F", u"C:\\Work", ToText(i));
  AddSelected(u"RK: HKEY_CURRENT_USER, a", u"Registry");
  Press(kOpen);
  EXPECT_EQ(TakeCalls().size(), 12U);
  EXPECT_EQ(LastKey(), u"HKEY_CURRENT_USER\\a");
}

TEST_F(ItemOperations, OpenEndsAtTheEleventhFileBeforeARegistryRow) {
  for (int i = 1; i <= 11; ++i) AddSelected(u"F", u"C:\\Work", ToText(i));
  AddSelected(u"RK: HKEY_CURRENT_USER, a", u"Registry");
  Press(kOpen);
  EXPECT_EQ(TakeCalls().size(), 10U);
  EXPECT_EQ(LastKey(), u"none");
}

TEST_F(ItemOperations, TheRegistryEditorOpensAtTheKeyOfTheRow) {
  const struct {
    TextView tag, key;
  } table[] = {
      {u"RK: HKEY_CLASSES_ROOT, CLSID\\{x}", u"HKEY_CLASSES_ROOT\\CLSID\\{x}"},
      {u"RK: HKEY_CURRENT_USER, a, b, c", u"HKEY_CURRENT_USER\\a\\b\\c"},
      {u"RK: HKEY_CURRENT_USER, ends in a blank ", u"HKEY_CURRENT_USER\\ends in a blank "},
      {u"RK:  HKEY_CURRENT_USER, a", u" HKEY_CURRENT_USER\\a"},
      {u"RK: HKEY_CURRENT_USER, a: b", u"HKEY_CURRENT_USER\\a"},
      {u"RK: HKEY_CURRENT_USER, ", u"HKEY_CURRENT_USER\\"},
      {u"RI: HKEY_CURRENT_USER, Software\\Run, value", u"HKEY_CURRENT_USER\\Software\\Run"},
      {u"RI:   HKEY_CURRENT_USER, a, b, c ", u"HKEY_CURRENT_USER\\a"},
      {u"RI: HKEY_CURRENT_USER, a ", u"HKEY_CURRENT_USER\\a"},
      {u"RIs: HKEY_CURRENT_USER, a\\b, IconStreams MORVTVXRISSEP HKEY_CURRENT_USER, c, PastIconsStream",
       u"HKEY_CURRENT_USER\\a\\b"},
      {u"RIs:  HKEY_CURRENT_USER, a  MORVTVXRISSEP ", u"HKEY_CURRENT_USER\\a"},
  };
  for (const auto& row : table) {
    ClearResults();
    AddSelected(row.tag, u"Registry");
    Press(kOpen);
    EXPECT_EQ(LastKey(), row.key) << Narrow(row.tag);
    EXPECT_EQ(TakeCalls(), kEditor);
  }
}

TEST_F(ItemOperations, ATagThatNamesNoKeyOpensTheEditorAtNone) {
  for (const TextView tag : {u"RK", u"RI", u"RIs", u"RI: HKEY_CURRENT_USER", u"RIs: MORVTVXRISSEP"}) {
    ClearResults();
    machineRegistry.WriteString(platform::Hive::CurrentUser, kEditorKey, u"LastKey", u"of before");
    AddSelected(tag, u"Registry");
    Press(kOpen);
    EXPECT_EQ(LastKey(), u"") << Narrow(tag);
    EXPECT_EQ(TakeCalls(), kEditor);
  }
}

TEST_F(ItemOperations, TheEditorIsEndedBeforeAndOpenedAfterTheKeyIsWritten) {
  AddSelected(u"RK: HKEY_CURRENT_USER, a", u"Registry");
  Press(kOpen);
  ASSERT_EQ(machine.journal.Entries().size(), 2U);
  EXPECT_EQ(machine.journal.Entries()[0].op, u"RunHidden");
  EXPECT_EQ(machine.journal.Entries()[1].Get(u"style"), u"3");
}

// A shell that does nothing but note what `look` returns at each call.
class Watching : public platform::Shell {
 public:
  explicit Watching(std::function<Text()> look) : look_(std::move(look)) {}
  bool RunTarget(TextView, int) override { return Note(); }
  bool OpenPath(TextView, int) override { return Note(); }
  bool RunHidden(TextView) override { return Note(); }
  bool ShowFileProperties(platform::WindowHandle owner, TextView) override {
    owner_ = owner;
    return Note();
  }
  bool DeleteToRecycleBin(TextView) override { return false; }
  bool EmptyRecycleBin(platform::WindowHandle) override { return false; }
  std::optional<Text> RecycleBinInfo() override { return std::nullopt; }
  bool DeleteAtRestart(TextView) override { return false; }
  std::optional<Text> SpecialFolderByNumber(int) override { return std::nullopt; }
  std::optional<Text> SpecialFolderByName(TextView) override { return std::nullopt; }
  std::optional<Text> UserTempFolder() override { return std::nullopt; }
  std::optional<Text> SystemTempFolder() override { return std::nullopt; }
  std::optional<std::vector<Text>> NamedFolders() override { return std::nullopt; }
  std::optional<Text> EnvironmentVariable(TextView) override { return std::nullopt; }
  Text ExpandEnvironment(TextView text) override { return Text(text); }
  std::optional<platform::Shortcut> OpenShortcut(TextView) override { return std::nullopt; }

  const Texts& Seen() const { return seen_; }
  platform::WindowHandle Owner() const { return owner_; }

 private:
  bool Note() {
    seen_.push_back(look_());
    return true;
  }

  std::function<Text()> look_;
  Texts seen_;
  platform::WindowHandle owner_ = 0;
};

TEST_F(ItemOperations, TheKeyIsWrittenBetweenTheEndOfTheEditorAndItsStart) {
  Watching shell([this] { return LastKey(); });
  pubSystem = clsPubSystem({&shell, platform::fileSystem, platform::dialogs, platform::desktop});
  platform::Shell* const before = std::exchange(platform::shell, &shell);
  AddSelected(u"RK: HKEY_CURRENT_USER, a", u"Registry");
  Press(kOpen);
  platform::shell = before;
  EXPECT_EQ(shell.Seen(), (Texts{u"none", u"HKEY_CURRENT_USER\\a"}));
}

TEST_F(ItemOperations, TheMainWindowOwnsThePropertySheet) {
  Watching shell([] { return Text(); });
  pubSystem = clsPubSystem({&shell, platform::fileSystem, platform::dialogs, platform::desktop});
  frmPubMain.hWnd = 4711;
  AddSelected(u"F");
  Press(kProperties);
  EXPECT_EQ(shell.Owner(), 4711);
  frmPubMain.hWnd = 0;
}

TEST_F(ItemOperations, WithoutServicesNothingHappens) {
  AddSelected(u"F");
  AddSelected(u"RK: HKEY_CURRENT_USER, a", u"Registry");
  pubRegistry = {};
  machine.shell.faults.Fail(u"RunHidden");
  Press(kOpen);
  EXPECT_EQ(LastKey(), u"none");
  EXPECT_EQ(ResultCount(), 2);
}

TEST_F(ItemOperations, OtherIndexesDoNothing) {
  AddSelected(u"F");
  for (const int index : {-1, 4, 99}) sbtToolbar_Click(index);
  EXPECT_EQ(TakeCalls(), Texts{});
  EXPECT_TRUE(ResultRows()[0].checked);
}

TEST_F(ItemOperations, TheMenuHasTheCommandsOfTheToolbar) {
  AddSelected(u"F");
  frmPubType.menrx.Click();
  EXPECT_EQ(TakeCalls(), Texts{u"OpenPath C:\\Work\\n"});
  frmPubType.menro.Click();
  EXPECT_EQ(TakeCalls(), Texts{u"OpenPath C:\\Work"});
  frmPubType.menrp.Click();
  EXPECT_EQ(TakeCalls(), Texts{u"ShowFileProperties C:\\Work\\n"});
  frmPubType.menri.Click();
  EXPECT_FALSE(ResultRows()[0].checked);
}

TEST_F(ItemOperations, TheRightButtonAloneShowsTheMenuOnAnEmptyListToo) {
  int shown = 0;
  frmPubType.menr.Popup = [&shown] { ++shown; };
  for (const int button : {kLeftButton, 0, 4, kRightButton}) frmPubMain.lsvResult.MouseUp(button);
  EXPECT_EQ(shown, 1);
  AddSelected(u"F");
  frmPubMain.lsvResult.MouseUp(kRightButton);
  EXPECT_EQ(shown, 2);
}

TEST_F(ItemOperations, ARightClickOnTheEmptyPartHasCommandsThatFindNoRowButInvertCheck) {
  frmPubType.menr.Popup = [] {
    for (MenuItem* entry : frmPubType.menr.Items) entry->Click();
  };
  Add(u"F");
  frmPubMain.lsvResult.MouseUp(kRightButton);
  EXPECT_EQ(TakeCalls(), Texts{});
  EXPECT_FALSE(ResultRows()[0].checked);
}

TEST_F(ItemOperations, TheCatalogueOfMenusIsReadBeforeTheMenuIsShownForTheFirstTime) {
  machine.files.AddFile(Concat(machine::kApplicationFolder, u"\\menus.dll"),
                        {.content = "[frmPubType]\r\nmenrx=Ausf\xFC"
                                    "hren\r\n"});
  Text shown;
  frmPubType.menr.Popup = [&shown] { shown = frmPubType.menrx.Caption; };
  frmPubMain.lsvResult.MouseUp(kRightButton);
  EXPECT_EQ(shown, u"Ausführen");
  frmPubType.menrx.Caption = u"by hand";
  frmPubMain.lsvResult.MouseUp(kRightButton);
  EXPECT_EQ(shown, u"by hand") << "read once";
}

// Clears the list while a program is started: the user interface can run then, and start a scan.
class ClearingShell : public machine::MachineShell {
 public:
  using MachineShell::MachineShell;
  bool OpenPath(TextView path, int style) override {
    ClearResults();
    AddResultItem(u"t", u"new", kNoSize, u"C:\\New", kNoSizeKey, u"F");
    return MachineShell::OpenPath(path, style);
  }
};

TEST_F(ItemOperations, RowsThatGoDuringACommandAreNotReached) {
  ClearingShell shell(machine.store, machine.fileSystem, machine.facts, machine.journal);
  pubSystem = clsPubSystem({.shell = &shell});
  for (int i = 1; i <= 3; ++i) AddSelected(u"F", u"C:\\Work", ToText(i));
  Press(kExecute);
  EXPECT_EQ(TakeCalls(), Texts{u"OpenPath C:\\Work\\1"});
  EXPECT_EQ(ResultCount(), 1);
}

class WordsOfACommand : public ItemOperations {
 protected:
  static Text Status() { return frmPubMain.lblProgS.Caption; }
};

TEST_F(WordsOfACommand, SayThatNothingIsHighlighted) {
  for (const int index : {kExecute, kOpen, kProperties}) {
    frmPubMain.lblProgS.Caption = u"before";
    Press(index);
    EXPECT_EQ(Status(), u"No row of the list is highlighted, so this command has nothing to work on.")
        << index;
  }
}

TEST_F(WordsOfACommand, SayWhichKindsOfRowsItWorksOn) {
  AddSelected(u"RE");
  const Texts said = {
      u"Only files and folders can be executed, and no highlighted row is one.",
      u"Only files, folders and entries of the registry can be opened, and no highlighted row is one.",
      u"Only files and folders have properties, and no highlighted row is one."};
  for (const int index : {kExecute, kOpen, kProperties}) {
    Press(index);
    EXPECT_EQ(Status(), said[static_cast<size_t>(index)]);
  }
  EXPECT_EQ(TakeCalls(), Texts{});
}

TEST_F(WordsOfACommand, SayThatRowsWereLeftOut) {
  AddSelected(u"F", u"C:\\Work", u"a.txt");
  AddSelected(u"Cmd: x");
  Press(kExecute);
  EXPECT_EQ(Status(), u"Highlighted rows that are no files or folders were left out.");
  EXPECT_EQ(TakeCalls(), Texts{u"OpenPath C:\\Work\\a.txt"});
}

TEST_F(WordsOfACommand, SayThatWindowsWouldReadTheNameAsAnother) {
  AddSelected(u"F", u"C:\\Work", u"a.txt.");
  Press(kExecute);
  EXPECT_EQ(Status(), u"Leaves C:\\Work\\a.txt. alone: Windows would take its name for another one.");
  EXPECT_EQ(TakeCalls(), Texts{});
}

TEST_F(WordsOfACommand, AreSparedIfItHasWorked) {
  frmPubMain.lblProgS.Caption = u"before";
  AddSelected(u"F");
  for (const int index : {kExecute, kOpen, kProperties, kInvert}) Press(index);
  for (int i = 0; i < 12; ++i) AddSelected(u"F");
  Press(kExecute);
  frmPubMain.lsvResult.Clear();
  AddSelected(u"RK: HKEY_CURRENT_USER, Software\\a");
  Press(kOpen);
  Press(kInvert);
  EXPECT_EQ(Status(), u"before");
}

TEST_F(WordsOfACommand, LeaveTheLineToAJob) {
  frmPubMain.lblProgS.Caption = u"before";
  frmPubMain.sbtCancel.Visible = true;
  Press(kExecute);
  EXPECT_EQ(Status(), u"before");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
