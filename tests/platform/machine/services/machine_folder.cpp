#include "platform/machine/services/machine_folder.h"

#include <sstream>

#include "platform/machine/formats/registry_text.h"
#include "platform/machine/scratch_folder.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

using platform::Hive;
namespace fs = std::filesystem;

const std::string kHeader = "Windows Registry Editor Version 5.00\n";

class MachineFolderTest : public testing::Test {
 protected:
  std::unique_ptr<MachineFolder> Open() {
    error.clear();
    return MachineFolder::Open(scratch.Root(), error);
  }
  // Opens the folder and fails the test if that fails.
  std::unique_ptr<MachineFolder> MustOpen() {
    auto machine = Open();
    EXPECT_NE(machine, nullptr) << error;
    if (machine == nullptr) throw std::runtime_error(error);
    return machine;
  }

  ScratchFolder scratch;
  std::string error;
};

TEST_F(MachineFolderTest, RefusesWhatIsNoMachineFolder) {
  EXPECT_EQ(Open(), nullptr);
  EXPECT_TRUE(error.ends_with(": no machine folder, it has none of machine.ini, drives and registry"))
      << error;
  EXPECT_EQ(MachineFolder::Open(scratch.Root() / "missing", error), nullptr);
  EXPECT_TRUE(error.ends_with("missing: no such folder")) << error;
  scratch.Write("file", "");
  EXPECT_EQ(MachineFolder::Open(scratch.Root() / "file", error), nullptr);
}

TEST_F(MachineFolderTest, OpensWithAnyOneOfItsParts) {
  for (const char* part : {"drives", "registry"}) {
    fs::create_directory(scratch.Root() / part);
    EXPECT_NE(Open(), nullptr) << part << error;
    fs::remove(scratch.Root() / part);
  }
  scratch.Write("machine.ini", "");
  EXPECT_NE(Open(), nullptr) << error;
}

TEST_F(MachineFolderTest, HasLocaleAndScreen) {
  scratch.Write("machine.ini", "[locale]\ndecimal=,\nGrouping=\xC2\xA0\n[Screen]\nWidth=1920\n");
  const auto machine = MustOpen();
  EXPECT_EQ(machine->Locale().Decimal, u",");
  EXPECT_EQ(machine->Locale().Grouping, u"\u00A0");
  EXPECT_EQ(machine->Screen().Width, 1920);
  EXPECT_EQ(machine->Screen().Height, 768);
}

TEST_F(MachineFolderTest, HasUsualLocaleAndScreenWhenNothingIsSaid) {
  scratch.Write("machine.ini", "");
  const auto machine = MustOpen();
  EXPECT_EQ(machine->Locale().Decimal, u".");
  EXPECT_EQ(machine->Locale().Grouping, u",");
  EXPECT_EQ(machine->Screen().Width, 1024);
  EXPECT_EQ(machine->Screen().Height, 768);
}

TEST_F(MachineFolderTest, RefusesAScreenOfNoSize) {
  for (const char* width : {"", "0", "-1", "wide", "100000", "1.5"}) {
    scratch.Write("machine.ini", std::string("[Screen]\nWidth=") + width);
    EXPECT_EQ(Open(), nullptr) << width;
    EXPECT_TRUE(error.starts_with("machine.ini: ")) << error;
  }
}

TEST_F(MachineFolderTest, TellsWhereItsFilesCannotBeRead) {
  scratch.Write("machine.ini", "[Locale]\n\xFF");
  EXPECT_EQ(Open(), nullptr);
  EXPECT_EQ(error, "machine.ini:2: bytes that are no UTF-8");
  scratch.Write("machine.ini", "");
  scratch.Write("registry/b.reg", kHeader + "\n[X]\n");
  EXPECT_EQ(Open(), nullptr);
  EXPECT_EQ(error, "registry/b.reg:3: unknown root 'X'");
  fs::create_directory(scratch.Root() / "registry" / "a.reg");
  EXPECT_EQ(Open(), nullptr);
  EXPECT_EQ(error, "registry/a.reg: can't be read");
}

TEST_F(MachineFolderTest, ReadsItsRegistryInTheOrderOfCapitals) {
  scratch.Write("registry/_.reg", kHeader + "[HKEY_USERS\\k]\n\"v\"=\"last\"\n");
  scratch.Write("registry/b.REG", kHeader + "[HKEY_USERS\\k]\n\"v\"=\"b\"\n\"b\"=\"\"\n");
  scratch.Write("registry/A.reg", kHeader + "[HKEY_USERS\\k]\n\"v\"=\"a\"\n\"a\"=\"\"\n");
  scratch.Write("registry/z.txt", "no registry");
  scratch.Write("registry/below/c.reg", "not read");
  const auto machine = MustOpen();
  std::vector<Text> values;
  machine->Registry().VisitValues(
      Hive::Users, u"k", [&](TextView name, TextView data) { values.push_back(Concat(name, u"=", data)); });
  EXPECT_EQ(values, (std::vector<Text>{u"v=last", u"a=", u"b="}));
  EXPECT_FALSE(machine->Registry().Changed());
}

TEST_F(MachineFolderTest, ReadsFilesOfAnyName) {
  fs::create_directory(scratch.Root() / "registry");
  scratch.Write(fs::path("registry") / fs::path(u"日本 é.reg"), kHeader + "[X]");
  EXPECT_EQ(Open(), nullptr);
  EXPECT_EQ(error, "registry/\xE6\x97\xA5\xE6\x9C\xAC \xC3\xA9.reg:2: unknown root 'X'");
}

TEST_F(MachineFolderTest, WritesNothingUnlessTheRegistryChanged) {
  scratch.Write("registry/a.reg", kHeader + "[HKEY_USERS\\k]\n");
  const auto before = scratch.Files();
  const auto machine = MustOpen();
  EXPECT_TRUE(machine->Save(error));
  EXPECT_EQ(scratch.Files(), before);
}

TEST_F(MachineFolderTest, SavesOneFileForEachHiveThatHoldsAnything) {
  scratch.Write("registry/a.reg", kHeader + "[HKEY_USERS\\k]\n[HKEY_CLASSES_ROOT\\c]\n");
  scratch.Write("registry/readme", "mine");
  auto machine = MustOpen();
  machine->Registry().WriteString(Hive::CurrentUser, u"k", u"v", u"1");
  machine->Registry().DeleteKey(Hive::Users, u"k");
  ASSERT_TRUE(machine->Save(error)) << error;
  EXPECT_FALSE(machine->Registry().Changed());
  auto files = scratch.Files();
  EXPECT_EQ(files.size(), 3U);
  EXPECT_TRUE(files.contains("registry/HKEY_LOCAL_MACHINE.reg"));
  EXPECT_EQ(files["registry/readme"], "mine");
  EXPECT_EQ(files["registry/HKEY_CURRENT_USER.reg"],
            WriteRegistryText(machine->Registry().Store(), Hive::CurrentUser));
  const auto again = MustOpen();
  EXPECT_TRUE(again->Registry().Store() == machine->Registry().Store());
}

TEST_F(MachineFolderTest, MakesTheFolderOfTheRegistryWhenItSaves) {
  scratch.Write("machine.ini", "");
  auto machine = MustOpen();
  machine->Registry().MakeKey(Hive::CurrentUser, u"k");
  ASSERT_TRUE(machine->Save(error)) << error;
  machine->Registry().DeleteKey(Hive::CurrentUser, u"k");
  ASSERT_TRUE(machine->Save(error)) << error;
  EXPECT_TRUE(fs::is_empty(scratch.Root() / "registry"));
}

TEST_F(MachineFolderTest, SavesEqualRegistriesAsEqualFiles) {
  scratch.Write("registry/a.reg", kHeader + "[HKEY_USERS\\b]\n@=\"1\"\n[HKEY_USERS\\a]\n");
  ScratchFolder other;
  other.Write("registry/x.reg", kHeader + "[HKEY_USERS\\a]\n[HKEY_USERS\\b]\n@=hex(1):31,00,00,00\n");
  auto left = MustOpen();
  auto right = MachineFolder::Open(other.Root(), error);
  ASSERT_NE(right, nullptr) << error;
  for (MachineFolder* machine : {left.get(), right.get()}) {
    machine->Registry().WriteString(Hive::Users, u"b", u"new", u"");
    ASSERT_TRUE(machine->Save(error)) << error;
  }
  EXPECT_EQ(scratch.Files(), other.Files());
}

}  // namespace
}  // namespace tavix::machine
