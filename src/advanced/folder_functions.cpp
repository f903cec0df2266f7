#include "advanced/folder_functions.h"

#include "advanced/duplicate_store.h"
#include "advanced/path_text.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_system.h"
#include "scan/action_string.h"
#include "scan/calendar_days.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

using File = FolderContent::File;

constexpr TextView kZeroSize = u"0";

// The hidden control names the folder and the patterns that are listed.
void ShowFileList(TextView path, TextView patterns) {
  if (!SameText(frmPubMain.flb.Path.Get(), path)) frmPubMain.flb.Path = Text(path);
  frmPubMain.flb.Pattern = Text(patterns);
}

bool IsBigEnough(const File& file) { return file.known && ReachesLeastSize(file.size); }

}  // namespace

bool ReachesLeastSize(double bytes) {
  const auto least = ToInteger16(LeastSize);
  return least && bytes / 1024 >= *least;
}

bool Names(TextView funcs, TextView function) { return funcs.contains(Concat(u"|", function, u"|")); }

AdvancedFunctions::AdvancedFunctions(TextView text)
    : funcs(text),
      junkFiles(Names(text, kJunkFiles)),
      duplicateFiles(Names(text, kDuplicateFiles)),
      invalidShortcuts(Names(text, kInvalidShortcuts)),
      redundantDlls(Names(text, kRedundantDlls)),
      emptyFoldersAndFiles(Names(text, kEmptyFoldersAndFiles)) {}

void AddEmptyFolderRow(TextView path, size_t startLength) {
  const TextView name = path.substr(path.find_last_of(u'\\') + 1);
  SetWalkStart(AddResultItem(u"Empty Folder", name, kZeroSize, FolderOf(path), kNoSizeKey, action::kFolder),
               startLength);
}

void FolderFunctions::Run(const JunkMatcher& junk, FileNames& systemFiles) {
  // Nothing sets this, so no candidates are written: Duplicate Files is offered but finds nothing yet.
  bool CollectDuplicates = false;
  if (funcs_.junkFiles) FindJunk(junk);
  if (funcs_.duplicateFiles && OnlyCommon == u"Y" && CollectDuplicates) CollectCommonTypes();
  if (funcs_.invalidShortcuts) FindInvalidShortcuts();
  if (funcs_.redundantDlls) FindRedundantDlls(systemFiles);
  TestEachFile(CollectDuplicates);
}

bool FolderFunctions::Continue(int entries) {
  entries_ += entries;
  if (entries_ < kStep) return !CancelRequested;
  entries_ = 0;
  return YieldUnlessCancelled();
}

template <class Visitor>
void FolderFunctions::VisitFileList(TextView patterns, const FilePatterns& filter, const Visitor& visit) {
  ShowFileList(path_, patterns);
  for (size_t i = 0; i < content_.FileCount(); ++i) {
    const File file = content_.FileAt(i);
    const bool matches = filter.MatchCapitals(file.capitals);
    if (!Continue(matches ? kAskedFile : 1)) return;
    if (matches) visit(file);
  }
}

void FolderFunctions::Open(const File& file) {
  if (!file.known) return;
  file_ = file;
  opened_ = true;
}

void FolderFunctions::AddRow(TextView type, std::optional<TextView> name, std::optional<TextView> size,
                             std::optional<TextView> sizeKey) const {
  SetWalkStart(AddResultItem(type, name, size, path_, sizeKey, action::kFile), startLength_);
}

void FolderFunctions::AddFileRow(TextView type) const {
  if (!opened_) return AddRow(type, std::nullopt, std::nullopt, std::nullopt);
  AddRow(type, file_.name, FormatSizeText(file_.size), FormatSizeKey(file_.size));
}

// A file that matches patterns of two lists has two rows.
void FolderFunctions::FindJunk(const JunkMatcher& junk) {
  std::vector<File> found;
  for (size_t i = 0; i < content_.FileCount() && Continue(); ++i) {
    const File file = content_.FileAt(i);
    if (junk.IsListed(file.capitals) && junk.IsConfirmed(file.name)) found.push_back(file);
  }
  for (size_t i = 0; i < junk.Lists().size(); ++i) {
    ShowFileList(path_, junk.Patterns(i));
    for (const File& file : found) {
      if (!Continue()) return;
      if (!junk.Lists()[i].MatchCapitals(file.capitals)) continue;
      Open(file);
      AddFileRow(u"Junk File");
    }
  }
}

void FolderFunctions::CollectCommonTypes() {
  VisitFileList(CommonTypes, FilePatterns(CommonTypes), [this](const File& file) {
    Open(file);
    if (NeedLeast == u"Y" && !(opened_ && IsBigEnough(file_))) return;
    WriteDuplicateCandidate(file.name, Concat(path_, u"\\", file.name));
  });
}

// A shortcut that can't be opened is judged by the file opened before it; if there is none, it counts as
// valid.
void FolderFunctions::FindInvalidShortcuts() {
  static const FilePatterns kShortcuts(u"*.lnk");
  VisitFileList(u"*.lnk", kShortcuts, [this](const File& file) {
    Open(file);
    bool valid = true;
    if (opened_) pubCommon.IsShortcutValid(PathBelow(path_, file_.name), valid);
    if (!valid) AddFileRow(u"Invalid Shortcut");
  });
}

void FolderFunctions::FindRedundantDlls(FileNames& systemFiles) {
  static const FilePatterns kLibraries(u"*.dll");
  constexpr int kSystemFolder = 9966;
  VisitFileList(u"*.dll", kLibraries, [&](const File& file) {
    Open(file);
    Text folder;
    pubSystem.GetSpecialFolder(kSystemFolder, folder);
    if (!opened_ || !systemFiles.Contains(folder, file_.name)) return;
    AddFileRow(u"Redundant DLL");
  });
}

void FolderFunctions::TestEachFile(bool collectDuplicates) {
  const Text lastAccessed = Concat(u"Last Accessed ", LastAccessedFile, u" Days Before");
  const bool findEmpty = funcs_.emptyFoldersAndFiles;
  const bool findOld = Names(funcs_.funcs, lastAccessed);
  const bool findDuplicates = OnlyCommon != u"Y" && funcs_.duplicateFiles;
  if (!findEmpty && !findOld && !findDuplicates) return;
  const auto days = ToInteger16(LastAccessedFile);
  const auto today = findOld && days ? Today() : std::nullopt;
  for (size_t i = 0; i < content_.FileCount() && Continue(); ++i) {
    file_ = content_.FileAt(i);
    opened_ = file_.known;
    if (findEmpty && opened_ && file_.size == 0 && !file_.link) {
      AddRow(u"Empty File", file_.name, kZeroSize, kNoSizeKey);
    }
    // Some disks keep no time of last access.
    if (today && opened_ && file_.accessed != platform::kUnknownTime &&
        *today - CalendarDay(file_.accessed) >= *days) {
      AddFileRow(lastAccessed);
    }
    if (findDuplicates && OnlyCommon == u"N" && collectDuplicates &&
        (NeedLeast == u"N" || (NeedLeast == u"Y" && IsBigEnough(file_)))) {
      WriteDuplicateCandidate(file_.name, PathBelow(path_, file_.name));
    }
  }
}

}  // namespace tavix::mdlPubSelf
