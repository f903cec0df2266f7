#include "scan/walkers.h"

#include <functional>
#include <optional>
#include <vector>

#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "platform/event_queue.h"
#include "scan/action_string.h"
#include "scan/calendar_days.h"
#include "scan/folder_chain.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "text/letter_case.h"
#include "text/plain_name.h"
#include "text/wildcard.h"

namespace tavix::mdlPubSelf {
namespace {

// What is known of a file after it was opened.
struct FileObject {
  double size = 0;
  platform::DateTime accessed = platform::kUnknownTime;
};

// What the walkers differ in.
struct Rules {
  Text type;
  // A filter by name; an empty one takes every file.
  platform::NameFilter wanted = {};
  // If set, the file list lists the files by these patterns and each is opened by its name. Otherwise they
  // come as objects from the folder.
  std::optional<Text> patterns = {};
  // Called for each wanted file with its path and, if it could be opened, its facts.
  std::function<bool(const Text& full, const std::optional<FileObject>& file)> passes = {};
};

// The control cuts separators at the end of its path, except for a drive's root.
Text FileListPath(TextView folder) {
  Text path(folder.substr(0, folder.find_last_not_of(u"\\/") + 1));
  if (path.size() == 2 && path[1] == u':') path += u'\\';
  return path;
}

class Walk {
 public:
  explicit Walk(Rules rules) : rules_(std::move(rules)) {}

  void Run(TextView folder) {
    if (!EnterFirst(folder)) return;
    while (chain_.Depth() > 0) {
      if (!CancelRequested && chain_.GoToNext()) {
        if (!ReadFolder(chain_.Path())) chain_.Leave();
      } else {
        chain_.Leave();
        platform::Yield();
      }
    }
  }

 private:
  // Build the paths of subfolders on the spelling that the disk has for the first folder.
  bool EnterFirst(TextView folder) {
    // If the test can't be answered, the walk shows what it can list.
    if (CancelRequested || fileSystemObject.FolderExists(folder) == false) return false;
    const std::optional<Text> path =
        fileSystemObject.GetFolder(folder).and_then([](const Folder& found) { return found.Path(); });
    chain_.Enter(path.value_or(Text(folder)));
    if (path) return ReadFolder(rules_.patterns ? folder : TextView(*path));
    // The file list needs no folder object.
    if (rules_.patterns) ReadFolder(folder);
    chain_.ForgetSubFolders();
    return true;
  }

  // False if the folder is gone.
  bool ReadFolder(TextView folder) {
    location_ = rules_.patterns ? FileListPath(folder) : Text(folder);
    if (rules_.patterns) {
      frmPubMain.flb.Path = location_;
      frmPubMain.flb.Pattern = *rules_.patterns;
    }
    // A file that can't be opened is shown with the facts of the file before: this is meant.
    std::optional<FileObject> file;
    bool shown = false;
    const bool read = chain_.List(
        [&](const platform::DirectoryEntry& entry) {
          if (!shown) ShowScannedFolder(Text(folder));
          shown = true;
          if (!IsPlainName(entry.name)) return;
          if (entry.folder) return chain_.AddSubFolder(entry);
          if (!rules_.patterns) file.reset();
          if (entry.known) file = FileObject{static_cast<double>(entry.size), entry.accessed};
          if (!rules_.passes || rules_.passes(Concat(folder, u"\\", entry.name), file))
            AddRow(entry.name, file);
        },
        rules_.wanted, YieldUnlessCancelled);
    if (!read && fileSystemObject.FolderExists(folder) == false) return false;
    if (!shown) ShowScannedFolder(Text(folder));
    return true;
  }

  void AddRow(TextView name, const std::optional<FileObject>& file) const {
    const ListView::Item row =
        file ? AddResultItem(rules_.type, name, FormatSizeText(file->size), location_,
                             FormatSizeKey(file->size), action::kFile)
             : AddResultItem(rules_.type, name, std::nullopt, location_, std::nullopt, action::kFile);
    // The first folder may be spelled differently in its path.
    if (chain_.Depth() > 1) SetWalkStart(row, chain_.StartLength());
  }

  const Rules rules_;
  Text location_;
  FolderChain chain_;
};

Rules ByPatterns(TextView typeText, TextView patterns) {
  Rules rules{Text(typeText)};
  rules.patterns = Text(patterns);
  if (patterns != u"*.*") {
    rules.wanted = [fit = FilePatterns(patterns)](TextView name) { return fit.Match(name); };
  }
  return rules;
}

}  // namespace

void WalkFolderFiles(TextView folder, TextView typeText) { Walk({Text(typeText)}).Run(folder); }

void WalkFolderFilesExcept(TextView folder, TextView typeText, TextView skipName) {
  Rules rules{Text(typeText)};
  rules.wanted = [skip = Text(skipName)](TextView name) { return !EqualIgnoringCase(name, skip); };
  Walk(std::move(rules)).Run(folder);
}

void WalkInvalidShortcuts(TextView folder, TextView typeText) {
  pubCommon.ForgetDrives();
  Rules rules = ByPatterns(typeText, u"*.lnk");
  rules.passes = [](const Text& full, const std::optional<FileObject>&) {
    bool valid = true;
    pubCommon.IsShortcutValid(full, valid);
    return !valid;
  };
  Walk(std::move(rules)).Run(folder);
}

void WalkFolderByPattern(TextView folder, TextView typeText, TextView patterns) {
  Walk(ByPatterns(typeText, patterns.empty() ? u"*.*" : patterns)).Run(folder);
}

void WalkFolderByPatternAge(TextView folder, TextView typeText, TextView pattern, int16_t days) {
  Rules rules = ByPatterns(typeText, pattern);
  if (days > 0) {
    rules.passes = [days](const Text&, const std::optional<FileObject>& file) {
      // Some file systems store no access time.
      if (file && file->accessed == platform::kUnknownTime) return false;
      return !file || CalendarDaysSince(file->accessed).value_or(days) >= days;
    };
  }
  Walk(std::move(rules)).Run(folder);
}

}  // namespace tavix::mdlPubSelf
