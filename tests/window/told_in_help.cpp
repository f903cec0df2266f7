#include "clean/clean_test.h"
#include "forms/main_form.h"
#include "scan/registry_test.h"

// Statements of the help about safety that no other test checks.
namespace tavix::mdlPubSelf {
namespace {

class FolderFilledAfterTheScan : public CleanTest, public testing::WithParamInterface<const char16_t*> {};

INSTANTIATE_TEST_SUITE_P(EveryMethod, FolderFilledAfterTheScan, testing::Values(u"D", u"R", u"S"),
                         [](const auto& method) { return Narrow(method.param); });

TEST_P(FolderFilledAfterTheScan, StaysWithWhatIsInIt) {
  CleaningMethod = GetParam();
  AddFolderRow(u"was empty");
  machine.files.AddFile(u"C:\\Work\\was empty\\below\\new.txt", {.content = "new"});
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\was empty\\below\\new.txt"));
  ASSERT_EQ(ResultCount(), 1);
  EXPECT_TRUE(frmPubMain.lsvResult.Row(1).Checked());
  EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
}

class ProgramThatCantBeLookedAt : public RegistryFunctionTest {};

TEST_F(ProgramThatCantBeLookedAt, IsNotListedAsMissing) {
  SeedWindows(u"Run", u"Tool", u"C:\\Tools\\tool.exe");
  EXPECT_EQ(FoundBy(u"Run at Startup Issues"), Texts{u"C:\\Tools\\tool.exe"});
  machine.files.faults.Fail(u"FileExists");
  EXPECT_EQ(FoundBy(u"Run at Startup Issues"), Texts());
}

}  // namespace
}  // namespace tavix::mdlPubSelf
