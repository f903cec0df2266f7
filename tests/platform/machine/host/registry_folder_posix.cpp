// Links that another program puts into the path while the registry is written are not followed.

#include "platform/machine/host/registry_folder.h"

#include <fcntl.h>
#include <stdio.h>

#include <algorithm>
#include <thread>

#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

const std::vector<NewFile> kNew = {{"HKEY_CURRENT_USER.reg", "new user"}, {"HKEY_USERS.reg", "new users"}};

// Makes a folder outside that looks like a registry during a save.
void SeedOutside(const ScratchFolder& scratch) {
  scratch.Write("outside/~saving", "");
  scratch.Write("outside/HKEY_USERS.reg", "outside");
  scratch.Write("outside/letter.txt", "outside too");
  scratch.Write("outside/deep/file", "outside as well");
}

std::map<std::string, std::string> Outside(const ScratchFolder& scratch) {
  std::map<std::string, std::string> files;
  for (const auto& [name, content] : scratch.Files()) {
    if (name.starts_with("outside/")) files[name] = content;
  }
  return files;
}

// Whether the registry, old or new, exists anywhere except in the folder outside.
bool HoldsARegistry(const ScratchFolder& scratch) {
  const auto files = scratch.Files();
  return std::any_of(files.begin(), files.end(), [](const auto& file) {
    return !file.first.starts_with("outside/") && (file.second == "old users" || file.second == "new users");
  });
}

TEST(RegistryFolder, ALinkPutInThePlaceOfItsFoldersAtAnyStepLeadsNowhere) {
  int swapped = 0;
  for (const char* name : {"registry~saving", "registry", "registry~old"}) {
    for (int at = 0; at < 25; ++at) {
      const QuickPlace quick;
      const ScratchFolder scratch;
      SeedOutside(scratch);
      scratch.Write("machine/registry/HKEY_USERS.reg", "old users");
      scratch.Write("machine/registry/notes.txt", "mine");
      const fs::path machine = fs::canonical(scratch.Root()) / "machine";
      const auto before = Outside(scratch);
      int step = 0;
      const StepHook swap = [&] {
        if (step++ != at) return true;
        std::error_code failure;
        fs::rename(machine / name, machine / "put aside", failure);
        fs::create_directory_symlink(machine.parent_path() / "outside", machine / name, failure);
        swapped += failure ? 0 : 1;
        return true;
      };
      std::string reason;
      ReplaceRegistryFiles(machine / "registry", kNew, reason, swap);
      ASSERT_EQ(Outside(scratch), before) << name << " at step " << at;
      RecoverRegistryFolder(machine / "registry", reason);
      ASSERT_EQ(Outside(scratch), before) << name << " at step " << at;
      ASSERT_TRUE(HoldsARegistry(scratch)) << name << " at step " << at;
    }
  }
  EXPECT_GT(swapped, 25) << "the swaps have to come between the steps for the test to mean anything";
}

// Each round has its own machine, and a link that is exchanged again and again with the folder being made.
// The rounds go on until enough exchanges have hit a save: on a busy machine the other thread gets few turns.
TEST(RegistryFolder, ALinkThatComesAndGoesWhileItIsSavedLeadsNowhere) {
#ifdef __SANITIZE_ADDRESS__
  constexpr int kRounds = 100;
#else
  constexpr int kRounds = 1000;
#endif
  const QuickPlace quick;
  const ScratchFolder scratch;
  SeedOutside(scratch);
  const fs::path root = fs::canonical(scratch.Root());
  const auto before = Outside(scratch);
  const auto machineOf = [&](int round) { return root / ("machine " + std::to_string(round)); };
  constexpr int kMaxRounds = 100 * kRounds;
  std::atomic<int> current = 0;
  std::atomic<int> swaps = 0;
  std::atomic<bool> done = false;
  std::thread other([&] {
    while (!done) {
      const int round = current;
      const std::string bait = machineOf(round) / "bait";
      const std::string stage = machineOf(round) / "registry~saving";
      if (::renameat2(AT_FDCWD, bait.c_str(), AT_FDCWD, stage.c_str(), RENAME_EXCHANGE) == 0) ++swaps;
    }
  });
  int saved = 0;
  const auto enough = [&] { return current >= kRounds && swaps > kRounds / 20 && saved < current; };
  for (; !enough() && current < kMaxRounds; ++current) {
    const fs::path machine = machineOf(current);
    const std::string name = machine.filename();
    fs::create_directory(machine);
    fs::create_directory_symlink(root / "outside", machine / "bait");
    scratch.Write(name + "/registry/HKEY_USERS.reg", "old users");
    std::string reason;
    saved += ReplaceRegistryFiles(machine / "registry", kNew, reason) ? 1 : 0;
    fs::rename(machine, root / "done");
    EXPECT_TRUE(HoldsARegistry(scratch)) << "round " << current;
    fs::remove_all(root / "done");
  }
  done = true;
  other.join();
  EXPECT_EQ(Outside(scratch), before);
  EXPECT_TRUE(enough()) << "the swaps have to hit the saves for the test to mean anything";
}

}  // namespace
}  // namespace tavix::machine
