#include "advanced/duplicate_loader.h"

#include "advanced/duplicate_store.h"
#include "forms/main_form.h"
#include "frame/data_paths.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_file.h"
#include "platform/event_queue.h"
#include "scan/action_string.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "text/attempt.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr Color kKeptCopy = 0xB56D38;  // 0xBBGGRR

void AddMemberRow(const File& file, bool first) {
  const auto size = file.Size();
  const auto folder = file.ParentFolder().and_then([](const Folder& parent) { return parent.Path(); });
  ListView::Item row = AddResultItem(u"Duplicate File", file.Name(), size.transform(FormatSizeText), folder,
                                     size.transform(FormatSizeKey), action::kFile, !first);
  // The path comes from a group file, which doesn't say where the walk began.
  SetWalkStart(row, 0);
  if (first) row.SetForeColor(kKeptCopy);
}

// `file` keeps the file of the previous line: a path that can't be opened shows that one again.
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
    // Skip a group while a candidate file has the group file's name. If the test can't tell, load the group.
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
