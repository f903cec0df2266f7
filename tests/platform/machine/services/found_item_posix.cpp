#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <thread>

#include "platform/machine/host/host_store.h"
#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_file_system.h"
#include "support/found_item.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

// TAVIX_ROUNDS, or 100.
int RoundsWanted() {
  const char* rounds = std::getenv("TAVIX_ROUNDS");
  return rounds != nullptr ? std::atoi(rounds) : 100;
}

// Deletes and moves files of a folder while a thread exchanges the folder with a link, as fast as it can.
class FoundItemInARace : public testing::Test {
 protected:
  FoundItemInARace() {
    for (const char* folder : {"t/swapped", "victim", "backup"}) fs::create_directories(root_ / folder);
    fs::create_directory_symlink("../victim", root_ / "t/link");
    // This path leads to the folder whatever its name is.
    mine_ = "/proc/self/fd/" + std::to_string(folder_ = open((root_ / "t/swapped").c_str(), O_DIRECTORY));
    store_ = OpenHostStore(fs::canonical(scratch_.Root() / "machine"));
    files_.emplace(*store_, facts_);
  }
  ~FoundItemInARace() override { close(folder_); }

  // In each round `seed` makes an item of this name in the folder and in the victim's. Then it is opened by
  // its path, which alternates between the two, and given to `take`; `check` is called in any case. The
  // rounds go on until enough items could be opened, enough could not, and enough exchanges have come
  // between.
  template <class Seed, class Take, class Check>
  void Race(const Seed& seed, const Take& take, const Check& check) {
    const int wanted = RoundsWanted();
    const int most = 1000 * wanted;
    std::atomic<int> exchanges = 0;
    std::atomic<bool> over = false;
    std::thread exchanger([&] {
      const std::string one = root_ / "t/swapped";
      const std::string other = root_ / "t/link";
      constexpr unsigned kExchange = 2;
      while (exchanges % 2 == 1 || !over) {
        if (syscall(SYS_renameat2, AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), kExchange) == 0)
          ++exchanges;
      }
    });
    int rounds = 0, opened = 0, exchanged = 0;
    const auto enough = [&] {
      const bool refusedEnough = kept_ != nullptr || rounds - opened >= wanted / 10;
      return rounds >= wanted && opened >= wanted / 10 && refusedEnough && exchanged >= wanted / 10;
    };
    for (; !enough() && rounds < most && !HasFailure(); ++rounds) {
      const std::string name = "item " + std::to_string(rounds);
      seed(fs::path(mine_) / name, root_ / "victim" / name);
      const int before = exchanges;
      const auto item = Open(name);
      if (item != nullptr) {
        ++opened;
        take(*item, name);
        exchanged += exchanges != before ? 1 : 0;
      }
      check(name, item != nullptr);
    }
    over = true;
    exchanger.join();
    std::cout << rounds << " rounds, " << opened << " items opened, " << exchanged
              << " of them with exchanges meanwhile\n";
    EXPECT_TRUE(enough()) << "the exchanges have to hit for the test to mean anything";
  }

  // Recycles the items, as the clean does it: an opened one is left to the shell, which gets its path. That
  // path then mostly leads to the victim.
  template <class Seed, class Check>
  void RaceToTheBin(const Seed& seed, const Check& check) {
    RecycleBin bin(*store_);
    const auto recycle = [&](platform::FoundItem& item, const std::string& name) {
      EXPECT_TRUE(item.LeaveToShell());
      constexpr int kLooks = 10'000;
      for (int i = 0; i < kLooks && !fs::is_symlink(root_ / "t/swapped"); ++i) {
      }
      files_->Recycle(Concat(u"C:\\t\\swapped\\", *FromUtf8(name)), bin);
    };
    Race(seed, recycle, check);
  }

  std::unique_ptr<platform::FoundItem> Open(const std::string& name) {
    if (kept_ != nullptr) return kept_->Open(*FromUtf8(name));
    return OpenFoundItem(*files_, u"C:\\t", Concat(u"swapped\\", *FromUtf8(name)));
  }
  // From now on Open takes all items from the folder as it is opened now.
  void KeepFolder() {
    kept_ = files_->OpenFound(u"C:\\t", u"swapped");
    ASSERT_NE(kept_, nullptr);
  }
  static void SeedFiles(const fs::path& mine, const fs::path& victims) {
    std::ofstream(mine) << "mine";
    std::ofstream(victims) << "the victim's";
  }
  static void SeedFolders(const fs::path& mine, const fs::path& victims) {
    for (const fs::path& folder : {mine, victims}) {
      fs::create_directory(folder);
      std::ofstream(folder / "none").flush();
    }
  }
  static std::string Content(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void ExpectVictimsFile(const std::string& name) {
    EXPECT_EQ(Content(root_ / "victim" / name), "the victim's") << name;
    fs::remove(root_ / "victim" / name);
  }

  const QuickPlace quick_;
  const ScratchFolder scratch_;
  const fs::path root_ = scratch_.Root() / "machine/drives/C";
  int folder_ = -1;
  std::string mine_;
  MachineFacts facts_;
  std::unique_ptr<FileStore> store_;
  std::optional<MachineFileSystem> files_;
  std::unique_ptr<platform::FoundFolder> kept_;
};

TEST_F(FoundItemInARace, DeletesNothingOfTheVictim) {
  Race(
      SeedFiles,
      [](platform::FoundItem& item, const std::string& name) { EXPECT_TRUE(item.DeleteFile()) << name; },
      [this](const std::string& name, bool opened) {
        ExpectVictimsFile(name);
        EXPECT_EQ(fs::exists(fs::path(mine_) / name), !opened) << name;
        fs::remove(fs::path(mine_) / name);
      });
}

// Even if nobody asked the folder whether it stands.
TEST_F(FoundItemInARace, DeletesNothingOfTheVictimFromAFolderThatStaysOpen) {
  KeepFolder();
  Race(
      SeedFiles,
      [](platform::FoundItem& item, const std::string& name) { EXPECT_TRUE(item.DeleteFile()) << name; },
      [this](const std::string& name, bool opened) {
        ExpectVictimsFile(name);
        EXPECT_TRUE(opened) << name;
        EXPECT_FALSE(fs::exists(fs::path(mine_) / name)) << name;
      });
}

TEST_F(FoundItemInARace, DeletesNoEmptyFolderOfTheVictim) {
  Race(
      SeedFolders,
      [](platform::FoundItem& item, const std::string& name) {
        EXPECT_TRUE(item.DeleteEmptyFolder()) << name;
      },
      [this](const std::string& name, bool opened) {
        EXPECT_TRUE(fs::exists(root_ / "victim" / name / "none")) << name;
        EXPECT_EQ(fs::exists(fs::path(mine_) / name), !opened) << name;
        for (const fs::path& folder : {fs::path(mine_), root_ / "victim"}) fs::remove_all(folder / name);
      });
}

TEST_F(FoundItemInARace, RecyclesNothingOfTheVictim) {
  RaceToTheBin(SeedFiles, [this](const std::string& name, bool) {
    ExpectVictimsFile(name);
    const fs::path recycled = scratch_.Root() / "machine/recycle" / name;
    EXPECT_NE(fs::exists(fs::path(mine_) / name), fs::exists(recycled)) << name;
    const fs::path place = fs::exists(recycled) ? recycled : fs::path(mine_) / name;
    EXPECT_EQ(Content(place), "mine") << name;
    fs::remove(place);
  });
}

TEST_F(FoundItemInARace, RecyclesNoEmptyFolderOfTheVictim) {
  RaceToTheBin(SeedFolders, [this](const std::string& name, bool) {
    EXPECT_TRUE(fs::exists(root_ / "victim" / name / "none")) << name;
    for (const fs::path& folder : {fs::path(mine_), root_ / "victim"}) fs::remove_all(folder / name);
  });
}

TEST_F(FoundItemInARace, MovesNothingOfTheVictim) {
  Race(
      SeedFiles,
      [](platform::FoundItem& item, const std::string& name) {
        item.MoveFileTo(Concat(u"C:\\backup\\", *FromUtf8(name)));
      },
      [this](const std::string& name, bool opened) {
        ExpectVictimsFile(name);
        const fs::path moved = root_ / "backup" / name;
        EXPECT_EQ(fs::exists(moved), opened) << name;
        EXPECT_NE(fs::exists(fs::path(mine_) / name), fs::exists(moved)) << name;
        const fs::path place = fs::exists(moved) ? moved : fs::path(mine_) / name;
        EXPECT_EQ(Content(place), "mine") << name;
        fs::remove(place);
      });
}

}  // namespace
}  // namespace tavix::machine
