#include "controls/tree_view.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(TreeView, KeepsNodesInTheOrderOfAdding) {
  TreeView tree;
  Node* first = tree.AddNode(nullptr, u"ie", u"Internet Explorer");
  Node* second = tree.AddNode(nullptr, u"we", u"Windows Explorer");
  Node* child = tree.AddNode(first, u"iec", u"Cookies");
  Node* sibling = tree.AddNode(first, u"ieh", u"History");
  EXPECT_EQ(tree.NodeCount(), 4);
  EXPECT_EQ(tree.NodeAt(3), child);
  EXPECT_EQ(child->Index, 3);
  EXPECT_EQ(tree.NodeAt(0), nullptr);
  EXPECT_EQ(tree.NodeAt(5), nullptr);
  EXPECT_EQ(first->Next(), second);
  EXPECT_EQ(first->Children(), 2);
  EXPECT_EQ(first->Child(), child);
  EXPECT_EQ(sibling->FirstSibling(), child);
  EXPECT_EQ(second->FirstSibling(), first);
  EXPECT_EQ(sibling->Parent(), first);
  EXPECT_EQ(second->Child(), nullptr);
}

TEST(TreeView, FindsByKeyAndRefusesAKeyTwice) {
  TreeView tree;
  Node* node = tree.AddNode(nullptr, u"C:", u"C:");
  EXPECT_EQ(tree.NodeByKey(u"C:"), node);
  EXPECT_EQ(tree.NodeByKey(u"c:"), nullptr);
  EXPECT_EQ(tree.NodeByKey(u""), nullptr);
  EXPECT_EQ(tree.AddNode(node, u"C:", u"again"), nullptr);
  EXPECT_EQ(tree.NodeCount(), 1);
  EXPECT_NE(tree.AddNode(node, u"", u"a"), nullptr);
  EXPECT_NE(tree.AddNode(node, u"", u"b"), nullptr);
  tree.Clear();
  EXPECT_EQ(tree.NodeCount(), 0);
  EXPECT_EQ(tree.NodeByKey(u"C:"), nullptr);
  EXPECT_NE(tree.AddNode(nullptr, u"C:", u"C:"), nullptr);
}

TEST(TreeView, OnlyTheUsersTickRaisesNodeCheck) {
  TreeView tree;
  Node* node = tree.AddNode(nullptr, u"k", u"t");
  int checks = 0;
  tree.NodeCheck = [&checks](Node& checked) { checks += checked.Checked ? 1 : 100; };
  node->Checked = true;
  EXPECT_EQ(checks, 0);
  tree.UserCheck(*node, true);
  EXPECT_EQ(checks, 1);
  tree.UserCheck(*node, false);
  EXPECT_EQ(checks, 101);
}

struct RecordingPeer : TreePeer {
  std::vector<Text> calls;
  void NodeAdded(Node& node) override { calls.push_back(u"+" + node.Key); }
  void NodeChanged(Node& node) override { calls.push_back(u"!" + node.Key); }
  void NodesCleared() override { calls.push_back(u"0"); }
};

TEST(TreeView, NotifiesThePeerWhichNodeChanged) {
  TreeView tree;
  RecordingPeer peer;
  tree.treePeer = &peer;
  Node* node = tree.AddNode(nullptr, u"k", u"t");
  node->Checked = true;
  node->Checked = true;
  node->BackColor = kButtonFace;
  tree.Clear();
  EXPECT_EQ(peer.calls, (std::vector<Text>{u"+k", u"!k", u"!k", u"0"}));
}

TEST(TreeView, ClearForgetsTheSelectedNode) {
  TreeView tree;
  int clicks = 0;
  tree.NodeClick = [&clicks](Node&) { ++clicks; };
  tree.SelectedItem = tree.AddNode(nullptr, u"a", u"A");
  EXPECT_EQ(clicks, 0) << "the program's choice raises nothing";
  tree.Clear();
  EXPECT_EQ(tree.SelectedItem, nullptr);
}

}  // namespace
}  // namespace tavix
