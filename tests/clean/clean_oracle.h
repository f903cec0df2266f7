#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "clean/disk_picture.h"
#include "platform/registry.h"
#include "support/program_test.h"

namespace tavix::lost {

// Keys ("HIVE\path"), each with its values by name.
using RegistryPicture = std::map<Text, std::map<Text, Text, LessIgnoringCase>, LessIgnoringCase>;

RegistryPicture PictureOf(platform::Registry& registry);

struct Row {
  RowFields fields;
  Text start;  // the folder where the walk that found it began
};

// The settings, and the facts of the system, that a clean depends on.
struct CleanSettings {
  Text method;
  Text backupFolder;
  std::optional<Text> systemFolder;
  std::vector<Text> namedFolders;
  // Whether all drives are one volume, or each folder is a volume of its own. Only files can be moved to
  // another volume.
  bool oneVolume = false;
  bool everyFolderIsAVolume = false;
};

// Predicts what a clean does to a machine if no call fails: row by row, from pictures of disk and registry
// alone.
class CleanOracle {
 public:
  CleanOracle(DiskPicture disk, RegistryPicture registry, CleanSettings settings);

  // Cleans the ticked rows, from the last to the first.
  void Clean(const std::vector<Row>& rows);

  // The key of the item that a file or folder row may remove from the disk as it is now. Nothing if the row
  // is refused, if its item is gone, or if it is a row of another kind.
  std::optional<Text> Target(const Row& row) const;

  // The key of the link that a file row stands for. The link stays while its target is a folder; another row
  // may remove that folder.
  std::optional<Text> LinkTarget(const Row& row) const;

  // What ticked rows stand for, each with all below it: at the turn of each row, if it has been cleaned. A
  // row may stand for more at its turn than before the clean: a folder that others have emptied.
  void AddWhatMayGo(const Row& row);
  const Keys& MayGo() const { return mayGo_; }

  const DiskPicture& Disk() const { return disk_; }
  const RegistryPicture& Registry() const { return registry_; }
  // Indexes of the rows that stay, from 0.
  const std::vector<size_t>& RowsLeft() const { return left_; }
  const Text& SumLabel() const { return sum_; }
  // The calls of the shell: name and argument.
  const std::vector<std::pair<Text, Text>>& Calls() const { return calls_; }
  // The key of the backup folder if it exists.
  const std::optional<Text>& BackupFolder() const { return backup_; }

 private:
  struct Place {
    Text folder, name, start;
    Text Path() const { return Concat(folder, u"\\", name); }
  };
  static std::optional<Place> PlaceOf(const Row& row);

  bool Execute(const Row& row);
  bool LinkStandsAt(TextView path) const;
  bool FileIsGone(TextView path) const;
  bool FolderIsGone(TextView path) const;
  bool CleanFile(const Row& row);
  bool CleanFolder(const Row& row);
  std::optional<Text> FileTarget(const Place& place) const;
  std::optional<Text> FolderTarget(const Place& place) const;
  // The key of the item at the names below the start, found without following links.
  std::optional<Text> Below(const Place& place) const;
  bool KeepsContent(TextView folder) const;
  bool IsEmptyFolder(TextView key) const;
  void Recycle(const Text& key, const Text& path);
  std::optional<Text> InBackup(TextView name) const;

  void DeleteKey(Text hive, TextView key);
  void DeleteValue(Text hive, TextView key, TextView name);
  void CleanRegistryValue(TextView target);
  void CleanRegistryKey(TextView target);

  DiskPicture disk_;
  RegistryPicture registry_;
  const CleanSettings settings_;
  std::optional<Text> backup_;
  std::optional<Text> system_;
  std::set<Text> own_;      // folders that stay with all their content
  std::set<Text> holding_;  // folders that stay; their content may go
  Keys mayGo_;
  std::vector<size_t> left_;
  Text sum_;
  std::vector<std::pair<Text, Text>> calls_;
};

}  // namespace tavix::lost
