#pragma once

#include "platform/file_system.h"
#include "platform/machine/formats/attribute_table.h"
#include "platform/machine/services/path_finder.h"
#include "platform/machine/services/recycle_bin.h"
#include "platform/read_ahead.h"

namespace tavix::machine {

// The files of a machine in a store: drives/<letter>/ are its drives, app/ is its application folder. A link
// out of these two leads to nothing. The existence of a path on another computer, or through links in
// circles, can't be told.
class MachineFileSystem : public platform::FileSystem {
 public:
  // Store and facts must outlive this, and so must `ahead`, which reads the folders of fixed drives ahead.
  MachineFileSystem(FileStore& store, const MachineFacts& facts, platform::ReadAhead* ahead = nullptr)
      : store_(store), facts_(facts), finder_(store, facts), attributes_(&store), ahead_(ahead) {}
  // Calls Save.
  ~MachineFileSystem() override;
  MachineFileSystem(const MachineFileSystem&) = delete;
  MachineFileSystem& operator=(const MachineFileSystem&) = delete;

  std::optional<platform::FileFacts> Look(TextView path) override;
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

  // Renames a file, folder or link in its folder. False when the name is taken or on failure.
  bool Rename(TextView path, TextView name);
  // Moves a file, folder or link into the bin; an item that was left to the shell is taken from the folder
  // where it was opened, even if its path leads elsewhere by now. False for a root and on failure.
  bool Recycle(TextView path, RecycleBin& bin);
  // Whether attributes.ini could be read or is missing.
  bool Readable() const { return attributes_.Readable(); }
  // Writes the attributes to the store if they changed. False on failure.
  bool Save() { return !attributes_.Changed() || attributes_.Save(); }

 protected:
  // Sets the attributes of a path without looking at it.
  void Seed(TextView path, uint32_t attributes) { attributes_.Set(path, attributes); }

 private:
  class Opened;
  class Found;
  class FoundIn;
  using Last = PathFinder::Last;

  // Whether a path without links is on a fixed drive; asks no drive.
  bool IsOnFixedDrive(TextView realPath) const;
  bool IsReadOnly(const Text& realPath) const;
  // Whether a folder or anything in it is read-only.
  bool HoldsReadOnly(const Place& folder);
  // The place of an existing or new file to write. Nothing when the path is taken by something else or by a
  // read-only file.
  std::optional<Place> FindForWriting(TextView path);
  // An item of an open folder.
  struct Item {
    StoreFolder& folder;
    const StoreEntry& entry;
    const Text& realPath;  // as in Place
  };
  static Item ItemOf(const Place& place) { return {*place.parent, *place.entry, place.realPath}; }
  bool Recycle(const Item& item, RecycleBin& bin);
  bool DeleteFile(const Item& item, bool force);
  bool MoveFile(const Item& from, TextView destination);
  // Call it after making something, with the result. Resets the attributes of a new file.
  bool ResetIfNew(const Place& place, bool succeeded);

  FileStore& store_;
  const MachineFacts& facts_;
  PathFinder finder_;
  AttributeTable attributes_;
  platform::ReadAhead* const ahead_;
  const Found* left_ = nullptr;  // the item that was last left to the shell, while it lives
};

}  // namespace tavix::machine
