#include "clean/row_description.h"

#include <algorithm>

#include "clean/clean_test.h"
#include "platform/hive_name.h"
#include "scan/action_string.h"

namespace tavix::mdlPubSelf {
namespace {

class RowDescription : public CleanTest {
 protected:
  RowDescription() { CleaningMethod = u"D"; }
  static Text Describe(TextView tag, TextView location = u"C:\\Work", TextView name = u"n") {
    Add(tag, location, name);
    return DescribeRow(frmPubMain.lsvResult.Row(ResultCount()));
  }
  // The user's arrow keys have moved the focus to a row.
  static void Focus(int row) {
    frmPubMain.lsvResult.FocusRow(row);
    frmPubMain.lsvResult.ItemClick();
  }
  static Text Status() { return frmPubMain.lblProgS.Caption; }
};

constexpr TextView kOnly = u"Takes this row off the list and does nothing else.";

TEST_F(RowDescription, TellsWhatTheMethodDoesWithAFile) {
  EXPECT_EQ(Describe(u"F", u"C:\\Work", u"a.tmp"), u"Deletes the file C:\\Work\\a.tmp.");
  EXPECT_EQ(Describe(u"F", u"C:\\", u"a.tmp"), u"Deletes the file C:\\a.tmp.");
  EXPECT_EQ(Describe(u"FT: C:\\Windows\\MEMORY.DMP"), u"Deletes the file C:\\Windows\\MEMORY.DMP.");
  CleaningMethod = u"R";
  EXPECT_EQ(Describe(u"F"), u"Moves the file C:\\Work\\n to the recycle bin.");
  CleaningMethod = u"S";
  BackupFolder = u"D:\\Saved";
  EXPECT_EQ(Describe(u"F"), u"Moves the file C:\\Work\\n to the folder D:\\Saved.");
  CleaningMethod = u"?";
  EXPECT_EQ(Describe(u"F"),
            u"Leaves C:\\Work\\n where it is: the settings have no cleaning method that Tavix knows.");
}

TEST_F(RowDescription, TellsWhatTheMethodDoesWithAFolder) {
  EXPECT_EQ(Describe(u"P"), u"Deletes the folder C:\\Work\\n if it is empty.");
  CleaningMethod = u"R";
  EXPECT_EQ(Describe(u"P"), u"Moves the folder C:\\Work\\n to the recycle bin if it is empty.");
  CleaningMethod = u"S";
  BackupFolder = u"D:\\Saved";
  EXPECT_EQ(Describe(u"P"),
            u"Deletes the folder C:\\Work\\n if it is empty, and makes one of its name in the folder "
            u"D:\\Saved.");
}

TEST_F(RowDescription, TellsThatAnOddNameIsLeftAlone) {
  constexpr TextView kLeft = u"Leaves C:\\Work\\n. alone: Windows would take its name for another one.";
  for (const TextView tag : {u"F", u"P", u"DUR"}) EXPECT_EQ(Describe(tag, u"C:\\Work", u"n."), kLeft);
  EXPECT_EQ(Describe(u"FT: C:\\Work\\n."), kLeft);
}

TEST_F(RowDescription, TellsThatAFileInUseStays) {
  EXPECT_EQ(Describe(u"DUR", u"C:\\Cache\\index.dat", u"index.dat"),
            u"Asks Windows to delete C:\\Cache\\index.dat\\index.dat at its next start. That path has the "
            u"file's name twice, so the file stays.");
  EXPECT_EQ(Describe(u"DUR", u"C:\\Cache", u"a.dat"),
            u"Asks Windows to delete C:\\Cache\\a.dat at its next start.");
}

TEST_F(RowDescription, NamesKeyAndValue) {
  EXPECT_EQ(Describe(u"RK: HKEY_CURRENT_USER, Software\\a"),
            u"Deletes the key HKEY_CURRENT_USER\\Software\\a from the registry, with all below it.");
  EXPECT_EQ(Describe(u"RI: HKEY_LOCAL_MACHINE, Software\\a, v"),
            u"Deletes the value \"v\" of the key HKEY_LOCAL_MACHINE\\Software\\a from the registry.");
  EXPECT_EQ(Describe(u"RI: HKEY_LOCAL_MACHINE, Software\\a, "), kOnly) << "the payload is trimmed";
  EXPECT_EQ(Describe(u"RIs: HKEY_CURRENT_USER, k, a MORVTVXRISSEP HKEY_CURRENT_USER, k, b"),
            u"Deletes the value \"a \" of the key HKEY_CURRENT_USER\\k from the registry. "
            u"Deletes the value \"b\" of the key HKEY_USERS\\k from the registry.");
}

TEST_F(RowDescription, CutsANameWhereTheCleanCutsIt) {
  EXPECT_EQ(Describe(RegistryValueAction(platform::Hive::CurrentUser, u"k", u"a, b")),
            u"Deletes the value \"a\" of the key HKEY_CURRENT_USER\\k from the registry.");
}

TEST_F(RowDescription, FillsInWhatItIsGivenAsItStands) {
  EXPECT_EQ(Describe(u"RI: HKEY_CURRENT_USER, {value}, {key}"),
            u"Deletes the value \"{key}\" of the key HKEY_CURRENT_USER\\{value} from the registry.");
}

TEST_F(RowDescription, NamesCommandLogAndBins) {
  EXPECT_EQ(Describe(u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8"),
            u"Runs the command RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8.");
  EXPECT_EQ(Describe(u"WSL: System"), u"Empties the event log System.");
  EXPECT_EQ(Describe(u"RE"), u"Empties the recycle bins of all drives.");
}

TEST_F(RowDescription, SaysPlainlyThatNothingIsDone) {
  for (const TextView tag : {u"", u"X: y", u"RK", u"RI", u"RIs", u"Cmd", u"WSL", u"FT", u"FT: name",
                             u"FT: C:\\Work\\", u"RK: HKEY_CURRENT_USER", u"RI: HKEY_CURRENT_USER, k"})
    EXPECT_EQ(Describe(tag), kOnly) << Narrow(tag);
  for (const TextView tag : {u"F", u"P"}) EXPECT_EQ(Describe(tag, u"C:\\Work", u""), kOnly);
}

TEST_F(RowDescription, HasWordsForEveryKindOfTag) {
  for (const TextView kind : action::kAll) {
    EXPECT_NE(Describe(Concat(kind, u": HKEY_CURRENT_USER, C:\\k, v")), kOnly) << Narrow(kind);
  }
}

TEST_F(RowDescription, IsShownWhenTheUserMovesTheFocusToARow) {
  Add(u"RE");
  Add(u"WSL: Application");
  Focus(2);
  EXPECT_EQ(Status(), u"Empties the event log Application.");
  Focus(1);
  EXPECT_EQ(Status(), u"Empties the recycle bins of all drives.");
}

TEST_F(RowDescription, LeavesTheStatusLineToAJob) {
  Add(u"RE");
  frmPubMain.lblProgS.Caption = u"Scanning";
  frmPubMain.sbtCancel.Visible = true;
  Focus(1);
  EXPECT_EQ(Status(), u"Scanning");
  frmPubMain.sbtCancel.Visible = false;
  frmPubMain.CleanBusy = true;
  Focus(1);
  EXPECT_EQ(Status(), u"Scanning");
  frmPubMain.CleanBusy = false;
}

TEST_F(RowDescription, AgreesWithWhatTheCleanDoes) {
  machine.files.AddFile(u"C:\\Work\\a.tmp", {.content = "x"});
  EXPECT_EQ(Describe(u"F", u"C:\\Work", u"a.tmp"), u"Deletes the file C:\\Work\\a.tmp.");
  EXPECT_EQ(Describe(u"Cmd: tool.exe"), u"Runs the command tool.exe.");
  EXPECT_EQ(Describe(u"WSL: System"), u"Empties the event log System.");
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FileThere(u"C:\\Work\\a.tmp"));
  const auto calls = Calls();
  EXPECT_NE(std::ranges::find(calls, u"RunTarget"), calls.end());
  EXPECT_NE(std::ranges::find(calls, u"ClearEventLog"), calls.end());
}

}  // namespace
}  // namespace tavix::mdlPubSelf
