#include "controls/text_store.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(TextStore, GivesBackTextsOfEveryLength) {
  TextStore store;
  TextStore::Kind kind;
  for (int round = 0; round < 2; ++round) {
    std::vector<std::pair<StoredText, Text>> stored;
    for (const size_t length :
         {0, 1, 2, 1000, 65531, 65532, 65533, 65534, 65535, 65536, 65537, 200'000, 3, 0}) {
      Text text(length, u'x');
      for (size_t i = 0; i < length; ++i) text[i] = static_cast<char16_t>(i * 7 + length);
      stored.emplace_back(store.Put(text, kind), text);
    }
    for (int i = 0; i < 50'000; ++i) {
      Text text = Concat(u"text ", ToText(i));
      stored.emplace_back(store.Put(text, kind), text);
    }
    for (const auto& [at, text] : stored) {
      ASSERT_TRUE(store.Get(at) == text) << text.size();
      ASSERT_EQ(at == StoredText(), text.empty());
    }
    store.Clear();
  }
}

TEST(TextStore, StoresATextOnceThatAThousandComeBetween) {
  constexpr int kSizes = 1000, kRounds = 60;
  TextStore store;
  TextStore::Kind names, sizes, keys;
  int again = 0;
  std::vector<StoredText> before(2 * kSizes);
  for (int i = 0; i < kSizes * kRounds; ++i) {
    const Text size = ToText(i % kSizes);
    store.Put(Concat(u"name ", ToText(i)), names);
    const StoredText found[] = {store.Put(size, sizes), store.Put(Concat(u"000", size), keys)};
    for (const int each : {0, 1}) {
      StoredText& last = before[static_cast<size_t>(2 * (i % kSizes) + each)];
      again += last == found[each] ? 1 : 0;
      last = found[each];
    }
  }
  EXPECT_GT(again, kSizes * kRounds * 2 * 52 / 100);
}

TEST(TextStore, FindsATextThatRepeatsAfterManyThatDoNot) {
  TextStore store;
  TextStore::Kind kind;
  for (int i = 0; i < 10'000; ++i) store.Put(ToText(i), kind);
  const StoredText first = store.Put(u"repeats", kind);
  EXPECT_TRUE(store.Put(u"repeats", kind) == first);
}

}  // namespace
}  // namespace tavix
