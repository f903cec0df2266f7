// Walks over a machine in a folder of the host: on a fixed drive folders are read ahead, on a removable one
// not.
#include <gtest/gtest.h>

#include <random>

#include "advanced/advanced_walker.h"
#include "frame/start_up.h"
#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_host.h"
#include "scan/result_items.h"
#include "scan/walkers.h"
#include "support/program_test.h"
#include "window/wiring.h"

namespace tavix::mdlPubSelf {
namespace {

namespace fs = std::filesystem;

class WalksAhead : public testing::Test {
 protected:
  ~WalksAhead() override { ResetProcess(); }

  // Makes a random tree with files of all kinds, and with links that lead up, aside and nowhere.
  static void Grow(std::mt19937& random, const fs::path& folder, int depth) {
    fs::create_directories(folder);
    const bool allEmpty = random() % 4 == 0;
    for (unsigned i = 0; i < random() % 8; ++i) {
      const char* ending = random() % 2 == 0 ? ".log" : ".tmp";
      std::ofstream(folder / ((random() % 2 == 0 ? "F" : "f") + std::to_string(i) + ending))
          << std::string(allEmpty ? 0 : random() % 5, 'x');
    }
    for (unsigned i = 0; depth > 0 && i < random() % 6; ++i) {
      const fs::path below = folder / ((random() % 2 == 0 ? "D" : "d") + std::to_string(i));
      Grow(random, below, depth - 1);
      if (random() % 12 == 0)
        fs::create_directory_symlink(below.filename(), folder / ("aside" + std::to_string(i)));
    }
    if (random() % 12 == 0) fs::create_directory_symlink("..", folder / "up");
    if (random() % 12 == 0) fs::create_symlink("none", folder / "nowhere");
  }

  std::vector<RowFields> RowsWithDriveOfType(const std::string& type) {
    scratch.Write("machine.ini", "[Drives]\nC=" + type + "\n");
    std::string error;
    const auto host = machine::MachineHost::Open(scratch.Root(), 1'700'000'000'000, error);
    EXPECT_NE(host, nullptr) << error;
    WireForms();
    Form_Load();
    WalkFolderFiles(u"C:\\T", u"all");
    WalkFolderByPattern(u"C:\\T", u"logs", u"*.log");
    WalkAdvancedFolder(u"C:\\T", u"|Empty Folders and Files|Junk Files|", true);
    std::vector<RowFields> rows = ResultRows();
    ResetProcess();
    return rows;
  }

  machine::QuickPlace quick;
  machine::ScratchFolder scratch;
};

TEST_F(WalksAhead, FindTheSameRowsInTheSameOrderWithAndWithoutReadingAhead) {
  size_t rows = 0;
  for (unsigned seed = 0; seed < 25; ++seed) {
    std::mt19937 random(seed);
    const fs::path tree = scratch.Root() / "drives/C/T";
    fs::remove_all(tree);
    Grow(random, tree, 4);
    const std::vector<RowFields> plain = RowsWithDriveOfType("1");
    EXPECT_EQ(RowsWithDriveOfType("2"), plain) << seed;
    rows += plain.size();
  }
  EXPECT_GT(rows, 2'000U);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
