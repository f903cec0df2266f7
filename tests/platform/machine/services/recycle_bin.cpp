#include "platform/machine/services/recycle_bin.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "doubles/memory_store.h"
#include "support/case.h"

namespace tavix::machine {
namespace {

class RecycleBinTest : public testing::Test {
 protected:
  void File(TextView name, uint64_t size) {
    store.Make({u"drives", u"C", Text(name)}, EntryKind::File).size = size;
  }
  bool Take(TextView name) {
    const auto folder = store.Open({u"drives", u"C"});
    return bin.Take(*folder, *folder->Find(name));
  }
  std::vector<Text> Names() {
    std::vector<Text> names;
    std::vector<StoreEntry> entries;
    if (const auto folder = store.Open({u"recycle"})) folder->Read(entries);
    for (const StoreEntry& entry : entries) names.push_back(entry.name);
    return names;
  }

  MemoryStore store;
  RecycleBin bin{store};
};

TEST_F(RecycleBinTest, IsMadeWhenNeeded) {
  ASSERT_TRUE(bin.Count());
  EXPECT_EQ(bin.Count()->items, 0U);
  EXPECT_TRUE(bin.Empty());
  EXPECT_FALSE(store.Root()->Find(u"recycle"));
  File(u"a.txt", 5);
  EXPECT_TRUE(Take(u"a.txt"));
  EXPECT_EQ(Names(), std::vector<Text>{u"a.txt"});
  EXPECT_FALSE(store.Open({u"drives", u"C"})->Find(u"a.txt"));
}

TEST_F(RecycleBinTest, TakesThingsOfOneNameUnderFreeNames) {
  const Text longName = Text(255, u'n');
  for (int i = 0; i < 3; ++i) {
    SCOPED_TRACE(Case(i));
    File(u"a.txt", 5);
    EXPECT_TRUE(Take(u"a.txt"));
    File(longName, 1);
    EXPECT_TRUE(Take(longName));
  }
  const std::vector<Text> names = Names();
  EXPECT_EQ(names.size(), 6U);
  for (const TextView name : {u"a.txt", u"2~a.txt", u"3~a.txt"}) {
    EXPECT_EQ(std::count(names.begin(), names.end(), name), 1) << name.size();
  }
  for (const Text& name : names) EXPECT_TRUE(IsFileName(name)) << Case(name);
  EXPECT_EQ(bin.Count()->bytes, 18U);
}

TEST_F(RecycleBinTest, CountsAFolderAsOneItemWithAllItsBytes) {
  store.Make({u"drives", u"C", u"f", u"g", u"b"}, EntryKind::File).size = 100;
  store.Make({u"drives", u"C", u"f", u"a"}, EntryKind::File).size = 20;
  File(u"c", 3);
  EXPECT_TRUE(Take(u"f"));
  EXPECT_TRUE(Take(u"c"));
  EXPECT_EQ(bin.Count()->items, 2U);
  EXPECT_EQ(bin.Count()->bytes, 123U);
  EXPECT_TRUE(bin.Empty());
  EXPECT_EQ(bin.Count()->items, 0U);
}

TEST_F(RecycleBinTest, LeavesWhatItCantTake) {
  File(u"a", 5);
  store.faults.Fail(u"Move");
  EXPECT_FALSE(Take(u"a"));
  EXPECT_TRUE(store.Open({u"drives", u"C"})->Find(u"a"));
  store.faults.Clear();
  EXPECT_TRUE(Take(u"a"));
  store.faults.Fail(u"Remove", u"a");
  EXPECT_FALSE(bin.Empty());
  EXPECT_EQ(bin.Count()->items, 1U);
}

}  // namespace
}  // namespace tavix::machine
