#include "scan/scan_driver.h"

#include <algorithm>

#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/clock.h"
#include "platform/event_queue.h"
#include "scan/result_items.h"
#include "scan/scan_function.h"
#include "text/attempt.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

bool IsCurrent(const PictureBox& page) { return page.BorderStyle == 1; }

bool IsTickedFunction(const Node& node) { return node.Checked && !IsPrivacyBranch(node.Key); }

void SetProgressStep(int functions) {
  Set(ProgressStep, ToInteger16(static_cast<double>(frmPubMain.lblProgMO.Width) / std::max(functions, 1)));
}

void ScanPrivacyPage() {
  TreeView& tree = frmPubMain.trvPrivacy;
  int functions = 0;
  for (int i = 1; i <= tree.NodeCount(); ++i) functions += IsTickedFunction(*tree.NodeAt(i)) ? 1 : 0;
  SetProgressStep(functions);
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    if (CancelRequested) return;
    if (!IsTickedFunction(*tree.NodeAt(i))) continue;
    ScanFunction(tree.NodeAt(i)->Key);
    AdvanceProgressBar();
  }
}

// Row 0 is the master row. If the user opens another page during the loop, it continues with the rows of that
// page.
void ScanListPage() {
  CheckList& list = frmPubMain.lst;
  int functions = 0;
  for (int row = 1; row < list.ListCount(); ++row) functions += list.Selected(row) ? 1 : 0;
  SetProgressStep(functions);
  const int last = list.ListCount() - 1;
  for (int row = 1; row <= last; ++row) {
    if (CancelRequested) return;
    if (!list.Selected(row)) continue;
    ScanFunction(Text(list.List(row)));
    AdvanceProgressBar();
  }
}

// The list of keys begins and ends with a bar, so its first and last elements are empty. They advance the bar
// too, like keys skipped after a cancel.
void ScanOneClickFunctions() {
  const Text keys = Functions;
  const auto elements = Split(keys, u"|");
  SetProgressStep(elements.size() < 2 ? 1 : static_cast<int>(elements.size()));
  for (const TextView key : elements) {
    if (!key.empty()) ScanFunction(key);
    AdvanceProgressBar();
  }
}

void ScanCurrentPage() {
  if (IsCurrent(frmPubMain.picPrivacy)) {
    ScanPrivacyPage();
  } else if (IsCurrent(frmPubMain.picOne)) {
    ScanOneClickFunctions();
  } else if (IsCurrent(frmPubMain.picAdv)) {
    ScanFunction(u"Advanced");
  } else if (frmPubMain.lst.Visible) {
    ScanListPage();
  }
}

Text SumLine(bool registryPage) {
  const int rows = ResultCount();
  // The doubled blank is meant.
  if (registryPage) return Concat(u"Sum: ", ToText(rows), rows < 2 ? u" item " : u" items ", u" found.");
  return Concat(u"Sum: ", ToText(rows), rows < 2 ? u" item, " : u" items, ", FormatGrouped(SumResultSizes()),
                u" KB found.");
}

}  // namespace

Text ClosingLine(bool registryPage) {
  const int rows = ResultCount();
  const TextView prefix = CancelRequested ? u"Canceled, " : u"Finished, ";
  if (registryPage) {
    if (rows == 0) return Concat(prefix, u"no issue found.");
    return Concat(prefix, u"please click <Repair> or press <F5> to repair the checked ",
                  rows >= 2 ? u"issues." : u"issue.");
  }
  if (rows == 0) return Concat(prefix, u"no item found.");
  return Concat(prefix, u"please click <Clean> or press <F5> to clean the checked ",
                rows >= 2 ? u"items." : u"item.");
}

void sbtScan_Click() {
  MainForm& form = frmPubMain;
  if (form.sbtCancel.Visible || form.CleanBusy) return;
  CancelRequested = false;
  form.sbtScan.Visible = false;
  form.sbtCancel.Visible = true;
  form.lblTime.Caption = u"? second(s).";
  form.lblSum.Caption =
      IsCurrent(form.picRegistry) ? u"Sum: ? item(s) found." : u"Sum: ? item(s), ? KB found.";
  form.lblProgMI.Visible = true;
  form.lblProgMI.Width = 0;
  form.JobStart = platform::clock->Now();
  form.lblProgMO.BorderStyle = 1;
  form.webGIF.Visible = true;
  while (form.webGIF.Busy) platform::Yield();
  ClearResults();
  form.lsvResult.Enabled = false;
  SetResultControlsEnabled(false);
  form.Refresh();

  ScanCurrentPage();

  form.sbtScan.Visible = true;
  form.sbtCancel.Visible = false;
  form.lsvResult.Enabled = true;
  SetResultControlsEnabled(true);
  form.cbxAll.Value = 1;
  form.webGIF.Visible = false;
  const bool registryPage = IsCurrent(form.picRegistry);
  form.lblProgS.Caption = ClosingLine(registryPage);
  CancelRequested = false;
  ShowElapsedTime();
  form.lsvResult.ColumnHeaders[0].Icon = 0;
  form.lblSum.Caption = SumLine(registryPage);
}

void sbtCancel_Click() { CancelRequested = true; }

bool YieldUnlessCancelled() {
  platform::Yield();
  return !CancelRequested;
}

void SetResultControlsEnabled(bool enabled) {
  frmPubMain.cbxAll.Enabled = enabled;
  frmPubMain.sbtClean.Enabled = enabled;
  frmPubMain.sbtRepair.Enabled = enabled;
  for (Button& button : frmPubMain.sbtToolbar) button.Enabled = enabled;
}

void ShowScannedFolder(Text folder) {
  frmPubMain.lblProgS.Caption.Form(std::move(folder), [](const Text& path) {
    return Concat(u"Scanning in '", path, u"', please wait...");
  });
}

void AdvanceProgressBar() {
  Label& fill = frmPubMain.lblProgMI;
  const int whole = frmPubMain.lblProgMO.Width;
  fill.Width = fill.Width > whole ? whole : fill.Width + ProgressStep;
  if (whole == 0) return;
  const double ratio = static_cast<double>(fill.Width) / whole;
  fill.Caption = ratio > 1 ? Text(u"100%") : FormatPercent(ratio);
}

void ShowElapsedTime() {
  int16_t seconds = 0;
  if (const platform::DateTime now = platform::clock->Now(); now != platform::kUnknownTime) {
    const platform::DateTime elapsed = (now - frmPubMain.JobStart) / 1000;
    Set(seconds, ToInteger16(static_cast<double>(elapsed)));
  }
  frmPubMain.lblTime.Caption = Concat(ToText(seconds), seconds == 0 ? u" second." : u" seconds.");
}

}  // namespace tavix::mdlPubSelf
