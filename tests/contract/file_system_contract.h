#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/trust.h"

namespace tavix::contract {

// A file system to try the contract on, with what the interface leaves out.
class FileSystemStage {
 public:
  virtual ~FileSystemStage() = default;
  virtual platform::FileSystem& Use() = 0;
  virtual platform::Trust& UseTrust() = 0;
  // A folder that is there, empty and belongs to the test; it goes with the stage.
  virtual Text Place() = 0;
  // Makes a link. The target is a whole path or relative to the link's folder; `folder` says what kind it
  // is, where the machine wants to know. False where the machine can't have such a link.
  virtual bool Link(TextView path, TextView target, bool folder) = 0;
  // The same to a folder, with whole paths and also where a link can't be deleted.
  virtual bool FolderLink(TextView path, TextView target) { return Link(path, target, true); }
  // Gives a folder the name "<folder> aside" and puts a link to another one at its path, as somebody else
  // would. False where that isn't to be had; nothing has changed then.
  virtual bool Swap(TextView folder, TextView target) = 0;
  // Makes a link to a folder that lies outside of everything the file system may reach and has a file
  // "secret.txt" in it. False where there is no outside.
  virtual bool LinkOut(TextView path) = 0;
  // Whether that folder and the file in it are as they were.
  virtual bool OutsideIsUntouched() = 0;
  // Makes the system refuse every look at what lies in a folder. False where this machine can't. It ends
  // with the stage, or with a call for which `refuse` is false.
  virtual bool Refuse(TextView folder, bool refuse) = 0;
  // False on a system where a folder can't be read-only.
  virtual bool KeepsReadOnlyFolders() { return true; }
  // False on a system where every file shows the archive bit and no folder does.
  virtual bool KeepsArchiveBit() { return true; }
  // False on a system that opens what a link leads to where the link is wanted: then it can't be renamed.
  virtual bool RenamesLinks() { return true; }
  // A folder like Place on another volume; empty where there is none.
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
  // Names in a folder below Place, a backslash behind those of folders, an arrow behind those of links.
  std::vector<Text> Names(TextView name = {});
  // Everything in Place and below with contents, links not gone into.
  std::string Everything();

  std::unique_ptr<FileSystemStage> stage;
  platform::FileSystem& files;
};

// What OpenFound gives.
class FoundItems : public FileSystemContract {
 protected:
  std::unique_ptr<platform::FoundItem> Open(TextView below) { return files.OpenFound(stage->Place(), below); }

  // A folder "victim" that looks like "f\g", down to the names, with other content in its files.
  void MakeAlike() {
    for (const TextView name : {u"f", u"f\\g", u"f\\g\\empty", u"victim", u"victim\\empty"}) Make(name);
    Write(u"f\\g\\a", "mine");
    Write(u"f\\g\\empty\\none", "");
    Write(u"victim\\a", "the victim's");
    Write(u"victim\\empty\\none", "");
  }
  void ExpectVictimUntouched() {
    EXPECT_EQ(Names(u"victim"), (std::vector<Text>{u"a", u"empty\\"}));
    EXPECT_EQ(Names(u"victim\\empty"), std::vector<Text>{u"none"});
    EXPECT_EQ(files.ReadFile(In(u"victim\\a")), "the victim's");
  }
};
}  // namespace tavix::contract
