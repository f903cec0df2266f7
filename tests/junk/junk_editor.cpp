#include "junk/junk_editor.h"

#include "doubles/memory_file_system.h"
#include "junk/junk_definitions.h"
#include "junk/junk_list.h"
#include "options/options_test.h"
#include "platform/machine/services/machine_dialogs.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kEnter = 13;
constexpr int kDelete = 46;

class JunkEditor : public OptionsTest {
 protected:
  JunkEditor() {
    WriteUserTypes("Mine\t*.aaa\tY\tY\tU\r\nMine\t*.bbb\tY\tN\tU\r\nOthers\t*.ccc\tY\tY\r\n");
    Open(2);
    asSeeded = File(kUserJunkFile);
    rows = frmPubOptions.lsvJF.Count();
  }

  // The user adds or edits a type and presses the button with this index.
  void Add(TextView description, TextView pattern, int button = 1) {
    InTypeWindow([=] {
      EnterType(description, pattern);
      frmPubType.sbt[static_cast<size_t>(button)].Click();
    });
    frmPubOptions.sbtJF[0].Click();
  }
  void Edit(TextView row, TextView description, TextView pattern, int button = 1) {
    ClickTypes({row});
    InTypeWindow([=] {
      EnterType(description, pattern);
      frmPubType.sbt[static_cast<size_t>(button)].Click();
    });
    frmPubOptions.sbtJF[1].Click();
  }

  static Text LastRow() {
    const ListView::Item row = frmPubOptions.lsvJF.Row(frmPubOptions.lsvJF.Count());
    return Concat(row.Text(), u"|", row.SubItems(1), row.Checked() ? u"|checked" : u"",
                  row.ForeColor() ? u"|grey" : u"");
  }
  static bool IsListed(TextView type) { return std::ranges::count(JunkTypes, type) == 1; }

  std::string asSeeded;
  int rows = 0;
};

TEST_F(JunkEditor, TheWindowComesWithEmptyBoxesAndTheTextsOfTheCatalogues) {
  machine.files.AddFile(Concat(machine::kApplicationFolder, u"\\tips.dll"),
                        {.content = "[frmPubType]\r\nlbl(0)=Was?\r\n"});
  machine.files.AddFile(Concat(machine::kApplicationFolder, u"\\menus.dll"),
                        {.content = "[frmPubType]\r\nmenro=Aufmachen\r\n"});
  frmPubType.txt[0].Text = u"left over";
  Text description, label, menu;
  InTypeWindow([&] {
    description = frmPubType.txt[0].Text;
    label = frmPubType.lbl[0].Caption;
    menu = frmPubType.menro.Caption;
  });
  frmPubType.Loaded = false;
  frmPubOptions.sbtJF[0].Click();
  EXPECT_EQ(description, u"");
  EXPECT_EQ(label, u"Was?");
  EXPECT_EQ(menu, u"Aufmachen");
}

TEST_F(JunkEditor, DescriptionOfBlanksIsRefusedAndTheBoxIsEmptied) {
  Add(u"   ", u"*.new");
  EXPECT_EQ(Messages(), std::vector{InformationOf(u"NEED_DESC")});
  EXPECT_EQ(frmPubType.txt[0].Text.Get(), u"");
  EXPECT_EQ(frmPubType.txt[1].Text.Get(), u"*.new");
  EXPECT_EQ(frmPubType.ActiveControl, &frmPubType.txt[0]);
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
}

TEST_F(JunkEditor, PatternOfBlanksIsRefusedAndTheBoxIsEmptied) {
  Add(u"New", u"  ");
  EXPECT_EQ(Messages(), std::vector{InformationOf(u"NEED_PATTERN")});
  EXPECT_EQ(frmPubType.txt[0].Text.Get(), u"New");
  EXPECT_EQ(frmPubType.txt[1].Text.Get(), u"");
  EXPECT_EQ(frmPubType.ActiveControl, &frmPubType.txt[1]);
}

TEST_F(JunkEditor, ReadOnlyFileStillGetsWhatTheUserEntered) {
  using platform::kHidden, platform::kReadOnly, platform::kSystem;
  const auto makeReadOnly = [this] {
    machine.files.SetAttributes(kUserJunkFile, kReadOnly | kHidden | kSystem);
  };
  makeReadOnly();
  Add(u"New", u"*.new");
  EXPECT_EQ(File(kUserJunkFile), asSeeded + "New\t*.new\tY\tY\tU\r\n");
  EXPECT_TRUE(IsListed(u"New|*.new|Y|Y|U|U"));
  makeReadOnly();
  Edit(u"*.new", u"Newer", u"*.new");
  EXPECT_EQ(File(kUserJunkFile), asSeeded + "Newer\t*.new\tY\tY\tU\r\n");
  makeReadOnly();
  ClickTypes({u"*.new"});
  machine.dialogs.answers = {platform::kYes};
  frmPubOptions.sbtJF[2].Click();
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
  EXPECT_EQ(machine.fileSystem.Look(kUserJunkFile).value().attributes, kHidden | kSystem);
}

TEST_F(JunkEditor, TwoPatternsInOneAreRefusedAndTheTextStays) {
  Add(u"New", u"*.a;*.b");
  EXPECT_EQ(Messages(), std::vector{InformationOf(u"PATTERN_ERR")});
  EXPECT_EQ(frmPubType.txt[1].Text.Get(), u"*.a;*.b");
  EXPECT_EQ(frmPubType.ActiveControl, &frmPubType.txt[1]);
}

TEST_F(JunkEditor, EightCharactersAreRefusedInAPattern) {
  for (const char16_t c : TextView(u"\\/:|\"<>;")) Add(u"New", Text{u'*', u'.', c});
  EXPECT_EQ(Messages(), std::vector(8, InformationOf(u"PATTERN_ERR")));
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
}

TEST_F(JunkEditor, WildcardsOrNoneAreTaken) {
  for (const TextView pattern : {u"*.n?w", u"plain.txt", u"[a-z]#!~%$.x"}) Add(u"New", pattern);
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows + 3);
}

TEST_F(JunkEditor, DescriptionComesBeforePatternAndPatternBeforeItsCharacters) {
  Add(u" ", u" ");
  Add(u" ", u";");
  EXPECT_EQ(Messages(), std::vector(2, InformationOf(u"NEED_DESC")));
}

TEST_F(JunkEditor, PatternThatIsListedIsRefusedLetterCaseAside) {
  Add(u"New", u" *.TMP ");
  const Text text = Concat(u"'*.tmp' ", GetMessageText(u"EXIST"));
  EXPECT_EQ(Messages(), std::vector{Information(text)});
  EXPECT_EQ(frmPubType.ActiveControl, &frmPubType.txt[1]);
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows);
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
}

TEST_F(JunkEditor, NewTypeIsTheLastRowTickedSelectedAndInTheFileAtOnce) {
  Add(u"  New type ", u" *.New ");
  EXPECT_EQ(LastRow(), u"New type|*.New|checked");
  EXPECT_EQ(frmPubOptions.lsvJF.SelectedRow(), rows + 1);
  EXPECT_EQ(File(kUserJunkFile), asSeeded + "New type\t*.New\tY\tY\tU\r\n");
  EXPECT_TRUE(IsListed(u"New type|*.New|Y|Y|U|U"));
  EXPECT_TRUE(frmPubOptions.sbtJF[1].Enabled) << "it is the user's";
}

TEST_F(JunkEditor, AddModeShowsTheCaptionAndEmptyBoxes) {
  Edit(u"*.aaa", u"x", u"y", 2);
  Text caption;
  Text boxes;
  InTypeWindow([&] {
    caption = frmPubType.Caption;
    boxes = Concat(frmPubType.txt[0].Text.Get(), frmPubType.txt[1].Text.Get());
  });
  frmPubOptions.sbtJF[0].Click();
  EXPECT_EQ(caption, GetMessageText(u"ADD_JUNK"));
  EXPECT_EQ(boxes, u"");
}

TEST_F(JunkEditor, EditModeShowsTheRowAndSelectsItAlone) {
  ClickTypes({u"*.aaa", u"*.bbb"});
  std::vector<Text> shown;
  InTypeWindow([&] { shown = {frmPubType.Caption, frmPubType.txt[0].Text, frmPubType.txt[1].Text}; });
  frmPubOptions.sbtJF[1].Click();
  EXPECT_EQ(shown, (std::vector<Text>{u"Edit Junk File Type - 'Mine'", u"Mine", u"*.bbb"}));
  EXPECT_FALSE(frmPubOptions.lsvJF.Row(JunkRow(u"*.aaa")).Selected());
  EXPECT_TRUE(frmPubOptions.lsvJF.Row(JunkRow(u"*.bbb")).Selected());
}

TEST_F(JunkEditor, ChangingOnlyTheCaseOfAPatternStoresNothing) {
  Edit(u"*.aaa", u"MINE", u"*.AAA");
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
  EXPECT_EQ(JunkRow(u"*.AAA"), 0);
}

TEST_F(JunkEditor, ChangingOnlyTheDescriptionMovesTheTypeToTheEnd) {
  Edit(u"*.bbb", u"Renamed", u"*.bbb");
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows);
  EXPECT_EQ(LastRow(), u"Renamed|*.bbb|checked");
  EXPECT_EQ(File(kUserJunkFile),
            "Mine\t*.aaa\tY\tY\tU\r\nOthers\t*.ccc\tY\tY\r\nRenamed\t*.bbb\tY\tY\tU\r\n");
  EXPECT_TRUE(IsListed(u"Renamed|*.bbb|Y|Y|U|U"));
}

TEST_F(JunkEditor, EditedPatternMayNotBeThatOfAnotherRow) {
  Edit(u"*.aaa", u"Mine", u"*.CCC");
  EXPECT_EQ(Messages(), std::vector{Information(Concat(u"'*.ccc' ", GetMessageText(u"EXIST")))});
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
}

TEST_F(JunkEditor, SaveAndAddGoesOnInAddModeAfterAnEdit) {
  ClickTypes({u"*.aaa"});
  InTypeWindow([] {
    EnterType(u"Mine", u"*.zzz");
    frmPubType.sbt[0].Click();
    EXPECT_EQ(frmPubType.Caption.Get(), GetMessageText(u"ADD_JUNK"));
    EXPECT_EQ(frmPubType.txt[0].Text.Get(), u"");
    EXPECT_EQ(frmPubType.txt[1].Text.Get(), u"");
    EXPECT_EQ(frmPubType.ActiveControl, &frmPubType.txt[0]);
    EnterType(u"More", u"*.yyy");
    frmPubType.sbt[0].Click();
  });
  frmPubOptions.sbtJF[1].Click();
  EXPECT_EQ(JunkRow(u"*.aaa"), 0);
  EXPECT_EQ(LastRow(), u"More|*.yyy|checked");
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows + 1);
  EXPECT_EQ(
      File(kUserJunkFile),
      "Mine\t*.bbb\tY\tN\tU\r\nOthers\t*.ccc\tY\tY\r\nMine\t*.zzz\tY\tY\tU\r\nMore\t*.yyy\tY\tY\tU\r\n");
}

TEST_F(JunkEditor, SaveAndAddAfterAnUnchangedEditStoresNothingAndGoesOnInAddMode) {
  const int row = JunkRow(u"*.aaa");
  int closed = 0;
  frmPubType.Unload = [&closed] { ++closed; };
  ClickTypes({u"*.aaa"});
  InTypeWindow([&] {
    frmPubType.sbt[0].Click();
    EXPECT_EQ(File(kUserJunkFile), asSeeded);
    EXPECT_EQ(JunkRow(u"*.aaa"), row);
    EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows);
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(frmPubType.Caption.Get(), GetMessageText(u"ADD_JUNK"));
    EXPECT_EQ(frmPubType.txt[0].Text.Get(), u"");
    EXPECT_EQ(frmPubType.txt[1].Text.Get(), u"");
    EXPECT_EQ(frmPubType.ActiveControl, &frmPubType.txt[0]);
    EnterType(u"More", u"*.yyy");
    frmPubType.sbt[1].Click();
  });
  frmPubOptions.sbtJF[1].Click();
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(JunkRow(u"*.aaa"), row) << "the new type doesn't replace it";
  EXPECT_EQ(File(kUserJunkFile), asSeeded + "More\t*.yyy\tY\tY\tU\r\n");
}

TEST_F(JunkEditor, OnlySaveAndCloseAndCloseCloseTheWindow) {
  int closed = 0;
  frmPubType.Unload = [&closed] { ++closed; };
  Add(u"a", u"*.n1", 0);
  EXPECT_EQ(closed, 0);
  Add(u"", u"", 1);
  EXPECT_EQ(closed, 0) << "refused";
  Add(u"a", u"*.n2", 1);
  EXPECT_EQ(closed, 1);
  Add(u"", u"", 2);
  EXPECT_EQ(closed, 2) << "without checks";
  Edit(u"*.aaa", u"Mine", u"*.aaa", 1);
  EXPECT_EQ(closed, 3) << "nothing to store";
}

TEST_F(JunkEditor, EnterAnywhereSavesAndCloses) {
  int closed = 0;
  frmPubType.Unload = [&closed] { ++closed; };
  InTypeWindow([] {
    EnterType(u"New", u"*.new");
    frmPubType.KeyDown('A', 0);
    frmPubType.KeyDown(kEnter, 0);
  });
  frmPubOptions.sbtJF[0].Click();
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(LastRow(), u"New|*.new|checked");
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows + 1);
}

TEST_F(JunkEditor, DeletingKeepsBuiltInRowsOfTheSelection) {
  ClickTypes({u"*.aaa", u"*.tmp", u"*.bbb", u"*.ccc"});
  frmPubOptions.sbtJF[2].Click();
  EXPECT_EQ(Messages(), (std::vector<std::pair<Text, int>>{{GetMessageText(u"DEL_TYPE_PROMPT"), 35}}));
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows - 3);
  EXPECT_NE(JunkRow(u"*.tmp"), 0);
  EXPECT_EQ(File(kUserJunkFile), "");
  EXPECT_EQ(frmPubOptions.lsvJF.SelectedRow(), 1);
  EXPECT_EQ(frmPubOptions.ActiveControl, &frmPubOptions.lsvJF);
  EXPECT_EQ(JunkTypes.size(), 56U);
  EXPECT_FALSE(frmPubOptions.sbtJF[1].Enabled) << "the first row is built-in";
}

TEST_F(JunkEditor, OnlyYesDeletes) {
  for (const int answer : {platform::kNo, platform::kCancel}) {
    ClickTypes({u"*.aaa"});
    machine.dialogs.answers = {answer};
    frmPubOptions.sbtJF[2].Click();
  }
  EXPECT_EQ(Messages().size(), 2U);
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows);
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
}

TEST_F(JunkEditor, EmptyListHasNothingToEditOrDelete) {
  frmPubOptions.lsvJF.Clear();
  frmPubOptions.sbtJF[1].Click();
  frmPubOptions.sbtJF[2].Click();
  EXPECT_EQ(Messages(), (std::vector{InformationOf(u"NO_TYPE_EDIT"), InformationOf(u"NO_TYPE_DEL")}));
}

TEST_F(JunkEditor, TickAllTicksEveryRowAndStoresNothing) {
  const std::string builtIn = File(kBuiltInJunkFile);
  frmPubOptions.sbtJF[3].Click();
  for (int row = 1; row <= rows; ++row) EXPECT_TRUE(frmPubOptions.lsvJF.Row(row).Checked()) << row;
  EXPECT_EQ(File(kBuiltInJunkFile), builtIn);
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
}

TEST_F(JunkEditor, RowDecidesWhetherEditAndDeleteAreEnabled) {
  for (const auto& [pattern, enabled] : {std::pair(u"*.aaa", true), {u"*.tmp", false}, {u"*.ccc", true}}) {
    SCOPED_TRACE(Case(pattern));
    ClickTypes({pattern});
    EXPECT_EQ(frmPubOptions.sbtJF[1].Enabled, enabled);
    EXPECT_EQ(frmPubOptions.sbtJF[2].Enabled, enabled);
    EXPECT_TRUE(frmPubOptions.sbtJF[0].Enabled);
    EXPECT_TRUE(frmPubOptions.sbtJF[3].Enabled);
  }
}

TEST_F(JunkEditor, DoubleClickEditsTheUsersTypesOnly) {
  int shown = 0;
  InTypeWindow([&shown] { ++shown; });
  ClickTypes({u"*.tmp"});
  frmPubOptions.lsvJF.DblClick();
  EXPECT_EQ(shown, 0);
  ClickTypes({u"*.aaa"});
  frmPubOptions.lsvJF.DblClick();
  EXPECT_EQ(shown, 1);
}

TEST_F(JunkEditor, BuiltInTypeIsNotEditedWhateverTheButton) {
  int shown = 0;
  InTypeWindow([&shown] { ++shown; });
  ClickTypes({u"*.tmp"});
  frmPubOptions.sbtJF[1].Click();
  EXPECT_EQ(shown, 0);
}

TEST_F(JunkEditor, DeleteKeyDeletesTheUsersTypesOnly) {
  ClickTypes({u"*.tmp"});
  frmPubOptions.lsvJF.KeyDown(kDelete, 0);
  EXPECT_TRUE(Messages().empty());
  ClickTypes({u"*.aaa"});
  frmPubOptions.lsvJF.KeyDown('D', 0);
  EXPECT_TRUE(Messages().empty());
  frmPubOptions.lsvJF.KeyDown(kDelete, 0);
  EXPECT_EQ(JunkRow(u"*.aaa"), 0);
}

TEST_F(JunkEditor, HeaderClickSortsAndTurnsTheOrder) {
  ListView& list = frmPubOptions.lsvJF;
  list.ColumnClick(2);
  const Text first(list.Row(1).SubItems(1));
  list.ColumnClick(2);
  EXPECT_EQ(list.Row(rows).SubItems(1), first);
  EXPECT_LT(Text(list.Row(1).SubItems(1)), first);
}

TEST_F(JunkEditor, NewTypeIsSelectedInASortedListToo) {
  frmPubOptions.lsvJF.ColumnClick(2);
  Add(u"New", u"*.nnn");
  const int row = JunkRow(u"*.nnn");
  EXPECT_NE(row, rows + 1);
  EXPECT_EQ(frmPubOptions.lsvJF.SelectedRow(), row);
  EXPECT_TRUE(frmPubOptions.lsvJF.Row(row).Selected());
}

TEST_F(JunkEditor, BoxThatGetsTheFocusSelectsItsText) {
  frmPubType.txt[1].Text = u"*.abc";
  frmPubType.txt[1].GotFocus();
  EXPECT_EQ(frmPubType.txt[1].SelLength, 5);
}

TEST_F(JunkEditor, SeparatorsInADescriptionCannotSplitTheLine) {
  Add(u"one|two\tthree", u"*.new");
  EXPECT_EQ(LastRow(), u"one two three|*.new|checked");
  EXPECT_TRUE(IsListed(u"one two three|*.new|Y|Y|U|U"));
  Add(u" |\t", u"*.more");
  EXPECT_EQ(Messages(), std::vector{InformationOf(u"NEED_DESC")});
}

TEST_F(JunkEditor, NewTypeAfterALineWithoutAnEndGetsItsOwnLine) {
  WriteUserTypes("Mine\t*.aaa\tY\tY");
  Close();
  LoadJunkDefinitions();
  Open(2);
  Add(u"New", u"*.new");
  EXPECT_EQ(File(kUserJunkFile), "Mine\t*.aaa\tY\tY\r\nNew\t*.new\tY\tY\tU\r\n");
  EXPECT_TRUE(IsListed(u"Mine|*.aaa|Y|Y|U"));
}

TEST_F(JunkEditor, FileThatCannotBeWrittenLeavesTheTypeInTheList) {
  machine.files.faults.Fail(u"AppendToFile");
  Add(u"New", u"*.new");
  EXPECT_EQ(LastRow(), u"New|*.new|checked");
  EXPECT_EQ(File(kUserJunkFile), asSeeded);
}

TEST_F(JunkEditor, TranslatedCaptionStillShowsTheMode) {
  UseLanguage("de");
  Add(u"Neu", u"*.neu");
  EXPECT_EQ(LastRow(), u"Neu|*.neu|checked");
  EXPECT_EQ(frmPubType.lbl[1].Caption.Get(), u"&Muster:");
  Edit(u"*.neu", u"Neu", u"*.neuer");
  EXPECT_EQ(LastRow(), u"Neu|*.neuer|checked");
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows + 1);
}

TEST_F(JunkEditor, WithoutACatalogueTheCaptionShowsTheMode) {
  machine.files.DeleteFile(TextCatalogue(), true);
  Add(u"New", u"*.new");
  Edit(u"*.new", u"New", u"*.newer");
  EXPECT_EQ(LastRow(), u"New|*.newer|checked");
  EXPECT_EQ(frmPubOptions.lsvJF.Count(), rows + 1);
  Add(u"", u"");
  EXPECT_EQ(Messages(), std::vector{Information(u"")});
}

}  // namespace
}  // namespace tavix::mdlPubSelf
