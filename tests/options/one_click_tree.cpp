#include "options/one_click_tree.h"

#include "options/option_values.h"
#include "options/options_test.h"

namespace tavix::mdlPubSelf {
namespace {

// Depth, text, key where that differs from the text.
struct NodeCase {
  int depth;
  const char16_t* text;
  const char16_t* key = nullptr;
};

constexpr NodeCase kNodes[] = {
    {0, u"Privacy", u"privacy"},
    {1, u"Internet Explorer", u"ie"},
    {2, u"Temporary Internet Files", u"ietif"},
    {2, u"Cookies", u"iec"},
    {2, u"History", u"ieh"},
    {2, u"Recently Typed URLs", u"iertu"},
    {2, u"Auto-fill Form History", u"ieafh"},
    {2, u"Auto-fill Password History", u"ieaph"},
    {2, u"Temporary Internet Files Detail", u"ietifd"},
    {2, u"Cookies Detail", u"iecd"},
    {2, u"Index.dat Files", u"ieif"},
    {1, u"Windows Explorer", u"we"},
    {2, u"Recently Used Documents", u"werud"},
    {2, u"Run History (in Start menu)", u"werh"},
    {2, u"Search History", u"wesh"},
    {2, u"User Ran Applications History", u"weurah"},
    {2, u"Open/Save History", u"weosh"},
    {2, u"Other Explorer MRUs", u"weoem"},
    {0, u"System", u"system"},
    {1, u"Empty Recycle Bin"},
    {1, u"Temporary Files"},
    {1, u"Memory Dumps"},
    {1, u"CHKDSK File Fragments"},
    {1, u"Windows Log Files"},
    {1, u"Windows System Logs"},
    {1, u"Invalid Shortcuts in User Folders"},
    {1, u"Uninstall Files for Windows Update"},
    {1, u"Windows Update Source Files"},
    {1, u"Menu Order Caches"},
    {1, u"Tray Notifications Cache"},
    {1, u"Windows Size and Location Caches"},
    {1, u"Old Prefetch data"},
    {0, u"Registry", u"registry"},
    {1, u"Missing Shared DLLs"},
    {1, u"ActiveX and Class Issues"},
    {1, u"Type Libraries Issues"},
    {1, u"Application Shells Issues"},
    {1, u"Fonts Issues"},
    {1, u"Application Paths Issues"},
    {1, u"Help Files Issues"},
    {1, u"Redundant Installers"},
    {1, u"Obsolete Software"},
    {1, u"Run at Startup Issues"},
    {1, u"Start Menu Ordering Issues"},
    {1, u"MUI Cache Issues"},
    {1, u"Uninstaller Issues"},
    {1, u"Appearance Schemes"},
    {1, u"Cursor Schemes"},
    {1, u"Internet Country Codes"},
    {1, u"Time Zones"},
};

constexpr TextView kHeadings[] = {u"privacy", u"ie", u"we", u"system", u"registry"};

int Depth(const Node& node) { return node.Parent() == nullptr ? 0 : Depth(*node.Parent()) + 1; }
bool IsHeading(TextView key) { return std::ranges::find(kHeadings, key) != std::end(kHeadings); }

class OneClickTree : public OptionsTest {
 protected:
  static TreeView& Tree() { return frmPubOptions.trvOC; }
  static Node& At(TextView key) { return *Tree().NodeByKey(key); }
  static void UntickAll() {
    for (int i = 1; i <= Tree().NodeCount(); ++i) Tree().NodeAt(i)->Checked = false;
  }
  static std::vector<Text> Ticked() {
    std::vector<Text> keys;
    for (int i = 1; i <= Tree().NodeCount(); ++i) {
      if (Tree().NodeAt(i)->Checked) keys.push_back(Tree().NodeAt(i)->Key);
    }
    return keys;
  }
};

TEST_F(OneClickTree, HasEveryNodeInItsPlace) {
  Open();
  Close();
  Open();
  ASSERT_EQ(Tree().NodeCount(), std::ssize(kNodes));
  for (int i = 1; i <= Tree().NodeCount(); ++i) {
    const Node& node = *Tree().NodeAt(i);
    const NodeCase& expected = kNodes[i - 1];
    EXPECT_EQ(node.Caption.Get(), expected.text);
    EXPECT_EQ(node.Key, expected.key != nullptr ? expected.key : expected.text);
    EXPECT_EQ(Depth(node), expected.depth) << Narrow(node.Key);
    EXPECT_EQ(node.Bold, IsHeading(node.Key)) << Narrow(node.Key);
    EXPECT_EQ(node.Expanded, IsHeading(node.Key)) << Narrow(node.Key);
    EXPECT_EQ(node.BackColor.Get(), frmPubOptions.lsvJF.BackColor.Get());
    EXPECT_EQ(node.ForeColor.Get(), frmPubOptions.lsvJF.ForeColor.Get());
  }
  EXPECT_EQ(At(u"we").Parent(), &At(u"privacy"));
  EXPECT_EQ(At(u"weoem").Parent(), &At(u"we"));
  EXPECT_EQ(At(u"Time Zones").Parent(), &At(u"registry"));
}

TEST_F(OneClickTree, ShowsTheFunctionsOfTheSetting) {
  Open();
  Text keys(u"|");
  for (const Text& key : Ticked()) keys += Concat(key, u"|");
  EXPECT_EQ(keys, Functions);
  EXPECT_EQ(TickedOneClickFunctions(), Functions);
}

TEST_F(OneClickTree, KeysAreComparedExactlyAndBetweenBars) {
  WriteSettings(
      "[Duplicate Files]\r\nCommon Types=*.x\r\n"
      "[One-click Clean/Repair]\r\nFunctions=|IEC|ie|Temporary|Memory Dumps|Time Zones\r\n");
  Open();
  EXPECT_EQ(Ticked(), (std::vector<Text>{u"ie", u"Memory Dumps"})) << "the last key has no bar behind it";
}

TEST_F(OneClickTree, AListWithoutItsOuterBarsLosesItsFirstAndItsLastKey) {
  WriteSettings(
      "[Duplicate Files]\r\nCommon Types=*.x\r\n"
      "[One-click Clean/Repair]\r\nFunctions=iec|Memory Dumps|Time Zones\r\n");
  Open();
  EXPECT_EQ(Ticked(), std::vector<Text>{u"Memory Dumps"});
  frmPubOptions.sbtSave.Click();
  EXPECT_EQ(Functions, u"|Memory Dumps|");
}

TEST_F(OneClickTree, FirstNodeIsLeftUnticked) {
  WriteSettings(
      "[Duplicate Files]\r\nCommon Types=*.x\r\n"
      "[One-click Clean/Repair]\r\nFunctions=|privacy|system|\r\n");
  Open();
  EXPECT_EQ(Ticked(), std::vector<Text>{u"system"});
}

TEST_F(OneClickTree, TickingPrivacyTicksAllBelowItAndUntickingALeafLeavesItsParentsTicked) {
  Open();
  UntickAll();
  Tree().UserCheck(At(u"privacy"), true);
  EXPECT_EQ(Ticked().size(), 18U) << "the root, its two branches and their fifteen functions";
  for (int i = 1; i <= 18; ++i) EXPECT_TRUE(Tree().NodeAt(i)->Checked) << i;
  Tree().UserCheck(At(u"iec"), false);
  EXPECT_FALSE(At(u"iec").Checked);
  EXPECT_TRUE(At(u"ie").Checked);
  EXPECT_TRUE(At(u"privacy").Checked);
}

TEST_F(OneClickTree, BranchHandsItsTickToItsFunctionsOnly) {
  Open();
  UntickAll();
  Tree().UserCheck(At(u"we"), true);
  EXPECT_EQ(Ticked(), (std::vector<Text>{u"we", u"werud", u"werh", u"wesh", u"weurah", u"weosh", u"weoem"}));
  Tree().UserCheck(At(u"we"), false);
  EXPECT_TRUE(Ticked().empty());
}

TEST_F(OneClickTree, HeadingsAreNotSaved) {
  Open();
  UntickAll();
  for (const TextView key : kHeadings) At(key).Checked = true;
  EXPECT_EQ(TickedOneClickFunctions(), u"|");
  At(u"Time Zones").Checked = true;
  At(u"iec").Checked = true;
  EXPECT_EQ(TickedOneClickFunctions(), u"|iec|Time Zones|") << "in the order of the tree";
}

}  // namespace
}  // namespace tavix::mdlPubSelf
