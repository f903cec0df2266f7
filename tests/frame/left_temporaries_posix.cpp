// The next start deletes the half-written files of a killed run, and nothing else.

#include "frame/left_temporaries.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <set>
#include <thread>

#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "platform/file_system.h"
#include "platform/machine/host/host_store.h"
#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_host.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

namespace fs = std::filesystem;

class LeftTemporaries : public testing::Test {
 protected:
  LeftTemporaries() {
    ResetProcess();
    scratch.Write("machine.ini", "[Drives]\nC=2,System\nD=2,Other\n");
    scratch.Write("drives/C/Desk/large", std::string(size_t{4} << 20U, 'x'));
    fs::create_directories(scratch.Root() / "drives/D");
  }
  ~LeftTemporaries() override { ResetProcess(); }

  // Starts the program over the machine and ends it.
  void StartOnce() const {
    std::string error;
    const auto host = machine::MachineHost::Open(scratch.Root(), std::nullopt, error);
    ASSERT_NE(host, nullptr) << error;
    Form_Load();
    Form_Unload();
    EXPECT_TRUE(host->Save(error)) << error;
  }

  // The items of the machine folder with the name prefix of temporary files.
  std::set<std::string> Temporaries() const {
    std::set<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(scratch.Root())) {
      if (entry.path().filename().string().starts_with(".tavix:")) {
        found.insert(entry.path().lexically_relative(scratch.Root()));
      }
    }
    return found;
  }

  machine::QuickPlace quick;
  machine::ScratchFolder scratch;
};

// Repeats a move to another volume and a save of the settings until the process is killed.
[[noreturn]] void WriteUntilKilled(const fs::path& root, int ready) {
  const auto store = machine::OpenHostStore(fs::canonical(root));
  const auto desk = store->Open({u"drives", u"C", u"Desk"});
  const auto backup = store->Open({u"drives", u"C", u"TVXBak"});
  const auto data = store->Open({u"drives", u"C", u"MORVDataPath", u"TVX"});
  const auto top = store->Root();
  const std::string content(size_t{1} << 20U, 'y');
  backup->Remove(u"copy");  // if the round before was killed between the two
  if (write(ready, "x", 1) != 1) _exit(4);
  for (;;) {
    if (!desk->Copy(u"large", *backup, u"copy") || !backup->Remove(u"copy")) _exit(5);
    if (!data->WriteFile(u"tvx.dll", content) || !top->WriteFile(u"attributes.ini", "")) _exit(6);
  }
}

TEST_F(LeftTemporaries, OfAKilledRunGoAtTheNextStart) {
  constexpr int kRounds = 20;
  StartOnce();
  std::mt19937 random(1);
  int left = 0;
  // The rounds go on until enough kills have come during a write.
  const auto enough = [&](int round) { return round >= kRounds && left > kRounds / 4; };
  for (int round = 0; !enough(round) && round < 20 * kRounds; ++round) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) WriteUntilKilled(scratch.Root(), ready[1]);
    close(ready[1]);
    char mark = 0;
    EXPECT_EQ(read(ready[0], &mark, 1), 1);
    close(ready[0]);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << status;
    left += Temporaries().empty() ? 0 : 1;
    StartOnce();
    EXPECT_EQ(Temporaries(), std::set<std::string>()) << "round " << round;
  }
  EXPECT_GT(left, kRounds / 4) << "too few kills came during a write to test anything";
}

TEST_F(LeftTemporaries, GoFromTheFoldersThatTheProgramWritesIntoAndFromNoOthers) {
  StartOnce();
  {
    std::string error;
    const auto host = machine::MachineHost::Open(scratch.Root(), std::nullopt, error);
    Form_Load();
    WriteSetting(BackupFolder, u"D:\\Kept");
    Form_Unload();
  }
  const char* ours[] = {"", "recycle/", "drives/C/MORVDataPath/TVX/", "drives/C/TVXBak/", "drives/D/Kept/"};
  for (const std::string folder : ours) scratch.Write(folder + ".tavix:4242-1", "half");
  const std::set<std::string> others = {"drives/C/.tavix:4242-1", "drives/C/Desk/.tavix:4242-1",
                                        "drives/C/TVXBak/below/.tavix:4242-1"};
  for (const std::string& file : others) scratch.Write(file, "theirs");
  StartOnce();
  EXPECT_EQ(Temporaries(), others);
}

TEST_F(LeftTemporaries, AreOrdinaryFilesWithExactlyTheirNames) {
  StartOnce();
  const std::string folder = "drives/C/TVXBak/";
  std::set<std::string> kept;
  for (const char* name : {".tavix:", ".tavix:1", ".tavix:1-", ".tavix:-1", ".tavix:1-1x", ".tavix:01-1",
                           ".tavix:1-1-1", ".tavix:4294967296-1"}) {
    scratch.Write(folder + name, "theirs");
    kept.insert(folder + name);
  }
  scratch.Write(folder + ".tavix:2-1/file", "in a folder");
  kept.insert(folder + ".tavix:2-1");
  fs::create_symlink(scratch.Root() / "drives/C/Desk/large", scratch.Root() / (folder + ".tavix:2-2"));
  kept.insert(folder + ".tavix:2-2");
  scratch.Write(folder + ".tavix:2-3", "ours");
  scratch.Write(folder + "~tvx2-3.tmp", "a name that anybody can give here");
  StartOnce();
  EXPECT_EQ(Temporaries(), kept);
  EXPECT_TRUE(fs::exists(scratch.Root() / (folder + "~tvx2-3.tmp")));
  EXPECT_TRUE(fs::exists(scratch.Root() / "drives/C/Desk/large"));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
