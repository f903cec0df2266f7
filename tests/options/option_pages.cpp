#include "options/option_pages.h"

#include "forms/main_form.h"
#include "options/options_test.h"
#include "platform/machine/services/machine_dialogs.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

class OptionPages : public OptionsTest {
 protected:
  static std::vector<std::pair<Text, Text>> Folders() {
    std::vector<std::pair<Text, Text>> rows;
    for (int i = 1; i <= frmPubOptions.lsvOO.Count(); ++i) {
      const ListView::Item row = frmPubOptions.lsvOO.Row(i);
      rows.emplace_back(row.Text(), row.SubItems(1));
    }
    return rows;
  }
  void AddFolder(std::optional<Text> folder, std::optional<Text> description) {
    machine.dialogs.folders = {std::move(folder)};
    machine.dialogs.inputs = {std::move(description)};
    frmPubOptions.sbtOO[0].Click();
  }
};

TEST_F(OptionPages, LeastSizeIsDisabledWithItsTickAndKeepsItsText) {
  Open(3);
  EXPECT_TRUE(frmPubOptions.txtDFSS.Enabled);
  frmPubOptions.cbxDF[3].Value = 0;
  EXPECT_FALSE(frmPubOptions.txtDFSS.Enabled);
  EXPECT_EQ(frmPubOptions.txtDFSS.Text.Get(), u"10");
  for (const size_t other : {1U, 2U}) frmPubOptions.cbxDF[other].Value = 0;
  EXPECT_FALSE(frmPubOptions.txtDFSS.Enabled);
  frmPubOptions.cbxDF[3].Value = 1;
  EXPECT_TRUE(frmPubOptions.txtDFSS.Enabled);
}

TEST_F(OptionPages, OtherTicksLeaveTheLeastSizeAlone) {
  Open(3);
  for (const size_t other : {1U, 2U}) frmPubOptions.cbxDF[other].Value = 0;
  EXPECT_TRUE(frmPubOptions.txtDFSS.Enabled);
}

TEST_F(OptionPages, ListOfTypesIsEnabledWhereOnlyTheyAreCompared) {
  Open(3);
  const auto expectEnabled = [](bool enabled) {
    EXPECT_EQ(frmPubOptions.lstDF.Enabled, enabled);
    EXPECT_EQ(frmPubOptions.sbtDF[0].Enabled, enabled);
    EXPECT_EQ(frmPubOptions.sbtDF[1].Enabled, enabled);
  };
  expectEnabled(true);
  frmPubOptions.optDF[0].Value = true;
  expectEnabled(false);
  frmPubOptions.optDF[1].Value = true;
  expectEnabled(true);
}

TEST_F(OptionPages, BackupFolderIsEnabledAndColouredByItsMethod) {
  Open(4);
  frmPubMain.lst.BackColor = 0x00112233;
  for (const size_t method : {1U, 2U, 0U, 2U}) {
    frmPubOptions.optCM[method].Value = true;
    EXPECT_EQ(frmPubOptions.txtDF.Enabled, method == 2) << method;
    EXPECT_EQ(frmPubOptions.sbtCM.Enabled, method == 2) << method;
    EXPECT_EQ(frmPubOptions.txtDF.BackColor.Get(), method == 2 ? 0x00112233 : kButtonFace) << method;
  }
}

TEST_F(OptionPages, LoadedMethodEnablesTheBackupFolderToo) {
  for (const auto& [method, enabled] : {std::pair("D", false), {"R", false}, {"S", true}, {"X", false}}) {
    const std::string head = "[Duplicate Files]\nCommon Types=*.x\n[Cleaning Method]\nMethod=";
    WriteSettings(head + method + "\n");
    LoadSettings();
    Open(4);
    EXPECT_EQ(frmPubOptions.txtDF.Enabled, enabled) << method;
    EXPECT_EQ(frmPubOptions.sbtCM.Enabled, enabled) << method;
    EXPECT_EQ(frmPubOptions.txtDF.BackColor == kButtonFace, !enabled) << method;
    Close();
  }
}

TEST_F(OptionPages, ChosenBackupFolderComesIntoTheBox) {
  Open(4);
  machine.dialogs.folders = {u"D:\\Backup", std::nullopt};
  frmPubOptions.sbtCM.Click();
  EXPECT_EQ(frmPubOptions.txtDF.Text.Get(), u"D:\\Backup");
  frmPubOptions.sbtCM.Click();
  EXPECT_EQ(frmPubOptions.txtDF.Text.Get(), u"D:\\Backup") << "cancelled";
  EXPECT_EQ(machine.dialogs.folderTitles, std::vector<Text>(2, u"Specify Backup Folder"));
}

TEST_F(OptionPages, BackupFolderThatDoesNotExistBringsThePageBackUntilItDoes) {
  Open(4);
  frmPubOptions.optCM[2].Value = true;
  frmPubOptions.txtDF.Text = u"  C:\\Nowhere ";
  frmPubOptions.trv.NodeClick(*frmPubOptions.trv.NodeAt(1));
  for (int i = 0; i < 2; ++i) {
    SCOPED_TRACE(Case(i));
    Leave(frmPubOptions.txtDF, frmPubOptions.trv);
    EXPECT_TRUE(frmPubOptions.fraCM.Visible);
    EXPECT_FALSE(frmPubOptions.fraOC.Visible);
    EXPECT_EQ(frmPubOptions.trv.SelectedItem, frmPubOptions.trv.NodeAt(4));
    EXPECT_EQ(frmPubOptions.lblOpt.Caption.Get(), u"Cleaning Method");
    EXPECT_EQ(frmPubOptions.ActiveControl, &frmPubOptions.txtDF);
    EXPECT_EQ(frmPubOptions.txtDF.SelLength, 13);
  }
  EXPECT_EQ(Messages(),
            std::vector(2, Information(u"'C:\\Nowhere' does not exists, please specify another.")));
  machine.files.AddFolder(u"C:\\Nowhere");
  Leave(frmPubOptions.txtDF);
  EXPECT_EQ(Messages().size(), 2U);
  EXPECT_EQ(frmPubOptions.ActiveControl, &frmPubOptions.sbtSave);
}

TEST_F(OptionPages, FileAndEmptyTextAreNoBackupFolder) {
  Open(4);
  frmPubOptions.optCM[2].Value = true;
  for (const TextView text : {TextView(kSettingsFile), TextView(u"")}) {
    frmPubOptions.txtDF.Text = Text(text);
    Leave(frmPubOptions.txtDF);
    EXPECT_EQ(Messages().back(),
              Information(Concat(u"'", text, u"' does not exists, please specify another.")));
  }
}

TEST_F(OptionPages, AnotherMethodFreesFromABackupFolderThatDoesNotExist) {
  Open(4);
  frmPubOptions.optCM[2].Value = true;
  frmPubOptions.txtDF.Text = u"C:\\Nowhere";
  frmPubOptions.optCM[0].Value = true;
  Leave(frmPubOptions.txtDF, frmPubOptions.optCM[0]);
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(frmPubOptions.ActiveControl, &frmPubOptions.optCM[0]);
}

TEST_F(OptionPages, BackupFolderIsSelectedWholeOnGettingTheFocus) {
  Open(4);
  frmPubOptions.txtDF.GotFocus();
  EXPECT_EQ(frmPubOptions.txtDF.SelLength, 9);
}

TEST_F(OptionPages, FolderIsAddedWithItsDescription) {
  Open(5);
  const size_t before = Folders().size();
  AddFolder(u"D:\\Keep", u"  of mine ");
  EXPECT_EQ(Folders().back(), (std::pair<Text, Text>(u"D:\\Keep", u"of mine")));
  AddFolder(u"D:\\Keep", u"");
  AddFolder(u"D:\\Keep", std::nullopt);
  EXPECT_EQ(Folders().back(), (std::pair<Text, Text>(u"D:\\Keep", u"")));
  EXPECT_EQ(Folders().size(), before + 3);
  EXPECT_EQ(machine.dialogs.folderTitles.back(), GetMessageText(u"EXCEPT_FOLDER"));
  EXPECT_EQ(machine.journal.Entries().back().Get(u"prompt"), GetMessageText(u"INPUT_DESC"));
}

// A slash ends the folder in the saved row, and a bar ends the row.
TEST_F(OptionPages, WhatWouldEndADescriptionInTheSettingsBecomesABlank) {
  Open(5);
  AddFolder(u"D:\\Keep", u"/of\tmine/and|yours\r\n|");
  const auto entered = Folders();
  EXPECT_EQ(entered.back(), (std::pair<Text, Text>(u"D:\\Keep", u"of mine and yours")));
  frmPubOptions.sbtSave.Click();
  Close();
  Open(5);
  EXPECT_EQ(Folders(), entered);
}

TEST_F(OptionPages, WordsOfATranslatedCatalogueAreSaid) {
  Open(4);
  machine.files.AddFile(
      TextCatalogue(),
      {.content = "[Message & Text]\nNO_FOLDER=gibt es nicht.\nBACKUP_FOLDER=Sicherungen\n"});
  frmPubOptions.optCM[2].Value = true;
  frmPubOptions.txtDF.Text = u"C:\\Nowhere";
  Leave(frmPubOptions.txtDF);
  EXPECT_EQ(Messages(), std::vector{Information(u"'C:\\Nowhere' gibt es nicht.")});
  frmPubOptions.sbtCM.Click();
  EXPECT_EQ(machine.dialogs.folderTitles, std::vector<Text>{u"Sicherungen"});
}

TEST_F(OptionPages, WithoutACatalogueTheBuiltInWordsAreSaid) {
  Open(4);
  machine.files.DeleteFile(TextCatalogue(), true);
  frmPubOptions.optCM[2].Value = true;
  frmPubOptions.txtDF.Text = u"C:\\Nowhere";
  Leave(frmPubOptions.txtDF);
  EXPECT_EQ(Messages(), std::vector{Information(u"'C:\\Nowhere' does not exists, please specify another.")});
  frmPubOptions.sbtCM.Click();
  EXPECT_EQ(machine.dialogs.folderTitles, std::vector<Text>{u"Specify Backup Folder"});
}

TEST_F(OptionPages, WithoutAFolderNoDescriptionIsAskedFor) {
  Open(5);
  const size_t before = Folders().size();
  AddFolder(std::nullopt, u"not asked");
  EXPECT_EQ(Folders().size(), before);
  EXPECT_EQ(machine.dialogs.inputs.size(), 1U);
}

TEST_F(OptionPages, SelectedFoldersAreDeletedTheRecycleBinToo) {
  Open(5);
  ASSERT_EQ(Folders()[0], (std::pair<Text, Text>(u"Recycle Bin", u"All Recycle Bins")));
  ASSERT_EQ(Folders().size(), 6U);
  for (const int row : {1, 3, 6}) frmPubOptions.lsvOO.Row(row).SetSelected(true);
  frmPubOptions.sbtOO[1].Click();
  EXPECT_EQ(Folders(), (std::vector<std::pair<Text, Text>>{{u"C:\\WINDOWS", u"Windows System Folder"},
                                                           {u"C:\\Temp", u"User Temporary Folder"},
                                                           {u"C:\\Cache", u"Internet Temporary Folder"}}));
  frmPubOptions.sbtOO[1].Click();
  EXPECT_EQ(Folders().size(), 3U) << "nothing selected";
}

TEST_F(OptionPages, HeaderClickSortsFoldersAndTurnsTheOrder) {
  Open(5);
  frmPubOptions.lsvOO.ColumnClick(2);
  EXPECT_EQ(Folders().front().second, u"Windows Temporary Folder");
  frmPubOptions.lsvOO.ColumnClick(2);
  EXPECT_EQ(Folders().front().second, u"All Recycle Bins");
  frmPubOptions.lsvOO.ColumnClick(1);
  EXPECT_EQ(Folders().front().first, u"Recycle Bin");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
