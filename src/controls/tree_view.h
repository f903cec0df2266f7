#pragma once

#include <deque>
#include <unordered_map>
#include <vector>

#include "controls/control.h"

namespace tavix {

class TreeView;

// A node of a tree. Setting `Checked` raises no event; only the user's click does.
class Node : public PropertyOwner {
 public:
  Node(TreeView* tree, int index, TextView key, TextView text, Node* parent);
  Node(const Node&) = delete;

  const Text Key;
  const int Index;  // in the order in which nodes were added, from 1
  Property<Text> Caption;
  Property<bool> Checked{this, false};
  Property<bool> Expanded{this, false};
  // Nobody has looked yet what is below the node. It has the mark of a branch, although it has no children.
  Property<bool> Unopened{this, false};
  Property<bool> Bold{this, false};
  Property<Color> BackColor{this, kWindowBackground};
  Property<Color> ForeColor{this, kWindowText};
  // Pictures before the caption, counted from 1; the second one while the node is selected. 0 for none.
  int Image = 0;
  int SelectedImage = 0;

  Node* Parent() const { return parent_; }
  int Children() const { return children_; }
  Node* Child() const { return child_; }  // the first one
  Node* Next() const { return next_; }    // the next sibling
  Node* FirstSibling() const;

  void PropertyChanged() override;

 private:
  friend class TreeView;
  TreeView* tree_;
  Node* parent_;
  Node* child_ = nullptr;
  Node* lastChild_ = nullptr;
  Node* next_ = nullptr;
  int children_ = 0;
};

// The real tree that shows a model. Called after each change.
class TreePeer {
 public:
  virtual ~TreePeer() = default;
  virtual void NodeAdded(Node& node) = 0;
  virtual void NodeChanged(Node& node) = 0;
  virtual void NodesCleared() = 0;
};

// A tree with check boxes. Its nodes are numbered from 1 in the order in which they were added, and found by
// key.
class TreeView : public Control {
 public:
  Event<Node&> NodeCheck;  // the user has changed a tick; the node has its new state
  Event<Node&> NodeClick;
  Event<int> MouseMove;                         // the buttons held down
  Property<Node*> SelectedItem{this, nullptr};  // null for none; setting it raises no event

  int NodeCount() const { return static_cast<int>(nodes_.size()); }
  // Null if there is no such node.
  Node* NodeAt(int index);
  Node* NodeByKey(TextView key);
  // Adds a node as the last child of `parent`, or as the last root if `parent` is null. If another node has
  // the key, adds nothing and returns null. Any number of nodes may have an empty key.
  Node* AddNode(Node* parent, TextView key, TextView text);
  void Clear();

  // Does what the user's click on a node's check box does.
  void UserCheck(Node& node, bool checked);

  TreePeer* treePeer = nullptr;  // not owned

 private:
  friend class Node;
  std::deque<Node> nodes_;
  std::unordered_map<TextView, Node*> byKey_;
  Node* lastRoot_ = nullptr;
  Node* firstRoot_ = nullptr;
};

}  // namespace tavix
