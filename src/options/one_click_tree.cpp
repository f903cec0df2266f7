#include "options/one_click_tree.h"

#include <algorithm>
#include <span>

#include "catalogue/functions.h"
#include "forms/options_form.h"
#include "scan/scan_function.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kBar = u"|";
// Keys of the roots. The branches of the Privacy page are headings too.
constexpr TextView kPrivacyRoot = u"privacy";
constexpr TextView kSystemRoot = u"system";
constexpr TextView kRegistryRoot = u"registry";

bool IsHeading(TextView key) {
  return key == kPrivacyRoot || key == kSystemRoot || key == kRegistryRoot || IsPrivacyBranch(key);
}

Node* AddHeading(Node* parent, TextView key, TextView text) {
  Node* node = frmPubOptions.trvOC.AddNode(parent, key, text);
  node->Bold = true;
  node->Expanded = true;
  return node;
}

void AddPrivacyBranches(Node* root) {
  Node* branch = root;
  for (const CleaningFunction& function : kPrivacyFunctions) {
    if (IsPrivacyBranch(function.Key)) {
      branch = AddHeading(root, function.Key, function.Caption);
    } else {
      frmPubOptions.trvOC.AddNode(branch, function.Key, function.Caption);
    }
  }
}

void AddFunctions(Node* root, std::span<const CleaningFunction> functions) {
  for (const CleaningFunction& function : functions) {
    frmPubOptions.trvOC.AddNode(root, function.Key, function.Caption);
  }
}

}  // namespace

void BuildOneClickTree() {
  frmPubOptions.trvOC.Clear();
  AddPrivacyBranches(AddHeading(nullptr, kPrivacyRoot, u"Privacy"));
  AddFunctions(AddHeading(nullptr, kSystemRoot, u"System"), kSystemFunctions);
  AddFunctions(AddHeading(nullptr, kRegistryRoot, u"Registry"), kRegistryFunctions);
}

void TickOneClickFunctions(TextView keys) {
  TreeView& tree = frmPubOptions.trvOC;
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    Node& node = *tree.NodeAt(i);
    if (keys.find(Concat(kBar, node.Key, kBar)) != TextView::npos) node.Checked = true;
  }
  Node* first = tree.NodeAt(1);
  if (first == nullptr) return;
  first->Checked = true;
  first->Checked = false;
}

Text TickedOneClickFunctions() {
  Text keys(kBar);
  TreeView& tree = frmPubOptions.trvOC;
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    const Node& node = *tree.NodeAt(i);
    if (node.Checked && !IsHeading(node.Key)) keys += Concat(node.Key, kBar);
  }
  return keys;
}

void trvOC_NodeCheck(Node& node) {
  for (Node* child = node.Child(); child != nullptr; child = child->Next()) {
    child->Checked = node.Checked.Get();
    trvOC_NodeCheck(*child);
  }
}

}  // namespace tavix::mdlPubSelf
