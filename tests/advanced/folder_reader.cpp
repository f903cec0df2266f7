#include "advanced/folder_reader.h"

#include <algorithm>
#include <map>
#include <random>

#include "advanced/advanced_test.h"
#include "advanced/path_text.h"
#include "doubles/odd_names.h"
#include "frame/support/file_system_object.h"

namespace tavix::mdlPubSelf {
namespace {

// Wraps a folder and counts how often it is listed.
struct CountingFolder : platform::OpenFolder {
  CountingFolder(std::unique_ptr<OpenFolder> real, TextView at, std::map<Text, int>& counts)
      : folder(std::move(real)), path(at), listings(counts) {}
  bool List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted,
            const platform::GoesOn& goesOn) override {
    ++listings[path];
    return folder->List(visit, wanted, goesOn);
  }
  std::unique_ptr<OpenFolder> Open(TextView name) override {
    auto below = folder->Open(name);
    if (below == nullptr) return nullptr;
    return std::make_unique<CountingFolder>(std::move(below), PathBelow(path, name), listings);
  }
  std::unique_ptr<OpenFolder> folder;
  Text path;
  std::map<Text, int>& listings;
};

struct CountingFiles : machine::MemoryFileSystem {
  using MemoryFileSystem::MemoryFileSystem;
  std::unique_ptr<platform::OpenFolder> Open(TextView path) override {
    auto folder = MemoryFileSystem::Open(path);
    if (folder == nullptr) return nullptr;
    return std::make_unique<CountingFolder>(std::move(folder), path, listings);
  }
  std::map<Text, int> listings;
};

class FolderReading : public AdvancedTest {
 protected:
  FolderReading() {
    platform::fileSystem = &files;
    fileSystemObject = FileSystemObject(&files);
  }
  // Makes a random tree of folders, empty and other files, links, and folders that can't be read.
  void Grow(std::mt19937& random, const Text& path, int depth) {
    files.AddFolder(path);
    if (random() % 12 == 0) files.faults.Fail(u"List", path);
    for (unsigned i = 0; i < random() % 3; ++i) {
      const Text file = Concat(path, u"\\f", ToText(i), u".log");
      files.AddFile(file, {.size = random() % 4 == 0 ? 1024U : 0U});
      if (random() % 20 == 0) files.faults.Fail(u"Look", file);
    }
    if (random() % 10 == 0) files.AddLink(Concat(path, u"\\link"), u"C:\\elsewhere");
    if (depth == 0) return;
    for (unsigned i = 0; i < random() % 4; ++i) Grow(random, Concat(path, u"\\d", ToText(i)), depth - 1);
  }
  // Whether the sizes below the folder add up to zero. False if a link or a file of unknown size is among
  // them.
  bool IsEmpty(const Text& path) {
    std::optional<double> size = 0;
    bool unknown = false;
    std::vector<Text> below;
    if (!files.List(path, [&](const platform::DirectoryEntry& entry) {
          if (!entry.known) unknown = true;
          *size += static_cast<double>(entry.size);
          if (entry.link) unknown = true;
          if (entry.folder && !entry.link) below.push_back(PathBelow(path, entry.name));
        })) {
      return false;
    }
    return !unknown && *size == 0 &&
           std::ranges::all_of(below, [this](const Text& each) { return IsEmpty(each); });
  }
  // The expected rows, by a simple walk that adds up every folder again. All links lead to one folder, which
  // is entered once.
  void WalkPlainly(const Text& path, std::vector<RowFields>& rows, bool& linkEntered) {
    const size_t cut = path.rfind(u'\\');
    if (IsEmpty(path)) {
      rows.push_back(EmptyRow(u"Empty Folder", path.substr(0, cut), path.substr(cut + 1)));
      return;
    }
    std::vector<std::pair<Text, bool>> below;
    files.List(path, [&](const platform::DirectoryEntry& entry) {
      if (entry.folder) below.emplace_back(PathBelow(path, entry.name), entry.link);
      if (!entry.folder && entry.known && entry.size == 0) {
        rows.push_back(EmptyRow(u"Empty File", path, entry.name));
      }
    });
    for (const auto& [each, link] : below) {
      if (!link || !std::exchange(linkEntered, true)) WalkPlainly(each, rows, linkEntered);
    }
  }

  CountingFiles files{machine.store, machine.facts};
};

TEST_F(FolderReading, FindsWhatAddingUpEveryFolderWouldFind) {
  int emptyFolders = 0;
  files.AddFile(u"C:\\elsewhere\\x", {.size = 5});
  files.AddFolder(u"C:\\elsewhere\\nothing");
  for (unsigned seed = 0; seed < 300; ++seed) {
    std::mt19937 random(seed);
    files.faults.Clear();
    files.DeleteFolder(u"C:\\top", true);
    Grow(random, u"C:\\top\\tree", 5);
    files.AddFile(u"C:\\top\\some", {.size = 1});
    std::vector<RowFields> expected;
    bool linkEntered = false;
    WalkPlainly(u"C:\\top", expected, linkEntered);
    ASSERT_EQ(Walk(u"C:\\top", u"|Empty Folders and Files|"), expected) << seed;
    for (const RowFields& row : expected) emptyFolders += row.tag == u"P" ? 1 : 0;
  }
  EXPECT_GT(emptyFolders, 300);
}

TEST_F(FolderReading, EachFolderIsListedOnce) {
  Text path = u"C:\\top";
  for (int level = 0; level < 30; ++level) {
    files.AddFolder(Concat(path, u"\\a empty\\below"));
    files.AddFile(Concat(path, u"\\z last\\file"), {.size = 1});
    path += u"\\m next";
  }
  files.AddFile(Concat(path, u"\\file"), {.size = 1});
  files.listings.clear();
  EXPECT_EQ(Walk(u"C:\\top", u"|Empty Folders and Files|").size(), 30U);
  EXPECT_EQ(files.listings.size(), 30U * 4 + 1);
  for (const auto& [folder, times] : files.listings) EXPECT_EQ(times, 1) << Narrow(folder);
}

// The system strips trailing blanks and dots, so these names would reach another file or folder.
TEST_F(FolderReading, NamesThatEndInABlankOrADotAreLeftOutAndTheirFolderIsNotEmpty) {
  OddNames odd(machine.store, machine.facts);
  platform::fileSystem = &odd;
  fileSystemObject = FileSystemObject(&odd);
  odd.AddFile(u"C:\\t\\folder\\x.tmp", {.size = 1024});
  odd.AddFolder(u"C:\\t\\bare");
  EXPECT_EQ(Paths(Walk(u"C:\\t", u"|Junk Files|Empty Folders and Files|Invalid Shortcuts|")),
            std::vector<Text>{u"C:\\t\\folder\\x.tmp"});
}

TEST_F(FolderReading, KnowsTheFilesOfAFolderByNameSizeAndTime) {
  files.AddFile(u"C:\\t\\a long name of a file.txt", {.size = 7, .accessed = 5});
  files.AddFile(u"C:\\t\\b", {.size = 0, .accessed = 6});
  files.AddFolder(u"C:\\t\\folder");
  files.AddLink(u"C:\\t\\link", u"C:\\t\\folder");
  const auto read = [this](TextView path) {
    return FolderContent([&](const platform::EntryVisitor& visit) { return files.List(path, visit); });
  };
  const FolderContent content = read(u"C:\\t");
  EXPECT_TRUE(content.IsRead());
  EXPECT_FALSE(content.IsEmptyByItself());
  ASSERT_EQ(content.FileCount(), 2U);
  EXPECT_EQ(content.FileAt(0).name, u"a long name of a file.txt");
  EXPECT_EQ(content.FileAt(0).size, 7);
  EXPECT_EQ(content.FileAt(0).accessed, 5);
  EXPECT_EQ(content.FileAt(1).name, u"b");
  EXPECT_EQ(content.FileAt(1).accessed, 6);
  ASSERT_EQ(content.SubFolders().size(), 2U);
  EXPECT_FALSE(content.SubFolders()[0].link);
  EXPECT_TRUE(content.SubFolders()[1].link);
  EXPECT_FALSE(read(u"C:\\gone").IsRead());
  EXPECT_FALSE(read(u"C:\\gone").IsEmptyByItself());
}

}  // namespace
}  // namespace tavix::mdlPubSelf
