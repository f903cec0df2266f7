#pragma once

#include "platform/file_system.h"
#include "platform/machine/formats/attribute_table.h"
#include "platform/machine/services/path_finder.h"
#include "platform/machine/services/recycle_bin.h"

namespace tavix::machine {

// The files of a machine over a store: drives/<letter>/ are its drives, app/ is its application folder.
// A link that leads out of these two is one to nothing. What lies on another computer, or after links in
// circles, can't be told.
class MachineFileSystem : public platform::FileSystem {
 public:
  // Store and facts must outlive this.
  MachineFileSystem(FileStore& store, const MachineFacts& facts)
      : store_(store), facts_(facts), finder_(store, facts), attributes_(&store) {}
  // Saves what Save would.
  ~MachineFileSystem() override;
  MachineFileSystem(const MachineFileSystem&) = delete;
  MachineFileSystem& operator=(const MachineFileSystem&) = delete;

  std::optional<platform::FileFacts> Look(TextView path) override;
  platform::Existence FileExists(TextView path) override;
  platform::Existence FolderExists(TextView path) override;
  std::unique_ptr<platform::OpenFolder> Open(TextView folder) override;
  std::optional<Text> FolderIdentity(TextView path) override;
  std::vector<Text> Lineage(TextView path) override;
  std::unique_ptr<platform::FoundItem> OpenFound(TextView start, TextView below) override;
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

  // Gives a file, folder or link another name in its folder where nothing of that name stands.
  bool Rename(TextView path, TextView name);
  // Moves a file, folder or link into the bin. Not the root of a drive.
  bool Recycle(TextView path, RecycleBin& bin);
  // Whether the attributes in the store, where it has any, could be read.
  bool Readable() const { return attributes_.Readable(); }
  // Writes the attributes to the store if they changed.
  bool Save() { return !attributes_.Changed() || attributes_.Save(); }

 protected:
  // Gives a path its attributes, whatever stands there.
  void Seed(TextView path, uint32_t attributes) { attributes_.Set(path, attributes); }

 private:
  class Opened;
  class Found;
  using Last = PathFinder::Last;

  bool IsReadOnly(const Place& place) const;
  // Whether a folder has something read-only in it, or is so itself.
  bool HoldsReadOnly(const Place& folder);
  // The place of a file to write or of a new one; nothing where anything else stands.
  std::optional<Place> FindForWriting(TextView path);
  bool DeleteFile(const Place& place, bool force);
  bool MoveFile(const Place& from, TextView destination);
  // A new file has no attributes.
  bool Made(const Place& place, bool made);

  FileStore& store_;
  const MachineFacts& facts_;
  PathFinder finder_;
  AttributeTable attributes_;
};

}  // namespace tavix::machine
