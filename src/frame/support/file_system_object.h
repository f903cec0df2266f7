#pragma once

#include <optional>
#include <vector>

#include "platform/file_system.h"

namespace tavix {

class Folder;

// A file, or the result of a failed look-up: then every property gives nothing.
class File {
 public:
  File() = default;
  explicit File(std::optional<platform::FileFacts> facts) : facts_(std::move(facts)) {}
  explicit operator bool() const { return facts_.has_value(); }

  std::optional<Text> Path() const;
  std::optional<Text> Name() const;
  std::optional<double> Size() const;  // bytes
  std::optional<platform::DateTime> DateLastModified() const;
  std::optional<platform::DateTime> DateLastAccessed() const;
  std::optional<Folder> ParentFolder() const;

 private:
  std::optional<platform::FileFacts> facts_;
};

// A folder, or the result of a failed look-up: then every property gives nothing.
class Folder {
 public:
  Folder() = default;
  explicit Folder(std::optional<platform::FileFacts> facts) : facts_(std::move(facts)) {}
  explicit operator bool() const { return facts_.has_value(); }

  std::optional<Text> Path() const;
  std::optional<Text> Name() const;
  // The size in bytes of all files in it and below it, links not followed. Nothing when a folder below can't
  // be read.
  std::optional<double> Size() const;
  // In the order of the upper-cased names. Nothing when the folder can't be read.
  std::optional<std::vector<File>> Files() const;
  std::optional<std::vector<Folder>> SubFolders() const;
  // Nothing for the root of a drive.
  std::optional<Folder> ParentFolder() const;

 private:
  std::optional<platform::FileFacts> facts_;
};

// The file-system object of the scripting runtime, reduced to what the program needs. Paths are those of
// platform/file_system.h. Without a file system every call fails.
class FileSystemObject {
 public:
  FileSystemObject() = default;
  explicit FileSystemObject(platform::FileSystem* files) : files_(files) {}
  explicit operator bool() const { return files_ != platform::noFileSystem; }

  // As platform::FileSystem::FileExists and FolderExists. Nothing (can't tell) without a file system.
  platform::Existence FileExists(TextView path) const;
  platform::Existence FolderExists(TextView path) const;
  // Nothing when it is missing or of the other kind.
  std::optional<File> GetFile(TextView path) const;
  std::optional<Folder> GetFolder(TextView path) const;
  // Visits the files and subfolders of a folder in one reading, as platform::FileSystem::List.
  bool List(TextView path, const platform::FileSystem::EntryVisitor& visit,
            const platform::FileSystem::NameFilter& wanted = {}) const;
  // As the calls of platform::FileSystem with these names. Calls that change something don't report failure.
  std::unique_ptr<platform::OpenFolder> Open(TextView path) const;
  std::optional<Text> FolderIdentity(TextView path) const;
  std::vector<Text> Lineage(TextView path) const;
  std::unique_ptr<platform::FoundFolder> OpenFound(TextView start, TextView below) const;
  void CreateFolder(TextView path) const;
  void CreateTextFile(TextView path, bool overwrite) const;
  void DeleteFile(TextView path, bool force) const;
  void DeleteFolder(TextView path, bool force) const;
  void MoveFile(TextView source, TextView destination) const;
  void SetAttributes(TextView path, uint32_t attributes) const;
  void RemoveTemporaries(TextView folder) const;
  std::vector<platform::Drive> Drives() const;

 private:
  platform::FileSystem* files_ = platform::noFileSystem;
};

namespace mdlPubSelf {
inline FileSystemObject fileSystemObject;
}

}  // namespace tavix
