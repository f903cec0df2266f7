#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "platform/machine/host/host_store.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_file_system.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 100;

std::string NameOfRound(int round) { return "file " + std::to_string(round); }

// Deletes and moves files of a folder while a thread exchanges the folder with a link, as fast as it can.
class FoundItemInARace : public testing::Test {
 protected:
  FoundItemInARace() {
    for (int i = 0; i < kRounds; ++i) {
      scratch_.Write(kMine + NameOfRound(i), "mine");
      scratch_.Write(kVictims + NameOfRound(i), "the victim's");
      scratch_.Write(kMine + "folder " + NameOfRound(i) + "/none", "");
      scratch_.Write(kVictims + "folder " + NameOfRound(i) + "/none", "");
    }
    fs::create_directory(scratch_.Root() / "machine/drives/C/backup");
    fs::create_directory_symlink("../victim", scratch_.Root() / "machine/drives/C/t/link");
    store_ = OpenHostStore(fs::canonical(scratch_.Root() / "machine"));
    files_.emplace(*store_, facts_);
  }

  // Opens the items of all rounds by name and calls `take` with each, while their paths alternate between the
  // folder and the link's target. Returns how many could be opened.
  template <class Take>
  int Race(const std::string& prefix, const Take& take) {
    std::atomic<bool> over = false;
    const std::string one = scratch_.Root() / "machine/drives/C/t/swapped";
    const std::string other = scratch_.Root() / "machine/drives/C/t/link";
    std::thread exchanger([&] {
      constexpr unsigned kExchange = 2;
      for (bool swapped = false; swapped || !over;) {
        if (syscall(SYS_renameat2, AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), kExchange) == 0)
          swapped = !swapped;
      }
    });
    int opened = 0;
    for (int i = 0; i < kRounds; ++i) {
      const auto item = Open(prefix + NameOfRound(i));
      if (item == nullptr) continue;
      ++opened;
      take(*item, i);
    }
    over = true;
    exchanger.join();
    return opened;
  }

  // Recycles the items while their paths mostly lead to the victim.
  int RaceToTheBin(const std::string& prefix) {
    RecycleBin bin(*store_);
    return Race(prefix, [&](platform::FoundItem& item, int round) {
      EXPECT_TRUE(item.LeaveToShell());
      constexpr int kLooks = 10'000;
      for (int i = 0; i < kLooks && !fs::is_symlink(scratch_.Root() / "machine/drives/C/t/swapped"); ++i) {
      }
      files_->Recycle(Concat(u"C:\\t\\swapped\\", *FromUtf8(prefix + NameOfRound(round))), bin);
    });
  }

  std::unique_ptr<platform::FoundItem> Open(const std::string& name) {
    return files_->OpenFound(u"C:\\t", Concat(u"swapped\\", *FromUtf8(name)));
  }
  bool Exists(const std::string& file) const { return fs::exists(scratch_.Root() / file); }

  void ExpectVictimUntouched() {
    for (int i = 0; i < kRounds; ++i) {
      EXPECT_EQ(scratch_.Read(kVictims + NameOfRound(i)), "the victim's") << i;
      EXPECT_TRUE(Exists(kVictims + "folder " + NameOfRound(i) + "/none")) << i;
    }
  }

  const std::string kMine = "machine/drives/C/t/swapped/", kVictims = "machine/drives/C/victim/",
                    kBackup = "machine/drives/C/backup/", kBin = "machine/recycle/";
  ScratchFolder scratch_;
  MachineFacts facts_;
  std::unique_ptr<FileStore> store_;
  std::optional<MachineFileSystem> files_;
};

TEST_F(FoundItemInARace, DeletesNothingOfTheVictim) {
  RecordProperty("opened", Race("", [](platform::FoundItem& item, int) { item.DeleteFile(); }));
  ExpectVictimUntouched();
  // Items that weren't deleted in the race still exist and can be deleted now.
  for (int i = 0; i < kRounds; ++i) {
    const auto item = Open(NameOfRound(i));
    ASSERT_EQ(item != nullptr, Exists(kMine + NameOfRound(i))) << i;
    if (item != nullptr) {
      EXPECT_TRUE(item->DeleteFile()) << i;
    }
  }
  ExpectVictimUntouched();
}

TEST_F(FoundItemInARace, DeletesNoEmptyFolderOfTheVictim) {
  RecordProperty("opened", Race("folder ", [](platform::FoundItem& item, int) { item.DeleteEmptyFolder(); }));
  ExpectVictimUntouched();
}

TEST_F(FoundItemInARace, RecyclesNothingOfTheVictim) {
  RecordProperty("opened", RaceToTheBin(""));
  ExpectVictimUntouched();
  for (int i = 0; i < kRounds; ++i) {
    const bool recycled = Exists(kBin + NameOfRound(i));
    EXPECT_NE(Exists(kMine + NameOfRound(i)), recycled) << i;
    EXPECT_EQ(scratch_.Read((recycled ? kBin : kMine) + NameOfRound(i)), "mine") << i;
  }
}

TEST_F(FoundItemInARace, RecyclesNoEmptyFolderOfTheVictim) {
  RecordProperty("opened", RaceToTheBin("folder "));
  ExpectVictimUntouched();
}

TEST_F(FoundItemInARace, MovesNothingOfTheVictim) {
  RecordProperty("opened", Race("", [](platform::FoundItem& item, int round) {
                   item.MoveFileTo(Concat(u"C:\\backup\\", *FromUtf8(NameOfRound(round))));
                 }));
  ExpectVictimUntouched();
  for (int i = 0; i < kRounds; ++i) {
    const bool moved = Exists(kBackup + NameOfRound(i));
    EXPECT_NE(Exists(kMine + NameOfRound(i)), moved) << i;
    EXPECT_EQ(scratch_.Read((moved ? kBackup : kMine) + NameOfRound(i)), "mine") << i;
  }
}

}  // namespace
}  // namespace tavix::machine
