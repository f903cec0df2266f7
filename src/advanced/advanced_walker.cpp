#include "advanced/advanced_walker.h"

#include "advanced/folder_functions.h"
#include "advanced/folder_reader.h"
#include "advanced/path_text.h"
#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "platform/event_queue.h"
#include "scan/folder_chain.h"
#include "scan/scan_driver.h"

namespace tavix::mdlPubSelf {
namespace {

class AdvancedWalk {
 public:
  AdvancedWalk(TextView funcs, bool recurse) : funcs_(funcs), recurse_(recurse) {}

  void Run(TextView folder) {
    if (!EnterFirst(folder)) return;
    // Each subfolder suspends painting when it is entered and resumes it when it is left.
    while (chain_.Depth() > 0) {
      if (chain_.GoToNext()) {
        frmPubMain.lsvResult.PaintingSuspended = true;
        if (!VisitFolder(WithSeparator(chain_.Path()))) Leave();
      } else {
        platform::Yield();
        Leave();
      }
    }
  }

 private:
  bool EnterFirst(TextView folder) {
    // If the test can't tell, walk all the same: the walk lists what it can.
    if (!CancelRequested && fileSystemObject.FolderExists(folder) == false) return false;
    const Text requested = WithSeparator(folder);
    const auto path =
        fileSystemObject.GetFolder(requested).and_then([](const Folder& found) { return found.Path(); });
    chain_.Enter(path.value_or(Text()));
    return !path || VisitFolder(requested);
  }

  void Leave() {
    chain_.Leave();
    if (chain_.Depth() > 0) frmPubMain.lsvResult.PaintingSuspended = false;
  }

  // Visits the folder at the end of the chain; `shown` is its path for the status line. False if the folder
  // is gone. Only the root of a drive has a path shorter than 4 characters, and it never counts as empty.
  bool VisitFolder(const Text& shown) {
    constexpr size_t kShortestTested = 4;
    if (CancelRequested) return true;
    const Text path = chain_.Path();
    const FolderReader::Visit visit =
        reader_.Read(chain_, path.size() >= kShortestTested, YieldUnlessCancelled);
    if (CancelRequested) return true;
    if (!visit.empty && !visit.content.IsRead() && fileSystemObject.FolderExists(path) == false) return false;
    ShowScannedFolder(shown);
    if (visit.empty) {
      if (funcs_.emptyFoldersAndFiles) AddEmptyFolderRow(path, chain_.StartLength());
      return true;
    }
    junk_.Update();
    FolderFunctions(path, chain_.StartLength(), visit.content, funcs_).Run(junk_, systemFiles_);
    if (recurse_) AddSubFolders(visit.content);
    return true;
  }

  void AddSubFolders(const FolderContent& content) {
    platform::DirectoryEntry entry;
    entry.folder = true;
    for (const FolderContent::SubFolder& subFolder : content.SubFolders()) {
      entry.name = subFolder.name;
      entry.link = subFolder.link;
      chain_.AddSubFolder(entry);
    }
  }

  const AdvancedFunctions funcs_;
  const bool recurse_;
  FolderChain chain_;
  FolderReader reader_;
  JunkMatcher junk_;
  FileNames systemFiles_;
};

}  // namespace

void WalkAdvancedFolder(TextView folder, TextView funcs, bool recurse) {
  pubCommon.ForgetDrives();
  AdvancedWalk(funcs, recurse).Run(folder);
}

}  // namespace tavix::mdlPubSelf
