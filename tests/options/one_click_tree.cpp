#include "options/one_click_tree.h"

#include "catalogue/functions.h"
#include "options/option_values.h"
#include "options/options_test.h"

namespace tavix::mdlPubSelf {
namespace {

struct NodeCase {
  int depth;
  TextView text;
  TextView key;
};

// Three pages as roots, with their functions below them. Those of the Privacy page are below its two
// branches.
std::vector<NodeCase> ExpectedNodes() {
  std::vector<NodeCase> nodes{{0, u"Privacy", u"privacy"}};
  for (const CleaningFunction& function : kPrivacyFunctions) {
    const bool isBranch = function.Key == u"ie" || function.Key == u"we";
    nodes.push_back({isBranch ? 1 : 2, function.Caption, function.Key});
  }
  nodes.push_back({0, u"System", u"system"});
  for (const CleaningFunction& function : kSystemFunctions)
    nodes.push_back({1, function.Caption, function.Key});
  nodes.push_back({0, u"Registry", u"registry"});
  for (const CleaningFunction& function : kRegistryFunctions)
    nodes.push_back({1, function.Caption, function.Key});
  return nodes;
}

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
  const std::vector<NodeCase> nodes = ExpectedNodes();
  ASSERT_EQ(Tree().NodeCount(), std::ssize(nodes));
  for (int i = 1; i <= Tree().NodeCount(); ++i) {
    const Node& node = *Tree().NodeAt(i);
    const NodeCase& expected = nodes[static_cast<size_t>(i) - 1];
    EXPECT_EQ(node.Caption.Get(), expected.text);
    EXPECT_EQ(node.Key, expected.key);
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
  EXPECT_EQ(Ticked(), (std::vector<Text>{u"ie", u"Memory Dumps"})) << "the last key has no bar after it";
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
