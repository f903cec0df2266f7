#include "options/common_types.h"

#include "options/options_test.h"
#include "platform/machine/services/machine_dialogs.h"

namespace tavix::mdlPubSelf {
namespace {

class CommonTypesPage : public OptionsTest {
 protected:
  CommonTypesPage() {
    WriteSettings("[Duplicate Files]\r\nOnly Common=Y\r\nCommon Types=*.txt;*.doc;*.7z\r\n");
    Open(3);
  }

  void Add(std::deque<std::optional<Text>> answers) {
    machine.dialogs.inputs = std::move(answers);
    frmPubOptions.sbtDF[0].Click();
    EXPECT_TRUE(machine.dialogs.inputs.empty()) << "asked too rarely";
  }
  static std::vector<Text> Rows() {
    std::vector<Text> rows;
    for (int row = 0; row < frmPubOptions.lstDF.ListCount(); ++row) {
      rows.emplace_back(frmPubOptions.lstDF.List(row));
    }
    return rows;
  }
  static std::vector<int> Selected() {
    std::vector<int> rows;
    for (int row = 0; row < frmPubOptions.lstDF.ListCount(); ++row) {
      if (frmPubOptions.lstDF.Selected(row)) rows.push_back(row);
    }
    return rows;
  }

  // A message in a box without a picture.
  static std::pair<Text, int> Plain(TextView text) { return {Text(text), 0}; }

  const std::vector<Text> seeded{u"*.txt", u"*.doc", u"*.7z"};
};

TEST_F(CommonTypesPage, FirstRowIsSelectedAtTheStart) {
  EXPECT_EQ(Rows(), seeded);
  EXPECT_EQ(Selected(), std::vector{0});
}

TEST_F(CommonTypesPage, NewExtensionBecomesTheLastRow) {
  Add({u"  xyz "});
  EXPECT_EQ(Rows().back(), u"*.xyz");
  EXPECT_EQ(Rows().size(), 4U);
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(machine.journal.Entries().back().Get(u"prompt"), GetMessageText(u"INPUT_EXT"));
}

TEST_F(CommonTypesPage, PatternInPlaceOfAnExtensionIsRefused) {
  Add({u"*.doc", std::nullopt});
  EXPECT_EQ(Messages(), std::vector{InformationOf(u"EXT_ERR")});
  EXPECT_EQ(Rows(), seeded);
}

TEST_F(CommonTypesPage, TenCharactersAreRefused) {
  for (const char16_t c : TextView(u"*.\\/:?\"<>|")) Add({Text{u'a', c}, std::nullopt});
  EXPECT_EQ(Messages(), std::vector(10, InformationOf(u"EXT_ERR")));
  Add({u"a;b#~%+ -"});
  EXPECT_EQ(Rows().back(), u"*.a;b#~%+ -");
}

TEST_F(CommonTypesPage, ExtensionOfTheSettingIsRefusedLetterCaseAside) {
  Add({u"doc", u"DOC", std::nullopt});
  const Text exists = GetMessageText(u"EXIST");
  EXPECT_EQ(Messages(),
            (std::vector{Plain(Concat(u"'*.doc' ", exists)), Plain(Concat(u"'*.DOC' ", exists))}));
  EXPECT_EQ(Rows(), seeded);
}

TEST_F(CommonTypesPage, PrefixOfAListedExtensionIsRefusedToo) {
  Add({u"do", u"7", std::nullopt});
  const Text exists = GetMessageText(u"EXIST");
  EXPECT_EQ(Messages(), (std::vector{Plain(Concat(u"'*.do' ", exists)), Plain(Concat(u"'*.7' ", exists))}));
  Add({u"oc"});
  EXPECT_EQ(Rows().back(), u"*.oc") << "the end of a listed extension isn't refused";
}

TEST_F(CommonTypesPage, OnlyTheMessageOfAListedExtensionHasNoPicture) {
  Add({u"*", u"doc", u"a.b", std::nullopt});
  EXPECT_EQ(Messages(),
            (std::vector{InformationOf(u"EXT_ERR"), Plain(Concat(u"'*.doc' ", GetMessageText(u"EXIST"))),
                         InformationOf(u"EXT_ERR")}));
}

TEST_F(CommonTypesPage, TestLooksAtTheSettingAndNotAtTheRows) {
  frmPubOptions.sbtDF[1].Click();
  EXPECT_EQ(Rows(), (std::vector<Text>{u"*.doc", u"*.7z"}));
  Add({u"txt", std::nullopt});
  EXPECT_EQ(Messages().size(), 1U) << "removed and not saved yet";
  Add({u"new"});
  Add({u"new"});
  EXPECT_EQ(Rows(), (std::vector<Text>{u"*.doc", u"*.7z", u"*.new", u"*.new"})) << "added and not saved yet";
}

TEST_F(CommonTypesPage, BoxBeginsWithTheAttemptBefore) {
  Add({u"*.a ", u"doc", u"b"});
  EXPECT_EQ(machine.dialogs.offered, (std::vector<Text>{u"", u"*.a", u"doc"}));
  EXPECT_EQ(Rows().back(), u"*.b");
}

TEST_F(CommonTypesPage, EmptyAndCancelledAnswersEndIt) {
  Add({u"  "});
  Add({std::nullopt});
  Add({u"*", u""});
  EXPECT_EQ(Rows(), seeded);
}

TEST_F(CommonTypesPage, DeletingRemovesTheSelectedRowsAndSelectsTheFirst) {
  frmPubOptions.lstDF.SetSelected(0, false);
  frmPubOptions.lstDF.SetSelected(1, true);
  frmPubOptions.lstDF.SetSelected(2, true);
  frmPubOptions.sbtDF[1].Click();
  EXPECT_EQ(Rows(), std::vector<Text>{u"*.txt"});
  EXPECT_EQ(Selected(), std::vector{0});
  frmPubOptions.sbtDF[1].Click();
  EXPECT_TRUE(Rows().empty());
  frmPubOptions.sbtDF[1].Click();
  EXPECT_TRUE(Messages().empty());
}

TEST_F(CommonTypesPage, CtrlASelectsAllRowsAndNoOtherKeyDoes) {
  for (const auto& [key, shift] : {std::pair('A', 0), {'A', 1}, {'A', 3}, {'A', 6}, {'B', 2}, {'a', 2}}) {
    frmPubOptions.lstDF.KeyUp(key, shift);
    EXPECT_EQ(Selected(), std::vector{0}) << key << ' ' << shift;
  }
  frmPubOptions.lstDF.KeyUp(65, 2);
  EXPECT_EQ(Selected(), (std::vector{0, 1, 2}));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
