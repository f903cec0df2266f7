#include <gtest/gtest.h>

#include <filesystem>

#include "platform/machine/formats/registry_text.h"
#include "platform/machine/host/host_files.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/registry_data.h"
#include "support/source_folder.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

using platform::Hive;
namespace fs = std::filesystem;

const fs::path kExports = fs::path(SourceFolder()) / ".." / "shared" / "data" / "reg";

class RealExports : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(kExports)) GTEST_SKIP() << "no exports of real machines here";
  }
  void Read(const char* name) {
    std::string reason;
    const auto bytes = ReadHostFile(kExports / name, UINT32_MAX, reason);
    ASSERT_TRUE(bytes.has_value()) << name << ": " << reason;
    const auto error = ReadRegistryText(*bytes, registry.Store());
    ASSERT_FALSE(error) << name << ":" << error->Line << ": " << error->Reason;
  }
  static size_t CountKeys(const RegistryKey& key) {
    size_t count = 1;
    for (const auto& [name, subKey] : key.Keys()) count += CountKeys(*subKey);
    return count;
  }

  MachineRegistry registry;
};

TEST_F(RealExports, LoadAndWriteAndLoadAgainEqual) {
  struct Case {
    const char* name;
    Hive hive;
    size_t keys;
  };
  // Numbers of keys, counted in the files. Those under HKEY_LOCAL_MACHINE exclude the root itself.
  const Case kCases[] = {{"windows-7-user.reg", Hive::CurrentUser, 4841},
                         {"windows-8.1-user.reg", Hive::CurrentUser, 6896},
                         {"windows-nt4-machine.reg", Hive::LocalMachine, 2222},
                         {"windows-me-machine.reg", Hive::LocalMachine, 2969},
                         {"wine-8-machine.reg", Hive::LocalMachine, 10319}};
  for (const Case& c : kCases) {
    registry.Store() = {};
    Read(c.name);
    EXPECT_EQ(CountKeys(*registry.Store().Root(c.hive)), c.keys) << c.name;
    const std::string written = WriteRegistryText(registry.Store(), c.hive);
    RegistryStore again;
    EXPECT_FALSE(ReadRegistryText(written, again)) << c.name;
    EXPECT_TRUE(again == registry.Store()) << c.name;
    EXPECT_EQ(WriteRegistryText(again, c.hive), written) << c.name;
  }
}

TEST_F(RealExports, HaveTheirValues) {
  Read("windows-8.1-user.reg");
  size_t urls = 0;
  registry.VisitValues(Hive::CurrentUser, u"Software\\Microsoft\\Internet Explorer\\TypedURLs",
                       [&urls](TextView name, TextView data) {
                         EXPECT_TRUE(name.starts_with(u"url"));
                         EXPECT_TRUE(data.starts_with(u"http")) << ToUtf8(data);
                         ++urls;
                       });
  EXPECT_EQ(urls, 18U);
}

TEST_F(RealExports, LoadFormsOfEachType) {
  // Each file has a single key, several levels deep.
  const auto lowest = [this] {
    Text key = u"Software";
    for (Text name;; key = Concat(key, u"\\", name)) {
      name.clear();
      registry.VisitSubKeys(Hive::CurrentUser, key, [&name](TextView subKey) { name = subKey; });
      if (name.empty()) return key;
    }
  };
  Read("forms/complex-regedit5.reg");
  const std::pair<TextView, TextView> kValues[] = {
      {u"binary-a", u"61"},
      {u"binary-a-b", u"61 62"},
      {u"dword-0", u"0"},
      {u"dword-255", u"255"},
      {u"expand-sz", u""},
      {u"expand-sz-a", u"a"},
      {u"multi-sz", u""},
      {u"multi-sz-a", u"a"},
      {u"multi-sz-a-b", u"a b"},
      {u"qword-0", u"0"},
      {u"qword-255", u"255"},
      {u"sz-a", u"a"},
      {u"sz-sp\\ec\"ial", u"sp\\ec\"ial"},
  };
  size_t count = 0;
  registry.VisitValues(Hive::CurrentUser, lowest(), [&](TextView name, TextView data) {
    ASSERT_LT(count, std::size(kValues));
    EXPECT_EQ(name, kValues[count].first);
    EXPECT_EQ(data, kValues[count].second) << ToUtf8(name);
    ++count;
  });
  EXPECT_EQ(count, std::size(kValues));
  registry.Store() = {};
  Read("forms/japanese-regedit5.reg");
  EXPECT_TRUE(lowest().ends_with(u"\\日本語"));
  EXPECT_EQ(registry.ReadValue(Hive::CurrentUser, lowest(), u"multi-sz-2"), u"あ い");
}

// Reads each statement of the irregular file alone: valid ones load, the others are refused with a reason.
TEST_F(RealExports, TakeIrregularFormsOneByOne) {
  std::string reason;
  const auto bytes = ReadHostFile(kExports / "forms/irregular-regedit5.reg", UINT32_MAX, reason);
  ASSERT_TRUE(bytes.has_value()) << reason;
  const std::string header = bytes->substr(0, bytes->find('\n') + 1);
  const auto error = ReadRegistryText(*bytes, registry.Store());
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Line, 3U);
  EXPECT_EQ(error->Reason, "text behind the key");

  const auto readFrom = [&](const std::string& start, const std::string& end) -> std::string {
    const size_t from = bytes->find(start);
    EXPECT_NE(from, std::string::npos) << start;
    const size_t to = end.empty() ? bytes->size() : bytes->find(end, from);
    const auto wrong = ReadRegistryText(header + "[HKEY_CURRENT_USER\\k]\n" + bytes->substr(from, to - from),
                                        registry.Store());
    return wrong ? wrong->Reason : "";
  };
  EXPECT_EQ(readFrom("@=", "\"semi"), "");
  EXPECT_EQ(readFrom("\"semi", "\"invalid"), "");
  EXPECT_EQ(readFrom("\"invalid", "\"hex-continuations-with"), "text behind the value");
  EXPECT_EQ(readFrom("\"hex-continuations-with", ""), "");
  const auto value = [this](TextView name) { return registry.ReadValue(Hive::CurrentUser, u"k", name); };
  EXPECT_EQ(value(u""), u"");
  EXPECT_EQ(value(u"dword"), u"00");
  EXPECT_EQ(value(u"sz-line-break"), u"a\nb");
  EXPECT_EQ(value(u"hex-continuations"), u"00 01 02");
  EXPECT_EQ(value(u"semi;colons"), u"and\"quotes;");
  EXPECT_EQ(value(u"invalid-backslash"), std::nullopt);
  ASSERT_TRUE(value(u"hex-continuations-with-long-name ............................................ end"));
  EXPECT_EQ(
      value(u"hex-continuations-with-long-name ............................................ end")->size(),
      32U * 3 - 1);
}

}  // namespace
}  // namespace tavix::machine
