#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/machine/formats/file_store.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/formats/machine_path.h"

namespace tavix::machine {

// A place of a machine, where something stands or could be made.
struct Place {
  Text path;                            // with the names that were asked for, as the store has them
  Text realPath;                        // the same with links on the way replaced by what they lead to
  Text name;                            // the last of the path's names; empty for a root
  std::unique_ptr<StoreFolder> parent;  // the folder in the store
  Text storeName;                       // the name in it
  std::optional<StoreEntry> entry;      // what stands there; nothing when it is missing
  bool root = false;                    // of a drive or of the application folder

  bool IsFile() const { return entry && entry->kind == EntryKind::File; }
  bool IsFolder() const { return entry && entry->kind == EntryKind::Folder; }
  bool IsLink() const { return entry && entry->kind == EntryKind::Link; }
};

// A folder, with no look at where it lies.
struct FolderPlace {
  Text path;  // as in Place
  Text realPath;
  std::unique_ptr<StoreFolder> folder;  // null for a drive with nothing on it
};

// Finds the places of paths. It goes from open folder to open folder and follows links by itself, so
// nothing outside the drives and the application folder is ever reached.
class PathFinder {
 public:
  PathFinder(FileStore& store, const MachineFacts& facts) : store_(store), facts_(facts) {}

  enum class Last {
    Itself,    // a link as the last name is the place
    Followed,  // what it leads to is
  };

  // Nothing when the folder of the last name is missing, a link leads out or in circles, the drive isn't
  // ready, or it can't be told what stands there. A ready drive is there without a folder of its own in the
  // store, which `make` makes.
  std::optional<Place> Find(TextView path, Last last, bool make = false);
  // Whether what stands at a path, links followed, is of this kind, as platform::FileSystem's FileExists and
  // FolderExists have it.
  platform::Existence Stands(TextView path, EntryKind kind);
  // The folder that a path leads to. Nothing when it leads to none.
  std::optional<FolderPlace> FindFolder(TextView path);
  // What stands at the names `below` under a folder. That folder is found as FindFolder does it; below it no
  // link is followed. Nothing when a name before the last is no folder, or the last one is missing.
  std::optional<Place> FindBelow(TextView start, TextView below);
  // Whether a link leads to a folder of the machine.
  bool LeadsToFolder(TextView link);

 private:
  struct Step {
    Text name;
    bool shown = false;  // stands in the path that was asked for
  };
  struct Walk;

  // Where it can't be told what stands there, `sure` becomes false and nothing is given.
  std::optional<Place> Find(TextView path, Last last, bool make, bool& sure);
  std::optional<Place> FindFrom(const MachinePath& asked, Last last, bool& sure);
  std::unique_ptr<StoreFolder> OpenDrives();
  // The folder of a drive in the store.
  bool HasFolder(char16_t drive);
  bool MakeFolder(char16_t drive);
  bool FollowLink(Walk& walk, TextView name, bool& sure);
  std::optional<Place> Finish(Walk& walk, const Text& name, std::optional<StoreEntry> entry);

  FileStore& store_;
  const MachineFacts& facts_;
};

}  // namespace tavix::machine
