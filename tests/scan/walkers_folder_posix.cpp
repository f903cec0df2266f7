// The walkers over a machine in a folder of the host: cases that only a real disk has.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "frame/start_up.h"
#include "platform/file_system.h"
#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_host.h"
#include "scan/result_items.h"
#include "scan/walkers.h"
#include "support/program_test.h"
#include "text/utf8.h"
#include "window/wiring.h"

namespace tavix::mdlPubSelf {
namespace {

namespace fs = std::filesystem;

class FolderWalkers : public testing::Test {
 protected:
  FolderWalkers() {
    fs::create_directories(Host(""));
    std::string error;
    host = machine::MachineHost::Open(scratch.Root(), std::nullopt, error);
    EXPECT_NE(host, nullptr) << error;
    WireForms();
    Form_Load();
  }
  ~FolderWalkers() override {
    ResetProcess();
    host.reset();
  }
  fs::path Host(const std::string& path) const { return scratch.Root() / "drives/C/T" / path; }
  void Write(const std::string& path, const std::string& bytes = "x") const {
    scratch.Write("drives/C/T/" + path, bytes);
  }
  static std::vector<std::string> Rows() {
    std::vector<std::string> paths;
    for (const RowFields& row : ResultRows()) paths.push_back(ToUtf8(row.location + u"\\" + row.name));
    ClearResults();
    return paths;
  }
  // The rows of a walk, which are the same for both ways of listing files.
  static std::vector<std::string> Walk() {
    WalkFolderFiles(u"C:\\T", u"t");
    std::vector<std::string> rows = Rows();
    WalkFolderByPattern(u"C:\\T", u"t", u"");
    EXPECT_EQ(Rows(), rows);
    return rows;
  }

  machine::QuickPlace quick;
  machine::ScratchFolder scratch;
  std::unique_ptr<machine::MachineHost> host;
};

// Runs `action` as a user with only the rights that everyone has.
template <class Action>
void AsNobody(const Action& action) {
  constexpr uid_t kNobody = 65534;
  if (geteuid() == 0) setfsuid(kNobody);
  action();
  if (geteuid() == 0) setfsuid(0);
}

TEST_F(FolderWalkers, NamesOfEveryKindAreShownAsTheDiskHasThem) {
  for (const char* name :
       {"b", "A", "c.d.e", "\xD0\x96", "\xE4\xB8\x96/\xF0\x9F\x98\x80", "with blank", ".hidden"})
    Write(name);
  Write("not\xFFutf8");
  Write("no:name");
  EXPECT_EQ(Walk(), (std::vector<std::string>{"C:\\T\\.hidden", "C:\\T\\A", "C:\\T\\b", "C:\\T\\c.d.e",
                                              "C:\\T\\with blank", "C:\\T\\\xD0\x96",
                                              "C:\\T\\\xE4\xB8\x96\\\xF0\x9F\x98\x80"}));
}

TEST_F(FolderWalkers, AFolderThatMayNotBeListedAddsNothingAndTheWalkGoesOn) {
  Write("a/1");
  Write("closed/2");
  Write("z/3");
  for (const fs::perms rights : {fs::perms::none, fs::perms::others_read, fs::perms::others_exec}) {
    fs::permissions(Host("closed"), rights);
    std::vector<std::string> rows;
    AsNobody([&] { rows = Walk(); });
    fs::permissions(Host("closed"), fs::perms::owner_all);
    EXPECT_EQ(rows, (std::vector<std::string>{"C:\\T\\a\\1", "C:\\T\\z\\3"})) << static_cast<int>(rights);
  }
}

TEST_F(FolderWalkers, LinksAreWalkedAndThoseOutOfTheMachineAreNot) {
  Write("real/f");
  fs::create_directory_symlink("real", Host("link"));
  fs::create_directory_symlink("/usr", Host("out"));
  fs::create_directory_symlink("nowhere", Host("broken"));
  EXPECT_EQ(Walk(),
            (std::vector<std::string>{"C:\\T\\broken", "C:\\T\\out", "C:\\T\\link\\f", "C:\\T\\real\\f"}));
}

TEST_F(FolderWalkers, LinksThatLeadBackArePassedOver) {
  Write("f");
  fs::create_directory_symlink(".", Host("self"));
  fs::create_directory(Host("sub"));
  fs::create_directory_symlink("..", Host("sub/one"));
  fs::create_directory_symlink("../..", Host("sub/two"));
  EXPECT_EQ(Walk(), std::vector<std::string>{"C:\\T\\f"});
}

TEST_F(FolderWalkers, AChainOfFiveThousandFoldersIsWalkedToItsEnd) {
  constexpr int kDepth = 5000;
  int folder = open(Host("").c_str(), O_RDONLY | O_DIRECTORY);
  for (int i = 0; i < kDepth; ++i) {
    ASSERT_EQ(mkdirat(folder, "d", 0777), 0);
    ASSERT_EQ(mknodat(folder, "f", S_IFREG | 0666, 0), 0);
    const int next = openat(folder, "d", O_RDONLY | O_DIRECTORY);
    close(folder);
    folder = next;
  }
  close(folder);
  const std::vector<std::string> rows = Walk();
  ASSERT_EQ(rows.size(), static_cast<size_t>(kDepth));
  EXPECT_EQ(rows.back().size(), 4 + 2 * (kDepth - 1) + 2U);
  platform::fileSystem->DeleteFolder(u"C:\\T", true);
}

TEST_F(FolderWalkers, AFolderOfAHundredThousandFilesIsListedInOrder) {
  constexpr int kFiles = 100'000;
  const int folder = open(Host("").c_str(), O_RDONLY | O_DIRECTORY);
  for (int i = 0; i < kFiles; ++i) {
    ASSERT_EQ(mknodat(folder, ("f" + std::to_string(i)).c_str(), S_IFREG | 0666, 0), 0);
  }
  close(folder);
  WalkFolderFiles(u"C:\\T", u"t");
  const std::vector<std::string> rows = Rows();
  EXPECT_EQ(rows.size(), static_cast<size_t>(kFiles));
  EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end()));
  platform::fileSystem->DeleteFolder(u"C:\\T", true);
}

TEST_F(FolderWalkers, LongNamesAndPathsAreWholeInTheRow) {
  const std::string name(255, 'n');
  int folder = open(Host("").c_str(), O_RDONLY | O_DIRECTORY);
  std::string path = "C:\\T";
  for (int i = 0; i < 20; ++i) {
    ASSERT_EQ(mkdirat(folder, name.c_str(), 0777), 0);
    const int next = openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY);
    close(folder);
    folder = next;
    path += "\\" + name;
  }
  ASSERT_EQ(mknodat(folder, name.c_str(), S_IFREG | 0666, 0), 0);
  close(folder);
  EXPECT_EQ(Walk(), std::vector<std::string>{path + "\\" + name});
  platform::fileSystem->DeleteFolder(u"C:\\T", true);
}

// The file list reads the sizes of matching files only.
TEST_F(FolderWalkers, APatternGivesTheSizesOfTheFilesThatFit) {
  Write("a.log", std::string(2048, 'x'));
  Write("b.txt", "x");
  Write("c.LOG", std::string(1024, 'x'));
  WalkFolderByPattern(u"C:\\T", u"t", u"*.log");
  const std::vector<RowFields> rows = ResultRows();
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].size, u"2.");
  EXPECT_EQ(rows[1].size, u"1.");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
