#include "platform/machine/services/machine_dialogs.h"

#include <gtest/gtest.h>

namespace tavix::machine {
namespace {

using namespace platform;

TEST(MachineDialogs, AnswerYesAndDeclineOffersWhereNobodyCanAnswer) {
  Journal journal;
  MachineDialogs dialogs(journal);
  EXPECT_EQ(dialogs.MsgBox(u"Sure?", kYesNo + kQuestion), kYes);
  EXPECT_EQ(dialogs.MsgBox(u"Sure?", kYesNoCancel + kQuestion), kYes);
  EXPECT_EQ(dialogs.MsgBox(u"Sure?", kOkCancel), kCancel);
  EXPECT_EQ(dialogs.MsgBox(u"So it is.", kInformation), kOk);
  EXPECT_FALSE(dialogs.InputBox(u"Name?", u""));
  EXPECT_FALSE(dialogs.BrowseForFolder(0, u"Where?"));
  ASSERT_EQ(journal.Entries().size(), 5U);
  EXPECT_EQ(journal.Entries()[0].Json(), "{\"op\":\"MsgBox\",\"text\":\"Sure?\",\"style\":36}");
  EXPECT_EQ(journal.Entries()[4].Json(), "{\"op\":\"InputBox\",\"prompt\":\"Name?\"}");
}

TEST(MachineDialogs, AnswerAsTheyWereTold) {
  Journal journal;
  MachineDialogs dialogs(journal);
  dialogs.answers = {kNo, kCancel};
  dialogs.inputs = {std::nullopt, u"text"};
  dialogs.folders = {u"C:\\a"};
  EXPECT_EQ(dialogs.MsgBox(u"", kYesNo), kNo);
  EXPECT_EQ(dialogs.MsgBox(u"", kYesNo), kCancel);
  EXPECT_EQ(dialogs.MsgBox(u"", kYesNo), kYes);
  EXPECT_FALSE(dialogs.InputBox(u"", u"first"));
  EXPECT_EQ(dialogs.InputBox(u"", u"then"), u"text");
  EXPECT_EQ(dialogs.BrowseForFolder(0, u"Where?"), u"C:\\a");
  EXPECT_FALSE(dialogs.BrowseForFolder(0, u"And where?"));
  EXPECT_EQ(dialogs.offered, (std::vector<Text>{u"first", u"then"}));
  EXPECT_EQ(dialogs.folderTitles, (std::vector<Text>{u"Where?", u"And where?"}));
}

}  // namespace
}  // namespace tavix::machine
