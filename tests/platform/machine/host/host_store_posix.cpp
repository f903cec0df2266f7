// The files of a machine in a host folder: rules that depend on a POSIX host.
#include "platform/machine/host/host_store.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"
#include "platform/machine/services/machine_file_system.h"
#include "support/case.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

namespace fs = std::filesystem;

class HostFiles : public testing::Test {
 protected:
  HostFiles() {
    fs::create_directories(Host("C"));
    store = OpenHostStore(fs::canonical(scratch.Root()));
    files.emplace(*store, facts);
  }
  fs::path Host(const std::string& path) const { return scratch.Root() / "drives" / path; }
  void Write(const std::string& path, const std::string& bytes = "x") const {
    scratch.Write("drives/" + path, bytes);
  }
  std::vector<Text> Names(TextView folder) {
    std::vector<Text> names;
    EXPECT_TRUE(
        files->List(folder, [&](const platform::DirectoryEntry& entry) { names.emplace_back(entry.name); }));
    return names;
  }

  QuickPlace quick;
  ScratchFolder scratch;
  MachineFacts facts;
  std::unique_ptr<FileStore> store;
  std::optional<MachineFileSystem> files;
};

TEST_F(HostFiles, OfNamesThatDifferOnlyInCaseAreTheExactOneOrTheFirst) {
  Write("C/a.txt", "small");
  Write("C/A.TXT", "large");
  EXPECT_EQ(files->ReadFile(u"C:\\a.txt"), "small");
  EXPECT_EQ(files->ReadFile(u"C:\\A.TXT"), "large");
  EXPECT_EQ(files->ReadFile(u"C:\\a.TXT"), "large");
  EXPECT_EQ(Names(u"C:\\"), (std::vector<Text>{u"A.TXT", u"a.txt"}));
  EXPECT_TRUE(files->DeleteFile(u"C:\\A.txt", false));
  EXPECT_EQ(files->ReadFile(u"C:\\A.txt"), "small");
}

TEST_F(HostFiles, WhoseNamesWindowsCantHaveAreLeftOutAndKeepTheirFolder) {
  for (const char* name : {"a", "b:c", "d?", "e.", "f ", "g\\h", "i\tj", "\xFF\xFE"})
    Write(std::string("C/f/") + name);
  Write("C/f/a:folder/deep", "x");
  EXPECT_EQ(Names(u"C:\\f"), std::vector<Text>{u"a"});
  Write("C/f/below/a");
  EXPECT_FALSE(files->DeleteFolder(u"C:\\f", false));
  for (const char* name : {"a", "b:c", "e.", "\xFF\xFE", "a:folder/deep", "below/a"})
    EXPECT_TRUE(fs::exists(Host(std::string("C/f/") + name))) << name;
  EXPECT_TRUE(files->DeleteFolder(u"C:\\f\\below", false));
}

TEST_F(HostFiles, ThatAreNoFilesAreLeftOut) {
  Write("C/f/a");
  ASSERT_EQ(mkfifo(Host("C/f/pipe").c_str(), 0600), 0);
  EXPECT_EQ(Names(u"C:\\f"), std::vector<Text>{u"a"});
  EXPECT_FALSE(files->ReadFile(u"C:\\f\\pipe"));
  EXPECT_FALSE(files->AppendToFile(u"C:\\f\\pipe", "x"));
  EXPECT_FALSE(files->WriteFile(u"C:\\f\\pipe", "x"));
  EXPECT_TRUE(files->DeleteFolder(u"C:\\f", false));
}

TEST_F(HostFiles, SeeWhatOthersChange) {
  Write("C/f/One");
  EXPECT_EQ(files->FileExists(u"C:\\F\\ONE"), true);
  EXPECT_EQ(files->FileExists(u"C:\\F\\TWO"), false);
  Write("C/f/Two");
  fs::remove(Host("C/f/One"));
  EXPECT_EQ(files->FileExists(u"C:\\F\\TWO"), true);
  EXPECT_EQ(files->FileExists(u"C:\\F\\ONE"), false);
  fs::rename(Host("C/f"), Host("C/g"));
  EXPECT_EQ(files->FileExists(u"C:\\F\\TWO"), false);
  EXPECT_EQ(files->FileExists(u"C:\\G\\TWO"), true);
}

TEST_F(HostFiles, SeeTheirOwnChangesInAnyCase) {
  ASSERT_TRUE(files->CreateFolder(u"C:\\f"));
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(Case(i));
    const Text number = ToText(i);
    EXPECT_EQ(files->FileExists(Concat(u"C:\\F\\N", number)), false);
    EXPECT_TRUE(files->CreateTextFile(Concat(u"C:\\F\\n", number), false));
    EXPECT_EQ(files->FileExists(Concat(u"C:\\F\\N", number)), true);
    if (i % 3 == 0) {
      EXPECT_TRUE(files->MoveFile(Concat(u"C:\\F\\N", number), Concat(u"C:\\f\\moved", number)));
    }
    if (i % 3 == 1) {
      EXPECT_TRUE(files->DeleteFile(Concat(u"C:\\F\\N", number), false));
    }
    EXPECT_EQ(files->FileExists(Concat(u"C:\\F\\N", number)), i % 3 == 2);
    EXPECT_EQ(files->FileExists(Concat(u"C:\\F\\MOVED", number)), i % 3 == 0);
  }
  ASSERT_TRUE(files->DeleteFolder(u"C:\\F", false));
  ASSERT_TRUE(files->CreateFolder(u"C:\\f"));
  EXPECT_EQ(files->FileExists(u"C:\\F\\N2"), false);
}

TEST_F(HostFiles, HaveTheTimesOfTheHostInItsZone) {
  Write("C/a");
  const struct timespec times[] = {{1'600'000'000, 250'000'000}, {1'500'000'000, 999'999'999}};
  ASSERT_EQ(utimensat(AT_FDCWD, Host("C/a").c_str(), times, 0), 0);
  setenv("TZ", "XXX-2", 1);
  const auto found = files->Look(u"C:\\a");
  unsetenv("TZ");
  EXPECT_EQ(found->accessed, 1'600'000'000'250 + 7'200'000);
  EXPECT_EQ(found->modified, 1'500'000'000'999 + 7'200'000);
  // Our own reading must not change the time of last access.
  EXPECT_EQ(files->ReadFile(u"C:\\a"), "x");
  EXPECT_EQ(files->Look(u"C:\\a")->accessed, 1'600'000'000'250);
}

TEST_F(HostFiles, TheStartOf1970IsATime) {
  Write("C/a");
  const struct timespec times[] = {{0, 0}, {0, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, Host("C/a").c_str(), times, 0), 0);
  EXPECT_EQ(files->Look(u"C:\\a")->accessed, 0);
  EXPECT_EQ(files->Look(u"C:\\a")->modified, 0);
}

TEST_F(HostFiles, KeepTheRightsOfAFileThatIsWritten) {
  Write("C/a");
  ASSERT_EQ(chmod(Host("C/a").c_str(), 0640), 0);
  EXPECT_TRUE(files->WriteFile(u"C:\\a", "new"));
  EXPECT_EQ(fs::status(Host("C/a")).permissions(), fs::perms(0640));
}

TEST_F(HostFiles, ThroughLinksThatLeadOutAreOutOfReach) {
  const ScratchFolder outside;
  outside.Write("secret", "secret");
  fs::create_directories(Host("C/f"));
  const fs::path up = "../../../";
  const std::string name = fs::canonical(outside.Root()).filename();
  fs::create_symlink(up / "machine.ini", Host("C/f/up"));
  fs::create_symlink(fs::canonical(outside.Root()) / "secret", Host("C/f/whole"));
  fs::create_directory_symlink(up / ".." / name, Host("C/f/relative"));
  fs::create_directory_symlink("relative", Host("C/f/chain"));
  fs::create_directory_symlink(fs::canonical(scratch.Root()) / ".." / name, Host("C/f/back"));
  fs::create_directory_symlink("/", Host("C/f/root"));
  fs::create_directory_symlink("/proc/self/cwd", Host("C/f/magic"));
  fs::create_directory_symlink(fs::canonical(outside.Root()), Host("D"));
  const TextView paths[] = {u"C:\\f\\up",
                            u"C:\\f\\whole",
                            u"C:\\f\\relative\\secret",
                            u"C:\\f\\chain\\secret",
                            u"C:\\f\\back\\secret",
                            u"C:\\f\\root\\etc\\passwd",
                            u"C:\\f\\magic",
                            u"D:\\secret"};
  for (const TextView path : paths) {
    SCOPED_TRACE(Case(path));
    EXPECT_EQ(files->FileExists(path), false) << testing::PrintToString(path);
    EXPECT_EQ(files->FolderExists(path), false);
    EXPECT_FALSE(files->ReadFile(path));
    EXPECT_FALSE(files->WriteFile(path, "x"));
    EXPECT_FALSE(files->AppendToFile(path, "x"));
  }
  for (const TextView folder : {u"relative", u"chain", u"back", u"root", u"magic"}) {
    SCOPED_TRACE(Case(folder));
    EXPECT_FALSE(files->CreateTextFile(Concat(u"C:\\f\\", folder, u"\\new"), true));
    EXPECT_FALSE(files->CreateFolder(Concat(u"C:\\f\\", folder, u"\\new")));
    EXPECT_FALSE(
        files->List(Concat(u"C:\\f\\", folder), [](const platform::DirectoryEntry&) { ADD_FAILURE(); }));
  }
  EXPECT_EQ(files->FolderExists(u"D:\\"), false);
  EXPECT_FALSE(files->DeleteFolder(u"D:\\", true));
  EXPECT_TRUE(files->DeleteFolder(u"C:\\f", true));
  EXPECT_EQ(outside.Files(), (std::map<std::string, std::string>{{"secret", "secret"}}));
  EXPECT_FALSE(fs::exists(scratch.Root() / "machine.ini"));
}

TEST_F(HostFiles, OfTheMachineItselfAreNoLinksOut) {
  const ScratchFolder outside;
  for (const char* name : {"journal.jsonl", "attributes.ini", "restart.txt"}) {
    fs::create_symlink(outside.Root() / name, scratch.Root() / name);
    EXPECT_FALSE(store->Root()->Append(*FromUtf8(name), "x")) << name;
  }
  fs::create_directory_symlink(outside.Root(), scratch.Root() / "recycle");
  Write("C/a");
  RecycleBin bin(*store);
  EXPECT_FALSE(files->Recycle(u"C:\\a", bin));
  bin.Empty();
  EXPECT_EQ(files->FileExists(u"C:\\a"), true);
  EXPECT_TRUE(outside.Files().empty());
}

TEST_F(HostFiles, AreFollowedByWholeLinksIntoTheMachine) {
  Write("D/x/a", "content");
  fs::create_directory_symlink(fs::canonical(scratch.Root()) / "drives/D/x", Host("C/link"));
  fs::create_directory_symlink("D", Host("E"));
  EXPECT_EQ(files->ReadFile(u"C:\\link\\A"), "content");
  EXPECT_EQ(files->ReadFile(u"E:\\X\\A"), "content");
  EXPECT_FALSE(files->DeleteFolder(u"E:\\", true));
  EXPECT_TRUE(files->DeleteFolder(u"C:\\LINK", false));
  EXPECT_EQ(files->ReadFile(u"D:\\x\\a"), "content");
}

TEST_F(HostFiles, OfADriveWhoseFolderHasASmallLetterStayThere) {
  TextError error;
  facts = MachineFacts(*MachineIni::Read("[Drives]\nD=2,Data\n", error), nullptr);
  Write("d/a");
  EXPECT_FALSE(files->CreateFolder(u"D:\\none\\b"));
  EXPECT_TRUE(files->CreateFolder(u"D:\\b"));
  EXPECT_TRUE(fs::exists(Host("d/b")));
  EXPECT_FALSE(fs::exists(Host("D")));
}

TEST_F(HostFiles, GoToAnyDepth) {
  constexpr int kDepth = 5000;
  int folder = open(Host("C").c_str(), O_RDONLY | O_DIRECTORY);
  Text path = u"C:";
  for (int i = 0; i < kDepth; ++i) {
    ASSERT_EQ(mkdirat(folder, "d", 0777), 0);
    const int next = openat(folder, "d", O_RDONLY | O_DIRECTORY);
    close(folder);
    folder = next;
    path += u"\\d";
  }
  close(folder);
  const Text file = path + u"\\File";
  ASSERT_TRUE(files->WriteFile(file, "x"));
  EXPECT_EQ(files->Look(path + u"\\FILE")->path, file);
  EXPECT_EQ(Names(path), std::vector<Text>{u"File"});
  RecycleBin bin(*store);
  ASSERT_TRUE(files->Recycle(u"C:\\d\\d", bin));
  EXPECT_EQ(bin.Count()->bytes, 1U);
  EXPECT_TRUE(bin.Empty());
  EXPECT_TRUE(files->DeleteFolder(u"C:\\d", false));
  EXPECT_FALSE(fs::exists(Host("C/d")));
}

TEST_F(HostFiles, AreFoundQuicklyAmongMany) {
  constexpr int kCount = 10'000;
  fs::create_directory(Host("C/many"));
  const int folder = open(Host("C/many").c_str(), O_RDONLY | O_DIRECTORY);
  for (int i = 0; i < kCount; ++i) {
    ASSERT_EQ(mknodat(folder, ("File " + std::to_string(i)).c_str(), S_IFREG | 0666, 0), 0);
  }
  close(folder);
  EXPECT_EQ(Names(u"C:\\many").size(), static_cast<size_t>(kCount));
  // Names in another letter case and missing names must not list the folder each time.
  for (int i = 0; i < kCount; ++i) {
    ASSERT_EQ(files->FileExists(Concat(u"C:\\MANY\\FILE ", ToText(i))), true);
    ASSERT_EQ(files->FileExists(Concat(u"C:\\many\\none ", ToText(i))), false);
  }
  EXPECT_TRUE(files->DeleteFolder(u"C:\\MANY", false));
}

TEST_F(HostFiles, NeedFewHandles) {
  const auto handles = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const auto before = handles();
  Write("C/f/a");
  for (int i = 0; i < 50; ++i) {
    SCOPED_TRACE(Case(i));
    EXPECT_EQ(files->FileExists(u"C:\\F\\A"), true);
    EXPECT_FALSE(files->ReadFile(u"C:\\F\\B"));
    EXPECT_TRUE(files->WriteFile(u"C:\\F\\C", "x"));
    EXPECT_EQ(Names(u"C:\\F").size(), 2U);
  }
  // Besides the store's own handles only those of a few folders that stay open.
  EXPECT_LE(handles(), before + 6);
}

TEST_F(HostFiles, LeaveNothingHalfWhenTheyCantBeWritten) {
  Write("C/f/a", "old");
  Write("C/f/b", "b");
  const auto before = scratch.Files();
  struct rlimit old {};
  getrlimit(RLIMIT_FSIZE, &old);
  const struct rlimit small { 1000, old.rlim_max };
  signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const std::string large(5000, 'x');
  EXPECT_FALSE(files->WriteFile(u"C:\\f\\a", large));
  EXPECT_FALSE(files->WriteFile(u"C:\\f\\new", large));
  EXPECT_FALSE(files->AppendToFile(u"C:\\f\\b", large));
  EXPECT_FALSE(files->AppendToFile(u"C:\\f\\new", large));
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, SIG_DFL);
  EXPECT_EQ(scratch.Files(), before);
}

TEST_F(HostFiles, MoveToAnotherFileSystemOfTheHost) {
  fs::create_directory(Host("D"));
  if (mount("tavix", Host("D").c_str(), "tmpfs", 0, "size=1m") != 0) GTEST_SKIP() << "may not mount here";
  const std::string content(300'000, 'c');
  Write("C/a", content);
  const auto before = files->Look(u"C:\\a");
  EXPECT_TRUE(files->MoveFile(u"C:\\a", u"D:\\b"));
  EXPECT_EQ(files->ReadFile(u"D:\\b"), content);
  EXPECT_EQ(files->Look(u"D:\\b")->modified, before->modified);
  EXPECT_EQ(files->FileExists(u"C:\\a"), false);
  // The target is full: the source stays, and no half-written file is left.
  Write("C/large", std::string(2'000'000, 'l'));
  EXPECT_FALSE(files->MoveFile(u"C:\\large", u"D:\\large"));
  EXPECT_EQ(files->FileExists(u"C:\\large"), true);
  EXPECT_EQ(std::distance(fs::directory_iterator(Host("D")), fs::directory_iterator()), 1);
  Write("C/small");
  EXPECT_FALSE(files->MoveFile(u"C:\\small", u"D:\\B"));
  EXPECT_EQ(files->ReadFile(u"D:\\b"), content);
  RecycleBin bin(*store);
  EXPECT_TRUE(files->Recycle(u"D:\\b", bin));
  EXPECT_EQ(bin.Count()->bytes, content.size());
  umount(Host("D").c_str());
}

// Limits the process to a few more open files, for the lifetime of the object.
class FewHandles {
 public:
  explicit FewHandles(rlim_t more) {
    ::getrlimit(RLIMIT_NOFILE, &before_);
    const int next = ::dup(0);
    ::close(next);
    rlimit few = before_;
    few.rlim_cur = static_cast<rlim_t>(next) + more;
    ::setrlimit(RLIMIT_NOFILE, &few);
  }
  ~FewHandles() { ::setrlimit(RLIMIT_NOFILE, &before_); }
  FewHandles(const FewHandles&) = delete;
  FewHandles& operator=(const FewHandles&) = delete;

 private:
  rlimit before_ = {};
};

TEST_F(HostFiles, AreNeitherThereNorMissingWithoutAHandleToLook) {
  Write("C/Program Files/App/a.exe");
  fs::create_symlink("Program Files", Host("C/link"));
  constexpr rlim_t kEnough = 8;
  for (rlim_t more = 0; more <= kEnough; ++more) {
    // A new store, which has nothing cached.
    const auto fresh = OpenHostStore(fs::canonical(scratch.Root()));
    MachineFileSystem machine(*fresh, facts);
    const FewHandles few(more);
    int known = 0;
    for (const TextView path :
         {u"C:\\Program Files\\App\\a.exe", u"c:\\PROGRAM FILES\\app\\A.EXE", u"C:\\link\\App\\a.exe"}) {
      const platform::Existence there = machine.FileExists(path);
      EXPECT_NE(there, false) << ToUtf8(path) << " with " << more;
      known += there.has_value() ? 1 : 0;
    }
    for (const TextView path : {u"C:\\Program Files\\App\\b.exe", u"C:\\link\\none\\a.exe"}) {
      const platform::Existence there = machine.FileExists(path);
      EXPECT_NE(there, true) << ToUtf8(path) << " with " << more;
      known += there.has_value() ? 1 : 0;
    }
    if (more == 0) {
      EXPECT_EQ(known, 0);
    }
    if (more == kEnough) {
      EXPECT_EQ(known, 5);
    }
  }
}

}  // namespace
}  // namespace tavix::machine
