#include "clean/action_string.h"

#include <gtest/gtest.h>

namespace tavix::mdlPubSelf {
namespace {

using platform::Hive;

TEST(ActionString, IsCutAtEveryColonAndBlank) {
  const struct {
    TextView tag, kind;
    std::optional<TextView> payload;
  } table[] = {
      {u"F", u"F", std::nullopt},
      {u"RE", u"RE", std::nullopt},
      {u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8", u"Cmd",
       u"RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8"},
      {u"FT: C:\\WINDOWS\\MEMORY.DMP", u"FT", u"C:\\WINDOWS\\MEMORY.DMP"},
      {u"WSL:   Security  ", u"WSL", u"Security"},
      {u"RK: HKEY_CURRENT_USER, a: b", u"RK", u"HKEY_CURRENT_USER, a"},
      {u"X: y: z", u"X", u"y"},
      {u"FT: ", u"FT", u""},
      {u"FT:", u"FT:", std::nullopt},
      {u"", u"", std::nullopt},
      {u": x", u"", u"x"},
  };
  for (const auto& row : table) {
    const Action action = ReadAction(row.tag);
    EXPECT_EQ(action.kind, row.kind);
    EXPECT_EQ(action.payload, row.payload);
  }
}

TEST(RegistryTarget, IsCutAtEveryCommaAndBlank) {
  const RegistryTarget value = ReadRegistryTarget(u"HKEY_LOCAL_MACHINE, Software\\x, name");
  EXPECT_EQ(value.hive, Hive::LocalMachine);
  EXPECT_EQ(value.key, u"Software\\x");
  EXPECT_EQ(value.value, u"name");
  EXPECT_EQ(ReadRegistryTarget(u"HKEY_CURRENT_USER, k, a, b").value, u"a");
  EXPECT_EQ(ReadRegistryTarget(u"HKEY_CURRENT_USER, k").value, std::nullopt);
  EXPECT_EQ(ReadRegistryTarget(u"HKEY_CURRENT_USER").key, std::nullopt);
  EXPECT_EQ(ReadRegistryTarget(u"").hive, Hive::Users);
}

TEST(HiveByName, IsExactAndTakesEveryOtherTextForUsers) {
  EXPECT_EQ(HiveByName(u"HKEY_LOCAL_MACHINE"), Hive::LocalMachine);
  EXPECT_EQ(HiveByName(u"HKEY_CURRENT_USER"), Hive::CurrentUser);
  EXPECT_EQ(HiveByName(u"HKEY_CURRENT_CONFIG"), Hive::CurrentConfig);
  EXPECT_EQ(HiveByName(u"HKEY_CLASSES_ROOT"), Hive::ClassesRoot);
  for (const TextView name : {u"", u"HKEY_USERS", u" HKEY_CURRENT_USER", u"hkey_current_user", u"HKCU"}) {
    EXPECT_EQ(HiveByName(name), Hive::Users);
  }
}

TEST(RegistryTargets, KeepTheBlanksAroundTheSeparator) {
  const auto pieces = SplitRegistryTargets(
      u"HKEY_CURRENT_USER, k, IconStreams MORVTVXRISSEP HKEY_CURRENT_USER, k, PastIconsStream");
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(ReadRegistryTarget(pieces[0]).value, u"IconStreams ");
  EXPECT_EQ(ReadRegistryTarget(pieces[0]).hive, Hive::CurrentUser);
  EXPECT_EQ(ReadRegistryTarget(pieces[1]).hive, Hive::Users);
  EXPECT_EQ(ReadRegistryTarget(pieces[1]).value, u"PastIconsStream");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
