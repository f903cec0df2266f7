// A clean over a machine in a folder of the host in which each call in turn fails, alone or with all after
// it: no row goes whose thing still stands, and no file is lost.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "frame/settings.h"
#include "platform/machine/host_store.h"
#include "platform/machine/journal.h"
#include "platform/machine/machine_file_system.h"
#include "platform/machine/machine_shell.h"
#include "platform/machine/quick_place.h"
#include "platform/machine/scratch_folder.h"
#include "scan/result_items.h"
#include "support/program_test.h"
#include "text/utf8.h"

namespace tavix::mdlPubSelf {
namespace {

namespace fs = std::filesystem;
using namespace machine;

// A store over another one of which the call with a number fails, counted from 1, and all after it if so
// wanted; what is asked of it and what it does counts alike.
class FailingStore : public FileStore {
 public:
  explicit FailingStore(std::unique_ptr<FileStore> store) : store_(std::move(store)) {}
  std::unique_ptr<StoreFolder> Root() override { return Fails() ? nullptr : Wrap(store_->Root()); }
  std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) override {
    return Fails() ? nullptr : Wrap(store_->Open(names));
  }

  int calls = 0;
  int failing = 0;
  bool forGood = false;
  static inline bool otherVolume = false;  // whether every folder lies on a volume of its own

 private:
  class Folder;
  bool Fails() {
    ++calls;
    return calls == failing || (forGood && failing > 0 && calls > failing);
  }
  std::unique_ptr<StoreFolder> Wrap(std::unique_ptr<StoreFolder> folder);

  std::unique_ptr<FileStore> store_;
};

class FailingStore::Folder : public StoreFolder {
 public:
  Folder(FailingStore& store, std::unique_ptr<StoreFolder> folder)
      : store_(store), folder_(std::move(folder)) {}

  using StoreFolder::Find;
  using StoreFolder::Read;
  std::optional<StoreEntry> Find(TextView name, bool& sure) override {
    if (!Fails()) return folder_->Find(name, sure);
    sure = false;
    return std::nullopt;
  }
  bool Read(std::vector<StoreEntry>& entries, const NameFilter& wanted) override {
    return !Fails() && folder_->Read(entries, wanted);
  }
  std::unique_ptr<StoreFolder> Open(TextView name) override {
    return Fails() ? nullptr : store_.Wrap(folder_->Open(name));
  }
  std::optional<LinkTarget> ReadLink(TextView name) override {
    return Fails() ? std::nullopt : folder_->ReadLink(name);
  }
  std::optional<std::string> ReadFile(TextView name) override {
    return Fails() ? std::nullopt : folder_->ReadFile(name);
  }
  bool MakeFolder(TextView name) override { return !Fails() && folder_->MakeFolder(name); }
  bool MakeFile(TextView name) override { return !Fails() && folder_->MakeFile(name); }
  bool WriteFile(TextView name, std::string_view content) override {
    return !Fails() && folder_->WriteFile(name, content);
  }
  bool Append(TextView name, std::string_view content) override {
    return !Fails() && folder_->Append(name, content);
  }
  bool Remove(TextView name) override { return !Fails() && folder_->Remove(name); }
  bool RemoveTree(TextView name) override { return !Fails() && folder_->RemoveTree(name); }
  std::optional<uint64_t> TreeSize(TextView name) override {
    return Fails() ? std::nullopt : folder_->TreeSize(name);
  }
  MoveResult Move(TextView name, StoreFolder& to, TextView newName) override {
    if (Fails()) return otherVolume ? MoveResult::OtherVolume : MoveResult::Failed;
    return otherVolume ? MoveResult::OtherVolume
                       : folder_->Move(name, *static_cast<Folder&>(to).folder_, newName);
  }
  bool Copy(TextView name, StoreFolder& to, TextView newName) override {
    return !Fails() && folder_->Copy(name, *static_cast<Folder&>(to).folder_, newName);
  }

 private:
  bool Fails() { return store_.Fails(); }

  FailingStore& store_;
  std::unique_ptr<StoreFolder> folder_;
};

std::unique_ptr<StoreFolder> FailingStore::Wrap(std::unique_ptr<StoreFolder> folder) {
  return folder != nullptr ? std::make_unique<Folder>(*this, std::move(folder)) : nullptr;
}

constexpr TextView kBackup = u"C:\\TVXBak";

// The program over files in a folder; all else of the machine is in memory.
class FailingCalls : public ProgramTest {
 protected:
  FailingCalls() {
    fs::create_directories(scratch.Root() / "drives/C/TVXBak");
    platform::fileSystem = &files;
    platform::shell = &shell;
    Start();
  }
  ~FailingCalls() override { FailingStore::otherVolume = false; }

  void Put(const std::string& path, const std::string& content) {
    scratch.Write("drives/C/Desk/" + path, content);
    contents.insert(content);
  }
  static void AddRow(TextView tag, TextView name) {
    AddResultItem(u"t", name, u"1.", u"C:\\Desk", u"00000001.0", tag);
  }
  void Seed() {
    for (const char* folder : {"drives/C/Desk", "drives/C/TVXBak", "recycle"}) {
      fs::remove_all(scratch.Root() / folder);
    }
    fs::create_directories(scratch.Root() / "drives/C/TVXBak");
    contents.clear();
    Put("bystander", "bystander");
    Put("folder beside/x", "beside");
    Put("a.txt", std::string(5000, 'a'));
    Put("b.txt", std::string(300, 'b'));
    Put("dump.dmp", "dump");
    Put("folder/inner.txt", "inner");
    scratch.Write("drives/C/TVXBak/b.txt", "saved before");
    contents.insert("saved before");
    ClearResults();
    AddRow(u"F", u"a.txt");
    AddRow(u"F", u"B.TXT");
    AddRow(u"FT: C:\\Desk\\dump.dmp", u"");
    AddRow(u"P", u"folder");
    AddRow(u"DUR", u"a.txt");
  }
  // How often each content is on the disk.
  std::map<std::string, int> OnDisk() const {
    std::map<std::string, int> found;
    for (const auto& [path, content] : scratch.Files()) {
      if (path.starts_with("drives/C/Desk") || path.starts_with("drives/C/TVXBak") ||
          path.starts_with("recycle")) {
        ++found[content];
      }
    }
    return found;
  }
  bool Stands(const std::string& name) const { return fs::exists(scratch.Root() / "drives/C/Desk" / name); }
  static std::string ThingOf(const RowFields& row) {
    if (row.tag.starts_with(u"FT")) return "dump.dmp";
    return row.name == u"B.TXT" ? "b.txt" : ToUtf8(row.name);
  }
  void Check(const std::string& what) {
    const std::map<std::string, int> found = OnDisk();
    for (const auto& [content, count] : found)
      EXPECT_TRUE(contents.contains(content)) << what << ": half a file";
    for (const char* content : {"bystander", "beside", "saved before"}) {
      EXPECT_EQ(found.contains(content), true) << what << ": " << content;
    }
    if (CleaningMethod != u"D") {
      // A folder is not saved with what is in it.
      for (const std::string& content : contents) {
        if (content == "inner" && CleaningMethod == u"S") continue;
        EXPECT_EQ(found.contains(content) ? found.at(content) : 0, 1)
            << what << ": " << content.substr(0, 10);
      }
    }
    const int kept = ResultCount();
    int gone = 0;
    std::set<std::string> listed;
    for (const RowFields& row : ResultRows()) {
      EXPECT_TRUE(row.checked);
      listed.insert(ThingOf(row));
      if (!Stands(ThingOf(row))) ++gone;
    }
    // Of what went, one row at most stays: that of which the failing call was to tell whether it went.
    if (!store.forGood) {
      EXPECT_LE(gone, 1) << what;
    }
    for (const std::string name : {"a.txt", "b.txt", "dump.dmp", "folder"}) {
      EXPECT_TRUE(listed.contains(name) || !Stands(name)) << what << ": no row for " << name;
    }
    const Text sum = frmPubMain.lblSum.Caption;
    EXPECT_TRUE(sum.starts_with(Concat(u"Sum: ", ToText(5 - kept), 5 - kept < 2 ? u" item," : u" items,")))
        << what;
  }

  QuickPlace quick;
  ScratchFolder scratch;
  FailingStore store{OpenHostStore(fs::canonical(scratch.Root()))};
  MachineFacts facts{machine.facts};
  MachineFileSystem files{store, facts};
  class Journal journal {
    &store
  };
  MachineShell shell{store, files, facts, journal};
  std::set<std::string> contents;
};

TEST_F(FailingCalls, LeaveTheRowOfAllThatStillStands) {
  for (const auto& [volumes, forGood] : {std::pair(false, false), {true, false}, {false, true}}) {
    FailingStore::otherVolume = volumes;
    store.forGood = forGood;
    for (const TextView method : {u"D", u"R", u"S"}) {
      CleaningMethod = method;
      BackupFolder = kBackup;
      int calls = 0;
      for (int failing = 0; failing <= calls; ++failing) {
        Seed();
        store.calls = 0;
        store.failing = failing;
        frmPubMain.sbtClean.Click();
        store.failing = 0;
        calls = std::max(calls, store.calls);
        Check(Narrow(method) + (volumes ? " over volumes" : "") + (forGood ? ", from call " : ", call ") +
              std::to_string(failing));
        if (failing == 0) {
          EXPECT_EQ(ResultCount(), volumes && method == u"R" ? 1 : 0) << Narrow(method);
        }
      }
      EXPECT_GE(calls, 15) << Narrow(method);
    }
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
