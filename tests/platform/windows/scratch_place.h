#pragma once

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/windows/windows_file_system.h"
#include "text/text.h"

namespace tavix::windows {

// A new folder below the user's temporary folder. It is deleted with its content at the end.
class ScratchPlace {
 public:
  ScratchPlace();
  ~ScratchPlace();
  ScratchPlace(const ScratchPlace&) = delete;
  ScratchPlace& operator=(const ScratchPlace&) = delete;

  // The path of the folder; In: the path of an item in it.
  const Text& Path() const { return path_; }
  Text In(TextView name) const;
  // Makes a file in an existing folder. Returns its path, as do the next two.
  Text File(TextView name, std::string_view content = "content") const;
  Text Folder(TextView name) const;
  // Makes a link to a folder: a junction, or under Wine, which has none, a symbolic link of the host.
  Text FolderLink(TextView name, TextView target) const;
  // Renames a folder to "<name> aside" and puts a link to another one in its place. False if Windows refuses
  // to rename the folder because it is in use. Under Wine the host renames it.
  bool Swap(TextView name, TextView target) const;
  // Starts exchanging a folder and a link by name, with `pause` milliseconds after each time; 0 is as fast as
  // it can. Under Wine a process of the host does it in one step. On Windows a thread does it by three
  // renames, which fail while the folder is held. False if it can't be started.
  bool StartExchanging(TextView one, TextView other, TextView pause) const;
  // Ends that and waits for it. The names are as before.
  void StopExchanging() const;
  // Makes a link to a file. False under Wine, and without the right to make links.
  bool FileLink(TextView name, TextView target) const;

 private:
  Text path_;
  mutable std::vector<Text> links_;
  mutable std::jthread exchanging_;
};

// Whether the tests run under Wine.
bool IsWine();
// Whether the tests may empty the recycle bin. Wine uses the host's bin, so the host needs a private one.
bool HasBinOfItsOwn();
// Empties that bin without the shell: Wine leaves read-only files and folders with content in it.
void ClearBin();
// Waits until a condition holds, for minutes if need be: other programs, and Windows itself, take their time
// on a busy machine. False if it never did.
bool WaitUntil(const std::function<bool()>& condition);
// The content of a file that a started program writes, once it ends with a line break: the program may write
// a line in pieces.
std::string ContentWhenThere(TextView path);
// The attributes or the content of a file, read without the code under test.
DWORD AttributesOf(TextView path);
std::string ContentOf(TextView path);
// A folder on another volume that tests may fill; empty if there is none.
Text OtherVolume();

}  // namespace tavix::windows
