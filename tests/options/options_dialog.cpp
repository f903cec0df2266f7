#include "options/options_dialog.h"

#include "catalogue/functions.h"
#include "catalogue/pages.h"
#include "forms/main_form.h"
#include "junk/junk_definitions.h"
#include "options/options_test.h"
#include "platform/file_system.h"

namespace tavix::mdlPubSelf {
namespace {

class OptionsDialog : public OptionsTest {
 protected:
  // The lines of a file.
  std::vector<std::string> LinesOf(TextView file) {
    std::vector<std::string> lines;
    std::string content = File(file);
    for (size_t end; (end = content.find("\r\n")) != std::string::npos; content.erase(0, end + 2)) {
      lines.push_back(content.substr(0, end));
    }
    EXPECT_EQ(content, "");
    return lines;
  }
  // What a save did not write: missing keys, and files with their old content.
  std::vector<std::string> Unwritten() {
    std::vector<std::string> names;
    const std::string settings = SettingsFile();
    for (const char* key : {"Functions", "Method", "Backup Folder", "Size", "Modified", "Only Common",
                            "Need Least", "Least Size", "Common Types", "Interface Size",
                            "Last Accessed File", "Last Accessed Prefetch", "Except Folders"}) {
      if (settings.find("\n" + std::string(key) + "=") == std::string::npos) names.emplace_back(key);
    }
    if (File(kBuiltInJunkFile) == kOldContent) names.emplace_back("built-in types");
    if (File(kUserJunkFile) == kOldContent) names.emplace_back("user's types");
    return names;
  }

  static constexpr const char* kOldContent = "Of before\t*.before\tY\tY\r\n";
  static bool IsGrey(int row) { return frmPubOptions.lsvJF.Row(row).ForeColor() == 0x80000011; }
  static Node& Function(TextView key) { return *frmPubOptions.trvOC.NodeByKey(key); }
};

TEST_F(OptionsDialog, SaveWithoutCommonTypesIsRefusedOnEveryPage) {
  Open(3);
  const std::string before = SettingsFile();
  frmPubOptions.lstDF.Clear();
  frmPubOptions.txtDFSS.Text = u"77";
  frmPubOptions.txtOO[0].Text = u"77";
  machine.files.DeleteFile(kBuiltInJunkFile, true);
  for (int page = 1; page <= 5; ++page) {
    frmPubOptions.trv.NodeClick(*frmPubOptions.trv.NodeAt(page));
    frmPubOptions.sbtSave.Click();
  }
  EXPECT_EQ(Messages(), std::vector(5, InformationOf(u"NEED_COMM")));
  EXPECT_EQ(SettingsFile(), before);
  EXPECT_EQ(File(kBuiltInJunkFile), "missing");
  EXPECT_EQ(LeastSize, u"10");
  frmPubOptions.optDF[0].Value = true;
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(Messages().size(), 5U);
  EXPECT_EQ(CommonTypes, u"");
  EXPECT_EQ(LeastSize, u"77");
}

TEST_F(OptionsDialog, SaveOfWhatWasOpenedChangesNothing) {
  WriteUserTypes("Mine\t*.aaa\tY\tN\r\n");
  Start();
  const std::string settings = SettingsFile();
  const std::string builtIn = File(kBuiltInJunkFile);
  const std::string users = File(kUserJunkFile);
  Open();
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(SettingsFile(), settings);
  EXPECT_EQ(File(kBuiltInJunkFile), builtIn);
  EXPECT_EQ(File(kUserJunkFile), users);
  EXPECT_TRUE(Messages().empty());
}

TEST_F(OptionsDialog, SaveWritesANewFileWithItsKeysInTheirOrder) {
  Open();
  frmPubOptions.optCM[2].Value = true;
  machine.files.DeleteFile(kSettingsFile, true);
  frmPubOptions.sbtSave.Click();
  std::vector<std::string> names;
  for (const std::string& line : LinesOf(kSettingsFile)) names.push_back(line.substr(0, line.find('=')));
  EXPECT_EQ(names, (std::vector<std::string>{
                       "[One-click Clean/Repair]", "Functions", "[Cleaning Method]", "Method",
                       "Backup Folder", "[Duplicate Files]", "Size", "Modified", "Only Common", "Need Least",
                       "Least Size", "Common Types", "[Other Options]", "Interface Size",
                       "Last Accessed File", "Last Accessed Prefetch", "Except Folders"}));
}

// Each call to the disk fails in turn. What is then not written shows the order of the writes.
TEST_F(OptionsDialog, SaveWritesTheJunkTypesAfterTheCommonTypesAndBeforeTheOtherOptions) {
  Open();
  frmPubOptions.optCM[2].Value = true;
  std::vector<std::string> written;
  for (int failing = 1, calls = failing; failing <= calls; ++failing) {
    machine.files.DeleteFile(kSettingsFile, true);
    for (const TextView file : {kBuiltInJunkFile, kUserJunkFile}) {
      machine.files.AddFile(file, {.content = kOldContent});
    }
    const int before = machine.files.faults.Calls();
    machine.files.faults.FailCall(failing);
    frmPubOptions.sbtSave.Click();
    machine.files.faults.Clear();
    calls = machine.files.faults.Calls() - before;
    const std::vector<std::string> unwritten = Unwritten();
    ASSERT_LE(unwritten.size(), 1U) << failing;
    if (!unwritten.empty() && (written.empty() || written.back() != unwritten[0])) {
      written.push_back(unwritten[0]);
    }
  }
  EXPECT_EQ(written,
            (std::vector<std::string>{"Functions", "Method", "Backup Folder", "Size", "Modified",
                                      "Only Common", "Need Least", "Least Size", "Common Types",
                                      "built-in types", "user's types", "Interface Size",
                                      "Last Accessed File", "Last Accessed Prefetch", "Except Folders"}));
}

TEST_F(OptionsDialog, SaveWithNothingTickedWritesABar) {
  Open();
  for (int i = 1; i <= frmPubOptions.trvOC.NodeCount(); ++i) frmPubOptions.trvOC.NodeAt(i)->Checked = false;
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(Functions, u"|");
  EXPECT_NE(SettingsFile().find("Functions=|\r\n"), std::string::npos);
}

TEST_F(OptionsDialog, SaveKeepsTheWindowOpenAndCloseSavesNothing) {
  Open(5);
  int closed = 0;
  frmPubOptions.Unload = [&closed] { ++closed; };
  frmPubOptions.txtOO[0].Text = u"100";
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(closed, 0);
  EXPECT_EQ(LastAccessedFile, u"100");
  frmPubOptions.txtOO[0].Text = u"200";
  const std::string saved = SettingsFile();
  Close();
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(SettingsFile(), saved);
  Open(5);
  EXPECT_EQ(frmPubOptions.txtOO[0].Text.Get(), u"100");
}

TEST_F(OptionsDialog, CloseDoesNotUndoWhatTheTypeEditorWrote) {
  Open(2);
  InTypeWindow([] {
    EnterType(u"Mine", u"*.mine");
    frmPubType.sbt[1].Click();
  });
  frmPubOptions.sbtJF[0].Click();
  Close();
  Open(2);
  EXPECT_NE(JunkRow(u"*.mine"), 0);
}

TEST_F(OptionsDialog, NothingOfAnEarlierOpeningIsLeft) {
  Open();
  const int rows = frmPubOptions.lsvJF.Count();
  frmPubOptions.lsvJF.ColumnClick(2);
  frmPubOptions.optOO[0].Value = true;
  frmPubOptions.optCM[2].Value = true;
  frmPubOptions.cbxDF[1].Value = 0;
  Function(u"Time Zones").Checked = true;
  frmPubOptions.lsvOO.Clear();
  Close();
  Open();
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows);
  EXPECT_EQ(frmPubOptions.lsvJF.Row(1).SubItems(1), u"*.old");
  EXPECT_TRUE(frmPubOptions.optOO[2].Value);
  EXPECT_TRUE(frmPubOptions.optCM[0].Value);
  EXPECT_EQ(frmPubOptions.cbxDF[1].Value, 1);
  EXPECT_FALSE(Function(u"Time Zones").Checked);
  EXPECT_EQ(frmPubOptions.lsvOO.Count(), 6);
}

TEST_F(OptionsDialog, UntickedBuiltInRowIsSavedWithItsMarkAndKeepsItsFlag) {
  Open(2);
  const std::vector<std::string> before = LinesOf(kBuiltInJunkFile);
  frmPubOptions.lsvJF.Row(JunkRow(u"*.tmp")).SetChecked(false);
  frmPubOptions.lsvJF.Row(JunkRow(u"*.bak")).SetChecked(true);
  frmPubOptions.sbtSave.Click();
  const std::vector<std::string> after = LinesOf(kBuiltInJunkFile);
  ASSERT_EQ(after.size(), 56U);
  for (size_t i = 0; i < before.size(); ++i) {
    const std::string expected = before[i] == "Temporary Files\t*.tmp\tY\tY" ? "Temporary Files\t*.tmp\tY\tN"
                                 : before[i] == "Backup Files\t*.bak\tN\tN"  ? "Backup Files\t*.bak\tN\tY"
                                                                             : before[i];
    EXPECT_EQ(after[i], expected);
  }
  EXPECT_EQ(std::ranges::count(JunkTypes, u"Temporary Files|*.tmp|Y|N|D"), 1) << "loaded again";
}

TEST_F(OptionsDialog, UserRowKeepsFourFieldsAndIsAlwaysRecommended) {
  WriteUserTypes("Mine\t*.aaa\tN\tN\tU\r\nMine\t*.bbb\tN\tY\tU\tmore\r\n");
  Open(2);
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(LinesOf(kUserJunkFile), (std::vector<std::string>{"Mine\t*.aaa\tY\tN", "Mine\t*.bbb\tY\tY"}));
}

TEST_F(OptionsDialog, EmptyListLeavesTheJunkFilesAlone) {
  WriteUserTypes("Mine\t*.aaa\tN\tN\tU\r\n");
  Open(2);
  const std::string builtIn = File(kBuiltInJunkFile);
  frmPubOptions.lsvJF.Clear();
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(File(kBuiltInJunkFile), builtIn);
  EXPECT_EQ(File(kUserJunkFile), "Mine\t*.aaa\tN\tN\tU\r\n");
}

TEST_F(OptionsDialog, CrashDuringSaveLosesNoJunkType) {
  WriteUserTypes("Mine\t*.aaa\tY\tY\r\n");
  Open(2);
  const std::string builtIn = File(kBuiltInJunkFile);
  machine.files.faults.Fail(u"WriteFile");
  machine.files.faults.Fail(u"AppendToFile");
  frmPubOptions.lsvJF.Row(1).SetChecked(false);
  frmPubOptions.sbtSave.Click();
  machine.files.faults.Clear();
  EXPECT_EQ(File(kBuiltInJunkFile), builtIn);
  EXPECT_EQ(File(kUserJunkFile), "Mine\t*.aaa\tY\tY\r\n");
}

TEST_F(OptionsDialog, RowOfTheAdvancedPageFollowsItsDaysWhileThatPageIsCurrent) {
  Start();
  picAdv_MouseUp(kLeftButton);
  Open(5);
  frmPubOptions.txtOO[0].Text = u"0090";
  frmPubMain.picAdv.BorderStyle = 0;
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(frmPubMain.lst.List(4), u"Last Accessed 365 Days Before") << "another page is current";
  frmPubMain.picAdv.BorderStyle = 1;
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(frmPubMain.lst.List(4), u"Last Accessed 0090 Days Before") << "as it is in the box";
  EXPECT_TRUE(frmPubMain.lst.Selected(4));
  frmPubOptions.txtOO[0].Text = u"90";
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(frmPubMain.lst.List(4), u"Last Accessed 0090 Days Before")
      << "the setting has these days already";
}

TEST_F(OptionsDialog, RecommendBringsTheBuiltInTableBackAndKeepsTheUsersType) {
  WriteUserTypes("Mine\t*.aaa\tY\tN\r\n");
  machine.files.AddFile(kBuiltInJunkFile, {.content = "Broken\t*.one\tY\tY\r\nBroken\t*.two\tN\tN\r\n"});
  Open(2);
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), 3);
  frmPubOptions.sbtRecommend.Click();
  ASSERT_EQ(frmPubOptions.lsvJF.Count(), 57);
  EXPECT_TRUE(IsGrey(56));
  EXPECT_EQ(frmPubOptions.lsvJF.Row(57).SubItems(1), u"*.aaa");
  EXPECT_FALSE(IsGrey(57));
  EXPECT_FALSE(frmPubOptions.lsvJF.Row(57).Checked()) << "with its mark";
  EXPECT_EQ(File(kUserJunkFile), "Mine\t*.aaa\tY\tN\r\n");
  EXPECT_TRUE(Messages().empty()) << "no confirmation";
}

TEST_F(OptionsDialog, RecommendBringsTheBuiltInTableBackOverAReadOnlyFile) {
  Start();
  const std::string table = File(kBuiltInJunkFile);
  machine.files.AddFile(kBuiltInJunkFile, {.content = "Broken\t*.one\tY\tY\r\nBroken\t*.two\tN\tN\r\n",
                                           .attributes = platform::kReadOnly});
  LoadJunkDefinitions();
  Open(2);
  ASSERT_EQ(frmPubOptions.lsvJF.Count(), 2);
  frmPubOptions.sbtRecommend.Click();
  EXPECT_EQ(File(kBuiltInJunkFile), table);
  EXPECT_EQ(LinesOf(kBuiltInJunkFile).size(), 56U);
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), 56);
  EXPECT_EQ(JunkTypes.size(), 56U);
}

TEST_F(OptionsDialog, RecommendPutsEverySettingBack) {
  Start();
  const std::string defaults = SettingsFile();
  for (const Setting* setting : Setting::All()) WriteSetting(*setting, u"changed");
  LoadSettings();
  Open();
  frmPubOptions.sbtRecommend.Click();
  EXPECT_EQ(SettingsFile(), defaults);
  EXPECT_EQ(frmPubOptions.txtDF.Text.Get(), u"C:\\TVXBak");
  EXPECT_TRUE(frmPubOptions.optCM[0].Value);
  EXPECT_FALSE(frmPubOptions.txtDF.Enabled);
  EXPECT_EQ(frmPubOptions.lsvOO.Count(), 6);
  EXPECT_EQ(frmPubOptions.txtOO[0].Text.Get(), u"365");
  EXPECT_EQ(frmPubOptions.cbxDF[1].Value, 1);
}

TEST_F(OptionsDialog, RecommendKeepsTicksOnTheScreenAndSaveWouldTakeThemOver) {
  Open();
  frmPubOptions.trvOC.UserCheck(Function(u"Time Zones"), true);
  frmPubOptions.trvOC.UserCheck(Function(u"iec"), false);
  frmPubOptions.sbtRecommend.Click();
  EXPECT_TRUE(Function(u"iec").Checked);
  EXPECT_TRUE(Function(u"Time Zones").Checked);
  EXPECT_EQ(Functions.find(u"Time Zones"), Text::npos);
  frmPubOptions.sbtSave.Click();
  EXPECT_NE(Functions.find(u"|Time Zones|"), Text::npos);
}

TEST_F(OptionsDialog, TreesTakeTheColoursOfTheListOfJunkTypes) {
  Start();
  frmPubOptions.lsvJF.BackColor = 0x00010203;
  frmPubOptions.lsvJF.ForeColor = 0x00F0F0F0;
  Open();
  for (TreeView* tree : {&frmPubOptions.trv, &frmPubOptions.trvOC}) {
    for (int i = 1; i <= tree->NodeCount(); ++i) {
      EXPECT_EQ(tree->NodeAt(i)->BackColor.Get(), 0x00010203U);
      EXPECT_EQ(tree->NodeAt(i)->ForeColor.Get(), 0x00F0F0F0U);
    }
  }
}

TEST_F(OptionsDialog, CaptionsComeFromTheCatalogueOrStayAsBuiltIn) {
  machine.files.DeleteFile(TextCatalogue(), true);
  Open(5);
  EXPECT_EQ(frmPubOptions.sbtSave.Caption.Get(), u"Sa&ve");
  EXPECT_EQ(frmPubOptions.lblRemark.Caption.Get(), u"");
  EXPECT_TRUE(frmPubOptions.fraOO.Visible);
  Close();
  UseLanguage("de");
  Open(5);
  EXPECT_EQ(frmPubOptions.sbtSave.Caption.Get(), u"Spei&chern");
}

TEST_F(OptionsDialog, MainWindowOpensItAtThePageOfAFunction) {
  Start();
  std::vector<int> shown;
  frmPubOptions.ShowModal = [&shown] {
    frmPubOptions.LoadOnce();
    frmPubOptions.Resize();
    shown.push_back(frmPubOptions.trv.SelectedItem.Get()->Index);
    frmPubOptions.Loaded = false;
  };
  const auto click = [](int row) {
    frmPubMain.lst.ListIndex = row;
    frmPubMain.lst.Click();
    frmPubMain.lblOpt.Click();
  };
  frmPubMain.picOpt.MouseUp(kLeftButton);
  frmPubMain.picAdv.MouseUp(kLeftButton);
  for (const int row : {6, 2, 4}) click(row);
  frmPubMain.picSystem.MouseUp(kLeftButton);
  click(13);
  EXPECT_EQ(shown, (std::vector<int>{1, 2, 3, 5, 5}));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
