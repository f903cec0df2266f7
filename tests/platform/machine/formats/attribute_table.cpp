#include "platform/machine/formats/attribute_table.h"

#include <gtest/gtest.h>

#include "doubles/memory_store.h"

namespace tavix::machine {
namespace {

constexpr TextView kFile = u"attributes.ini";

TEST(AttributeTable, ReadsPathsAndNumbersOfAnySection) {
  MemoryStore store;
  store.Root()->WriteFile(
      kFile,
      "C:\\before=1\r\n[Any]\r\n; C:\\comment=1\r\nc:/a=b/Ä.txt = 6 \r\n"
      "C:\\zero=0\r\nC:\\text=x\r\nC:\\negative=-1\r\nC:\\none\r\nrelative=2\r\nD:\\last=32");
  const AttributeTable table(&store);
  EXPECT_EQ(table.Get(u"C:\\before"), 1U);
  EXPECT_EQ(table.Get(u"C:\\A=B\\ä.TXT"), 6U);
  EXPECT_EQ(table.Get(u"D:\\last"), 32U);
  for (const TextView path :
       {u"C:\\zero", u"C:\\text", u"C:\\negative", u"C:\\none", u"C:\\comment", u"relative"}) {
    EXPECT_EQ(table.Get(path), 0U);
  }
  EXPECT_FALSE(table.Changed());
}

TEST(AttributeTable, SavesWhatDiffersFromZero) {
  MemoryStore store;
  {
    AttributeTable table(&store);
    EXPECT_TRUE(table.Save());
    EXPECT_FALSE(store.Root()->Find(kFile));
    table.Set(u"C:\\b=c", 2);
    table.Set(u"C:\\a", 7);
    table.Set(u"C:\\gone", 1);
    table.Set(u"C:\\GONE", 0);
    EXPECT_TRUE(table.Changed());
    EXPECT_TRUE(table.Save());
    EXPECT_FALSE(table.Changed());
  }
  EXPECT_EQ(store.Root()->ReadFile(kFile), "[Attributes]\nC:\\a=7\nC:\\b=c=2\n");
  const AttributeTable again(&store);
  EXPECT_EQ(again.Get(u"C:\\B=C"), 2U);
}

TEST(AttributeTable, LeavesAFileThatItCannotReadAsItIs) {
  const std::string noText = "C:\\a=7\n\xFF\xFE\n";
  MemoryStore store;
  store.Root()->WriteFile(kFile, noText);
  AttributeTable table(&store);
  EXPECT_FALSE(table.Readable());
  table.Set(u"C:\\b", 1);
  EXPECT_FALSE(table.Save());
  EXPECT_EQ(store.Root()->ReadFile(kFile), noText);
  EXPECT_TRUE(AttributeTable().Readable());
}

TEST(AttributeTable, KeepsItsChangesWhenSavingFails) {
  MemoryStore store;
  AttributeTable table(&store);
  table.Set(u"C:\\a", 1);
  store.faults.Fail(u"WriteFile");
  EXPECT_FALSE(table.Save());
  EXPECT_TRUE(table.Changed());
  store.faults.Clear();
  EXPECT_TRUE(table.Save());
}

class AttributeTree : public testing::Test {
 protected:
  AttributeTree() {
    for (const TextView path :
         {u"C:\\a", u"C:\\a\\x", u"C:\\A\\y\\z", u"C:\\a b", u"C:\\a!\\x", u"C:\\ab", u"D:\\a"}) {
      table.Set(path, 1);
    }
  }
  AttributeTable table;
};

TEST_F(AttributeTree, ErasesAPathAndWhatLiesBelow) {
  table.Erase(u"c:\\A");
  for (const TextView path : {u"C:\\a", u"C:\\a\\x", u"C:\\a\\y\\z"}) EXPECT_EQ(table.Get(path), 0U);
  for (const TextView path : {u"C:\\a b", u"C:\\a!\\x", u"C:\\ab", u"D:\\a"}) EXPECT_EQ(table.Get(path), 1U);
}

TEST_F(AttributeTree, MovesAPathAndWhatLiesBelow) {
  table.Set(u"E:\\new\\old", 4);
  table.Move(u"c:\\A", u"E:\\new");
  for (const TextView path : {u"E:\\new", u"E:\\new\\x", u"E:\\new\\y\\z"}) EXPECT_EQ(table.Get(path), 1U);
  for (const TextView path : {u"C:\\a", u"C:\\a\\x", u"E:\\new\\old"}) EXPECT_EQ(table.Get(path), 0U);
  EXPECT_EQ(table.Get(u"C:\\a b"), 1U);
}

TEST_F(AttributeTree, VisitsWhatLiesOnADrive) {
  int count = 0;
  EXPECT_TRUE(table.VisitTree(u"C:\\", [&count](TextView, uint32_t) { return ++count > 0; }));
  EXPECT_EQ(count, 6);
  EXPECT_FALSE(table.VisitTree(u"C:\\", [](TextView, uint32_t) { return false; }));
}

TEST_F(AttributeTree, AnswersForTheEntriesOfAFolderInTheirOrder) {
  table.Set(u"C:\\a\\Y", 2);
  table.Set(u"C:\\a\\y y", 4);
  const auto answers = [this](TextView folder, const std::vector<TextView>& names) {
    AttributeTable::InFolder in(table, folder);
    std::vector<uint32_t> found;
    for (const TextView name : names) found.push_back(in.Get(name));
    return found;
  };
  const std::vector<TextView> names = {u"", u"B", u"X", u"x", u"x y", u"y", u"Y Y", u"y\\z", u"z"};
  EXPECT_EQ(answers(u"c:\\A", names), (std::vector<uint32_t>{0, 0, 1, 1, 0, 2, 4, 1, 0}));
  EXPECT_EQ(answers(u"C:\\a", {u"Y"}), (std::vector<uint32_t>{2})) << "not the first of the folder";
  EXPECT_EQ(answers(u"C:\\", {u"a", u"a b", u"A!", u"AB", u"b"}), (std::vector<uint32_t>{1, 1, 0, 1, 0}));
  EXPECT_EQ(answers(u"C:\\a b", {u"x"}), (std::vector<uint32_t>{0}));
  EXPECT_EQ(answers(u"E:\\", {u"a"}), (std::vector<uint32_t>{0}));
  for (const TextView name : names) {
    EXPECT_EQ(answers(u"C:\\a", {name})[0], table.Get(Concat(u"C:\\a\\", name)));
  }
}

}  // namespace
}  // namespace tavix::machine
