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

// Values by their names, by the keys "HIVE\path".
using RegistryPicture = std::map<Text, std::map<Text, Text, LessIgnoringCase>, LessIgnoringCase>;

RegistryPicture PictureOf(platform::Registry& registry);

struct Row {
  RowFields fields;
  Text start;  // the folder where the walk began that found it
};

// What a clean is told by settings and system.
struct Orders {
  Text method;
  Text backupFolder;
  std::optional<Text> systemFolder;
  std::vector<Text> namedFolders;
  // Whether all drives are one volume, or every folder is one of its own. Only files can be moved to another.
  bool oneVolume = false;
  bool everyFolderIsAVolume = false;
};

// What a clean has to do to a machine when every call works, worked out row by row from pictures alone.
class CleanOracle {
 public:
  CleanOracle(DiskPicture disk, RegistryPicture registry, Orders orders);

  // Works on the ticked rows from the last to the first.
  void Clean(const std::vector<Row>& rows);

  // What a row of a file or folder may take from the disk as it is now: the key of the item; nothing where
  // the row is refused or there is nothing any more. Rows of other kinds take nothing.
  std::optional<Text> Target(const Row& row) const;

  // The link that a row of a file stands for. It stays while it leads to a folder, which may go by another
  // row.
  std::optional<Text> LinkTarget(const Row& row) const;

  const DiskPicture& Disk() const { return disk_; }
  const RegistryPicture& Registry() const { return registry_; }
  // Numbers of the rows that stay, counted from 0.
  const std::vector<size_t>& RowsLeft() const { return left_; }
  const Text& SumLabel() const { return sum_; }
  // Calls of the shell, name and argument.
  const std::vector<std::pair<Text, Text>>& Calls() const { return calls_; }
  // The backup folder, where it is there.
  const std::optional<Text>& BackupFolder() const { return backup_; }

 private:
  struct Place {
    Text folder, name, start;
    Text Path() const { return Concat(folder, u"\\", name); }
  };
  static std::optional<Place> PlaceOf(const Row& row);

  bool Execute(const Row& row);
  bool CleanFile(const Row& row);
  bool CleanFolder(const Row& row);
  std::optional<Text> FileTarget(const Place& place) const;
  std::optional<Text> FolderTarget(const Place& place) const;
  // What stands at the names below the start, no link followed on the way.
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
  const Orders orders_;
  std::optional<Text> backup_;
  std::optional<Text> system_;
  std::set<Text> own_;      // folders whose content stays
  std::set<Text> holding_;  // folders that stay
  std::vector<size_t> left_;
  Text sum_;
  std::vector<std::pair<Text, Text>> calls_;
};

}  // namespace tavix::lost
