// A clean that is killed loses no file, at whatever moment it is killed.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <thread>

#include "clean/clean_driver.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/start_up.h"
#include "platform/machine/services/machine_host.h"
#include "scan/result_items.h"
#include "support/program_test.h"
#include "window/wiring.h"

namespace tavix {
namespace {

namespace fs = std::filesystem;

constexpr int kFiles = 1000;
#ifdef __SANITIZE_ADDRESS__
constexpr int kRounds = 50;  // sanitizers are slow, and each round runs the same code
#else
constexpr int kRounds = 200;
#endif

class Scratch {
 public:
  Scratch() {
    // In memory if possible: the rounds move hundreds of thousands of files.
    const fs::path base = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    std::string name = (base / "tavix-XXXXXX").string();
    root = mkdtemp(name.data());
  }
  ~Scratch() { fs::remove_all(root); }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  fs::path root;
};

std::string NameOf(int number) { return "file " + std::to_string(number) + ".txt"; }
std::string ContentOf(int number) {
  return std::string(200 + number % 900, static_cast<char>('a' + number % 26));
}

std::string Content(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void Seed(const fs::path& root) {
  fs::remove_all(root);
  fs::create_directories(root / "drives" / "C" / "Work");
  std::ofstream(root / "machine.ini") << "[Drives]\nC=2,System\n";
  for (int i = 0; i < kFiles; ++i) std::ofstream(root / "drives" / "C" / "Work" / NameOf(i)) << ContentOf(i);
}

// Moves every file back to its old place.
void TakeBack(const fs::path& root) {
  for (const auto& entry : fs::directory_iterator(root / "drives" / "C" / "TVXBak")) {
    fs::rename(entry.path(), root / "drives" / "C" / "Work" / entry.path().filename());
  }
}

// The clean, run in the child process that is killed.
void CleanAll(const fs::path& root, int ready) {
  std::string error;
  const auto host = machine::MachineHost::Open(root, std::nullopt, error);
  if (host == nullptr) _exit(3);
  WireForms();
  mdlPubSelf::Form_Load();
  mdlPubSelf::CleaningMethod = u"S";
  for (int i = 0; i < kFiles; ++i) {
    const std::string name = NameOf(i);
    mdlPubSelf::AddResultItem(u"t", Text(name.begin(), name.end()), u"1.", u"C:\\Work", u"00000001.0", u"F");
  }
  if (write(ready, "x", 1) != 1) _exit(4);
  mdlPubSelf::sbtClean_Click();
  _exit(mdlPubSelf::ResultCount() == 0 ? 0 : 5);
}

// Runs a clean in a child process and kills it after the delay; without a delay lets it finish. Returns the
// microseconds until its end.
int RunAndKill(const fs::path& root, std::optional<std::chrono::microseconds> delay) {
  int ready[2];
  EXPECT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) CleanAll(root, ready[1]);
  close(ready[1]);
  char mark = 0;
  EXPECT_EQ(read(ready[0], &mark, 1), 1);
  close(ready[0]);
  const auto start = std::chrono::steady_clock::now();
  if (delay) {
    std::this_thread::sleep_for(*delay);
    kill(child, SIGKILL);
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (!delay) {
    EXPECT_EQ(status, 0);
  }
  return static_cast<int>(
      std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start)
          .count());
}

TEST(KilledClean, LeavesEveryFileInItsOldPlaceOrWholeInTheBackupFolder) {
  ResetProcess();
  const Scratch scratch;
  Seed(scratch.root);
  const int whole = RunAndKill(scratch.root, std::nullopt);
  std::mt19937 random(1);
  int midway = 0;
  // The rounds go on until enough kills have hit the clean, whose speed changes with the load of the machine.
  const auto enough = [&](int round) { return round >= kRounds && midway > kRounds / 10; };
  for (int round = 0; !enough(round) && round < 20 * kRounds; ++round) {
    TakeBack(scratch.root);
    const unsigned longest = std::max(1U, static_cast<unsigned>(whole) >> random() % 4);
    RunAndKill(scratch.root, std::chrono::microseconds(random() % longest));
    const fs::path work = scratch.root / "drives" / "C" / "Work";
    const fs::path saved = scratch.root / "drives" / "C" / "TVXBak";
    int moved = 0;
    for (int i = 0; i < kFiles; ++i) {
      const bool old = fs::exists(work / NameOf(i));
      const bool kept = fs::exists(saved / NameOf(i));
      ASSERT_NE(old, kept) << NameOf(i) << " in round " << round;
      ASSERT_EQ(Content((old ? work : saved) / NameOf(i)), ContentOf(i));
      moved += kept ? 1 : 0;
    }
    const auto entries = [](const fs::path& folder) {
      return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    };
    ASSERT_EQ(entries(work) + entries(saved), kFiles) << "nothing half made lies about";
    midway += moved > 0 && moved < kFiles ? 1 : 0;
  }
  EXPECT_GT(midway, kRounds / 10) << "the kills have to hit the clean for the test to mean anything";
}

}  // namespace
}  // namespace tavix
