#include "platform/machine/host/registry_folder.h"

#include "platform/machine/scratch_folder.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

const std::vector<NewFile> kNew = {{"HKEY_CURRENT_USER.reg", "new user"}, {"HKEY_USERS.reg", "new users"}};

void Seed(const ScratchFolder& scratch) {
  scratch.Write("registry/a.reg", "old a");
  scratch.Write("registry/HKEY_USERS.REG", "old users");
  scratch.Write("registry/notes.txt", "mine");
  scratch.Write("registry/folder/x.reg", "mine too");
}

const Files kForeign = {{"registry/notes.txt", "mine"}, {"registry/folder/x.reg", "mine too"}};

Files Old() {
  Files files = kForeign;
  files.insert({{"registry/a.reg", "old a"}, {"registry/HKEY_USERS.REG", "old users"}});
  return files;
}

Files New() {
  Files files = kForeign;
  files.insert({{"registry/HKEY_CURRENT_USER.reg", "new user"}, {"registry/HKEY_USERS.reg", "new users"}});
  return files;
}

TEST(RegistryFolder, KnowsItsFilesLetterCaseAside) {
  for (const char* name : {"a.reg", "A.REG", "a.b.Reg"}) EXPECT_TRUE(IsRegistryFile(name)) << name;
  for (const char* name : {"a", "a.regx", "reg", ".reg", "a.reg~", "a.reg.txt"}) {
    EXPECT_FALSE(IsRegistryFile(name)) << name;
  }
}

TEST(RegistryFolder, ReplacesItsFilesAndKeepsTheOthers) {
  const ScratchFolder scratch;
  Seed(scratch);
  std::string reason;
  ASSERT_TRUE(ReplaceRegistryFiles(scratch.Root() / "registry", kNew, reason)) << reason;
  EXPECT_EQ(scratch.Files(), New());
  EXPECT_FALSE(fs::exists(scratch.Root() / "registry~saving"));
}

TEST(RegistryFolder, IsMadeWhereItIsMissing) {
  const ScratchFolder scratch;
  std::string reason;
  ASSERT_TRUE(ReplaceRegistryFiles(scratch.Root() / "registry", {{"a.reg", "new"}}, reason)) << reason;
  EXPECT_EQ(scratch.Files(), (Files{{"registry/a.reg", "new"}}));
}

TEST(RegistryFolder, IsOldOrNewWhereverASaveStops) {
  int steps = 0;
  bool sawOld = false;
  bool sawNew = false;
  for (int stop = 0;; ++stop) {
    const ScratchFolder scratch;
    Seed(scratch);
    std::string reason;
    steps = 0;
    const StepHook hook = [&] { return steps++ < stop; };
    const bool done = ReplaceRegistryFiles(scratch.Root() / "registry", kNew, reason, hook);
    ASSERT_TRUE(RecoverRegistryFolder(scratch.Root() / "registry", reason)) << stop << reason;
    const Files files = scratch.Files();
    ASSERT_TRUE(files == Old() || files == New()) << stop << testing::PrintToString(files);
    // After the first stop with the new registry, every later stop has the new one.
    ASSERT_FALSE(sawNew && files == Old()) << stop;
    (files == Old() ? sawOld : sawNew) = true;
    EXPECT_FALSE(fs::exists(scratch.Root() / "registry~saving")) << stop;
    EXPECT_FALSE(fs::exists(scratch.Root() / "registry~old")) << stop;
    if (done) break;
  }
  EXPECT_GT(steps, 10);
  EXPECT_TRUE(sawOld);
  EXPECT_TRUE(sawNew);
}

TEST(RegistryFolder, CanBeSavedToAfterASaveThatStopped) {
  for (int stop = 0; stop < 20; ++stop) {
    const ScratchFolder scratch;
    Seed(scratch);
    std::string reason;
    int steps = 0;
    ReplaceRegistryFiles(scratch.Root() / "registry", {{"b.reg", "stopped"}}, reason,
                         [&] { return steps++ < stop; });
    ASSERT_TRUE(ReplaceRegistryFiles(scratch.Root() / "registry", kNew, reason)) << stop << reason;
    EXPECT_EQ(scratch.Files(), New()) << stop;
  }
}

// On hosts that can't exchange two names in one step, a crash can leave the folder between two renames.
TEST(RegistryFolder, ComesBackFromBetweenTwoRenames) {
  std::string reason;
  {
    const ScratchFolder scratch;
    Seed(scratch);
    fs::rename(scratch.Root() / "registry", scratch.Root() / "registry~old");
    scratch.Write("registry~saving/~saving", "");
    scratch.Write("registry~saving/HKEY_USERS.reg", "new users");
    ASSERT_TRUE(RecoverRegistryFolder(scratch.Root() / "registry", reason)) << reason;
    EXPECT_EQ(scratch.Files(), Old());
  }
  {
    const ScratchFolder scratch;
    Seed(scratch);
    fs::rename(scratch.Root() / "registry", scratch.Root() / "registry~old");
    scratch.Write("registry/~saving", "");
    for (const NewFile& file : kNew) scratch.Write("registry" / file.Name, file.Bytes);
    ASSERT_TRUE(RecoverRegistryFolder(scratch.Root() / "registry", reason)) << reason;
    EXPECT_EQ(scratch.Files(), New());
  }
}

TEST(RegistryFolder, LeavesFoldersThatAreNoneOfItsOwn) {
  const ScratchFolder scratch;
  Seed(scratch);
  scratch.Write("registry~old/mine", "1");
  scratch.Write("registry~saving/mine", "2");
  const Files before = scratch.Files();
  std::string reason;
  EXPECT_TRUE(RecoverRegistryFolder(scratch.Root() / "registry", reason));
  EXPECT_FALSE(ReplaceRegistryFiles(scratch.Root() / "registry", kNew, reason));
  EXPECT_EQ(reason, "registry~saving: is in the way");
  EXPECT_EQ(scratch.Files(), before);
}

TEST(RegistryFolder, GivesWayToAForeignThingOfANewName) {
  const ScratchFolder scratch;
  scratch.Write("registry/HKEY_USERS.reg/mine", "1");
  std::string reason;
  ASSERT_TRUE(ReplaceRegistryFiles(scratch.Root() / "registry", kNew, reason)) << reason;
  EXPECT_EQ(scratch.Read("registry/HKEY_USERS.reg"), "new users");
  EXPECT_EQ(scratch.Read("registry/HKEY_USERS.reg~/mine"), "1");
}

TEST(RegistryFolder, StaysWhenANewFileCannotBeWritten) {
  const ScratchFolder scratch;
  Seed(scratch);
  std::string reason;
  EXPECT_FALSE(ReplaceRegistryFiles(scratch.Root() / "registry", {{"a.reg", "new"}, {"missing/b.reg", "new"}},
                                    reason));
  EXPECT_EQ(reason, "b.reg: can't be written");
  EXPECT_EQ(scratch.Files(), Old());
  EXPECT_FALSE(fs::exists(scratch.Root() / "registry~saving"));
}

}  // namespace
}  // namespace tavix::machine
