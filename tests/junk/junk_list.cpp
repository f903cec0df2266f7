#include "junk/junk_list.h"

#include "doubles/memory_file_system.h"
#include "junk/junk_definitions.h"
#include "options/options_test.h"

namespace tavix::mdlPubSelf {
namespace {

class JunkList : public OptionsTest {
 protected:
  void OpenOver(std::vector<Text> types) {
    Open(2);
    JunkTypes = std::move(types);
    ShowJunkTypes();
  }
  uint32_t AttributesOf(TextView file) { return machine.fileSystem.Look(file).value().attributes; }
  // Text, pattern, tag, tick and colour of a row.
  static std::string Row(int row) {
    const ListView::Item item = frmPubOptions.lsvJF.Row(row);
    return Narrow(Concat(item.Text(), u"|", item.SubItems(1), u"|", item.Tag(),
                         item.Checked() ? u"|checked" : u"|", IsBuiltIn(item) ? u"|grey" : u"|"));
  }
};

TEST_F(JunkList, RowsShowTheFieldsOfTheirTypes) {
  OpenOver({u"Temporary|*.tmp|Y|Y|D", u"Backup|*.bak|N|N|D", u"Mine|*.aaa|Y|Y|U|U", u"Mine|*.bbb|Y|N|U"});
  ASSERT_EQ(frmPubOptions.lsvJF.Count(), 4);
  EXPECT_EQ(Row(1), "Temporary|*.tmp|Y|checked|grey");
  EXPECT_EQ(Row(2), "Backup|*.bak|N||grey");
  EXPECT_EQ(Row(3), "Mine|*.aaa|Y|checked|");
  EXPECT_EQ(Row(4), "Mine|*.bbb|Y||");
  EXPECT_EQ(frmPubOptions.lsvJF.Row(1).ForeColor(), 0x80000011U);
  EXPECT_EQ(frmPubOptions.lsvJF.Row(4).ForeColor(), std::nullopt);
}

TEST_F(JunkList, HasTheBuiltInTableAtTheFirstStart) {
  Open(2);
  ASSERT_EQ(frmPubOptions.lsvJF.Count(), 56);
  EXPECT_EQ(Row(1), "Backup Files|*.old|Y|checked|grey");
  EXPECT_EQ(Row(2), "Backup Files|*.bak|N||grey");
  EXPECT_EQ(Row(56), "WordPerfect Temporary Files|*.spc|N||grey");
  EXPECT_EQ(frmPubOptions.lsvJF.SelectedRow(), 1);
}

TEST_F(JunkList, FirstRowDecidesWhetherEditAndDeleteAreEnabled) {
  OpenOver({u"Temporary|*.tmp|Y|Y|D", u"Mine|*.aaa|Y|Y|U"});
  EXPECT_FALSE(frmPubOptions.sbtJF[1].Enabled);
  EXPECT_FALSE(frmPubOptions.sbtJF[2].Enabled);
  OpenOver({u"Mine|*.aaa|Y|Y|U", u"Temporary|*.tmp|Y|Y|D"});
  EXPECT_TRUE(frmPubOptions.sbtJF[1].Enabled);
  EXPECT_TRUE(frmPubOptions.sbtJF[2].Enabled);
}

TEST_F(JunkList, LineWithoutAPatternGivesARowWithoutOne) {
  OpenOver({u"|D", u"Only words|D", u"|U", u"Mine|*.x|U"});
  EXPECT_EQ(Row(1), "||||");
  EXPECT_EQ(Row(2), "Only words||||");
  EXPECT_EQ(Row(3), "||||");
  EXPECT_EQ(Row(4), "Mine|*.x|U||");
  SaveJunkTypes();
  LoadJunkDefinitions();
  for (const Text& type : JunkTypes) {
    const auto fields = Split(type, u"|");
    EXPECT_NE(fields[1], u"D") << "the origin is no pattern";
    EXPECT_NE(fields[1], u"U");
  }
}

TEST_F(JunkList, RowsOfASortedListAreSavedInTheShownOrder) {
  OpenOver({u"a|*.2|Y|Y|D", u"b|*.1|N|N|D", u"c|*.4|Y|Y|U", u"d|*.3|Y|Y|U"});
  frmPubOptions.lsvJF.ColumnClick(2);
  frmPubOptions.lsvJF.ColumnClick(2);
  SaveJunkTypes();
  EXPECT_EQ(File(kBuiltInJunkFile), "b\t*.1\tN\tN\r\na\t*.2\tY\tY\r\n");
  EXPECT_EQ(File(kUserJunkFile), "d\t*.3\tY\tY\r\nc\t*.4\tY\tY\r\n");
}

TEST_F(JunkList, SaveWritesFilesThatAreMissing) {
  OpenOver({u"a|*.2|Y|Y|D", u"c|*.4|Y|Y|U"});
  machine.files.DeleteFile(kBuiltInJunkFile, true);
  machine.files.DeleteFile(kUserJunkFile, true);
  SaveJunkTypes();
  EXPECT_EQ(File(kBuiltInJunkFile), "a\t*.2\tY\tY\r\n");
  EXPECT_EQ(File(kUserJunkFile), "c\t*.4\tY\tY\r\n");
}

TEST_F(JunkList, SaveWritesReadOnlyFilesAndKeepsTheirOtherAttributes) {
  using platform::kHidden, platform::kReadOnly, platform::kSystem;
  const struct {
    uint32_t before, after;
  } table[] = {{kReadOnly, 0},
               {kReadOnly | kHidden | kSystem, kHidden | kSystem},
               {kHidden | kSystem, kHidden | kSystem},
               {0, 0}};
  for (const auto& row : table) {
    OpenOver({u"Temporary|*.tmp|Y|Y|D", u"Backup|*.bak|N|N|D", u"Mine|*.aaa|Y|Y|U"});
    for (const TextView file : {kBuiltInJunkFile, kUserJunkFile}) {
      machine.files.AddFile(file, {.content = "Of before\t*.before\tN\tN\r\n", .attributes = row.before});
    }
    frmPubOptions.sbtSave.Click();
    EXPECT_EQ(File(kBuiltInJunkFile), "Temporary\t*.tmp\tY\tY\r\nBackup\t*.bak\tN\tN\r\n") << row.before;
    EXPECT_EQ(File(kUserJunkFile), "Mine\t*.aaa\tY\tY\r\n") << row.before;
    EXPECT_EQ(AttributesOf(kBuiltInJunkFile), row.after) << row.before;
    EXPECT_EQ(AttributesOf(kUserJunkFile), row.after) << row.before;
  }
}

TEST_F(JunkList, FileThatStaysReadOnlyStaysAsItWas) {
  const std::string before = "Of before\t*.before\tN\tN\r\n";
  OpenOver({u"Temporary|*.tmp|Y|Y|D", u"Mine|*.aaa|Y|Y|U"});
  machine.files.AddFile(kBuiltInJunkFile, {.content = before, .attributes = platform::kReadOnly});
  machine.files.faults.Fail(u"SetAttributes", kBuiltInJunkFile);
  SaveJunkTypes();
  EXPECT_EQ(File(kBuiltInJunkFile), before);
  EXPECT_EQ(File(kUserJunkFile), "Mine\t*.aaa\tY\tY\r\n") << "the other one is written";
}

}  // namespace
}  // namespace tavix::mdlPubSelf
