#include "platform/machine/services/machine_registry.h"
#include "support/case.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavix::machine {
namespace {

using platform::Hive;
using Texts = std::vector<Text>;
using namespace std::string_literals;

Texts Keys(platform::Registry& registry, TextView key) {
  Texts names;
  registry.VisitSubKeys(Hive::CurrentUser, key, [&](TextView name) { names.emplace_back(name); });
  return names;
}

Texts Values(platform::Registry& registry, TextView key) {
  Texts values;
  registry.VisitValues(Hive::CurrentUser, key,
                       [&](TextView name, TextView data) { values.push_back(Concat(name, u"=", data)); });
  return values;
}

TEST(MachineRegistry, ListsKeysByCapitalsAndValuesAsMade) {
  MachineRegistry registry;
  for (const TextView key : {u"k\\b", u"k\\A", u"k\\C"})
    EXPECT_TRUE(registry.MakeKey(Hive::CurrentUser, key)) << Case(key);
  EXPECT_TRUE(registry.WriteString(Hive::CurrentUser, u"k", u"z", u"text"));
  EXPECT_TRUE(registry.SetValue(Hive::CurrentUser, u"k", u"n", 4, "\1\0\0\0"s));
  EXPECT_TRUE(registry.WriteString(Hive::CurrentUser, u"k", u"", u""));
  EXPECT_EQ(Keys(registry, u"K"), (Texts{u"A", u"b", u"C"}));
  EXPECT_EQ(Values(registry, u"K"), (Texts{u"z=text", u"n=1", u"="}));
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"k", u"Z"), u"text");
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"k", u""), u"");
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"k", u"missing"), std::nullopt);
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"missing", u""), std::nullopt);
}

TEST(MachineRegistry, DeletesAKeyWithAllBelow) {
  MachineRegistry registry;
  registry.WriteString(Hive::CurrentUser, u"a\\b\\c", u"v", u"");
  registry.MakeKey(Hive::CurrentUser, u"a\\d");
  EXPECT_TRUE(registry.DeleteKey(Hive::CurrentUser, u"A\\B"));
  EXPECT_EQ(registry.KeyExists(Hive::CurrentUser, u"a\\b"), false);
  EXPECT_EQ(Keys(registry, u"a"), Texts{u"d"});
  for (const TextView wrong : {u"a\\b", u"", u"\\a", u"a\\", u"\\"}) {
    SCOPED_TRACE(Case(wrong));
    EXPECT_FALSE(registry.DeleteKey(Hive::CurrentUser, wrong));
  }
  EXPECT_EQ(registry.KeyExists(Hive::CurrentUser, u"a"), true);
}

TEST(MachineRegistry, DeletesOneValue) {
  MachineRegistry registry;
  registry.WriteString(Hive::CurrentUser, u"k", u"v", u"");
  EXPECT_TRUE(registry.DeleteValue(Hive::CurrentUser, u"K", u"V"));
  EXPECT_FALSE(registry.DeleteValue(Hive::CurrentUser, u"k", u"v"));
  EXPECT_EQ(registry.KeyExists(Hive::CurrentUser, u"k"), true);
}

TEST(MachineRegistry, RefusesNamesThatWindowsRefuses) {
  MachineRegistry registry;
  EXPECT_FALSE(registry.WriteString(Hive::CurrentUser, Text(256, u'k'), u"v", u""));
  EXPECT_FALSE(registry.WriteString(Hive::CurrentUser, u"k", Text(16384, u'v'), u""));
  EXPECT_FALSE(registry.WriteString(Hive::ClassesRoot, u"k", u"v", u""));
  EXPECT_FALSE(registry.Changed());
  EXPECT_TRUE(registry.Store() == RegistryStore());
  EXPECT_TRUE(registry.WriteString(Hive::CurrentUser, u"k", Text(16383, u'v'), u""));
}

TEST(MachineRegistry, KnowsWhetherItChanged) {
  MachineRegistry registry;
  const auto changed = [&registry] {
    const bool was = registry.Changed();
    registry.MarkUnchanged();
    return was;
  };
  EXPECT_FALSE(changed());
  registry.MakeKey(Hive::CurrentUser, u"k");
  EXPECT_TRUE(changed());
  registry.MakeKey(Hive::CurrentUser, u"K");
  EXPECT_FALSE(changed());
  registry.WriteString(Hive::CurrentUser, u"k", u"v", u"1");
  EXPECT_TRUE(changed());
  registry.WriteString(Hive::CurrentUser, u"k", u"v", u"1");
  registry.DeleteValue(Hive::CurrentUser, u"k", u"missing");
  registry.DeleteKey(Hive::CurrentUser, u"missing");
  EXPECT_FALSE(changed());
  registry.DeleteValue(Hive::CurrentUser, u"k", u"v");
  EXPECT_TRUE(changed());
  registry.DeleteKey(Hive::CurrentUser, u"k");
  EXPECT_TRUE(changed());
}

TEST(MachineRegistry, GivesNothingOfADeniedKeyAndLeavesIt) {
  MachineRegistry registry;
  registry.WriteString(Hive::CurrentUser, u"a\\k", u"v", u"1");
  registry.WriteString(Hive::CurrentUser, u"a\\k\\below", u"v", u"2");
  registry.MarkUnchanged();
  registry.Deny(Hive::CurrentUser, u"A\\K");
  EXPECT_EQ(Keys(registry, u"a"), Texts{u"k"});
  EXPECT_EQ(Keys(registry, u"a\\k"), Texts{});
  EXPECT_EQ(Values(registry, u"a\\k"), Texts{});
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"a\\k", u"v"), std::nullopt);
  EXPECT_EQ(registry.KeyExists(Hive::CurrentUser, u"a\\k"), true);
  EXPECT_FALSE(registry.WriteString(Hive::CurrentUser, u"a\\k", u"w", u""));
  EXPECT_FALSE(registry.WriteString(Hive::CurrentUser, u"a\\k\\new\\er", u"w", u""));
  EXPECT_FALSE(registry.DeleteValue(Hive::CurrentUser, u"a\\k", u"v"));
  EXPECT_FALSE(registry.DeleteKey(Hive::CurrentUser, u"a\\k"));
  EXPECT_FALSE(registry.Changed());
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, u"a\\k\\below", u"v"), u"2");
  registry.Allow(Hive::CurrentUser, u"a\\k");
  EXPECT_EQ(Values(registry, u"a\\k"), Texts{u"v=1"});
}

TEST(MachineRegistry, DeletesWhatMayBeDeletedAboveADeniedKey) {
  MachineRegistry registry;
  registry.WriteString(Hive::CurrentUser, u"a\\denied", u"v", u"1");
  registry.MakeKey(Hive::CurrentUser, u"a\\other\\one");
  registry.Deny(Hive::CurrentUser, u"a\\denied");
  EXPECT_FALSE(registry.DeleteKey(Hive::CurrentUser, u"a"));
  EXPECT_EQ(Keys(registry, u"a"), Texts{u"denied"});
  registry.Allow(Hive::CurrentUser, u"a\\denied");
  EXPECT_EQ(Values(registry, u"a\\denied"), Texts{u"v=1"});
  EXPECT_TRUE(registry.DeleteKey(Hive::CurrentUser, u"a"));
}

}  // namespace
}  // namespace tavix::machine
