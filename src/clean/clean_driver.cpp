#include "clean/clean_driver.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "clean/action_string.h"
#include "clean/removal.h"
#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_registry.h"
#include "frame/support/pub_system.h"
#include "platform/event_logs.h"
#include "platform/event_queue.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "text/attempt.h"
#include "text/number.h"
#include "text/plain_name.h"

namespace tavix::mdlPubSelf {
namespace {

// A row's fields, taken before the list changes.
struct Finding {
  Text tag;
  FoundPlace place;  // without a name the path would be that of the folder
  Text size;
};

// One clean: what its rows share.
struct Clean {
  Removal removal;
};

// Whether the row is dealt with and goes.
using Execute = bool (*)(Clean& clean, const Finding& finding, TextView payload);

// What the system would take for something else is left alone, and its row stays. So does that of a thing of
// which it can't be told whether it is gone.
bool CleanFileAt(Clean& clean, const FoundPlace& place) {
  const Text path = place.Path();
  if (!HasPlainNames(path)) return false;
  if (!place.name.empty()) clean.removal.RemoveFile(place);
  return fileSystemObject.FileExists(path) == false;
}

bool CleanFile(Clean& clean, const Finding& finding, TextView) { return CleanFileAt(clean, finding.place); }

// The file lies in the very folder that its function names.
bool CleanNamedFile(Clean& clean, const Finding&, TextView path) {
  const size_t cut = path.find_last_of(u'\\');
  if (cut == TextView::npos) return fileSystemObject.FileExists(path) == false;
  return CleanFileAt(clean, {Text(path.substr(0, cut)), Text(path.substr(cut + 1)), cut});
}

bool CleanFolder(Clean& clean, const Finding& finding, TextView) {
  const Text path = finding.place.Path();
  if (!HasPlainNames(path)) return false;
  if (!finding.place.name.empty()) clean.removal.RemoveFolder(finding.place);
  return fileSystemObject.FolderExists(path) == false;
}

bool DeleteRegistryKey(Clean&, const Finding&, TextView payload) {
  const RegistryTarget target = ReadRegistryTarget(payload);
  if (target.key) pubRegistry.DeleteKey(target.hive, *target.key);
  return true;
}

bool DeleteRegistryValue(Clean&, const Finding&, TextView payload) {
  const RegistryTarget target = ReadRegistryTarget(payload);
  int status = 0;
  if (target.value) pubRegistry.DeleteValue(target.hive, *target.key, *target.value, status);
  return true;
}

bool DeleteRegistryValues(Clean& clean, const Finding& finding, TextView payload) {
  for (const TextView piece : SplitRegistryTargets(payload)) DeleteRegistryValue(clean, finding, piece);
  return true;
}

constexpr int kMaximized = 3;

bool RunCommand(Clean&, const Finding&, TextView payload) {
  pubSystem.RunTarget(payload, kMaximized);
  return true;
}

bool MarkForRestart(Clean&, const Finding& finding, TextView) {
  const Text path = finding.place.Path();
  if (HasPlainNames(path)) pubSystem.DeleteAtRestart(path);
  return true;
}

bool EmptyBins(Clean&, const Finding&, TextView) {
  pubSystem.EmptyRecycleBin(frmPubMain.hWnd, 0);
  return true;
}

bool ClearLog(Clean&, const Finding&, TextView payload) {
  ClearSystemLog(payload);
  return true;
}

struct Kind {
  TextView name;
  bool needsPayload;
  Execute execute;
};

constexpr std::array kKinds = {
    Kind{u"F", false, CleanFile},
    Kind{u"RK", true, DeleteRegistryKey},
    Kind{u"RI", true, DeleteRegistryValue},
    Kind{u"Cmd", true, RunCommand},
    Kind{u"DUR", false, MarkForRestart},
    Kind{u"RE", false, EmptyBins},
    Kind{u"FT", true, CleanNamedFile},
    Kind{u"WSL", true, ClearLog},
    Kind{u"RIs", true, DeleteRegistryValues},
    Kind{u"P", false, CleanFolder},
};

// What stays in the list is a file or folder that still stands. A tag of an unknown kind, or without the
// payload that its kind needs, has nothing to be done and its row goes.
bool ExecuteFinding(Clean& clean, const Finding& finding) {
  const Action action = ReadAction(finding.tag);
  const auto* kind = std::ranges::find(kKinds, action.kind, &Kind::name);
  if (kind == kKinds.end() || (kind->needsPayload && !action.payload)) return true;
  return kind->execute(clean, finding, action.payload.value_or(u""));
}

Finding ReadRow(int row) {
  const ListView::Item item = frmPubMain.lsvResult.Row(row);
  return {Text(item.Tag()),
          {Text(item.SubItems(kLocationColumn)), Text(item.SubItems(kNameColumn)), WalkStart(item).size()},
          Text(item.SubItems(kSizeColumn))};
}

constexpr int kRowsForAStep = 26;

void SetProgressStep(int rows) {
  const double width = frmPubMain.lblProgMO.Width;
  const double updates = rows < kRowsForAStep ? width : rows / static_cast<double>(kRowsForAStep);
  Set(ProgressStep, ToInteger16(width / updates));
}

}  // namespace

void sbtClean_Click() {
  MainForm& form = frmPubMain;
  // The list is out of reach once rows are being worked on.
  if (form.sbtCancel.Visible || (form.CleanBusy && !form.lsvResult.Enabled)) return;
  const int rows = ResultCount();
  if (rows < 1) return;
  const bool within = std::exchange(form.CleanBusy, true);
  form.lblTime.Caption = u"? second(s).";
  form.lblSum.Caption = u"Sum: cleaned/repaired ? item(s), ? KB.";
  form.lblProgS.Caption = u"Cleaning/repairing the checked items, please wait...";
  form.lblProgMI.Visible = true;
  form.lblProgMI.Width = 0;
  // A one-click run started the clock at its scan.
  if (form.picOne.BorderStyle == 0) form.JobStart = platform::clock->Now();
  form.lblProgMO.BorderStyle = 1;
  form.webGIF.Visible = true;
  do {
    platform::Yield();
  } while (form.webGIF.Busy);
  // The program may have been ended meanwhile.
  if (!form.Loaded) {
    form.CleanBusy = within;
    return;
  }
  form.lsvResult.Enabled = false;
  SetProgressStep(rows);

  Clean clean;
  int32_t cleaned = 0;
  float cleanedSize = 0;
  for (int row = rows; row >= 1; --row) {
    if ((rows - row) % kRowsForAStep == 0) AdvanceProgressBar();
    // While the wait yielded, another clean may have taken rows away.
    if (row > ResultCount() || !form.lsvResult.Row(row).Checked()) continue;
    const Finding finding = ReadRow(row);
    if (!ExecuteFinding(clean, finding)) continue;
    ++cleaned;
    if (const auto size = ParseNumber(finding.size)) cleanedSize += static_cast<float>(*size);
    form.lsvResult.Remove(row);
  }

  form.lblProgMI.Width = form.lblProgMO.Width;
  form.lblProgMI.Caption = u"100%";
  // A clean in whose wait this one was asked for goes on.
  form.CleanBusy = within;
  form.lsvResult.Enabled = true;
  form.webGIF.Visible = false;
  form.lblProgS.Caption = u"Finished.";
  ShowElapsedTime();
  form.lblSum.Caption = Concat(u"Sum: ", ToText(cleaned), cleaned < 2 ? u" item, " : u" items, ",
                               FormatGrouped(cleanedSize), u" KB cleaned.");
}

void sbtRepair_Click() { sbtClean_Click(); }

void ClearSystemLog(TextView log) {
  const auto handle = platform::eventLogs->Open(log);
  platform::eventLogs->Clear(handle);
  platform::eventLogs->Close(handle);
}

}  // namespace tavix::mdlPubSelf
