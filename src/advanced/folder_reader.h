#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/file_system.h"
#include "scan/open_folders.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// What one reading of a folder has given. What a path can't name is left out, and its folder isn't empty.
class FolderContent {
 public:
  struct File {
    TextView name;
    TextView capitals;  // of the name
    double size = 0;
    platform::DateTime accessed = platform::kUnknownTime;
    bool known = true;  // whether more than the name could be had
    bool link = false;
  };
  struct SubFolder {
    Text name;
    bool link = false;
  };

  // Lists a folder, as platform::OpenFolder does it.
  using Lister = std::function<bool(const platform::EntryVisitor& visit)>;

  FolderContent() = default;
  // Of a folder that can't be read: nothing.
  explicit FolderContent(const Lister& list);

  bool WasRead() const { return read_; }
  // Whether it was read, no file in it has a size and nothing is a link, whatever its subfolders hold.
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
  Text names_;     // one behind the other
  Text capitals_;  // of all names
  std::vector<Stored> files_;
  std::vector<SubFolder> subFolders_;
  bool read_ = false;
  bool isEmpty_ = true;
};

// Reads the folders of a walk, and tells of each whether all files in it and below add up to zero bytes, with
// no link among them: what a link leads to isn't looked at, and it is something by itself.
//
// Each folder is read once. A folder with a file of some size has its answer at once. Otherwise its
// subfolders are read, depth first, until a file with a size or a folder that can't be read turns up. Then
// the folders on the way there are known not to be empty, and those left behind are known to be; both
// answers and what was read are kept until the walk comes by. What none has looked at stays open until then.
class FolderReader {
 public:
  struct Visit {
    FolderContent content;
    bool empty = false;
  };

  // The content of the next folder of the walk, which is listed by `list` unless that has been done. The path
  // has no backslash at the end but a drive's. With `judge`, also whether it is known to be empty; the
  // content of one that is may not have been read.
  Visit Read(const Text& path, const FolderContent::Lister& list, bool judge);

 private:
  struct Level {
    Text path;
    FolderContent content;
    size_t next = 0;  // the subfolder to be looked at next
  };

  static Level ReadNextBelow(std::vector<Level>& levels, OpenFolders& open);
  bool AddsUpToNothing(const Text& path, FolderContent& content);
  void KeepAnswers(std::vector<Level>& levels);

  // Folders of known answer that the walk hasn't come to: their content, or nothing where they are empty.
  std::unordered_map<Text, std::optional<FolderContent>> ahead_;
};

}  // namespace tavix::mdlPubSelf
