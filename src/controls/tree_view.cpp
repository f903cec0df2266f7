#include "controls/tree_view.h"

namespace tavix {

Node::Node(TreeView* tree, int index, TextView key, TextView text, Node* parent)
    : Key(key), Index(index), Caption(this, Text(text)), tree_(tree), parent_(parent) {}

Node* Node::FirstSibling() const { return parent_ != nullptr ? parent_->child_ : tree_->firstRoot_; }

void Node::PropertyChanged() {
  if (tree_->treePeer != nullptr) tree_->treePeer->NodeChanged(*this);
}

Node* TreeView::NodeAt(int index) {
  return index >= 1 && index <= NodeCount() ? &nodes_[static_cast<size_t>(index) - 1] : nullptr;
}

Node* TreeView::NodeByKey(TextView key) {
  const auto found = byKey_.find(key);
  return found != byKey_.end() ? found->second : nullptr;
}

Node* TreeView::AddNode(Node* parent, TextView key, TextView text) {
  if (NodeByKey(key) != nullptr) return nullptr;
  Node& node = nodes_.emplace_back(this, NodeCount() + 1, key, text, parent);
  if (!node.Key.empty()) byKey_.emplace(node.Key, &node);
  Node*& first = parent != nullptr ? parent->child_ : firstRoot_;
  Node*& last = parent != nullptr ? parent->lastChild_ : lastRoot_;
  (last != nullptr ? last->next_ : first) = &node;
  last = &node;
  if (parent != nullptr) ++parent->children_;
  if (treePeer != nullptr) treePeer->NodeAdded(node);
  return &node;
}

void TreeView::Clear() {
  SelectedItem = nullptr;
  byKey_.clear();
  nodes_.clear();
  firstRoot_ = lastRoot_ = nullptr;
  if (treePeer != nullptr) treePeer->NodesCleared();
}

void TreeView::UserCheck(Node& node, bool checked) {
  node.Checked = checked;
  NodeCheck(node);
}

}  // namespace tavix
