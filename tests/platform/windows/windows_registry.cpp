#include "platform/windows/windows_registry.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/merged_registry.h"
#include "platform/windows/native_registry.h"
#include "platform/windows/wide.h"

namespace tavix::windows {
namespace {

using platform::Hive;

constexpr TextView kPlace = u"Software\\Tavix Links";

class WindowsRegistryLinks : public testing::Test {
 protected:
  WindowsRegistryLinks() { registry.DeleteKey(Hive::LocalMachine, kPlace); }
  ~WindowsRegistryLinks() override {
    registry.DeleteKey(Hive::LocalMachine, kPlace);
    EXPECT_EQ(registry.KeyExists(Hive::LocalMachine, kPlace), false);
  }

  static Text In(TextView key) { return Concat(kPlace, u"\\", key); }
  bool Write(TextView key) { return registry.WriteString(Hive::LocalMachine, In(key), u"name", key); }
  bool Exists(TextView key) { return registry.KeyExists(Hive::LocalMachine, In(key)) == true; }
  bool Delete(TextView key) { return registry.DeleteKey(Hive::LocalMachine, In(key)); }
  std::optional<Text> Read(TextView key) { return registry.ReadValue(Hive::LocalMachine, In(key), u"name"); }
  std::vector<Text> SubKeys(TextView key) {
    std::vector<Text> names;
    registry.VisitSubKeys(Hive::LocalMachine, In(key), [&names](TextView name) { names.emplace_back(name); });
    return names;
  }
  // Whether the key exists, as a link or a plain key.
  static bool KeyOrLinkExists(TextView key) {
    const RegistryKeyHandle hive = native::OpenHive(Hive::LocalMachine);
    return static_cast<bool>(
        native::Open(hive.Get(), In(key), KEY_QUERY_VALUE, native::LastPart::kOpenLink).key);
  }
  // Makes a key that links to another key below the tests' key. The target need not exist.
  static void Link(TextView from, TextView to) {
    RegistryKeyHandle link;
    const Text path = In(from);
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, Wide(path), 0, nullptr, REG_OPTION_CREATE_LINK,
                              KEY_ALL_ACCESS, nullptr, link.Receive(), nullptr),
              ERROR_SUCCESS);
    const Text target = Concat(u"\\Registry\\Machine\\", In(to));
    ASSERT_EQ(RegSetValueExW(link.Get(), L"SymbolicLinkValue", 0, REG_LINK,
                             reinterpret_cast<const BYTE*>(target.data()),
                             static_cast<DWORD>(target.size() * sizeof(char16_t))),
              ERROR_SUCCESS);
  }

  WindowsRegistry registry;
};

TEST_F(WindowsRegistryLinks, ReadingFollowsALink) {
  ASSERT_TRUE(Write(u"Target\\Below"));
  Link(u"Link", u"Target");
  EXPECT_TRUE(Exists(u"Link"));
  EXPECT_EQ(SubKeys(u"Link"), std::vector<Text>{u"Below"});
  EXPECT_EQ(Read(u"Link\\Below"), u"Target\\Below");
}

TEST_F(WindowsRegistryLinks, DeletingALinkLeavesItsTarget) {
  ASSERT_TRUE(Write(u"Target"));
  ASSERT_TRUE(Write(u"Target\\Below"));
  Link(u"Link", u"Target");
  EXPECT_TRUE(Delete(u"Link"));
  EXPECT_FALSE(KeyOrLinkExists(u"Link"));
  EXPECT_EQ(Read(u"Target"), u"Target");
  EXPECT_EQ(Read(u"Target\\Below"), u"Target\\Below");
}

TEST_F(WindowsRegistryLinks, DeletingTheKeyAboveALinkLeavesItsTarget) {
  ASSERT_TRUE(Write(u"Target\\Below"));
  ASSERT_TRUE(Write(u"Tree\\A\\Plain"));
  Link(u"Tree\\A\\Link", u"Target");
  EXPECT_TRUE(Delete(u"Tree"));
  EXPECT_FALSE(KeyOrLinkExists(u"Tree"));
  EXPECT_EQ(Read(u"Target\\Below"), u"Target\\Below");
}

TEST_F(WindowsRegistryLinks, DeletesWhatALinkOnTheWayLeadsTo) {
  ASSERT_TRUE(Write(u"Target\\Below\\Deeper"));
  ASSERT_TRUE(Write(u"Target\\Other"));
  Link(u"Link", u"Target");
  EXPECT_TRUE(Delete(u"Link\\Below"));
  EXPECT_TRUE(KeyOrLinkExists(u"Link"));
  EXPECT_EQ(SubKeys(u"Target"), std::vector<Text>{u"Other"});
}

TEST_F(WindowsRegistryLinks, WritesBelowALinkIntoItsTarget) {
  ASSERT_TRUE(Write(u"Target"));
  Link(u"Link", u"Target");
  ASSERT_TRUE(Write(u"Link\\New\\Newer"));
  EXPECT_EQ(Read(u"Target\\New\\Newer"), u"Link\\New\\Newer");
}

TEST_F(WindowsRegistryLinks, DeletesALinkThatLeadsNowhere) {
  Link(u"Tree\\Link", u"Missing");
  EXPECT_FALSE(Exists(u"Tree\\Link"));
  EXPECT_TRUE(SubKeys(u"Tree\\Link").empty());
  EXPECT_TRUE(KeyOrLinkExists(u"Tree\\Link"));
  EXPECT_TRUE(Delete(u"Tree\\Link"));
  EXPECT_FALSE(KeyOrLinkExists(u"Tree\\Link"));
}

TEST_F(WindowsRegistryLinks, DeletesALinkToTheKeyAboveIt) {
  ASSERT_TRUE(Write(u"Tree\\A"));
  Link(u"Tree\\A\\Up", u"Tree");
  EXPECT_TRUE(Delete(u"Tree"));
  EXPECT_FALSE(KeyOrLinkExists(u"Tree"));
}

TEST(WindowsRegistry, LeavesHkeyClassesRootToTheMergedOne) {
  WindowsRegistry plain;
  EXPECT_EQ(plain.KeyExists(Hive::ClassesRoot, u"CLSID"), false);
  platform::MergedRegistry merged(plain);
  EXPECT_EQ(merged.KeyExists(Hive::ClassesRoot, u"CLSID"), true);
}

TEST(WindowsRegistry, ListsTheSameKeysAsTheSystem) {
  RegistryKeyHandle key;
  ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID", 0, KEY_READ, key.Receive()),
            ERROR_SUCCESS);
  DWORD count = 0;
  ASSERT_EQ(RegQueryInfoKeyW(key.Get(), nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr,
                             nullptr, nullptr, nullptr),
            ERROR_SUCCESS);
  ASSERT_GT(count, 0U);
  std::vector<Text> names;
  WindowsRegistry().VisitSubKeys(Hive::LocalMachine, u"Software\\Classes\\CLSID",
                                 [&names](TextView name) { names.emplace_back(name); });
  EXPECT_EQ(names.size(), count);
}

TEST(WindowsRegistry, WritesWhatTheSystemReads) {
  WindowsRegistry registry;
  ASSERT_TRUE(registry.WriteString(Hive::CurrentUser, u"Software\\Tavix Written", u"name", u"d\u00E4ta"));
  wchar_t data[16];
  DWORD size = sizeof(data), type = 0;
  EXPECT_EQ(
      RegGetValueW(HKEY_CURRENT_USER, L"Software\\Tavix Written", L"name", RRF_RT_ANY, &type, data, &size),
      ERROR_SUCCESS);
  EXPECT_EQ(type, DWORD{REG_SZ});
  EXPECT_EQ(size, 5 * sizeof(wchar_t));
  EXPECT_EQ(FromWide(data), u"d\u00E4ta");
  EXPECT_TRUE(registry.DeleteKey(Hive::CurrentUser, u"Software\\Tavix Written"));
}

}  // namespace
}  // namespace tavix::windows
