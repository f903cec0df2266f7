#pragma once

#include <map>

#include "doubles/faults.h"
#include "platform/machine/formats/file_store.h"
#include "platform/machine/formats/machine_path.h"
#include "text/letter_case.h"

namespace tavix::machine {

// A store in memory. Names in a folder differ in more than letter case. Each drive is its own volume.
class MemoryStore : public FileStore {
 public:
  struct Node {
    Text name;
    EntryKind kind = EntryKind::Folder;
    std::string content;
    uint64_t size = 0;  // of a file; bytes after the content read as NULs
    LinkTarget target;
    platform::DateTime modified = 0;
    platform::DateTime accessed = 0;
    bool ofOthers = false;     // belongs to another user
    bool isProtected = false;  // has an access list under which no other user can change it
    std::map<Text, std::shared_ptr<Node>, LessIgnoringCase> children;
    std::weak_ptr<Node> parent;

    ~Node();
  };

  MemoryStore();
  std::unique_ptr<StoreFolder> Root() override;
  std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) override;

  // Makes the node at a path below the root, with all folders above it. An existing node of another kind, and
  // an existing file or link, is replaced. A new node has the clock's time.
  Node& Make(const std::vector<Text>& names, EntryKind kind);

  // The node at a path below the root, links not followed. Null when it is missing.
  Node* Find(const std::vector<Text>& names);

  // Operations have the names of StoreFolder's routines; the path is the name in the folder. A failing Find
  // can't tell and isn't counted as a call.
  Faults faults;

 private:
  std::shared_ptr<Node> root_;
};

}  // namespace tavix::machine
