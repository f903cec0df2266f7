#include "export/recording_files.h"

#include <utility>

namespace tavix::exporting {

using platform::Existence;
using platform::FileFacts;

class RecordingFiles::Opened : public platform::OpenFolder {
 public:
  Opened(RecordingFiles& files, std::unique_ptr<OpenFolder> source, Text path)
      : files_(files), source_(std::move(source)), path_(std::move(path)) {}

  bool List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted,
            const platform::GoesOn& goesOn) override {
    if (!files_.record_.IsInTree(path_)) files_.record_.listed.insert(path_);
    if (!files_.listed_) return source_->List(visit, wanted, goesOn);
    const auto note = [&](const platform::DirectoryEntry& entry) {
      files_.listed_(entry.name);
      visit(entry);
    };
    return source_->List(note, wanted, goesOn);
  }

  std::unique_ptr<OpenFolder> Open(TextView name) override {
    auto folder = source_->Open(name);
    if (folder == nullptr) return nullptr;
    Text path = Concat(path_, path_.ends_with(u'\\') ? u"" : u"\\", name);
    return std::make_unique<Opened>(files_, std::move(folder), std::move(path));
  }

 private:
  RecordingFiles& files_;
  const std::unique_ptr<OpenFolder> source_;
  const Text path_;
};

void RecordingFiles::NoteLook(TextView path) {
  if (!record_.IsInTree(path)) record_.looked.emplace(path);
}

Existence RecordingFiles::NoteExistence(TextView path, Existence answer) {
  if (answer == true) NoteLook(path);
  if (!answer.has_value()) record_.unknown.emplace(path);
  return answer;
}

std::optional<FileFacts> RecordingFiles::Look(TextView path) {
  std::optional<FileFacts> facts = source_.Look(path);
  if (facts) NoteLook(path);
  return facts;
}

std::optional<bool> RecordingFiles::IsLink(TextView path) {
  const std::optional<bool> link = source_.IsLink(path);
  if (link) NoteLook(path);
  return link;
}

Existence RecordingFiles::FileExists(TextView path) { return NoteExistence(path, source_.FileExists(path)); }

Existence RecordingFiles::FolderExists(TextView path) {
  return NoteExistence(path, source_.FolderExists(path));
}

std::unique_ptr<platform::OpenFolder> RecordingFiles::Open(TextView folder) {
  auto opened = source_.Open(folder);
  if (opened == nullptr) return nullptr;
  return std::make_unique<Opened>(*this, std::move(opened), Text(folder));
}

std::optional<Text> RecordingFiles::FolderIdentity(TextView path) {
  std::optional<Text> identity = source_.FolderIdentity(path);
  if (identity) NoteLook(path);
  return identity;
}

std::vector<Text> RecordingFiles::Lineage(TextView path) { return source_.Lineage(path); }

std::optional<Text> RecordingFiles::ResolveLink(TextView path) { return source_.ResolveLink(path); }

std::unique_ptr<platform::FoundFolder> RecordingFiles::OpenFound(TextView start, TextView below) {
  return source_.OpenFound(start, below);
}

bool RecordingFiles::CreateFolder(TextView path) { return source_.CreateFolder(path); }

bool RecordingFiles::CreateTextFile(TextView path, bool overwrite) {
  return source_.CreateTextFile(path, overwrite);
}

std::optional<std::string> RecordingFiles::ReadFile(TextView path) {
  std::optional<std::string> content = source_.ReadFile(path);
  if (content) record_.read.emplace(path);
  return content;
}

bool RecordingFiles::WriteFile(TextView path, std::string_view content) {
  return source_.WriteFile(path, content);
}

bool RecordingFiles::AppendToFile(TextView path, std::string_view content) {
  return source_.AppendToFile(path, content);
}

bool RecordingFiles::DeleteFile(TextView path, bool force) { return source_.DeleteFile(path, force); }

bool RecordingFiles::DeleteFolder(TextView path, bool force) { return source_.DeleteFolder(path, force); }

bool RecordingFiles::MoveFile(TextView source, TextView destination) {
  return source_.MoveFile(source, destination);
}

bool RecordingFiles::SetAttributes(TextView path, uint32_t attributes) {
  return source_.SetAttributes(path, attributes);
}

void RecordingFiles::RemoveTemporaries(TextView folder) { source_.RemoveTemporaries(folder); }

std::vector<platform::Drive> RecordingFiles::Drives() { return source_.Drives(); }

std::optional<int> RecordingFiles::DriveType(char16_t letter) { return source_.DriveType(letter); }

bool RecordingFiles::IsDriveReady(char16_t letter) { return source_.IsDriveReady(letter); }

}  // namespace tavix::exporting
