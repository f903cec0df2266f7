#include "controls/text_store.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(TextStore, GivesBackTextsOfEveryLength) {
  TextStore store;
  for (int round = 0; round < 2; ++round) {
    std::vector<std::pair<StoredText, Text>> stored;
    for (const size_t length :
         {0, 1, 2, 1000, 65531, 65532, 65533, 65534, 65535, 65536, 65537, 200'000, 3, 0}) {
      Text text(length, u'x');
      for (size_t i = 0; i < length; ++i) text[i] = static_cast<char16_t>(i * 7 + length);
      stored.emplace_back(store.Put(text), text);
    }
    for (int i = 0; i < 50'000; ++i) {
      Text text = Concat(u"text ", ToText(i));
      stored.emplace_back(store.Put(text), text);
    }
    for (const auto& [at, text] : stored) {
      ASSERT_TRUE(store.Get(at) == text) << text.size();
      ASSERT_EQ(at == StoredText(), text.empty());
    }
    store.Clear();
  }
}

}  // namespace
}  // namespace tavix
