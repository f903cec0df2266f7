#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/windows/windows_file_system.h"
#include "text/text.h"

namespace tavix::windows {

// A folder of its own below the user's temporary folder; gone with all its content at the end.
class ScratchPlace {
 public:
  ScratchPlace();
  ~ScratchPlace();
  ScratchPlace(const ScratchPlace&) = delete;
  ScratchPlace& operator=(const ScratchPlace&) = delete;

  // Its path, or that of something in it.
  const Text& Path() const { return path_; }
  Text In(TextView name) const;
  // Makes a file with this content, its folder being there.
  Text File(TextView name, std::string_view content = "content") const;
  Text Folder(TextView name) const;
  // Makes a link to a folder: a junction, or under Wine, which has none, a link of the host.
  Text FolderLink(TextView name, TextView target) const;
  // Gives a folder the name "<name> aside" and puts a link to another one at its path. False where the system
  // doesn't let the folder go because it is in use; Wine isn't asked.
  bool Swap(TextView name, TextView target) const;
  // Has another process exchange two names, one a folder's and one a link's, as fast as it can. False where
  // there is none to do it; Windows has no such exchange.
  bool StartExchanging(TextView one, TextView other) const;
  // Waits until that has ended; the names stand as they did.
  void StopExchanging() const;
  // A link to a file. False without the right to make one, and under Wine.
  bool FileLink(TextView name, TextView target) const;

 private:
  Text path_;
  mutable std::vector<Text> links_;
};

// Whether this is Wine, and no Windows.
bool IsWine();
// Whether the recycle bin is one that the tests may empty. Wine's is the host's, so it needs a place of its
// own.
bool HasBinOfItsOwn();
// Makes that bin empty without the system's help: Wine leaves read-only files and full folders in it.
void ClearBin();
// Waits until a condition holds, for minutes if need be: other programs, and Windows itself, take their time
// on a busy machine. False if it never did.
bool WaitUntil(const std::function<bool()>& condition);
// The content of a file that a started program makes, once it is there.
std::string ContentWhenThere(TextView path);
// What the system itself says, without the code under test.
DWORD AttributesOf(TextView path);
std::string ContentOf(TextView path);
// A folder on another volume, which may be filled; empty if the tests were given none.
Text OtherVolume();

}  // namespace tavix::windows
