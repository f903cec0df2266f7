// Like nothing_is_lost.cpp, over machines in host folders: with host links, and with cleans that are killed.

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "clean/lost_trial.h"
#include "platform/machine/host/host_store.h"
#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"
#include "text/utf8.h"

namespace tavix::lost {
namespace {

namespace fs = std::filesystem;
using namespace machine;

class FolderDisk : public TestDisk {
 public:
  FolderDisk() {
    fs::create_directories(root_);
    scratch_.Write("outside/victim/a.tmp", "outside");
    scratch_.Write("outside/victim/in/A.LOG", "outside too");
    fs::create_directories(scratch_.Root() / "outside/victim/empty");
    root_ = fs::canonical(root_);
  }

  void Put(const Text& key, const DiskItem& item, platform::DateTime time) override {
    const fs::path path = Path(key);
    if (item.kind == EntryKind::Folder) {
      fs::create_directories(path);
    } else if (item.kind == EntryKind::File) {
      std::ofstream(path, std::ios::binary) << item.content;
    } else {
      fs::create_symlink(LinkPath(item.link), path);
    }
    const struct timespec when = {static_cast<time_t>(time / 1000), 0};
    const struct timespec times[] = {when, when};
    ::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW);
  }

  void Remove(const Text& key) override { fs::remove_all(Path(key)); }

  void Rename(const Text& key, TextView name) override {
    fs::rename(Path(key), Path(key).parent_path() / ToUtf8(name));
  }

  DiskPicture Picture() override {
    EXPECT_EQ(scratch_.Read("outside/victim/a.tmp"), "outside");
    EXPECT_EQ(scratch_.Read("outside/victim/in/A.LOG"), "outside too");
    EXPECT_TRUE(fs::is_directory(scratch_.Root() / "outside/victim/empty"));
    DiskPicture picture;
    for (const char* top : {"drives", "recycle"}) {
      if (!fs::exists(root_ / top)) continue;
      picture.items[*FromUtf8(top)] = {};
      for (const auto& entry : fs::recursive_directory_iterator(root_ / top)) {
        DiskItem& item = picture.items[Key(entry.path().lexically_relative(root_))];
        if (entry.is_symlink()) {
          item = {EntryKind::Link, {}, LinkText(fs::read_symlink(entry.path()))};
        } else if (entry.is_regular_file()) {
          std::ifstream in(entry.path(), std::ios::binary);
          item = {EntryKind::File, {std::istreambuf_iterator<char>(in), {}}};
        }
      }
    }
    return picture;
  }

  std::unique_ptr<FileStore> Store() override { return OpenHostStore(root_); }
  bool OnHost() const override { return true; }

 private:
  static std::string Slashes(TextView key) {
    std::string path = ToUtf8(key);
    std::ranges::replace(path, '\\', '/');
    return path;
  }
  fs::path Path(TextView key) const { return root_ / Slashes(key); }
  static Text Key(const fs::path& path) {
    Text key = *FromUtf8(path.native());
    std::ranges::replace(key, u'/', u'\\');
    return key;
  }
  fs::path LinkPath(const Text& link) const {
    if (link == u"?") return scratch_.Root() / "outside/victim";
    return link.starts_with(u'\\') ? fs::path(root_.native() + Slashes(link)) : fs::path(Slashes(link));
  }
  Text LinkText(const fs::path& target) const {
    if (!target.is_absolute()) return Key(target);
    return target.native().starts_with(root_.native()) ? Key(target.native().substr(root_.native().size()))
                                                       : Text(u"?");
  }

  QuickPlace quick_;
  ScratchFolder scratch_;
  fs::path root_ = scratch_.Root() / "machine";
};

// Two of three cleans are killed at a call of the store that the seed decides, the others at a random moment.
bool CleanAndDie(FailingStore& store, Dice& dice, const std::function<void()>& clean) {
  const bool atCall = dice.Percent(66);
  const int number = store.calls + 1 + static_cast<int>(dice.Below(size_t{1} << dice.Below(12)));
  const std::chrono::microseconds delay(dice.Below(size_t{1} << dice.Below(14)));
  int ready[2];
  EXPECT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    if (atCall) {
      store.onCall = [number](int call) {
        if (call == number) kill(getpid(), SIGKILL);
      };
    }
    if (write(ready[1], "x", 1) != 1) _exit(4);
    clean();
    _exit(0);
  }
  close(ready[1]);
  char mark = 0;
  EXPECT_EQ(read(ready[0], &mark, 1), 1);
  close(ready[0]);
  if (!atCall) {
    std::this_thread::sleep_for(delay);
    kill(child, SIGKILL);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0);
  return WIFSIGNALED(status);
}

void TrySeeds(int share, const char* test, const std::function<Trouble(uint64_t seed)>& trouble,
              Tally& tally) {
  const Seeds seeds = SeedsToTry(share);
  for (uint64_t seed = seeds.first; seed < seeds.first + static_cast<uint64_t>(seeds.count); ++seed) {
    SCOPED_TRACE("TAVIX_SEED=" + std::to_string(seed) + " tavix-tests --gtest_filter=NothingIsLost." + test);
    FolderDisk testDisk;
    RunTrial(seed, testDisk, trouble(seed), CleanAndDie, tally);
  }
  std::cout << tally.machines << " machines, " << tally.removed << " items removed, " << tally.refused
            << " ticked rows refused, " << tally.killed << " cleans killed\n";
}

TEST(NothingIsLost, OnMachinesInAFolder) {
  Tally tally;
  TrySeeds(
      20, "OnMachinesInAFolder", [](uint64_t seed) { return kTroubles[seed % std::size(kTroubles)]; }, tally);
  if (tally.machines < 10) return;
  EXPECT_GT(tally.removed, tally.machines);
}

TEST(NothingIsLost, WhenACleanIsKilled) {
  Tally tally;
  TrySeeds(
      10, "WhenACleanIsKilled", [](uint64_t) { return Trouble::Kill; }, tally);
  if (tally.machines < 10) return;
  EXPECT_GT(tally.killed, tally.machines / 10);
}

}  // namespace
}  // namespace tavix::lost
