#pragma once

#include <random>
#include <tuple>
#include <vector>

#include "clean/disk_picture.h"
#include "platform/machine/services/machine_registry.h"

namespace tavix::lost {

// Random numbers from a seed, the same on every system.
class Dice {
 public:
  explicit Dice(uint64_t seed) : engine_(seed) {}
  // 0 up to `count` - 1.
  size_t Below(size_t count) { return static_cast<size_t>(engine_() % count); }
  bool Percent(unsigned chance) { return Below(100) < chance; }
  template <class List>
  const auto& Of(const List& list) {
    return list[Below(std::size(list))];
  }

 private:
  std::mt19937_64 engine_;
};

// A random machine with something to find for every function, and much that must stay: links of all kinds,
// several drives, clashing names in the backup folder, a backup folder in odd places. Each file that isn't
// empty has a content of its own.
struct RandomMachine {
  RandomMachine(Dice& dice, bool onHost);

  DiskPicture disk;
  std::vector<std::tuple<Text, Text, Text>> facts;  // section, key, value
  Text backupFolder;

  Text Fact(TextView section, TextView key) const;
  // The key of a random item of this kind; nothing if there is none.
  std::optional<Text> Any(EntryKind kind) const;
  void FillRegistry(machine::MachineRegistry& registry);
  std::string NewContent();

 private:
  Text MakeFolder(TextView path);
  void PutFile(const Text& key, std::string content);
  void Fill(const Text& folder, int depth);
  void FillSystem();
  void AddLinks();
  // Removes dangling and circular links on the path to a protected folder: other tests cover those.
  void ClearTheWayTo(TextView folder);
  Text LinkTo(const Text& from, const Text& target);
  void ChooseFacts();
  void ChooseBackupFolder();
  Text RandomFolderPath();

  Dice& dice_;
  bool onHost_;
  int files_ = 0;
};

// The key of the first dangling or circular link on a path.
std::optional<Text> BlockingLink(const DiskPicture& disk, TextView folder);

}  // namespace tavix::lost
