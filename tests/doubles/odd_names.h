#pragma once

#include <memory>

#include "doubles/memory_file_system.h"

namespace tavix {

// A machine whose folders also list names that end in a blank or a dot. Other systems and programs can make
// such files. Windows lists them, but can't look at them by their paths.
class OddNames : public machine::MemoryFileSystem {
 public:
  using MemoryFileSystem::MemoryFileSystem;

  std::unique_ptr<platform::OpenFolder> Open(TextView path) override {
    auto folder = MemoryFileSystem::Open(path);
    return folder != nullptr ? std::make_unique<Folder>(std::move(folder)) : nullptr;
  }

 private:
  struct Folder : platform::OpenFolder {
    explicit Folder(std::unique_ptr<OpenFolder> plainOnes) : plain(std::move(plainOnes)) {}
    bool List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted,
              const platform::GoesOn& goesOn) override {
      if (!plain->List(visit, wanted, goesOn)) return false;
      for (const TextView name : {u"x.tmp.", u"x.tmp ", u"x.tmp..", u"x.lnk. "}) {
        platform::DirectoryEntry entry;
        entry.name = name;
        if (!wanted || wanted(name)) visit(entry);
      }
      for (const TextView name : {u"folder.", u"folder "}) {
        platform::DirectoryEntry entry;
        entry.name = name;
        entry.folder = true;
        visit(entry);
      }
      return true;
    }
    // Windows drops the blanks and dots at the end, and opens the folder with the shorter name.
    std::unique_ptr<OpenFolder> Open(TextView name) override {
      const auto end = name.find_last_not_of(u" .") + 1;
      auto below = plain->Open(name.substr(0, end));
      return below != nullptr ? std::make_unique<Folder>(std::move(below)) : nullptr;
    }
    std::unique_ptr<OpenFolder> plain;
  };
};

}  // namespace tavix
