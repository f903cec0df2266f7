#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/trust.h"
#include "support/found_item.h"

namespace tavix::contract {

// A file system under test, with the operations that its interface lacks.
class FileSystemStage {
 public:
  virtual ~FileSystemStage() = default;
  virtual platform::FileSystem& Use() = 0;
  virtual platform::Trust& UseTrust() = 0;
  // An empty folder for the test. It is deleted with the stage.
  virtual Text Place() = 0;
  // Makes a link. The target is absolute or relative to the link's folder; `folder` says whether it is a
  // folder, for systems that need to know. False if the system can't make such a link.
  virtual bool Link(TextView path, TextView target, bool folder) = 0;
  // Makes a link to a folder, with absolute paths. Works also on systems that can't delete links.
  virtual bool FolderLink(TextView path, TextView target) { return Link(path, target, true); }
  // Renames a folder to "<folder> aside" and puts a link to another one in its place, as another program
  // would. False if the system can't; nothing has changed then.
  virtual bool Swap(TextView folder, TextView target) = 0;
  // True if Swap goes past the system, so that a folder that the system holds can be swapped unseen.
  virtual bool SwapsWhatIsHeld() { return false; }
  // Makes a link to a folder that the file system must not reach, with a file "secret.txt" in it. False if
  // the file system reaches everything.
  virtual bool LinkOut(TextView path) = 0;
  // Whether that folder and its file are unchanged.
  virtual bool OutsideIsUntouched() = 0;
  // Makes the system deny all access to the items in a folder, until a call with `refuse` false or the end of
  // the stage. False if the system can't.
  virtual bool Refuse(TextView folder, bool refuse) = 0;
  // False if folders can't be read-only on this system.
  virtual bool KeepsReadOnlyFolders() { return true; }
  // False if every file shows the archive bit on this system and no folder does.
  virtual bool KeepsArchiveBit() { return true; }
  // False if the system opens the target instead of the link, so that links can't be renamed.
  virtual bool RenamesLinks() { return true; }
  // A folder like Place on another volume; empty if there is none.
  virtual Text OtherVolume() = 0;
};

struct FileSystemStageMaker {
  const char* name;
  std::unique_ptr<FileSystemStage> (*make)();
};
inline void PrintTo(const FileSystemStageMaker& maker, std::ostream* out) { *out << maker.name; }

class FileSystemContract : public testing::TestWithParam<FileSystemStageMaker> {
 protected:
  FileSystemContract() : stage(GetParam().make()), files(stage->Use()) {}

  // A path below Place.
  Text In(TextView name) const { return Concat(stage->Place(), u"\\", name); }
  void Write(TextView name, std::string_view content = "x") {
    ASSERT_TRUE(files.WriteFile(In(name), content));
  }
  void Make(TextView name) { ASSERT_TRUE(files.CreateFolder(In(name))); }
  // The names in a folder below Place, folders with a backslash at the end, links with an arrow.
  std::vector<Text> Names(TextView name = {});
  // All items in Place and below with their contents. Links aren't followed.
  std::string Everything();

  std::unique_ptr<FileSystemStage> stage;
  platform::FileSystem& files;
};

// Items that OpenFound returns.
class FoundItems : public FileSystemContract {
 protected:
  std::unique_ptr<platform::FoundItem> Open(TextView below) {
    return OpenFoundItem(files, stage->Place(), below);
  }

  // Makes a folder "victim" with the same names in it as "f\g", but other contents.
  void MakeAlike() {
    for (const TextView name : {u"f", u"f\\g", u"f\\g\\empty", u"victim", u"victim\\empty"}) Make(name);
    Write(u"f\\g\\a", "mine");
    Write(u"f\\g\\empty\\none", "");
    Write(u"victim\\a", "the victim's");
    Write(u"victim\\empty\\none", "");
  }
  void SwapAFolderThatIsOpen(TextView swapped);
  void ExpectVictimUntouched() {
    EXPECT_EQ(Names(u"victim"), (std::vector<Text>{u"a", u"empty\\"}));
    EXPECT_EQ(Names(u"victim\\empty"), std::vector<Text>{u"none"});
    EXPECT_EQ(files.ReadFile(In(u"victim\\a")), "the victim's");
  }
};
}  // namespace tavix::contract
