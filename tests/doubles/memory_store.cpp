#include "doubles/memory_store.h"

namespace tavix::machine {
namespace {

using Node = MemoryStore::Node;

// Larger seeded sizes can't be read: the content would have to be filled up to them.
constexpr uint64_t kMaxRead = uint64_t{64} << 20U;

platform::DateTime Now() {
  const platform::DateTime now = platform::clock->Now();
  return now != platform::kUnknownTime ? now : 0;
}

std::shared_ptr<Node> NewNode(TextView name, EntryKind kind) {
  auto node = std::make_shared<Node>();
  node->name = name;
  node->kind = kind;
  node->modified = node->accessed = Now();
  return node;
}

StoreEntry Entry(const Node& node) {
  return {node.name, node.kind, node.kind == EntryKind::File ? node.size : 0, node.modified, node.accessed};
}

// The letter of the drive that a node is or lies on. 0 outside the drives.
char16_t Volume(const std::shared_ptr<Node>& start) {
  std::shared_ptr<Node> below;  // two levels under `node`; `above` is one level under it
  std::shared_ptr<Node> above;
  for (std::shared_ptr<Node> node = start; node != nullptr; node = node->parent.lock()) {
    if (node->parent.expired())
      return below != nullptr && above->name == u"drives" ? below->name.front() : u'\0';
    below = above;
    above = node;
  }
  return 0;
}

// The folder at a path of exact names. Null when it is missing or no folder.
std::shared_ptr<Node> FindFolder(const std::shared_ptr<Node>& root, const std::vector<Text>& names) {
  std::shared_ptr<Node> node = root;
  for (const Text& name : names) {
    const auto found = node->children.find(name);
    if (found == node->children.end() || found->second->name != name ||
        found->second->kind != EntryKind::Folder) {
      return nullptr;
    }
    node = std::shared_ptr<Node>(found->second);
  }
  return node;
}

class MemoryFolder : public StoreFolder {
 public:
  MemoryFolder(std::shared_ptr<Node> node, Faults& faults) : node_(std::move(node)), faults_(faults) {}
  // The folder at a path below the root of a store.
  MemoryFolder(std::shared_ptr<Node> node, Faults& faults, std::shared_ptr<Node> root,
               std::vector<Text> names)
      : node_(std::move(node)), faults_(faults), root_(std::move(root)), names_(std::move(names)) {}

  bool Stands() override { return root_ != nullptr && FindFolder(root_, names_) == node_; }

  using StoreFolder::Find;
  std::optional<StoreEntry> Find(TextView name, bool& sure) override {
    if (faults_.Fails(u"Find", name)) {
      sure = false;
      return std::nullopt;
    }
    const Node* found = Child(name);
    return found != nullptr ? std::optional(Entry(*found)) : std::nullopt;
  }

  bool Read(std::vector<StoreEntry>& entries) override {
    if (faults_.Hit(u"Read", node_->name)) return false;
    for (const auto& [name, child] : node_->children) entries.push_back(Entry(*child));
    return true;
  }

  std::unique_ptr<StoreFolder> Open(TextView name) override {
    const auto found = node_->children.find(name);
    if (found == node_->children.end() || found->second->kind != EntryKind::Folder) return nullptr;
    return std::make_unique<MemoryFolder>(found->second, faults_);
  }

  std::optional<LinkTarget> ReadLink(TextView name) override {
    const Node* found = Child(name);
    if (found == nullptr || found->kind != EntryKind::Link) return std::nullopt;
    return found->target;
  }

  std::optional<std::string> ReadFile(TextView name) override {
    const Node* found = Child(name);
    if (faults_.Hit(u"ReadFile", name) || found == nullptr || found->kind != EntryKind::File ||
        found->size > kMaxRead) {
      return std::nullopt;
    }
    std::string content = found->content;
    content.resize(found->size);
    return content;
  }

  bool MakeFolder(TextView name) override {
    return !faults_.Hit(u"MakeFolder", name) && Add(NewChild(name, EntryKind::Folder));
  }

  bool MakeFile(TextView name) override {
    return !faults_.Hit(u"MakeFile", name) && Add(NewChild(name, EntryKind::File));
  }

  bool WriteFile(TextView name, std::string_view content) override {
    if (faults_.Hit(u"WriteFile", name)) return false;
    return Put(name, std::string(content));
  }

  bool Append(TextView name, std::string_view content) override {
    if (faults_.Hit(u"Append", name)) return false;
    std::string whole;
    if (const Node* found = Child(name)) {
      whole = found->content;
      whole.resize(found->size);
    }
    return Put(name, whole.append(content));
  }

  bool Remove(TextView name) override {
    const Node* found = Child(name);
    if (faults_.Hit(u"Remove", name) || found == nullptr || found->kind == EntryKind::Folder) return false;
    return Erase(name);
  }

  bool RemoveTree(TextView name) override {
    const Node* found = Child(name);
    if (faults_.Hit(u"RemoveTree", name) || found == nullptr || found->kind != EntryKind::Folder)
      return false;
    return Erase(name);
  }

  bool RemoveEmptyTree(TextView name) override {
    Node* found = Child(name);
    if (faults_.Hit(u"RemoveTree", name) || found == nullptr || found->kind != EntryKind::Folder)
      return false;
    return RemoveEmpty(*found) && Erase(name);
  }

  std::optional<uint64_t> TreeSize(TextView name) override {
    const Node* found = Child(name);
    if (found == nullptr) return std::nullopt;
    uint64_t size = 0;
    for (std::vector<const Node*> pending{found}; !pending.empty();) {
      const Node* node = pending.back();
      pending.pop_back();
      if (node->kind == EntryKind::File) size += node->size;
      for (const auto& [childName, child] : node->children) pending.push_back(child.get());
    }
    return size;
  }

  MoveResult Move(TextView name, StoreFolder& to, TextView newName) override {
    auto& target = static_cast<MemoryFolder&>(to);
    if (faults_.Hit(u"Move", name)) return MoveResult::Failed;
    const auto found = node_->children.find(name);
    if (found == node_->children.end() || target.Child(newName) != nullptr) return MoveResult::Failed;
    const char16_t from = Volume(node_);
    const char16_t toDrive = Volume(target.node_);
    if (from != toDrive && from != 0 && toDrive != 0) return MoveResult::OtherVolume;
    const std::shared_ptr<Node> node = found->second;
    node_->children.erase(found);
    node->name = newName;
    return target.Add(node) ? MoveResult::Done : MoveResult::Failed;
  }

  bool Copy(TextView name, StoreFolder& to, TextView newName) override {
    const Node* found = Child(name);
    auto& target = static_cast<MemoryFolder&>(to);
    if (faults_.Hit(u"Copy", name) || found == nullptr || found->kind != EntryKind::File) return false;
    const auto copy = NewNode(newName, EntryKind::File);
    copy->content = found->content;
    copy->size = found->size;
    copy->modified = found->modified;
    return target.Add(copy);
  }

 private:
  Node* Child(TextView name) const {
    const auto found = node_->children.find(name);
    return found == node_->children.end() ? nullptr : found->second.get();
  }

  // A new item inherits the folder's access list.
  std::shared_ptr<Node> NewChild(TextView name, EntryKind kind) const {
    auto node = NewNode(name, kind);
    node->isProtected = node_->isProtected;
    return node;
  }

  bool Add(const std::shared_ptr<Node>& node) {
    if (!node_->children.emplace(node->name, node).second) return false;
    node->parent = node_;
    node_->modified = Now();
    return true;
  }

  // Removes empty files and empty folders. True when nothing is left in the folder.
  static bool RemoveEmpty(Node& folder) {
    std::erase_if(folder.children, [](const auto& child) {
      const Node& node = *child.second;
      return node.kind == EntryKind::Folder ? RemoveEmpty(*child.second)
                                            : node.kind == EntryKind::File && node.size == 0;
    });
    return folder.children.empty();
  }

  bool Erase(TextView name) {
    node_->children.erase(node_->children.find(name));
    node_->modified = Now();
    return true;
  }

  bool Put(TextView name, std::string content) {
    Node* node = Child(name);
    if (node == nullptr) {
      if (!Add(NewChild(name, EntryKind::File))) return false;
      node = Child(name);
    }
    if (node->kind != EntryKind::File) return false;
    node->content = std::move(content);
    node->size = node->content.size();
    node->modified = Now();
    return true;
  }

  std::shared_ptr<Node> node_;
  Faults& faults_;
  std::shared_ptr<Node> root_;  // null for a folder opened in another
  std::vector<Text> names_;
};

}  // namespace

// Without recursion: folders may be nested very deeply.
MemoryStore::Node::~Node() {
  std::vector<std::shared_ptr<Node>> pending;
  const auto take = [&pending](Node& node) {
    for (auto& [childName, child] : node.children) pending.push_back(std::move(child));
    node.children.clear();
  };
  take(*this);
  while (!pending.empty()) {
    const std::shared_ptr<Node> node = std::move(pending.back());
    pending.pop_back();
    if (node.use_count() == 1) take(*node);
  }
}

MemoryStore::MemoryStore() : root_(NewNode({}, EntryKind::Folder)) {}

std::unique_ptr<StoreFolder> MemoryStore::Root() { return std::make_unique<MemoryFolder>(root_, faults); }

std::unique_ptr<StoreFolder> MemoryStore::Open(const std::vector<Text>& names) {
  std::shared_ptr<Node> node = FindFolder(root_, names);
  return node != nullptr ? std::make_unique<MemoryFolder>(std::move(node), faults, root_, names) : nullptr;
}

MemoryStore::Node& MemoryStore::Make(const std::vector<Text>& names, EntryKind kind) {
  std::shared_ptr<Node> node = root_;
  for (size_t i = 0; i < names.size(); ++i) {
    const bool last = i + 1 == names.size();
    const EntryKind wanted = last ? kind : EntryKind::Folder;
    std::shared_ptr<Node>& child = node->children[names[i]];
    if (child == nullptr || child->kind != wanted || (last && kind != EntryKind::Folder)) {
      child = NewNode(names[i], wanted);
      child->parent = node;
    }
    node = std::shared_ptr<Node>(child);
  }
  return *node;
}

MemoryStore::Node* MemoryStore::Find(const std::vector<Text>& names) {
  Node* node = root_.get();
  for (const Text& name : names) {
    const auto found = node->children.find(name);
    if (found == node->children.end()) return nullptr;
    node = found->second.get();
  }
  return node;
}

}  // namespace tavix::machine
