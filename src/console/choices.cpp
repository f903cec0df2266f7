#include "console/choices.h"

#include <algorithm>

#include "forms/main_form.h"
#include "scan/scan_function.h"
#include "text/letter_case.h"
#include "text/utf8.h"

namespace tavix::console {
namespace {

struct Page {
  TextView option;
  const char* name;
  PictureBox* picture;
};
const Page kPages[] = {
    {u"privacy", "Privacy", &frmPubMain.picPrivacy},
    {u"system", "System", &frmPubMain.picSystem},
    {u"registry", "Registry", &frmPubMain.picRegistry},
    {u"advanced", "Advanced", &frmPubMain.picAdv},
};

bool OnPrivacyPage() { return frmPubMain.picPrivacy.BorderStyle == 1; }

// The row of the function with this caption; 0 if there is none (row 0 is the master row).
int RowByCaption(TextView caption) {
  for (int row = 1; row < frmPubMain.lst.ListCount(); ++row) {
    if (frmPubMain.lst.List(row) == caption) return row;
  }
  return 0;
}

bool IsOnPage(TextView function) {
  if (!OnPrivacyPage()) return RowByCaption(function) > 0;
  return frmPubMain.trvPrivacy.NodeByKey(function) != nullptr && !mdlPubSelf::IsPrivacyBranch(function);
}

// Unticks each branch, which unticks its functions, then ticks the wanted ones.
void TickNodes(const std::vector<Text>& functions) {
  TreeView& tree = frmPubMain.trvPrivacy;
  for (Node* root = tree.NodeAt(1); root != nullptr; root = root->Next()) tree.UserCheck(*root, false);
  for (const Text& key : functions) tree.UserCheck(*tree.NodeByKey(key), true);
}

// Unticks the master row, which unticks all rows, then ticks the wanted ones.
void TickRows(const std::vector<Text>& functions) {
  frmPubMain.lst.SetSelected(0, false);
  for (const Text& caption : functions) frmPubMain.lst.SetSelected(RowByCaption(caption), true);
}

bool TickFunctions(const Options& options, const Page& page, std::string& error) {
  if (options.functions.empty()) return true;
  const auto missing = std::ranges::find_if_not(options.functions, IsOnPage);
  if (missing != options.functions.end()) {
    error = "--function '" + ToUtf8(*missing) + "' is no function of the " + page.name + " page";
    return false;
  }
  OnPrivacyPage() ? TickNodes(options.functions) : TickRows(options.functions);
  return true;
}

// The node with this key; if there is none, one whose key differs only in letter case; null if there is none.
Node* ScopeNode(TextView key) {
  TreeView& tree = frmPubMain.trvRes;
  if (Node* exact = tree.NodeByKey(key)) return exact;
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    if (EqualIgnoringCase(tree.NodeAt(i)->Key, key)) return tree.NodeAt(i);
  }
  return nullptr;
}

// The node of a drive or folder; null if there is none. Clicks the folders above it to load their subfolders.
Node* LoadScopeNode(TextView key) {
  for (size_t end = key.find(u'\\'); end != TextView::npos; end = key.find(u'\\', end + 1)) {
    Node* parent = ScopeNode(key.substr(0, end));
    if (parent == nullptr) return nullptr;
    if (parent->Children() == 0) frmPubMain.trvRes.NodeClick(*parent);
  }
  return ScopeNode(key);
}

bool TickScopes(const Options& options, std::string& error) {
  if (options.scopes.empty()) return true;
  TreeView& tree = frmPubMain.trvRes;
  tree.UserCheck(*tree.NodeAt(1), false);
  for (const Text& key : options.scopes) {
    Node* node = LoadScopeNode(key);
    if (node == nullptr) {
      error = "--scope '" + ToUtf8(key) + "' is no drive or folder of the Advanced page";
      return false;
    }
    tree.UserCheck(*node, true);
  }
  return true;
}

}  // namespace

bool OpenAndTick(const Options& options, std::string& error) {
  const auto* page = std::ranges::find(kPages, options.page, &Page::option);
  page->picture->MouseUp(kLeftButton);
  return TickFunctions(options, *page, error) && TickScopes(options, error);
}

}  // namespace tavix::console
