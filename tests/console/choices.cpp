#include "console/choices.h"

#include "forms/main_form.h"
#include "frame/settings.h"
#include "support/program_test.h"

namespace tavix::console {
namespace {

using Texts = std::vector<Text>;

class Choices : public ProgramTest {
 protected:
  Choices() {
    for (const TextView folder : {u"D:\\Users\\Ann", u"D:\\Users\\Bob", u"D:\\Windows", u"E:\\Photos"}) {
      machine.files.AddFolder(folder);
    }
    SetDrive(u"D", u"2,System");
    SetDrive(u"E");
    Start();
  }

  static Texts Ticked(TreeView& tree) {
    Texts keys;
    for (int i = 1; i <= tree.NodeCount(); ++i) {
      if (tree.NodeAt(i)->Checked) keys.push_back(tree.NodeAt(i)->Key);
    }
    return keys;
  }
  static Texts TickedRows() {
    Texts rows;
    for (int row = 0; row < frmPubMain.lst.ListCount(); ++row) {
      if (frmPubMain.lst.Selected(row)) rows.emplace_back(frmPubMain.lst.List(row));
    }
    return rows;
  }
  // The ticked nodes of the scope tree, or "refused".
  static Texts Scope(const Texts& scopes) {
    std::string error;
    if (OpenAndTick({.page = u"advanced", .scopes = scopes}, error)) return Ticked(frmPubMain.trvRes);
    return {u"refused"};
  }
  std::string error;
};

TEST_F(Choices, OpenEachPage) {
  const struct {
    TextView page;
    PictureBox* picture;
  } table[] = {{u"system", &frmPubMain.picSystem},
               {u"registry", &frmPubMain.picRegistry},
               {u"advanced", &frmPubMain.picAdv},
               {u"privacy", &frmPubMain.picPrivacy}};
  for (const auto& row : table) {
    EXPECT_TRUE(OpenAndTick({.page = Text(row.page)}, error)) << error;
    EXPECT_EQ(row.picture->BorderStyle, 1);
  }
}

TEST_F(Choices, WithoutFunctionsEverythingIsTicked) {
  EXPECT_TRUE(OpenAndTick({}, error));
  EXPECT_EQ(Ticked(frmPubMain.trvPrivacy).size(), 17U);
  EXPECT_TRUE(OpenAndTick({.page = u"registry"}, error));
  EXPECT_EQ(TickedRows().size(), 18U);
}

TEST_F(Choices, FunctionsOfThePrivacyPageAreTickedAsByAUser) {
  EXPECT_TRUE(OpenAndTick({.functions = {u"wesh", u"iec"}}, error));
  EXPECT_EQ(Ticked(frmPubMain.trvPrivacy), (Texts{u"ie", u"iec", u"we", u"wesh"}));
  EXPECT_EQ(frmPubMain.trvPrivacy.NodeByKey(u"ie")->BackColor, kButtonFace);
}

TEST_F(Choices, FunctionsOfAListAreTickedAsByAUser) {
  EXPECT_TRUE(OpenAndTick({.page = u"system", .functions = {u"Memory Dumps", u"Temporary Files"}}, error));
  EXPECT_EQ(TickedRows(), (Texts{u"Temporary Files", u"Memory Dumps"}));
  EXPECT_EQ(frmPubMain.lst.List(0), u"Check All") << "the master row was unticked";
}

TEST_F(Choices, AFunctionThatIsMissingLeavesTheTicks) {
  EXPECT_FALSE(OpenAndTick({.page = u"system", .functions = {u"Memory Dumps", u"nope"}}, error));
  EXPECT_EQ(error, "--function 'nope' is no function of the System page");
  EXPECT_EQ(TickedRows().size(), 14U);
}

TEST_F(Choices, WithoutScopesAllDrivesAreTicked) { EXPECT_EQ(Scope({}), (Texts{u"Root", u"D:", u"E:"})); }

TEST_F(Choices, ADriveIsTickedWithItsFolders) {
  EXPECT_EQ(Scope({u"D:"}), (Texts{u"D:", u"D:\\Users", u"D:\\Windows"}));
  EXPECT_FALSE(frmPubMain.trvRes.NodeByKey(u"D:")->Expanded) << "ticked, not clicked";
}

TEST_F(Choices, AFolderIsLoadedByClicksOnItsParents) {
  EXPECT_EQ(Scope({u"D:\\Users\\Ann"}), (Texts{u"D:\\Users\\Ann"}));
  EXPECT_TRUE(frmPubMain.trvRes.NodeByKey(u"D:")->Expanded);
  EXPECT_TRUE(frmPubMain.trvRes.NodeByKey(u"D:\\Users")->Expanded);
  EXPECT_FALSE(frmPubMain.trvRes.NodeByKey(u"D:\\Users\\Ann")->Expanded);
}

TEST_F(Choices, AFolderWithChildrenIsNotClickedAgain) {
  EXPECT_EQ(Scope({u"D:\\Users\\Ann", u"D:\\Users\\Bob", u"D:\\Windows"}),
            (Texts{u"D:\\Windows", u"D:\\Users\\Ann", u"D:\\Users\\Bob"}));
  EXPECT_TRUE(frmPubMain.trvRes.NodeByKey(u"D:")->Expanded);
  EXPECT_TRUE(frmPubMain.trvRes.NodeByKey(u"D:\\Users")->Expanded);
}

TEST_F(Choices, AScopeTakesWhatIsLoadedBelowItAlong) {
  EXPECT_EQ(Scope({u"D:\\Users\\Ann", u"D:\\Users"}),
            (Texts{u"D:\\Users", u"D:\\Users\\Ann", u"D:\\Users\\Bob"}));
}

TEST_F(Choices, TheRootTicksAll) {
  EXPECT_EQ(Scope({u"E:", u"Root"}), (Texts{u"Root", u"D:", u"E:", u"E:\\Photos"}));
}

TEST_F(Choices, LetterCaseDoesNotCount) { EXPECT_EQ(Scope({u"d:\\users\\ANN"}), (Texts{u"D:\\Users\\Ann"})); }

TEST_F(Choices, AScopeThatIsMissingIsRefused) {
  for (const TextView key : {u"F:", u"D:\\Nobody", u"D:\\Nobody\\Below", u"D:\\Users\\", u"D:\\", u""}) {
    EXPECT_EQ(Scope({Text(key)}), Texts{u"refused"}) << Narrow(key);
  }
  EXPECT_FALSE(OpenAndTick({.page = u"advanced", .scopes = {u"D:", u"D:\\Nobody"}}, error));
  EXPECT_EQ(error, "--scope 'D:\\Nobody' is no drive or folder of the Advanced page");
}

}  // namespace
}  // namespace tavix::console
