#include "catalogue/scope_tree.h"

#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class ScopeTree : public ProgramTest {
 protected:
  ScopeTree() {
    for (const TextView folder : {u"D:\\Users\\Ann", u"D:\\Users\\Bob", u"D:\\apps", u"D:\\Windows"}) {
      machine.files.AddFolder(folder);
    }
    machine.files.AddFile(u"D:\\boot.ini");
    machine.files.AddFolder(u"E:\\Photos");
    SetDrive(u"D", u"2,System");
    SetDrive(u"E", u"1");
    Start();
  }

  static TreeView& Tree() { return frmPubMain.trvRes; }
  static Node& At(TextView key) { return *Tree().NodeByKey(key); }
  static void Open() {
    frmPubMain.picSystem.MouseUp(kLeftButton);
    frmPubMain.picAdv.MouseUp(kLeftButton);
  }
  static void Click(TextView key) { Tree().NodeClick(At(key)); }
  static void Check(TextView key, bool checked) { Tree().UserCheck(At(key), checked); }
  static std::vector<Text> Keys() {
    std::vector<Text> keys;
    for (int i = 1; i <= Tree().NodeCount(); ++i) keys.push_back(Tree().NodeAt(i)->Key);
    return keys;
  }
  static std::vector<Text> Ticked() {
    std::vector<Text> keys;
    for (int i = 1; i <= Tree().NodeCount(); ++i) {
      if (Tree().NodeAt(i)->Checked) keys.push_back(Tree().NodeAt(i)->Key);
    }
    return keys;
  }
};

using Texts = std::vector<Text>;

TEST_F(ScopeTree, IsBuiltFromTheDrivesWhenThePageOpens) {
  EXPECT_EQ(Tree().NodeCount(), 0);
  Open();
  EXPECT_EQ(Keys(), (Texts{u"Root", u"D:", u"E:"}));
  EXPECT_EQ(At(u"Root").Caption, Text(u"My Computer"));
  EXPECT_EQ(At(u"D:").Caption, Text(u"System (D:)"));
  EXPECT_EQ(At(u"E:").Caption, Text(u" (E:)")) << "a drive without a name";
  EXPECT_EQ(At(u"D:").Parent(), &At(u"Root"));
  EXPECT_EQ(Ticked(), Keys());
  EXPECT_TRUE(At(u"Root").Expanded);
  EXPECT_FALSE(At(u"D:").Expanded);
}

TEST_F(ScopeTree, OffersDrivesByTypeAndReadiness) {
  const struct {
    TextView letter, fact;
    bool offered;
  } table[] = {{u"E", u"0,Unknown", true},          {u"F", u"1,Removable", true},  {u"G", u"2,Fixed", true},
               {u"H", u"3,Network", false},         {u"I", u"4,Optical", false},   {u"J", u"5,Memory", true},
               {u"K", u"2,Fixed,not ready", false}, {u"L", u"1,,not ready", false}};
  for (const auto& row : table) {
    machine.files.AddFolder(Concat(row.letter, u":\\x"));
    SetDrive(row.letter, row.fact);
  }
  Open();
  for (const auto& row : table) {
    EXPECT_EQ(Tree().NodeByKey(Concat(row.letter, u":")) != nullptr, row.offered) << Narrow(row.fact);
  }
}

TEST_F(ScopeTree, EachTypeOfDriveHasAPictureOfItsOwn) {
  SetDrive(u"F", u"5,Memory");
  SetDrive(u"G", u"0,Unknown");
  for (const TextView folder : {u"F:\\x", u"G:\\x"}) machine.files.AddFolder(folder);
  Open();
  EXPECT_EQ(At(u"Root").Image, kComputerImage);
  EXPECT_EQ(At(u"D:").Image, kFixedDriveImage);
  EXPECT_EQ(At(u"E:").Image, kRemovableDriveImage);
  EXPECT_EQ(At(u"F:").Image, kMemoryDriveImage);
  EXPECT_EQ(At(u"G:").Image, kUnknownDriveImage);
}

TEST_F(ScopeTree, WhatNobodyHasLookedIntoIsUnopened) {
  Open();
  EXPECT_FALSE(At(u"Root").Unopened);
  EXPECT_TRUE(At(u"D:").Unopened);
  Click(u"D:");
  EXPECT_FALSE(At(u"D:").Unopened);
  EXPECT_TRUE(At(u"D:\\apps").Unopened);
  Click(u"D:\\apps");
  EXPECT_FALSE(At(u"D:\\apps").Unopened) << "there is nothing in it";
  Check(u"D:\\Users", false);
  EXPECT_FALSE(At(u"D:\\Users").Unopened) << "the tick has loaded its folders";
}

TEST_F(ScopeTree, IsRebuiltAtEachOpening) {
  Open();
  Click(u"D:");
  Check(u"D:", false);
  SetDrive(u"E", u"1,,not ready");
  Open();
  EXPECT_EQ(Keys(), (Texts{u"Root", u"D:"}));
  EXPECT_EQ(Ticked(), (Texts{u"Root", u"D:"}));
}

TEST_F(ScopeTree, AClickOnThePageInUseDoesNotBuildIt) {
  Open();
  Click(u"D:");
  frmPubMain.picAdv.MouseUp(kLeftButton);
  EXPECT_EQ(Tree().NodeCount(), 6);
}

TEST_F(ScopeTree, WithoutDrivesHasItsRootAlone) {
  fileSystemObject = {};
  Open();
  EXPECT_EQ(Keys(), Texts{u"Root"});
  Click(u"Root");
  EXPECT_EQ(Keys(), Texts{u"Root"});
  EXPECT_FALSE(At(u"Root").Expanded);
}

TEST_F(ScopeTree, AClickLoadsTheFoldersOnceAndFlipsEachTime) {
  Open();
  Click(u"D:");
  EXPECT_EQ(Keys(), (Texts{u"Root", u"D:", u"E:", u"D:\\apps", u"D:\\Users", u"D:\\Windows"}));
  EXPECT_TRUE(At(u"D:").Expanded);
  machine.files.AddFolder(u"D:\\new");
  Click(u"D:");
  EXPECT_EQ(At(u"D:").Children(), 3) << "a second click finds children";
  EXPECT_FALSE(At(u"D:").Expanded);
  Click(u"D:");
  EXPECT_TRUE(At(u"D:").Expanded);
}

TEST_F(ScopeTree, AFolderNodeHasPathNameAndPictures) {
  frmPubMain.lst.BackColor = 0x112233;
  frmPubMain.lst.ForeColor = 0x445566;
  Open();
  Click(u"D:");
  Click(u"D:\\Users");
  const Node& node = At(u"D:\\Users\\Ann");
  EXPECT_EQ(node.Caption, Text(u"Ann"));
  EXPECT_EQ(node.Image, 2);
  EXPECT_EQ(node.SelectedImage, 3);
  EXPECT_EQ(node.BackColor, Color{0x112233});
  EXPECT_EQ(node.ForeColor, Color{0x445566});
  EXPECT_EQ(node.Parent(), &At(u"D:\\Users"));
}

TEST_F(ScopeTree, LoadedFoldersTakeTheTickOfTheirParent) {
  Open();
  Check(u"D:", false);
  EXPECT_EQ(Ticked(), (Texts{u"Root", u"E:"})) << "no rule leads upwards";
  EXPECT_EQ(At(u"D:").Children(), 3) << "the tick has loaded them";
  EXPECT_FALSE(At(u"D:").Expanded) << "but not expanded";
  Check(u"D:\\Users", true);
  EXPECT_EQ(Ticked(), (Texts{u"Root", u"E:", u"D:\\Users", u"D:\\Users\\Ann", u"D:\\Users\\Bob"}));
}

TEST_F(ScopeTree, ATickGoesDownThroughAllThatIsLoaded) {
  Open();
  Click(u"D:");
  Click(u"D:\\Users");
  Check(u"Root", false);
  EXPECT_EQ(Ticked(), Texts{});
  Check(u"D:\\Users", true);
  Check(u"D:\\Users\\Ann", false);
  EXPECT_EQ(Ticked(), (Texts{u"D:\\Users", u"D:\\Users\\Bob"})) << "unticking a child leaves its parent";
  Click(u"D:");
  EXPECT_EQ(Ticked(), Texts{}) << "a click gives the tick to the loaded folders, too";
}

// The call fails for one path only, which shows the path that the program passes.
TEST_F(ScopeTree, AKeyOfTwoCharactersGetsABackslashAndALongerOneNone) {
  const struct {
    TextView key, failing;
    int children;
  } table[] = {{u"D:", u"D:", 3},
               {u"D:", u"D:\\", 0},
               {u"D:\\", u"D:\\\\", 3},
               {u"D:\\", u"D:\\", 0},
               {u"D:\\Users", u"D:\\Users\\", 2},
               {u"D:\\Users", u"D:\\Users", 0}};
  for (const auto& row : table) {
    Open();
    if (Tree().NodeByKey(row.key) == nullptr) Tree().AddNode(&At(u"Root"), row.key, u"text");
    machine.files.faults.Fail(u"Look", row.failing);
    LoadChildFolders(row.key);
    EXPECT_EQ(At(row.key).Children(), row.children) << Narrow(row.key) << " over " << Narrow(row.failing);
    machine.files.faults.Clear();
  }
}

TEST_F(ScopeTree, AFolderThatCantBeReadOrHasGoneAddsNothing) {
  Open();
  Click(u"D:");
  machine.files.faults.Fail(u"List", u"D:\\Windows");
  Click(u"D:\\Windows");
  machine.files.DeleteFolder(u"D:\\Users", true);
  Click(u"D:\\Users");
  Check(u"D:\\Users", false);
  EXPECT_EQ(Keys(), (Texts{u"Root", u"D:", u"E:", u"D:\\apps", u"D:\\Users", u"D:\\Windows"}));
  EXPECT_FALSE(At(u"D:\\Users").Checked);
  EXPECT_TRUE(At(u"D:\\Users").Expanded) << "still opened and closed";
}

TEST_F(ScopeTree, AnUnknownKeyAddsNothing) {
  Open();
  LoadChildFolders(u"D:\\Users");
  LoadChildFolders(u"");
  LoadChildFolders(u"d:");
  EXPECT_EQ(Keys(), (Texts{u"Root", u"D:", u"E:"}));
}

TEST_F(ScopeTree, WithoutServicesAddsNothing) {
  Open();
  fileSystemObject = {};
  Click(u"D:");
  EXPECT_EQ(Keys(), (Texts{u"Root", u"D:", u"E:"}));
}

TEST_F(ScopeTree, ADeepChainOfFoldersIsTickedToItsEnd) {
  Text path = u"E:";
  for (int i = 0; i < 60; ++i) path += u"\\deep";
  machine.files.AddFolder(path);
  Open();
  for (size_t end = 2; end < path.size(); end += 5) Click(path.substr(0, end));
  ASSERT_NE(Tree().NodeByKey(path), nullptr);
  EXPECT_TRUE(At(path).Checked);
  Check(u"E:", false);
  EXPECT_FALSE(At(path).Checked);
}

TEST_F(ScopeTree, ALinkIsAFolderLikeAnother) {
  machine.files.AddLink(u"E:\\Photos\\back", u"E:\\Photos");
  Open();
  Click(u"E:");
  Click(u"E:\\Photos");
  Click(u"E:\\Photos\\back");
  EXPECT_NE(Tree().NodeByKey(u"E:\\Photos\\back\\back"), nullptr);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
