#include "console/unattended.h"

#include <gtest/gtest.h>

namespace tavix::console {
namespace {

TEST(UnattendedDialogs, AnswerYesAndDeclineOffers) {
  UnattendedDialogs dialogs;
  EXPECT_EQ(dialogs.MsgBox(u"", platform::kYesNo | platform::kInformation), platform::kYes);
  EXPECT_EQ(dialogs.MsgBox(u"", platform::kYesNoCancel | platform::kQuestion), platform::kYes);
  EXPECT_EQ(dialogs.MsgBox(u"", platform::kOkCancel | platform::kQuestion), platform::kCancel);
  EXPECT_EQ(dialogs.MsgBox(u"", platform::kInformation), platform::kOk);
  EXPECT_EQ(dialogs.MsgBox(u"", 0), platform::kOk);
  EXPECT_FALSE(dialogs.InputBox(u"", u"").has_value());
  EXPECT_FALSE(dialogs.BrowseForFolder(0, u"").has_value());
}

}  // namespace
}  // namespace tavix::console
