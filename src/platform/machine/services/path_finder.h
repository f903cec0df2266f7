#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/existence.h"
#include "platform/machine/formats/file_store.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/formats/machine_path.h"

namespace tavix::machine {

// A place of a machine, where something exists or could be made.
struct Place {
  Text path;                            // as requested, names spelled as in the store
  Text realPath;                        // the same with the links on it resolved
  Text name;                            // the last name of `path`; empty for a root
  std::unique_ptr<StoreFolder> parent;  // the store's folder that holds it
  Text storeName;                       // the name in `parent`
  std::optional<StoreEntry> entry;      // nothing when it is missing
  bool root = false;                    // the root of a drive or of the application folder

  bool IsFile() const { return entry && entry->kind == EntryKind::File; }
  bool IsFolder() const { return entry && entry->kind == EntryKind::Folder; }
  bool IsLink() const { return entry && entry->kind == EntryKind::Link; }
};

// An open folder, without its parent.
struct FolderPlace {
  Text path;  // as in Place
  Text realPath;
  std::unique_ptr<StoreFolder> folder;  // null for an empty drive without a folder in the store
};

// Finds the places of paths. It walks from open folder to open folder and resolves links itself, so nothing
// outside the drives and the application folder is reached.
class PathFinder {
 public:
  PathFinder(FileStore& store, const MachineFacts& facts) : store_(store), facts_(facts) {}

  enum class Last {
    Itself,    // a link as the last name is not followed
    Followed,  // it is followed
  };

  // The place of a path. Nothing when its parent folder is missing, a link leads out or in circles, the drive
  // isn't ready, or it can't be told. A ready drive may have no folder in the store; `make` makes one.
  std::optional<Place> Find(TextView path, Last last, bool make = false);
  // Whether the item at a path, links followed, is of this kind; the same answers as FileExists and
  // FolderExists of platform::FileSystem.
  platform::Existence Exists(TextView path, EntryKind kind);
  // The folder at a path, links followed. Nothing when there is none.
  std::optional<FolderPlace> FindFolder(TextView path);
  // The folder at the path `below` under a folder; an empty one is that folder. It is found as by FindFolder;
  // below it no link is followed. Nothing when a name isn't a folder.
  std::optional<FolderPlace> FindBelow(TextView start, TextView below);
  // Whether a link leads to a folder of the machine.
  bool LeadsToFolder(TextView link);

 private:
  struct Step {
    Text name;
    bool shown = false;  // part of the requested path, not of a link's target
  };
  struct Walk;

  // These give nothing and set `sure` to false when it can't be told.
  std::optional<Place> Find(TextView path, Last last, bool make, bool& sure);
  std::optional<Place> FindFrom(const MachinePath& asked, Last last, bool& sure);
  std::unique_ptr<StoreFolder> OpenDrives();
  // Whether a drive has a folder in the store, and making it.
  bool HasFolder(char16_t drive);
  bool MakeFolder(char16_t drive);
  bool FollowLink(Walk& walk, TextView name, bool& sure);
  std::optional<Place> Finish(Walk& walk, const Text& name, std::optional<StoreEntry> entry);

  FileStore& store_;
  const MachineFacts& facts_;
};

}  // namespace tavix::machine
