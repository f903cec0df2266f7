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

// Whether `funcs` names the function. Each name in `funcs` stands between two bars.
bool Names(TextView funcs, TextView function);

// The functions that a text names, looked up once for a whole walk.
struct AdvancedFunctions {
  explicit AdvancedFunctions(TextView text);

  Text funcs;
  bool junkFiles;
  bool duplicateFiles;
  bool invalidShortcuts;
  bool redundantDlls;
  bool emptyFoldersAndFiles;
};

// Whether a size in bytes is at least the setting LeastSize (in KB). False if the setting is no number.
bool ReachesLeastSize(double bytes);

// Adds the row of a folder whose files add up to zero bytes. The first `startLength` characters of the path
// name the folder where the walk began.
void AddEmptyFolderRow(TextView path, size_t startLength);

// Applies the functions that look at files to one folder, one function after another. In a folder with many
// files the user interface runs now and then, and Cancel ends the work between two files.
class FolderFunctions {
 public:
  // The first `startLength` characters of the path name the folder where the walk began.
  FolderFunctions(TextView path, size_t startLength, const FolderContent& content,
                  const AdvancedFunctions& funcs)
      : path_(path), startLength_(startLength), content_(content), funcs_(funcs) {}

  // `systemFiles` caches the names in the system folder; pass the same object for all folders of a walk.
  void Run(const JunkMatcher& junk, FileNames& systemFiles);

 private:
  using File = FolderContent::File;

  // Entries between two runs of the user interface, and how many of them take as long as a file that is asked
  // for on the disk.
  static constexpr int kStep = 1024;
  static constexpr int kAskedFile = 64;

  // Call it before each file. `entries` says how many entries take as long as the work on it. False after
  // Cancel.
  bool Continue(int entries = 1);
  // Visits the files that match the patterns, in the order of their names.
  template <class Visitor>
  void VisitFileList(TextView patterns, const FilePatterns& filter, const Visitor& visit);
  void Open(const File& file);
  void AddRow(TextView type, std::optional<TextView> name, std::optional<TextView> size,
              std::optional<TextView> sizeKey) const;
  void AddFileRow(TextView type) const;
  void FindJunk(const JunkMatcher& junk);
  void CollectCommonTypes();
  void FindInvalidShortcuts();
  void FindRedundantDlls(FileNames& systemFiles);
  void TestEachFile(bool collectDuplicates);

  const Text path_;
  const size_t startLength_;
  const FolderContent& content_;
  const AdvancedFunctions& funcs_;
  // The file opened last. A file that can't be opened leaves it unchanged.
  File file_{};
  bool opened_ = false;
  int entries_ = 0;  // since the user interface ran
};

}  // namespace tavix::mdlPubSelf
