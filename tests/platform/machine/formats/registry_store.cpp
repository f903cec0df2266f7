#include "platform/machine/formats/registry_store.h"
#include "support/case.h"

#include <gtest/gtest.h>

namespace tavix::machine {
namespace {

using platform::Hive;

Text Deep(size_t levels) {
  Text path = u"k";
  for (size_t i = 1; i < levels; ++i) path += u"\\k";
  return path;
}

TEST(RegistryStore, FindsWhatItMadeLetterCaseAside) {
  RegistryStore store;
  bool made = false;
  RegistryKey* key = store.Make(Hive::CurrentUser, u"Software\\Über", made);
  ASSERT_NE(key, nullptr);
  EXPECT_TRUE(made);
  EXPECT_EQ(store.Find(Hive::CurrentUser, u"SOFTWARE\\ÜBER"), key);
  made = false;
  EXPECT_EQ(store.Make(Hive::CurrentUser, u"software\\über", made), key);
  EXPECT_FALSE(made);
  EXPECT_EQ(store.Find(Hive::LocalMachine, u"Software"), nullptr);
  EXPECT_EQ(store.Find(Hive::CurrentUser, u""), store.Root(Hive::CurrentUser));
}

TEST(RegistryStore, HasNoHiveButThePlainOnes) {
  RegistryStore store;
  bool made = false;
  for (const Hive hive : {Hive::ClassesRoot, Hive{1}}) {
    EXPECT_EQ(store.Root(hive), nullptr);
    EXPECT_EQ(store.Find(hive, u""), nullptr);
    EXPECT_EQ(store.Make(hive, u"k", made), nullptr);
  }
  for (const Hive hive : RegistryStore::kHives) EXPECT_NE(store.Root(hive), nullptr);
}

TEST(RegistryStore, MakesNothingOfAPathThatIsNone) {
  const Text kWrong[] = {u"\\", u"\\k", u"k\\", u"a\\\\b", u"a\nb", u"a\rb", Text(256, u'k'), Deep(513)};
  for (const Text& path : kWrong) {
    SCOPED_TRACE(Case(path));
    RegistryStore store;
    bool made = false;
    EXPECT_EQ(store.Make(Hive::Users, path, made), nullptr);
    EXPECT_FALSE(RegistryStore::WhyNoPath(path).empty());
    EXPECT_EQ(store.Find(Hive::Users, path), nullptr);
    EXPECT_FALSE(made);
    EXPECT_TRUE(store == RegistryStore());
  }
}

TEST(RegistryStore, TakesThe512thLevelAnd255Characters) {
  RegistryStore store;
  bool made = false;
  EXPECT_NE(store.Make(Hive::Users, Deep(512), made), nullptr);
  EXPECT_NE(store.Make(Hive::Users, Text(255, u'k'), made), nullptr);
}

}  // namespace
}  // namespace tavix::machine
