#pragma once

#include "advanced/file_names.h"
#include "advanced/folder_reader.h"
#include "advanced/junk_matcher.h"

namespace tavix::mdlPubSelf {

// Names of the functions of an advanced scan.
constexpr TextView kInvalidShortcuts = u"Invalid Shortcuts";
constexpr TextView kDuplicateFiles = u"Duplicate Files";
constexpr TextView kEmptyFoldersAndFiles = u"Empty Folders and Files";
constexpr TextView kRedundantDlls = u"Redundant DLLs";
constexpr TextView kJunkFiles = u"Junk Files";

// Whether the list, with a bar around each function, holds this one.
bool Holds(TextView funcs, TextView function);

// Whether a size in bytes is at least `LeastSize`. False where that setting is no number.
bool ReachesLeastSize(double bytes);

// The row of a folder that adds up to zero bytes. The walk began at the folder that the first `startLength`
// characters of the path name.
void AddEmptyFolderRow(TextView path, size_t startLength);

// Applies the functions that look at files to one folder, one function after the other.
class FolderFunctions {
 public:
  // The walk began at the folder that the first `startLength` characters of the path name.
  FolderFunctions(TextView path, size_t startLength, const FolderContent& content, TextView funcs)
      : path_(path), startLength_(startLength), content_(content), funcs_(funcs) {}

  // `system` stays the same for all folders of a walk.
  void Run(const JunkMatcher& junk, FileNames& system);

 private:
  using File = FolderContent::File;

  void Open(const File& file);
  void AddRow(TextView type, std::optional<TextView> name, std::optional<TextView> size,
              std::optional<TextView> sizeKey) const;
  void AddFileRow(TextView type) const;
  void FindJunk(const JunkMatcher& junk);
  void CollectCommonTypes();
  void FindInvalidShortcuts();
  void FindRedundantDlls(FileNames& system);
  void TestEachFile(bool collectDuplicates);

  const Text path_;
  const size_t startLength_;
  const FolderContent& content_;
  const TextView funcs_;
  // The file opened last. One that can't be opened leaves it.
  File file_{};
  bool opened_ = false;
};

}  // namespace tavix::mdlPubSelf
