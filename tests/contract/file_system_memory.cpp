#include "contract/file_system_contract.h"
#include "doubles/memory_file_system.h"
#include "doubles/memory_trust.h"

namespace tavix::contract {
namespace {

class MemoryStage : public FileSystemStage {
 public:
  MemoryStage() {
    files_.AddFolder(u"C:\\Contract\\Place");
    files_.AddFolder(u"D:\\Other");
  }
  platform::FileSystem& Use() override { return files_; }
  platform::Trust& UseTrust() override { return trust_; }
  Text Place() override { return u"C:\\Contract\\Place"; }
  bool Link(TextView path, TextView target, bool) override {
    files_.AddLink(path, target);
    return true;
  }
  bool Swap(TextView folder, TextView target) override {
    std::vector<Text> names{u"drives", Text(folder.substr(0, 1))};
    for (const TextView name : Split(folder.substr(3), u"\\")) names.emplace_back(name);
    const Text name = names.back();
    names.pop_back();
    const auto parent = store_.Open(names);
    if (parent->Move(name, *parent, Concat(name, u" aside")) != machine::MoveResult::Done) return false;
    files_.AddLink(folder, target);
    return true;
  }
  bool LinkOut(TextView path) override {
    store_.Make({u"outside", u"secret.txt"}, machine::EntryKind::File).content = "secret";
    files_.AddLink(path, u"..\\..\\..\\..\\..\\..\\outside");
    return true;
  }
  bool OutsideIsUntouched() override {
    const auto outside = store_.Open({u"outside"});
    std::vector<machine::StoreEntry> entries;
    return outside != nullptr && outside->Read(entries) && entries.size() == 1 &&
           entries[0].name == u"secret.txt";
  }
  bool Refuse(TextView folder, bool refuse) override {
    store_.faults.Clear();
    if (refuse) {
      files_.List(folder,
                  [this](const platform::DirectoryEntry& entry) { store_.faults.Fail(u"Find", entry.name); });
      store_.faults.Fail(u"Find", u"none");
    }
    return true;
  }
  Text OtherVolume() override { return u"D:\\Other"; }

 private:
  machine::MemoryStore store_;
  machine::MachineFacts facts_;
  machine::MemoryFileSystem files_{store_, facts_};
  machine::MemoryTrust trust_{store_, files_, facts_};
};

std::unique_ptr<FileSystemStage> Make() { return std::make_unique<MemoryStage>(); }

INSTANTIATE_TEST_SUITE_P(Memory, FileSystemContract, testing::Values(FileSystemStageMaker{"memory", Make}));
INSTANTIATE_TEST_SUITE_P(Memory, FoundItems, testing::Values(FileSystemStageMaker{"memory", Make}));

}  // namespace
}  // namespace tavix::contract
