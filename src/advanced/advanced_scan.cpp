#include "advanced/advanced_scan.h"

#include <algorithm>

#include "advanced/advanced_walker.h"
#include "advanced/duplicate_finder.h"
#include "advanced/folder_functions.h"
#include "advanced/path_text.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/event_queue.h"
#include "scan/scan_driver.h"
#include "text/attempt.h"
#include "text/letter_case.h"
#include "text/number.h"
#include "text/pattern.h"

namespace tavix::mdlPubSelf {
namespace {

// The captions of the ticked functions, each between two bars: "|a|b|", or "|" if none is ticked.
Text TickedFunctions() {
  Text funcs = u"|";
  const CheckList& list = frmPubMain.lst;
  for (int row = 1; row < list.ListCount(); ++row) {  // row 0 is the master row
    if (list.Selected(row)) funcs += Concat(list.List(row), u"|");
  }
  return funcs;
}

bool IsTickedFolder(const Node& node) { return node.Checked && node.Key != u"Root"; }

int CountSteps(TextView funcs) {
  int steps = 0;
  for (int i = 1; i <= frmPubMain.trvRes.NodeCount(); ++i) {
    steps += IsTickedFolder(*frmPubMain.trvRes.NodeAt(i)) ? 1 : 0;
  }
  return steps + (Names(funcs, kDuplicateFiles) ? 2 : 0);
}

// A pattern for each folder of the setting ExceptFolders, in lower case: the folder and all below it.
std::vector<Text> ExceptionPatterns() {
  std::vector<Text> patterns;
  for (const TextView exception : Split(ExceptFolders, u"|")) {
    const TextView path = exception.substr(0, exception.find(u'/'));
    patterns.push_back(Concat(ToLower(WithSeparator(path)), u"*"));
  }
  return patterns;
}

bool IsExcluded(TextView key, const std::vector<Text>& exceptions) {
  const Text folder = ToLower(WithSeparator(key));
  if (folder.contains(u"c:\\morvdatapath")) return true;
  const bool recycled =
      MatchesPattern(folder, u"?:\\recycled\\*") || MatchesPattern(folder, u"?:\\recycler\\*");
  if (recycled && ExceptFolders.contains(kAllRecycleBins)) return true;
  return std::ranges::any_of(exceptions,
                             [&](const Text& pattern) { return MatchesPattern(folder, pattern); });
}

}  // namespace

void RunAdvancedScan() {
  const Text funcs = TickedFunctions();
  if (funcs == u"|") return;
  const int steps = std::max(CountSteps(funcs), 1);
  Set(ProgressStep, ToInteger16(static_cast<double>(frmPubMain.lblProgMO.Width) / steps));
  const std::vector<Text> exceptions = ExceptionPatterns();
  const int nodes = frmPubMain.trvRes.NodeCount();
  for (int i = 1; i <= nodes; ++i) {
    const Node* node = frmPubMain.trvRes.NodeAt(i);
    if (node != nullptr && IsTickedFolder(*node)) {
      // Copy the key: the walk lets the user rebuild the tree, which deletes the node.
      const Text key = node->Key;
      if (!IsExcluded(key, exceptions)) {
        // Subfolders that are nodes of the tree are walked by their own ticks.
        const bool recurse = node->Children() == 0;
        WalkAdvancedFolder(key, funcs, recurse);
        if (CancelRequested) return;
      }
      AdvanceProgressBar();
    }
    platform::Yield();
  }
  if (!CancelRequested && Names(funcs, kDuplicateFiles)) CompareDuplicateFiles();
}

}  // namespace tavix::mdlPubSelf
