#pragma once

#include <map>

#include "doubles/faults.h"
#include "platform/machine/formats/file_store.h"
#include "platform/machine/formats/machine_path.h"
#include "text/letter_case.h"

namespace tavix::machine {

// A store in memory. Of names that differ only in case there is one. Each drive is a volume of its own.
class MemoryStore : public FileStore {
 public:
  struct Node {
    Text name;
    EntryKind kind = EntryKind::Folder;
    std::string content;
    uint64_t size = 0;  // of a file; more than the content has stands for NULs
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

  // The node below the root, made with all on the way where it is missing; what stands there as something
  // else is replaced. A new node has the time of the clock.
  Node& Make(const std::vector<Text>& names, EntryKind kind);

  // The node below the root, links not followed; null where there is none.
  Node* Find(const std::vector<Text>& names);

  // Operations have the names of StoreFolder's routines; the path is the name in the folder. A Find that
  // fails can't tell; it isn't counted as a call.
  Faults faults;

 private:
  std::shared_ptr<Node> root_;
};

}  // namespace tavix::machine
