#include "advanced/duplicate_loader.h"

#include "advanced/duplicate_store.h"
#include "forms/main_form.h"
#include "frame/data_paths.h"
#include "frame/support/file_system_object.h"
#include "frame/support/text_lines.h"
#include "platform/event_queue.h"
#include "scan/action_string.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "text/attempt.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr Color kKeptCopy = 0xB56D38;  // blue, green, red

void AddMemberRow(const File& file, bool first) {
  const auto size = file.Size();
  const auto folder = file.ParentFolder().and_then([](const Folder& parent) { return parent.Path(); });
  ListView::Item row = AddResultItem(u"Duplicate File", file.Name(), size.transform(FormatSizeText), folder,
                                     size.transform(FormatSizeKey), action::kFile, !first);
  // A file names the path, and it says nothing of where a walk began.
  SetWalkStart(row, 0);
  if (first) row.SetForeColor(kKeptCopy);
}

// `file` is what the line before was about, which shows again for a path that leads nowhere.
void LoadGroup(TextView group, File& file) {
  bool first = true;
  for (const Text& path : ReadTextLines(group)) {
    Set(file, fileSystemObject.GetFile(path));
    AddMemberRow(file, first);
    first = false;
  }
  fileSystemObject.DeleteFile(group, true);
}

void LoadBucket(const Folder& bucket, TextView name, File& file) {
  frmPubMain.lblProgS.Caption = Concat(u"Loading ", BucketTitle(name), u" duplicate files, please wait...");
  for (const File& group : bucket.Files().value_or(std::vector<File>())) {
    const auto path = group.Path();
    if (!path) continue;
    // Where the test can't be answered it is passed over, and the group is loaded.
    const Text candidate = Concat(kScannedFolder, u"\\", name, u"\\", group.Name().value_or(Text()));
    if (fileSystemObject.FileExists(candidate) == true) continue;
    LoadGroup(*path, file);
    platform::Yield();
  }
}

}  // namespace

void LoadDuplicateResults() {
  File file;
  const auto compared = fileSystemObject.GetFolder(kComparedFolder).and_then([](const Folder& folder) {
    return folder.SubFolders();
  });
  for (const Folder& bucket : compared.value_or(std::vector<Folder>())) {
    if (const auto name = bucket.Name()) LoadBucket(bucket, *name, file);
  }
  frmPubMain.lblProgS.Caption = ClosingLine(false);
}

void timLoader_Timer() { LoadDuplicateResults(); }

}  // namespace tavix::mdlPubSelf
