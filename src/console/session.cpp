#include "console/session.h"

#include <cstdio>

#include "console/progress.h"
#include "console/report.h"
#include "forms/main_form.h"
#include "frame/start_up.h"
#include "scan/scan_function.h"
#include "text/utf8.h"
#include "window/wiring.h"

namespace tavix::console {
namespace {

// Ticks only the functions asked for, as a user would: a branch is emptied by its own box.
bool TickFunctions(const std::vector<Text>& functions, std::string& error) {
  TreeView& tree = frmPubMain.trvPrivacy;
  for (const Text& key : functions) {
    if (tree.NodeByKey(key) == nullptr || mdlPubSelf::IsPrivacyBranch(key)) {
      error = "--function '" + ToUtf8(key) + "' is no function of the Privacy page";
      return false;
    }
  }
  for (Node* root = tree.NodeAt(1); root != nullptr; root = root->Next()) tree.UserCheck(*root, false);
  for (const Text& key : functions) tree.UserCheck(*tree.NodeByKey(key), true);
  return true;
}

}  // namespace

int RunSession(const Options& options, std::string& error) {
  WireMainForm();
  mdlPubSelf::Form_Load();
  int status = 0;
  if (options.functions.empty() || TickFunctions(options.functions, error)) {
    const Progress progress(!options.json);
    frmPubMain.sbtScan.Click();
  } else {
    status = 2;
  }
  if (status == 0 && options.json) PrintJson(stdout, "scan");
  if (status == 0 && !options.json) PrintTable(stdout);
  mdlPubSelf::Form_Unload();
  return status;
}

}  // namespace tavix::console
