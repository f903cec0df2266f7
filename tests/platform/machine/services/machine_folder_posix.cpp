// Links in a machine folder, and saves that are killed.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "platform/machine/host/registry_folder.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_folder.h"
#include "support/case.h"

namespace tavix::machine {
namespace {

using platform::Hive;
namespace fs = std::filesystem;

const std::string kText = "Windows Registry Editor Version 5.00\n[HKEY_USERS\\k]\n";

std::string WhyNot(const ScratchFolder& scratch) {
  std::string error;
  return MachineFolder::Open(scratch.Root(), error) == nullptr ? error : "";
}

TEST(MachineFolderLinks, ThatLeadOutAreRefused) {
  const ScratchFolder outside;
  outside.Write("a.reg", kText);
  outside.Write("machine.ini", "");
  {
    const ScratchFolder scratch;
    fs::create_directory(scratch.Root() / "registry");
    fs::create_symlink(outside.Root() / "a.reg", scratch.Root() / "registry" / "a.reg");
    EXPECT_EQ(WhyNot(scratch), "registry/a.reg: a link that leads out of the machine folder");
  }
  {
    const ScratchFolder scratch;
    fs::create_directory_symlink(outside.Root(), scratch.Root() / "registry");
    EXPECT_EQ(WhyNot(scratch), "registry: a link that leads out of the machine folder");
  }
  {
    const ScratchFolder scratch;
    fs::create_symlink(outside.Root() / "machine.ini", scratch.Root() / "machine.ini");
    EXPECT_EQ(WhyNot(scratch), "machine.ini: a link that leads out of the machine folder");
  }
  {
    const ScratchFolder scratch;
    fs::create_directory(scratch.Root() / "registry");
    fs::create_symlink(scratch.Root() / "missing", scratch.Root() / "registry" / "a.reg");
    EXPECT_EQ(WhyNot(scratch), "registry/a.reg: a link that leads out of the machine folder");
  }
}

TEST(MachineFolderLinks, ToAFolderBesideWithTheSameStartAreRefused) {
  const ScratchFolder scratch;
  scratch.Write("m-other/a.reg", kText);
  fs::create_directories(scratch.Root() / "m" / "registry");
  fs::create_symlink("../../m-other/a.reg", scratch.Root() / "m" / "registry" / "a.reg");
  std::string error;
  EXPECT_EQ(MachineFolder::Open(scratch.Root() / "m", error), nullptr);
}

TEST(MachineFolderLinks, InsideAreFollowedAndKeptOnSave) {
  const ScratchFolder scratch;
  scratch.Write("store/a.reg", kText);
  fs::create_directory_symlink("store", scratch.Root() / "registry");
  std::string error;
  const auto machine = MachineFolder::Open(scratch.Root() / ".", error);
  ASSERT_NE(machine, nullptr) << error;
  EXPECT_TRUE(machine->Registry().WriteString(Hive::Users, u"k", u"v", u"1"));
  ASSERT_TRUE(machine->Save(error)) << error;
  EXPECT_TRUE(fs::is_symlink(scratch.Root() / "registry"));
  const auto files = scratch.Files();
  EXPECT_EQ(files.size(), 2U);
  EXPECT_TRUE(files.contains("store/HKEY_USERS.reg"));
}

TEST(MachineFolderLinks, AmongTheRegistrysFilesGoAndTheirTargetsStay) {
  const ScratchFolder scratch;
  scratch.Write("store/a.reg", kText);
  fs::create_directory(scratch.Root() / "registry");
  fs::create_symlink("../store/a.reg", scratch.Root() / "registry" / "a.reg");
  fs::create_symlink("/", scratch.Root() / "registry" / "root");
  std::string error;
  const auto machine = MachineFolder::Open(scratch.Root(), error);
  ASSERT_NE(machine, nullptr) << error;
  machine->Registry().MakeKey(Hive::Users, u"new");
  ASSERT_TRUE(machine->Save(error)) << error;
  const auto files = scratch.Files();
  EXPECT_EQ(files.at("store/a.reg"), kText);
  EXPECT_EQ(files.at("registry/root"), "link");
  EXPECT_FALSE(files.contains("registry/a.reg"));
}

TEST(MachineFolder, TakesNoPipeForAFile) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.Root() / "registry");
  ASSERT_EQ(mkfifo((scratch.Root() / "registry" / "a.reg").c_str(), 0600), 0);
  EXPECT_EQ(WhyNot(scratch), "registry/a.reg: can't be read");
}

// A child process saves again and again, each time the next number into every hive, and is killed at some
// moment. Then all hives have the same number, and it isn't smaller than the last number that the child saved
// completely.
TEST(MachineFolder, HasOneRegistryWheneverASaveIsKilled) {
  const ScratchFolder scratch;
  scratch.Write("registry/notes.txt", "mine");
  std::string error;
  int number = 0;
  const auto saveNext = [&](MachineFolder& machine) {
    const Text data = ToText(++number);
    for (const Hive hive : RegistryStore::kHives) machine.Registry().WriteString(hive, u"k", u"v", data);
    return machine.Save(error);
  };
  {
    const auto machine = MachineFolder::Open(scratch.Root(), error);
    ASSERT_NE(machine, nullptr) << error;
    ASSERT_TRUE(saveNext(*machine)) << error;
  }
  std::mt19937 random(1);
  int progress = 0;
  // Adapts the delays until about every second child saves something, however slow the disk is.
  unsigned longest = 4'000;
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(Case(round));
    int saved[2];
    ASSERT_EQ(pipe(saved), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const auto machine = MachineFolder::Open(scratch.Root(), error);
      if (machine == nullptr) _exit(1);
      do {
        if (write(saved[1], &number, sizeof(number)) < 0) _exit(1);
      } while (saveNext(*machine));
      _exit(1);
    }
    close(saved[1]);
    int last = 0;
    ASSERT_EQ(read(saved[0], &last, sizeof(last)), ssize_t{sizeof(last)});
    ASSERT_EQ(last, number);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % longest));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child could not save";
    while (read(saved[0], &last, sizeof(last)) == sizeof(last)) {
    }
    close(saved[0]);

    const auto machine = MachineFolder::Open(scratch.Root(), error);
    ASSERT_NE(machine, nullptr) << error;
    const auto value = machine->Registry().ReadValue(Hive::Users, u"k", u"v");
    ASSERT_TRUE(value.has_value());
    for (const Hive hive : RegistryStore::kHives) {
      ASSERT_EQ(machine->Registry().ReadValue(hive, u"k", u"v"), value) << round;
    }
    ASSERT_TRUE(*value == ToText(last) || *value == ToText(last + 1)) << round;
    progress += last - number;
    longest = last == number ? longest + longest / 2 : std::max(longest - longest / 3, 500U);
    number = *value == ToText(last) ? last : last + 1;
    const auto files = scratch.Files();
    ASSERT_EQ(files.size(), RegistryStore::kHives.size() + 1) << round;
    ASSERT_EQ(files.at("registry/notes.txt"), "mine");
  }
  EXPECT_GT(progress, 0) << "no child came to save anything";
}

}  // namespace
}  // namespace tavix::machine
