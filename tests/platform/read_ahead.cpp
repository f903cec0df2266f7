#include "platform/read_ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <random>
#include <set>

#include "text/letter_case.h"

namespace tavix::platform {
namespace {

// A tree of folders that any thread may read.
struct Tree {
  std::map<Text, std::shared_ptr<Tree>, LessIgnoringCase> folders;
  std::vector<Text> files;
  std::vector<Text> links;  // to folders
  bool gone = false;        // it can't be opened
  bool unreadable = false;
};

// Threads wait at it until it is opened.
class Gate {
 public:
  void Open() {
    const std::lock_guard lock(mutex_);
    open_ = true;
    opened_.notify_all();
  }
  void Wait() {
    std::unique_lock lock(mutex_);
    opened_.wait(lock, [this] { return open_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable opened_;
  bool open_ = false;
};

// What was done with the tree, by all threads.
struct Notes {
  std::mutex mutex;
  std::multiset<Text> read;  // paths
  bool keepsPaths = true;    // false for trees whose paths are too long
  std::atomic<int> open = 0;
  std::atomic<int> mostOpen = 0;
  std::function<void(const Text& path)> atReading;  // called without the lock

  int Readings(TextView path) {
    const std::lock_guard lock(mutex);
    return static_cast<int>(read.count(Text(path)));
  }
};

class TreeSource : public FolderSource {
 public:
  TreeSource(std::shared_ptr<Tree> tree, Text path, Notes& notes)
      : tree_(std::move(tree)), path_(std::move(path)), notes_(notes) {
    const int open = ++notes_.open;
    if (open > notes_.mostOpen) notes_.mostOpen = open;
  }
  ~TreeSource() override { --notes_.open; }
  TreeSource(const TreeSource&) = delete;
  TreeSource& operator=(const TreeSource&) = delete;

  std::shared_ptr<const FolderSource> Open(TextView name) const override {
    const auto found = tree_->folders.find(name);
    if (found == tree_->folders.end() || found->second->gone) return nullptr;
    return std::make_shared<TreeSource>(found->second, notes_.keepsPaths ? Concat(path_, u"\\", name) : path_,
                                        notes_);
  }

  // Lists in the reverse order.
  bool Read(FolderListing& listing, const NameFilter& wanted) const override {
    if (notes_.atReading) notes_.atReading(path_);
    if (notes_.keepsPaths) {
      const std::lock_guard lock(notes_.mutex);
      notes_.read.insert(path_);
    }
    if (tree_->unreadable) return false;
    const auto add = [&](TextView name, bool folder, bool link) {
      DirectoryEntry entry;
      entry.name = name;
      entry.folder = folder;
      entry.link = link;
      listing.Add(entry);
    };
    for (auto folder = tree_->folders.rbegin(); folder != tree_->folders.rend(); ++folder) {
      if (!listing.Continue()) return false;
      add(folder->first, true, false);
    }
    for (const Text& file : tree_->files) {
      if (!listing.Continue()) return false;
      if (!wanted || wanted(file)) add(file, false, false);
    }
    for (const Text& link : tree_->links) add(link, true, true);
    return true;
  }

 private:
  const std::shared_ptr<Tree> tree_;
  const Text path_;
  Notes& notes_;
};

std::shared_ptr<Tree> Grow(std::mt19937& random, int depth) {
  auto tree = std::make_shared<Tree>();
  tree->gone = depth < 4 && random() % 15 == 0;
  tree->unreadable = depth < 4 && random() % 15 == 0;
  for (unsigned i = 0; i < random() % 6; ++i) {
    tree->files.push_back(Concat(random() % 2 == 0 ? u"F" : u"f", ToText(i), i % 2 == 0 ? u".log" : u".txt"));
  }
  if (random() % 8 == 0) tree->links.emplace_back(u"a link");
  for (unsigned i = 0; depth > 0 && i < random() % 7; ++i) {
    tree->folders[Concat(random() % 2 == 0 ? u"D" : u"d", ToText(i))] = Grow(random, depth - 1);
  }
  return tree;
}

// A tree of this many folders in each, and a file.
std::shared_ptr<Tree> Regular(int folders, int depth) {
  auto tree = std::make_shared<Tree>();
  tree->files.emplace_back(u"file");
  for (int i = 0; depth > 0 && i < folders; ++i) {
    tree->folders[Concat(u"d", ToText(i))] = Regular(folders, depth - 1);
  }
  return tree;
}

// Adds what a walk sees: each entry with its folder, and each folder that can't be opened or listed.
void Walk(ReadAhead::Folder& folder, const Text& path, const NameFilter& wanted, std::vector<Text>& seen) {
  const auto listing = folder.List(wanted, {});
  if (!listing) return seen.push_back(Concat(path, u" can't be listed"));
  for (size_t i = 0; i < listing->Count(); ++i) {
    seen.push_back(Concat(path, u"\\", listing->At(i).name, listing->At(i).link ? u">" : u""));
  }
  for (size_t i = 0; i < listing->Count(); ++i) {
    const DirectoryEntry entry = listing->At(i);
    if (!entry.folder) continue;
    const Text below = Concat(path, u"\\", entry.name);
    auto opened = folder.Open(entry.name);
    if (!opened) {
      seen.push_back(Concat(below, u" can't be listed"));
    } else {
      Walk(*opened, below, wanted, seen);
    }
  }
}

class ReadingAhead : public testing::Test {
 protected:
  ReadingAhead() { ahead.Force(); }
  ReadAhead::Folder Start(const std::shared_ptr<Tree>& tree, bool worthwhile = true,
                          ReadAhead* with = nullptr) {
    return {with != nullptr ? with : &ahead, std::make_shared<TreeSource>(tree, u"T", notes),
            [worthwhile] { return worthwhile; }};
  }
  std::vector<Text> WalkOf(const std::shared_ptr<Tree>& tree, const NameFilter& wanted, ReadAhead* with) {
    std::vector<Text> seen;
    ReadAhead::Folder top(with, std::make_shared<TreeSource>(tree, u"T", notes), [] { return true; });
    Walk(top, u"T", wanted, seen);
    return seen;
  }

  Notes notes;
  ReadAhead ahead;
};

TEST_F(ReadingAhead, ShowsAWalkTheSameAsWithout) {
  const NameFilter logs = [](TextView name) { return name.ends_with(u".log"); };
  size_t entries = 0;
  for (unsigned seed = 0; seed < 150; ++seed) {
    std::mt19937 random(seed);
    const auto tree = Grow(random, 4);
    for (const NameFilter& wanted : {NameFilter(), logs}) {
      const std::vector<Text> plain = WalkOf(tree, wanted, nullptr);
      EXPECT_EQ(WalkOf(tree, wanted, &ahead), plain) << seed;
      entries += plain.size();
    }
    EXPECT_EQ(ahead.FoldersAhead(), 0U) << "nothing is left of a walk";
  }
  EXPECT_GT(entries, 10'000U);
  ahead.WaitUntilIdle();
  EXPECT_EQ(notes.open, 0);
}

TEST_F(ReadingAhead, BeginsOnceTheFirstSubfolderIsOpened) {
  auto top = Start(Regular(3, 1));
  ASSERT_TRUE(top.List({}, {}));
  ahead.WaitUntilIdle();
  EXPECT_EQ(notes.read.size(), 1U);
  const auto first = top.Open(u"d0");
  ASSERT_TRUE(first);
  ahead.WaitUntilIdle();
  EXPECT_EQ(notes.read, (std::multiset<Text>{u"T", u"T\\d1", u"T\\d2"})) << "the first is the walk's own";
  EXPECT_EQ(ahead.FoldersAhead(), 2U);
}

TEST_F(ReadingAhead, IsNotDoneWhereItIsNotWorthwhile) {
  auto top = Start(Regular(3, 1), false);
  ASSERT_TRUE(top.List({}, {}));
  const auto first = top.Open(u"d0");
  const auto second = top.Open(u"d1");
  ahead.WaitUntilIdle();
  EXPECT_EQ(notes.read, (std::multiset<Text>{u"T"}));
}

TEST_F(ReadingAhead, ReadsEachFolderOnce) {
  std::vector<Text> seen;
  auto top = Start(Regular(5, 4));
  Walk(top, u"T", {}, seen);
  EXPECT_EQ(notes.read.size(), 1U + 5 + 25 + 125 + 625);
  EXPECT_EQ(std::set<Text>(notes.read.begin(), notes.read.end()).size(), notes.read.size());
}

TEST_F(ReadingAhead, KeepsToItsLimitOfFolders) {
  auto top = Start(Regular(300, 1));
  ASSERT_TRUE(top.List({}, {}));
  auto open = top.Open(u"d0");
  ahead.WaitUntilIdle();
  EXPECT_EQ(ahead.FoldersAhead(), ReadAhead::kMostFolders);
  EXPECT_LE(notes.mostOpen, static_cast<int>(ReadAhead::kMostFolders) + 2);
}

TEST_F(ReadingAhead, KeepsToASmallerLimitOfTheHost) {
  ReadAhead small(4);
  small.Force();
  auto top = Start(Regular(300, 1), true, &small);
  ASSERT_TRUE(top.List({}, {}));
  const auto open = top.Open(u"d0");
  small.WaitUntilIdle();
  EXPECT_EQ(small.FoldersAhead(), 4U);
}

TEST_F(ReadingAhead, KeepsHalfOfItsRoomForWhatIsBelowTheNextFolder) {
  auto tree = Regular(300, 1);
  tree->folders[u"d1"] = Regular(1, 200);
  Gate reading;
  Gate gate;
  notes.atReading = [&](const Text& path) {
    if (path != u"T\\d1") return;
    reading.Open();
    gate.Wait();
  };
  auto top = Start(tree);
  ASSERT_TRUE(top.List({}, {}));
  const auto first = top.Open(u"d0");
  reading.Wait();
  auto next = top.Open(u"d1");
  size_t most = 0;
  bool full = false;
  const auto listing = next->List({}, [&] {
    full = full || ahead.FoldersAhead() == most;
    most = ahead.FoldersAhead();
    if (full) gate.Open();
    return true;
  });
  EXPECT_TRUE(listing);
  EXPECT_LE(most, ReadAhead::kMostFolders / 2);
}

TEST_F(ReadingAhead, KeepsToItsLimitOfMemory) {
  auto tree = Regular(10, 1);
  for (const auto& [name, folder] : tree->folders) {
    for (int i = 0; i < 60'000; ++i) folder->files.push_back(Concat(u"a file with a name ", ToText(i)));
  }
  auto top = Start(tree);
  ASSERT_TRUE(top.List({}, {}));
  const auto first = top.Open(u"d0");
  ahead.WaitUntilIdle();
  EXPECT_GE(ahead.FoldersAhead(), 1U);
  EXPECT_LE(ahead.FoldersAhead(), 3U);
}

TEST_F(ReadingAhead, DropsWhatTheWalkPassesByAndWhatItLeaves) {
  constexpr int kInEach = 18;  // so many that not all can be read ahead
  auto tree = Regular(kInEach, 2);
  {
    auto top = Start(tree);
    ASSERT_TRUE(top.List({}, {}));
    { const auto first = top.Open(u"d0"); }
    ahead.WaitUntilIdle();
    EXPECT_EQ(ahead.FoldersAhead(), ReadAhead::kMostFolders);
    const auto later = top.Open(u"d9");
    EXPECT_LE(ahead.FoldersAhead(), size_t{kInEach}) << "all before it went";
  }
  EXPECT_EQ(ahead.FoldersAhead(), 0U);
  ahead.WaitUntilIdle();
  EXPECT_EQ(notes.open, 0);
}

TEST_F(ReadingAhead, GivesUpAReadingThatTheWalkLeaves) {
  auto tree = Regular(2, 1);
  for (int i = 0; i < 100'000; ++i) tree->folders[u"d1"]->files.push_back(ToText(i));
  Gate begun, left;
  notes.atReading = [&](const Text& path) {
    if (path != u"T\\d1") return;
    begun.Open();
    left.Wait();
  };
  std::atomic<int> filtered = 0;
  const NameFilter counting = [&filtered](TextView) { return ++filtered > 0; };
  {
    auto top = Start(tree);
    ASSERT_TRUE(top.List(counting, {}));
    const auto first = top.Open(u"d0");
    begun.Wait();
  }
  left.Open();
  ahead.WaitUntilIdle();
  EXPECT_LT(filtered, 5'000);
  EXPECT_EQ(notes.open, 0);
}

TEST_F(ReadingAhead, AWaitingWalkIsAskedWhetherItGoesOn) {
  auto tree = Regular(2, 1);
  Gate begun, ended;
  notes.atReading = [&](const Text& path) {
    if (path != u"T\\d1") return;
    begun.Open();
    ended.Wait();
  };
  auto top = Start(tree);
  ASSERT_TRUE(top.List({}, {}));
  { const auto first = top.Open(u"d0"); }
  begun.Wait();
  int asked = 0;
  {
    auto second = top.Open(u"d1");
    ASSERT_TRUE(second);
    EXPECT_FALSE(second->List({}, [&asked] { return ++asked < 3; }));
  }
  EXPECT_EQ(asked, 3);
  ended.Open();
  ahead.WaitUntilIdle();
}

TEST_F(ReadingAhead, AWaitingWalkReadsWhatComesNext) {
  Gate begun, ended;
  notes.atReading = [&](const Text& path) {
    if (path == u"T\\d1") {
      begun.Open();
      ended.Wait();
    } else if (path == u"T\\d2") {
      ended.Open();
    }
  };
  auto top = Start(Regular(3, 1));
  ASSERT_TRUE(top.List({}, {}));
  { const auto first = top.Open(u"d0"); }
  begun.Wait();
  auto second = top.Open(u"d1");
  ASSERT_TRUE(second);
  EXPECT_TRUE(second->List({}, {})) << "the other thread ends only after the walk has read the third";
  ahead.WaitUntilIdle();
}

TEST_F(ReadingAhead, AnotherFilterGetsItsOwnListing) {
  auto tree = Regular(2, 1);
  const NameFilter none = [](TextView) { return false; };
  auto top = Start(tree);
  ASSERT_TRUE(top.List(none, {}));
  { const auto first = top.Open(u"d0"); }
  ahead.WaitUntilIdle();
  auto second = top.Open(u"d1");
  ASSERT_TRUE(second);
  const auto listing = second->List({}, {});
  ASSERT_TRUE(listing);
  EXPECT_EQ(listing->Count(), 1U);
  EXPECT_EQ(notes.Readings(u"T\\d1"), 2);
}

TEST_F(ReadingAhead, WhatFailedIsTriedAgainByTheWalk) {
  auto tree = Regular(3, 1);
  tree->folders[u"d1"]->unreadable = true;
  tree->folders[u"d2"]->gone = true;
  auto top = Start(tree);
  ASSERT_TRUE(top.List({}, {}));
  { const auto first = top.Open(u"d0"); }
  ahead.WaitUntilIdle();
  tree->folders[u"d1"]->unreadable = false;
  tree->folders[u"d2"]->gone = false;
  for (const TextView name : {u"d1", u"d2"}) {
    auto folder = top.Open(name);
    ASSERT_TRUE(folder);
    EXPECT_TRUE(folder->List({}, {}));
  }
}

TEST_F(ReadingAhead, AListingIsReadAnewTheSecondTime) {
  auto tree = Regular(2, 1);
  auto top = Start(tree);
  ASSERT_TRUE(top.List({}, {}));
  tree->files.emplace_back(u"new");
  EXPECT_EQ(top.List({}, {})->Count(), 4U);
}

TEST_F(ReadingAhead, ALackOfMemoryIsLeftToTheWalk) {
  std::atomic<int> times = 0;
  notes.atReading = [&](const Text& path) {
    if (path == u"T\\d1" && ++times == 1) throw std::bad_alloc();
  };
  auto top = Start(Regular(3, 1));
  ASSERT_TRUE(top.List({}, {}));
  { const auto first = top.Open(u"d0"); }
  ahead.WaitUntilIdle();
  auto second = top.Open(u"d1");
  ASSERT_TRUE(second);
  EXPECT_TRUE(second->List({}, {}));
  EXPECT_EQ(times, 2);
}

TEST_F(ReadingAhead, AChainOfAnyLengthIsWalked) {
  notes.keepsPaths = false;
  auto tree = std::make_shared<Tree>();
  for (int i = 0; i < 5'000; ++i) {
    auto above = std::make_shared<Tree>();
    above->files.emplace_back(u"file");
    above->folders[u"d"] = std::move(tree);
    tree = std::move(above);
  }
  std::vector<std::unique_ptr<ReadAhead::Folder>> held;
  held.push_back(std::make_unique<ReadAhead::Folder>(Start(tree)));
  int depth = 0;
  while (held.back()->List({}, {})->Count() > 0) {
    auto below = held.back()->Open(u"d");
    ASSERT_TRUE(below);
    held.push_back(std::make_unique<ReadAhead::Folder>(*std::move(below)));
    if (held.size() > 8) held.erase(held.begin());
    ++depth;
  }
  EXPECT_EQ(depth, 5'000);
  held.clear();
  while (tree != nullptr)
    tree = tree->folders.empty() ? nullptr : std::shared_ptr<Tree>(tree->folders.begin()->second);
}

}  // namespace
}  // namespace tavix::platform
