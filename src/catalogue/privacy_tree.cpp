#include "catalogue/privacy_tree.h"

#include <algorithm>

#include "catalogue/functions.h"
#include "catalogue/selection.h"
#include "forms/main_form.h"
#include "scan/scan_function.h"

namespace tavix::mdlPubSelf {
namespace {

void TickBranch(Node* root) {
  if (root == nullptr) return;
  root->Expanded = true;
  root->Checked = true;
  trvPrivacy_NodeCheck(*root);
}

}  // namespace

void BuildPrivacyTree() {
  Node* root = nullptr;
  for (const CleaningFunction& function : kPrivacyFunctions) {
    if (IsPrivacyBranch(function.Key)) {
      TickBranch(root);
      root = frmPubMain.trvPrivacy.AddNode(nullptr, function.Key, function.Caption);
    } else {
      frmPubMain.trvPrivacy.AddNode(root, function.Key, function.Caption);
    }
  }
  TickBranch(root);
}

void trvPrivacy_NodeClick(Node& node) {
  frmPubMain.lblOpt.Visible = false;
  frmPubMain.lblOptPrompt.Visible = false;
  const auto found = std::ranges::find(kPrivacyFunctions, TextView(node.Key), &CleaningFunction::Key);
  if (found != kPrivacyFunctions.end()) frmPubMain.lblProgS.Caption = Text(found->Description);
}

}  // namespace tavix::mdlPubSelf
