#include "console/session.h"

#include <algorithm>
#include <cstdio>

#include "console/choices.h"
#include "console/progress.h"
#include "console/report.h"
#include "console/terminal.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "frame/trusted_data.h"
#include "text/utf8.h"
#include "window/wiring.h"

namespace tavix::console {
namespace {

bool WriteSettings(const Options& options, std::string& error) {
  for (const Options::Setting& setting : options.settings) {
    if (mdlPubSelf::Setting::Find(setting.section, setting.key) == nullptr) {
      error = "--set '" + ToUtf8(Concat(setting.section, u"/", setting.key)) + "' is no setting";
      return false;
    }
  }
  for (const Options::Setting& setting : options.settings) {
    mdlPubSelf::WriteSetting(*mdlPubSelf::Setting::Find(setting.section, setting.key), setting.value);
  }
  if (!options.settings.empty()) mdlPubSelf::LoadSettings();
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
  Progress::Clear();
  if (options.json) {
    PrintJson(stdout, stage);
  } else {
    PrintTable(stdout);
  }
  std::fflush(stdout);
}

// Prints the rows of the scan and applies --tick and --untick, before the clean.
bool Review(const Options& options, std::string& error) {
  if (!RowsAreThere(options, error)) return false;
  Print(options, "scan");
  for (const Options::Mark& mark : options.marks) frmPubMain.lsvResult.Row(mark.row).SetChecked(mark.checked);
  return true;
}

// Whether the ticked rows may be removed. Asks on the terminal before the running system is cleaned.
bool IsAgreed(const Options& options) {
  if (!options.live || options.yes) return true;
  int ticked = 0;
  for (int row = 1; row <= frmPubMain.lsvResult.Count(); ++row)
    ticked += frmPubMain.lsvResult.Row(row).Checked() ? 1 : 0;
  if (ticked == 0) return true;
  WriteText(stderr, "Remove what the " +
                        (ticked == 1 ? "ticked row names" : std::to_string(ticked) + " ticked rows name") +
                        " from this computer? [y/N] ");
  std::fflush(stderr);
  const auto answer = ReadLine();
  if (answer == "y" || answer == "Y" || answer == "yes") return true;
  WriteText(stderr, "Nothing was removed.\n");
  return false;
}

bool ScanAndClean(const Options& options, std::string& error) {
  frmPubMain.sbtScan.Click();
  if (!Review(options, error)) return false;
  if (!options.clean || !IsAgreed(options)) return true;
  Button& button = frmPubMain.picRegistry.BorderStyle == 1 ? frmPubMain.sbtRepair : frmPubMain.sbtClean;
  button.Click();
  Print(options, "clean");
  return true;
}

// The one-click picture runs scan and clean in one go. The review runs when the picture presses Clean.
bool OneClick(const Options& options, std::string& error) {
  Event<>& press = frmPubMain.sbtClean.Click;
  const Event<> clean = press;
  bool reviewed = false;
  bool agreed = false;
  error = "the one-click run was not started";
  press = [&] {
    reviewed = Review(options, error);
    agreed = reviewed && IsAgreed(options);
    if (agreed) clean();
  };
  frmPubMain.picOne.MouseUp(kLeftButton);
  press = clean;
  if (agreed) Print(options, "clean");
  return reviewed;
}

bool Run(const Options& options, std::string& error) {
  if (!WriteSettings(options, error) || !OpenAndTick(options, error)) return false;
  const Progress progress(!options.json);
  return options.oneClick ? OneClick(options, error) : ScanAndClean(options, error);
}

}  // namespace

int RunSession(const Options& options, std::string& error) {
  return RunProgram([&options](std::string& reason) { return Run(options, reason); }, error);
}

int RunProgram(const std::function<bool(std::string& error)>& run, std::string& error) {
  WireForms();
  if (!mdlPubSelf::Form_Initialize()) {
    error = "another copy of the program runs over this machine";
    return 3;
  }
  if (!mdlPubSelf::Form_Load()) {
    error = "the program's data was left alone, as others may have put it there:";
    for (const Text& path : mdlPubSelf::ForeignData()) error += " '" + ToUtf8(path) + "'";
    return 3;
  }
  const int status = run(error) ? 0 : 2;
  mdlPubSelf::Form_Unload();
  return status;
}

}  // namespace tavix::console
