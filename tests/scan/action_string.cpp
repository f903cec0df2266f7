#include "scan/action_string.h"

#include <gtest/gtest.h>

#include "platform/hive_name.h"
#include "support/program_test.h"

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

TEST(RegistryTarget, HasTheUsersHiveForEveryUnknownName) {
  EXPECT_EQ(ReadRegistryTarget(u"HKEY_CURRENT_CONFIG, k").hive, Hive::CurrentConfig);
  EXPECT_EQ(ReadRegistryTarget(u"HKEY_CLASSES_ROOT, k").hive, Hive::ClassesRoot);
  for (const TextView name : {u"", u"HKEY_USERS", u" HKEY_CURRENT_USER", u"hkey_current_user", u"HKCU"}) {
    EXPECT_EQ(ReadRegistryTarget(name).hive, Hive::Users) << Narrow(name);
  }
}

TEST(ActionString, OfAKeyIsReadAsItWasWritten) {
  for (const auto& [hive, name] : platform::kHiveNames) {
    const Text tag = RegistryKeyAction(hive, u"Software\\a,b:c");
    EXPECT_EQ(tag, Concat(u"RK: ", name, u", Software\\a,b:c"));
    const Action read = ReadAction(tag);
    EXPECT_EQ(read.kind, action::kRegistryKey);
    const RegistryTarget target = ReadRegistryTarget(*read.payload);
    EXPECT_EQ(target.hive, hive);
    EXPECT_EQ(target.key, u"Software\\a,b:c");
    EXPECT_EQ(target.value, std::nullopt);
  }
}

TEST(ActionString, OfAValueIsReadAsItWasWrittenUpToACut) {
  const Text tag = RegistryValueAction(Hive::CurrentUser, u"k", u"a, b");
  EXPECT_EQ(tag, u"RI: HKEY_CURRENT_USER, k, a, b");
  const RegistryTarget cut = ReadRegistryTarget(*ReadAction(tag).payload);
  EXPECT_EQ(cut.key, u"k");
  EXPECT_EQ(cut.value, u"a");
  const Text plain = RegistryValueAction(Hive::LocalMachine, u"k", u"C:\\x.dll");
  const Action whole = ReadAction(plain);
  EXPECT_EQ(whole.kind, action::kRegistryValue);
  EXPECT_EQ(ReadRegistryTarget(*whole.payload).hive, Hive::LocalMachine);
  EXPECT_EQ(ReadRegistryTarget(*whole.payload).value, u"C:\\x.dll");
}

TEST(ActionString, WithATextAsPayloadIsReadAsItWasWritten) {
  const struct {
    Text tag;
    TextView kind, payload;
  } table[] = {
      {CommandAction(u"program.exe 1"), action::kCommand, u"program.exe 1"},
      {ClearTracksAction(8), action::kCommand, u"RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 8"},
      {NamedFileAction(u"C:\\WINDOWS\\memory.dmp"), action::kNamedFile, u"C:\\WINDOWS\\memory.dmp"},
      {EventLogAction(u"Security"), action::kEventLog, u"Security"},
  };
  for (const auto& row : table) {
    const Action read = ReadAction(row.tag);
    EXPECT_EQ(read.kind, row.kind) << Narrow(row.tag);
    EXPECT_EQ(read.payload, row.payload) << Narrow(row.tag);
  }
}

TEST(ActionString, WithoutAPayloadIsItsKind) {
  for (const TextView kind : {action::kFile, action::kFolder, action::kFileAtRestart, action::kRecycleBins}) {
    EXPECT_EQ(ReadAction(kind).kind, kind);
    EXPECT_EQ(ReadAction(kind).payload, std::nullopt);
  }
}

TEST(RegistryTargets, KeepTheBlanksAroundTheSeparator) {
  const Text tag = RegistryValuesAction(Hive::CurrentUser, u"k", u"IconStreams", u"PastIconsStream");
  EXPECT_EQ(tag,
            u"RIs: HKEY_CURRENT_USER, k, IconStreams MORVTVXRISSEP HKEY_CURRENT_USER, k, PastIconsStream");
  const auto pieces = SplitRegistryTargets(*ReadAction(tag).payload);
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(ReadRegistryTarget(pieces[0]).value, u"IconStreams ");
  EXPECT_EQ(ReadRegistryTarget(pieces[0]).hive, Hive::CurrentUser);
  EXPECT_EQ(ReadRegistryTarget(pieces[1]).hive, Hive::Users);
  EXPECT_EQ(ReadRegistryTarget(pieces[1]).value, u"PastIconsStream");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
