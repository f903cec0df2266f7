#include "clean/clean_driver.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "clean/removal.h"
#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_registry.h"
#include "frame/support/pub_system.h"
#include "platform/event_logs.h"
#include "platform/event_queue.h"
#include "platform/file_system.h"
#include "scan/action_string.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "text/attempt.h"
#include "text/number.h"
#include "text/plain_name.h"

namespace tavix::mdlPubSelf {
namespace {

// A row's fields, read before the list changes.
struct Finding {
  Text tag;
  FoundPlace place;  // without a name its path is the folder's
  Text size;
};

// State that the rows of one clean share.
struct Clean {
  Removal removal;
};

// Executes a row. True if the row is done and is to be removed.
using Execute = bool (*)(Clean& clean, const Finding& finding, TextView payload);

// Whether a link stands at the path. Links to nothing stand too, though no file or folder exists there.
bool LinkStandsAt(TextView path) { return platform::fileSystem->IsLink(path) == true; }

bool FileIsGone(TextView path) {
  return fileSystemObject.FileExists(path) == false &&
         (fileSystemObject.FolderExists(path) == true || !LinkStandsAt(path));
}

bool FolderIsGone(TextView path) {
  return fileSystemObject.FolderExists(path) == false &&
         (fileSystemObject.FileExists(path) == true || !LinkStandsAt(path));
}

// A file is left alone, and its row stays, if the system would read its name as another one. The row also
// stays if it can't be told whether the file has gone.
//
// The path is asked only for what isn't known to have gone.
bool CleanFileAt(Clean& clean, const FoundPlace& place) {
  const Text path = place.Path();
  if (!HasPlainNames(path)) return false;
  if (!place.name.empty() && clean.removal.RemoveFile(place)) return true;
  return FileIsGone(path);
}

bool CleanFile(Clean& clean, const Finding& finding, TextView) { return CleanFileAt(clean, finding.place); }

// The walk's start is the folder of the file: the payload names the whole path.
bool CleanNamedFile(Clean& clean, const Finding&, TextView path) {
  const size_t cut = path.find_last_of(u'\\');
  if (cut == TextView::npos) return FileIsGone(path);
  return CleanFileAt(clean, {Text(path.substr(0, cut)), Text(path.substr(cut + 1)), cut});
}

bool CleanFolder(Clean& clean, const Finding& finding, TextView) {
  const Text path = finding.place.Path();
  if (!HasPlainNames(path)) return false;
  if (!finding.place.name.empty() && clean.removal.RemoveFolder(finding.place)) return true;
  return FolderIsGone(path);
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

bool RunCommand(Clean&, const Finding&, TextView payload) {
  pubSystem.RunTarget(payload, platform::kMaximized);
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
  bool sharesFolder = false;  // may begin with the folder of the row before still open
};

constexpr std::array kKinds = {
    Kind{action::kFile, false, CleanFile, true},
    Kind{action::kRegistryKey, true, DeleteRegistryKey},
    Kind{action::kRegistryValue, true, DeleteRegistryValue},
    Kind{action::kCommand, true, RunCommand},
    Kind{action::kFileAtRestart, false, MarkForRestart},
    Kind{action::kRecycleBins, false, EmptyBins},
    Kind{action::kNamedFile, true, CleanNamedFile, true},
    Kind{action::kEventLog, true, ClearLog},
    Kind{action::kRegistryValues, true, DeleteRegistryValues},
    Kind{action::kFolder, false, CleanFolder},
};
static_assert(kKinds.size() == action::kAll.size());

// A row stays if its file or folder is still there. An unknown kind, or a kind without the payload it needs,
// has nothing to do and its row is removed.
bool ExecuteFinding(Clean& clean, const Finding& finding) {
  const Action action = ReadAction(finding.tag);
  const auto* kind = std::ranges::find(kKinds, action.kind, &Kind::name);
  if (kind == kKinds.end() || (kind->needsPayload && !action.payload)) return true;
  if (!kind->sharesFolder) clean.removal.LetGo();
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

void SetJobButtonsEnabled(bool enabled) {
  SetResultControlsEnabled(enabled);
  frmPubMain.sbtScan.Enabled = enabled;
}

}  // namespace

void sbtClean_Click() {
  MainForm& form = frmPubMain;
  // The list is disabled while rows are being worked on.
  if (form.sbtCancel.Visible || (form.CleanBusy && !form.lsvResult.Enabled)) return;
  const int rows = ResultCount();
  if (rows < 1) return;
  const bool within = std::exchange(form.CleanBusy, true);
  form.lblTime.Caption = u"? second(s).";
  form.lblSum.Caption = u"Sum: cleaned/repaired ? item(s), ? KB.";
  form.lblProgS.Caption = u"Cleaning/repairing the checked items, please wait...";
  form.lblProgMI.Visible = true;
  form.lblProgMI.Width = 0;
  // A one-click run started the clock when its scan began.
  if (form.picOne.BorderStyle == 0) form.JobStart = platform::clock->Now();
  form.lblProgMO.BorderStyle = 1;
  form.webGIF.Visible = true;
  do {
    platform::Yield();
  } while (form.webGIF.Busy);
  // The user may have closed the program during the wait.
  if (!form.Loaded) {
    form.CleanBusy = within;
    return;
  }
  form.lsvResult.Enabled = false;
  // No button is served until the end, and it looks so.
  SetJobButtonsEnabled(false);
  SetProgressStep(rows);
  form.Refresh();

  Clean clean;
  int32_t cleaned = 0;
  float cleanedSize = 0;
  for (int row = rows; row >= 1; --row) {
    if ((rows - row) % kRowsForAStep == 0) {
      AdvanceProgressBar();
      clean.removal.LetGo();
    }
    form.KeepPainted();
    // The end of the Windows session closes the program.
    if (!form.Loaded) break;
    // Another clean may have removed rows during the wait.
    if (row > ResultCount() || !form.lsvResult.Row(row).Checked()) continue;
    const Finding finding = ReadRow(row);
    if (!ExecuteFinding(clean, finding)) continue;
    ++cleaned;
    if (const auto size = ParseNumber(finding.size)) cleanedSize += static_cast<float>(*size);
    form.lsvResult.Remove(row);
  }

  form.lblProgMI.Width = form.lblProgMO.Width;
  form.lblProgMI.Caption = u"100%";
  // If another clean's wait started this one, that clean continues.
  form.CleanBusy = within;
  form.lsvResult.Enabled = true;
  SetJobButtonsEnabled(true);
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
