// Cleans random machines in memory. Each user file is in its old place, in the bin or in the backup folder
// afterwards, and a clean removes only items of ticked rows.

#include "clean/lost_trial.h"
#include "doubles/memory_store.h"

namespace tavix::lost {
namespace {

using namespace machine;

// Forwards to a store that it doesn't own.
class LentStore : public FileStore {
 public:
  explicit LentStore(FileStore& store) : store_(store) {}
  std::unique_ptr<StoreFolder> Root() override { return store_.Root(); }
  std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) override { return store_.Open(names); }

 private:
  FileStore& store_;
};

std::vector<Text> NamesOf(TextView key) {
  std::vector<Text> names;
  for (const TextView name : Split(key, u"\\")) names.emplace_back(name);
  return names;
}

Text LinkText(const LinkTarget& target) {
  Text text = target.fromRoot ? u"\\" : u"";
  for (const Text& name : target.names) text.append(text.empty() || text == u"\\" ? u"" : u"\\").append(name);
  return text;
}

class MemoryDisk : public TestDisk {
 public:
  void Put(const Text& key, const DiskItem& item, platform::DateTime time) override {
    MemoryStore::Node& node = store_.Make(NamesOf(key), item.kind);
    node.content = item.content;
    node.size = item.content.size();
    node.modified = node.accessed = time;
    node.target.fromRoot = item.link.starts_with(u'\\');
    for (const TextView name : Split(item.link, u"\\")) {
      if (!name.empty() && name != u".") node.target.names.emplace_back(name);
    }
  }

  void Remove(const Text& key) override {
    std::vector<Text> names = NamesOf(key);
    const Text name = names.back();
    names.pop_back();
    const auto folder = store_.Open(names);
    if (folder != nullptr && !folder->Remove(name)) folder->RemoveTree(name);
  }

  void Rename(const Text& key, TextView name) override {
    std::vector<Text> names = NamesOf(key);
    const Text old = names.back();
    names.pop_back();
    const auto folder = store_.Open(names);
    const auto same = store_.Open(names);
    if (folder != nullptr) folder->Move(old, *same, name);
  }

  DiskPicture Picture() override {
    DiskPicture picture;
    Read({}, *store_.Root(), picture);
    std::erase_if(picture.items, [](const auto& item) {
      const TextView key = item.first;
      return !key.starts_with(u"drives") && !key.starts_with(u"recycle");
    });
    return picture;
  }

  std::unique_ptr<FileStore> Store() override { return std::make_unique<LentStore>(store_); }
  bool OnHost() const override { return false; }
  Faults* NamedFaults() override { return &store_.faults; }

 private:
  static void Read(const Text& key, StoreFolder& folder, DiskPicture& picture) {
    std::vector<StoreEntry> entries;
    folder.Read(entries);
    for (const StoreEntry& entry : entries) {
      const Text below = Concat(key, key.empty() ? u"" : u"\\", entry.name);
      DiskItem& item = picture.items[below];
      item.kind = entry.kind;
      if (entry.kind == EntryKind::File) item.content = folder.ReadFile(entry.name).value_or("unreadable");
      if (entry.kind == EntryKind::Link) item.link = LinkText(*folder.ReadLink(entry.name));
      if (entry.kind == EntryKind::Folder) Read(below, *folder.Open(entry.name), picture);
    }
  }

  MemoryStore store_;
};

void TrySeed(uint64_t seed, Tally& tally) {
  SCOPED_TRACE("TAVIX_SEED=" + std::to_string(seed) +
               " tavix-tests --gtest_filter=NothingIsLost.OnMachinesInMemory");
  MemoryDisk testDisk;
  RunTrial(seed, testDisk, kTroubles[seed % std::size(kTroubles)], {}, tally);
}

// A ticked link leads to a folder that other ticked rows empty first.
TEST(NothingIsLost, OnAMachineWithALinkToAFolderThatBecomesEmpty) {
  Tally tally;
  TrySeed(501255, tally);
  EXPECT_EQ(tally.machines, 1);
}

TEST(NothingIsLost, OnMachinesInMemory) {
  Tally tally;
  const Seeds seeds = SeedsToTry(70);
  for (uint64_t seed = seeds.first; seed < seeds.first + static_cast<uint64_t>(seeds.count); ++seed) {
    TrySeed(seed, tally);
    if (testing::Test::HasFatalFailure()) return;
  }
  RecordProperty("machines", tally.machines);
  std::cout << tally.machines << " machines, " << tally.removed << " items removed, " << tally.refused
            << " ticked rows refused, " << tally.registry << " registries cleaned, " << tally.denied
            << " with denied keys, " << tally.exact << " machines as predicted\n";
  if (seeds.count < 50) return;
  // The test proves nothing unless the machines have enough to clean and to refuse.
  EXPECT_GT(tally.removed, tally.machines);
  EXPECT_GT(tally.refused, tally.machines);
  EXPECT_GT(tally.registry, tally.machines / 20);
  EXPECT_GT(tally.exact, tally.machines / 4);
  if (tally.machines > 150) {
    EXPECT_GT(tally.denied, 0);
  }
}

}  // namespace
}  // namespace tavix::lost
