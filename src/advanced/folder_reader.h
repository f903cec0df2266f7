#pragma once

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/file_system.h"
#include "scan/folder_chain.h"
#include "scan/open_folders.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The content of a folder as listed once. Entries whose names no path can hold are left out, but a folder
// with such an entry isn't empty.
class FolderContent {
 public:
  struct File {
    TextView name;
    TextView capitals;  // the name in capitals
    double size = 0;
    platform::DateTime accessed = platform::kUnknownTime;
    bool known = true;  // false if only the name could be read
    bool link = false;
  };
  struct SubFolder {
    Text name;
    bool link = false;
  };

  // Lists a folder; see platform::OpenFolder::List.
  using Lister = std::function<bool(const platform::EntryVisitor& visit)>;

  FolderContent() = default;
  // No entries if the folder can't be read.
  explicit FolderContent(const Lister& list);

  bool IsRead() const { return read_; }
  // Whether the folder could be read, all files directly in it have zero bytes and none of its entries is a
  // link. Says nothing about what its subfolders contain.
  bool IsEmptyByItself() const { return read_ && isEmpty_; }
  size_t FileCount() const { return files_.size(); }
  File FileAt(size_t index) const;
  const std::vector<SubFolder>& SubFolders() const { return subFolders_; }

 private:
  struct Stored {
    size_t nameEnd = 0;
    double size = 0;
    platform::DateTime accessed = platform::kUnknownTime;
    bool known = true;
    bool link = false;
  };
  Text names_;     // all names in one text; Stored says where each ends
  Text capitals_;  // names_ in capitals
  std::vector<Stored> files_;
  std::vector<SubFolder> subFolders_;
  bool read_ = false;
  bool isEmpty_ = true;
};

// Reads the folders of a walk, and tests of each whether it is empty: all files in it and below it have zero
// bytes and no entry is a link. A link counts as content, whatever it leads to.
//
// Each folder is listed once. A folder with a file that isn't empty has its answer at once. Otherwise its
// subfolders are read ahead, depth first, until one has such a file or can't be read. Then the folders on the
// path to that one are known not to be empty, and the subfolders passed before are known to be empty. Both
// results are kept until the walk gets there.
class FolderReader {
 public:
  struct Visit {
    FolderContent content;
    bool empty = false;
  };

  // Reads the innermost folder of the walk, unless it has been read ahead. With `testEmpty` the result says
  // whether the folder is empty. The content of an empty folder may be missing. `goesOn` is asked as by
  // platform::OpenFolder::List, and now and then while folders are read ahead. When it says no, the result
  // means nothing.
  Visit Read(FolderChain& chain, bool testEmpty, const platform::GoesOn& goesOn);

 private:
  struct Level {
    Text path;
    FolderContent content;
    size_t next = 0;  // index of the next subfolder to read
  };
  // A folder that was read ahead.
  struct Known {
    FolderContent content;
    bool empty = false;
    std::unique_ptr<platform::OpenFolder> folder;  // may be null
  };

  static Level ReadNextSubFolder(std::vector<Level>& levels, OpenFolders& open,
                                 const platform::GoesOn& goesOn);
  bool IsTreeEmpty(FolderChain& chain, FolderContent& content, const platform::GoesOn& goesOn);
  void Remember(std::vector<Level>& levels, OpenFolders& open);

  std::unordered_map<Text, Known> known_;  // by path
};

}  // namespace tavix::mdlPubSelf
