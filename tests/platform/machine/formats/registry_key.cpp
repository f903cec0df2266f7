#include "platform/machine/formats/registry_key.h"
#include "support/case.h"
#include "support/processor_time.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace tavix::machine {
namespace {

std::vector<Text> ValueNames(const RegistryKey& key) {
  std::vector<Text> names;
  for (const RegistryValue& value : key.AllValues()) names.push_back(value.Name);
  return names;
}

std::vector<Text> KeyNames(const RegistryKey& key) {
  std::vector<Text> names;
  for (const auto& [name, subKey] : key.Keys()) names.push_back(name);
  return names;
}

using Texts = std::vector<Text>;

TEST(RegistryKey, ListsSubKeysByCapitalsInTheSpellingTheyWereMadeWith) {
  RegistryKey key;
  bool made = false;
  for (const TextView name : {u"b", u"_", u"C", u"a", u"Ab", u"é"}) key.MakeKey(name, made);
  EXPECT_TRUE(made);
  made = false;
  EXPECT_EQ(&key.MakeKey(u"B", made), key.FindKey(u"b"));
  EXPECT_EQ(&key.MakeKey(u"É", made), key.FindKey(u"é"));
  EXPECT_FALSE(made);
  EXPECT_EQ(KeyNames(key), (Texts{u"a", u"Ab", u"b", u"C", u"_", u"é"}));
}

// Runs with few values, which are searched one by one, and with many, which have an index.
class ValuesTest : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(FewAndMany, ValuesTest, testing::Values(0, 40));

TEST_P(ValuesTest, KeepTheirPlaceWhenReplacedAndLoseItWhenDeleted) {
  RegistryKey key;
  for (const TextView name : {u"b", u"", u"A"}) EXPECT_TRUE(key.SetValue(name, 1, "1")) << Case(name);
  for (int i = 0; i < GetParam(); ++i) key.SetValue(Concat(u"more", ToText(i)), 3, "");
  EXPECT_TRUE(key.SetValue(u"B", 4, "2"));
  EXPECT_TRUE(key.DeleteValue(u""));
  EXPECT_FALSE(key.DeleteValue(u""));
  for (int i = 0; i < GetParam(); ++i) EXPECT_TRUE(key.DeleteValue(Concat(u"MORE", ToText(i)))) << Case(i);
  EXPECT_TRUE(key.SetValue(u"", 1, "3"));
  EXPECT_EQ(ValueNames(key), (Texts{u"b", u"A", u""}));
  ASSERT_NE(key.FindValue(u"b"), nullptr);
  EXPECT_EQ(*key.FindValue(u"b"), (RegistryValue{u"b", 4, "2"}));
}

TEST_P(ValuesTest, ThatStandThereAlreadyAreNoChange) {
  RegistryKey key;
  for (int i = 0; i < GetParam(); ++i) key.SetValue(ToText(i), 3, "");
  EXPECT_TRUE(key.SetValue(u"a", 1, "1"));
  EXPECT_FALSE(key.SetValue(u"A", 1, "1"));
  EXPECT_TRUE(key.SetValue(u"a", 2, "1"));
  EXPECT_TRUE(key.SetValue(u"a", 2, "2"));
}

TEST(RegistryKey, IsEqualInSpellingOrderAndData) {
  const auto make = [](TextView subKey, std::vector<RegistryValue> values) {
    RegistryKey key;
    bool made = false;
    RegistryKey& below = key.MakeKey(subKey, made);
    for (RegistryValue& value : values) below.SetValue(value.Name, value.Type, value.Data);
    return key;
  };
  const RegistryKey key = make(u"k", {{u"a", 1, "x"}, {u"b", 1, "x"}});
  EXPECT_TRUE(key == make(u"k", {{u"a", 1, "x"}, {u"b", 1, "x"}}));
  EXPECT_FALSE(key == make(u"K", {{u"a", 1, "x"}, {u"b", 1, "x"}}));
  EXPECT_FALSE(key == make(u"k", {{u"b", 1, "x"}, {u"a", 1, "x"}}));
  EXPECT_FALSE(key == make(u"k", {{u"a", 1, "x"}, {u"b", 2, "x"}}));
  EXPECT_FALSE(key == make(u"k", {{u"a", 1, "x"}, {u"b", 1, "y"}}));
  EXPECT_FALSE(key == make(u"k", {{u"a", 1, "x"}}));
}

// A quadratic cost would take minutes.
TEST(RegistryKey, HoldsAHundredThousandOfEachInAnyOrder) {
  std::vector<Text> names;
  for (int i = 0; i < 100'000; ++i) names.push_back(ToText(i));
  std::shuffle(names.begin(), names.end(), std::mt19937(1));
  const auto start = ProcessorTime();
  RegistryKey key;
  bool made = false;
  for (const Text& name : names) {
    key.MakeKey(name, made);
    key.SetValue(name, 1, "");
  }
  EXPECT_EQ(ValueNames(key), names);
  for (const Text& name : names) {
    ASSERT_NE(key.FindKey(name), nullptr) << Case(name);
    ASSERT_TRUE(key.DeleteValue(name)) << Case(name);
  }
  EXPECT_EQ(key.Keys().size(), names.size());
  EXPECT_TRUE(key.AllValues().empty());
  EXPECT_LT(ProcessorTime() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace tavix::machine
