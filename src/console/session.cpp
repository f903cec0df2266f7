#include "console/session.h"

#include <algorithm>
#include <cstdio>

#include "console/progress.h"
#include "console/report.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "scan/scan_function.h"
#include "text/utf8.h"
#include "window/wiring.h"

namespace tavix::console {
namespace {

bool WriteSettings(const Options& options, std::string& error) {
  for (const Options::Setting& setting : options.settings) {
    if (!mdlPubSelf::IsSetting(setting.section, setting.key)) {
      error = "--set '" + ToUtf8(Concat(setting.section, u"/", setting.key)) + "' is no setting";
      return false;
    }
  }
  for (const Options::Setting& setting : options.settings) {
    mdlPubSelf::WriteSetting(setting.section, setting.key, setting.value);
  }
  if (!options.settings.empty()) mdlPubSelf::LoadSettings();
  return true;
}

// Ticks only the functions asked for, as a user would: a branch is emptied by its own box.
bool TickFunctions(const Options& options, std::string& error) {
  if (options.functions.empty()) return true;
  TreeView& tree = frmPubMain.trvPrivacy;
  for (const Text& key : options.functions) {
    if (tree.NodeByKey(key) == nullptr || mdlPubSelf::IsPrivacyBranch(key)) {
      error = "--function '" + ToUtf8(key) + "' is no function of the Privacy page";
      return false;
    }
  }
  for (Node* root = tree.NodeAt(1); root != nullptr; root = root->Next()) tree.UserCheck(*root, false);
  for (const Text& key : options.functions) tree.UserCheck(*tree.NodeByKey(key), true);
  return true;
}

bool RowsAreThere(const Options& options, std::string& error) {
  const int rows = frmPubMain.lsvResult.Count();
  const auto missing =
      std::ranges::find_if(options.marks, [rows](const auto& mark) { return mark.row > rows; });
  if (missing == options.marks.end()) return true;
  error = std::string(missing->checked ? "--tick '" : "--untick '") + std::to_string(missing->row) +
          "' is not there, the scan found " + std::to_string(rows);
  return false;
}

void Print(const Options& options, const char* stage) {
  if (options.json) {
    PrintJson(stdout, stage);
  } else {
    PrintTable(stdout);
  }
}

bool ScanAndClean(const Options& options, std::string& error) {
  if (!WriteSettings(options, error) || !TickFunctions(options, error)) return false;
  const Progress progress(!options.json);
  frmPubMain.sbtScan.Click();
  if (!RowsAreThere(options, error)) return false;
  Print(options, "scan");
  for (const Options::Mark& mark : options.marks) frmPubMain.lsvResult.Row(mark.row).SetChecked(mark.checked);
  if (!options.clean) return true;
  Button& button = frmPubMain.picRegistry.BorderStyle == 1 ? frmPubMain.sbtRepair : frmPubMain.sbtClean;
  button.Click();
  Print(options, "clean");
  return true;
}

}  // namespace

int RunSession(const Options& options, std::string& error) {
  WireMainForm();
  if (!mdlPubSelf::Form_Initialize()) {
    error = "another copy of the program runs over this machine";
    return 3;
  }
  mdlPubSelf::Form_Load();
  const int status = ScanAndClean(options, error) ? 0 : 2;
  mdlPubSelf::Form_Unload();
  return status;
}

}  // namespace tavix::console
