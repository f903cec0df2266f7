#include "platform/machine/services/journal.h"

#include <gtest/gtest.h>

#include "doubles/memory_store.h"

namespace tavix::machine {
namespace {

TEST(Journal, WritesEachCallAsALineAtOnce) {
  MemoryStore store;
  Journal journal(&store);
  EXPECT_FALSE(store.Root()->Find(u"journal.jsonl"));
  journal.Note(u"RunTarget", {{u"target", Text(u"a \"b\" \\ ä")}, {u"style", 3}});
  const std::string first = "{\"op\":\"RunTarget\",\"target\":\"a \\\"b\\\" \\\\ ä\",\"style\":3}\n";
  EXPECT_EQ(store.Root()->ReadFile(u"journal.jsonl"), first);
  journal.Note(u"EmptyRecycleBin");
  EXPECT_EQ(store.Root()->ReadFile(u"journal.jsonl"), first + "{\"op\":\"EmptyRecycleBin\"}\n");
}

TEST(Journal, KeepsItsEntriesInOrder) {
  Journal journal;
  journal.Note(u"MsgBox", {{u"text", Text(u"Sure?")}, {u"style", 36}});
  journal.Note(u"Fetch", {{u"url", Text(u"http://a")}});
  ASSERT_EQ(journal.Entries().size(), 2U);
  EXPECT_EQ(journal.Entries()[0].op, u"MsgBox");
  EXPECT_EQ(journal.Entries()[0].Get(u"text"), u"Sure?");
  EXPECT_EQ(journal.Entries()[0].Get(u"style"), u"36");
  EXPECT_EQ(journal.Entries()[1].Get(u"none"), u"");
  journal.Clear();
  EXPECT_TRUE(journal.Entries().empty());
}

}  // namespace
}  // namespace tavix::machine
