#pragma once

#include "export/record.h"
#include "platform/file_system.h"

namespace tavix::exporting {

// A file system that does as another one does and notes what is looked at, listed and read. Changes aren't
// noted: the export reads the files after the run.
class RecordingFiles : public platform::FileSystem {
 public:
  // Called with each name of a file or folder that a listing shows.
  using NameVisitor = std::function<void(TextView name)>;

  // All must outlive this.
  RecordingFiles(platform::FileSystem& source, Record& record, NameVisitor listed = {})
      : source_(source), record_(record), listed_(std::move(listed)) {}

  std::optional<platform::FileFacts> Look(TextView path) override;
  std::optional<bool> IsLink(TextView path) override;
  platform::Existence FileExists(TextView path) override;
  platform::Existence FolderExists(TextView path) override;
  std::unique_ptr<platform::OpenFolder> Open(TextView folder) override;
  std::optional<Text> FolderIdentity(TextView path) override;
  std::vector<Text> Lineage(TextView path) override;
  std::optional<Text> ResolveLink(TextView path) override;
  std::unique_ptr<platform::FoundFolder> OpenFound(TextView start, TextView below) override;
  bool CreateFolder(TextView path) override;
  bool CreateTextFile(TextView path, bool overwrite) override;
  std::optional<std::string> ReadFile(TextView path) override;
  bool WriteFile(TextView path, std::string_view content) override;
  bool AppendToFile(TextView path, std::string_view content) override;
  bool DeleteFile(TextView path, bool force) override;
  bool DeleteFolder(TextView path, bool force) override;
  bool MoveFile(TextView source, TextView destination) override;
  bool SetAttributes(TextView path, uint32_t attributes) override;
  void RemoveTemporaries(TextView folder) override;
  std::vector<platform::Drive> Drives() override;
  std::optional<int> DriveType(char16_t letter) override;
  bool IsDriveReady(char16_t letter) override;

 private:
  class Opened;

  platform::Existence NoteExistence(TextView path, platform::Existence answer);
  void NoteLook(TextView path);

  platform::FileSystem& source_;
  Record& record_;
  const NameVisitor listed_;
};

}  // namespace tavix::exporting
