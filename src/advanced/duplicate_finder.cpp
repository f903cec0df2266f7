#include "advanced/duplicate_finder.h"

#include "advanced/duplicate_loader.h"
#include "advanced/duplicate_store.h"
#include "forms/main_form.h"
#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_file.h"
#include "platform/event_queue.h"
#include "scan/scan_driver.h"
#include "text/attempt.h"

namespace tavix::mdlPubSelf {
namespace {

// The two files of a comparison. If a path can't be opened, the file of the previous comparison stays.
struct Pair {
  File first, second;
};

// False if either value is unknown.
template <class Value>
bool AreEqual(const std::optional<Value>& left, const std::optional<Value>& right) {
  return left && left == right;
}

bool AreDuplicates(Pair& pair, TextView first, TextView second) {
  Set(pair.first, fileSystemObject.GetFile(first));
  Set(pair.second, fileSystemObject.GetFile(second));
  if (DuplicateSize == u"Y" && !AreEqual(pair.first.Size(), pair.second.Size())) return false;
  return DuplicateModified != u"Y" || AreEqual(pair.first.DateLastModified(), pair.second.DateLastModified());
}

// Writes path `i` and its duplicates into a group file, and empties the duplicates in the list. Without a
// duplicate there is no group file.
void MakeGroup(std::vector<Text>& paths, size_t i, TextView groupName, Pair& pair) {
  if (paths[i].empty()) return;
  const Text group = Concat(groupName, u"_", ToText(static_cast<long long>(i)));
  bool begun = false;
  for (size_t j = i + 1; j < paths.size(); ++j) {
    if (paths[j].empty() || !AreDuplicates(pair, paths[i], paths[j])) continue;
    if (!begun) pubFile.AppendLine(group, paths[i]);
    begun = true;
    pubFile.AppendLine(group, paths[j]);
    paths[j].clear();
  }
}

void CompareCandidates(TextView candidates, TextView groupName, Pair& pair) {
  constexpr int kFewest = 3;  // two paths, each with its line end
  int lines = 0;
  pubFile.CountLines(candidates, lines);
  if (lines < kFewest) return;
  std::vector<Text> paths = ReadTextLines(candidates);
  for (size_t i = 0; i <= paths.size(); ++i) {
    if (i < paths.size()) MakeGroup(paths, i, groupName, pair);
    platform::Yield();
  }
}

void CompareBucket(const Folder& bucket, TextView name, Pair& pair) {
  frmPubMain.lblProgS.Caption =
      Concat(u"Comparing for ", BucketTitle(name), u" duplicate files, please wait...");
  for (const File& candidates : bucket.Files().value_or(std::vector<File>())) {
    const auto path = candidates.Path();
    const auto fileName = candidates.Name();
    if (!path || !fileName) continue;
    CompareCandidates(*path, Concat(kComparedFolder, u"\\", name, u"\\", *fileName), pair);
    fileSystemObject.DeleteFile(*path, true);
  }
}

}  // namespace

void CompareDuplicateFiles() {
  constexpr int kLoadInterval = 4996;  // milliseconds
  frmPubMain.timLoader.Interval = kLoadInterval;
  Pair pair;
  const auto scanned = fileSystemObject.GetFolder(kScannedFolder).and_then([](const Folder& folder) {
    return folder.SubFolders();
  });
  for (const Folder& bucket : scanned.value_or(std::vector<Folder>())) {
    if (const auto name = bucket.Name()) CompareBucket(bucket, *name, pair);
  }
  AdvanceProgressBar();
  frmPubMain.timLoader.Interval = 0;
  LoadDuplicateResults();
  AdvanceProgressBar();
}

}  // namespace tavix::mdlPubSelf
