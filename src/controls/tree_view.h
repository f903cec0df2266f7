#pragma once

#include <deque>
#include <unordered_map>
#include <vector>

#include "controls/control.h"

namespace tavix {

class TreeView;

// A node of a tree. Setting `Checked` here raises no event: only the user's click does.
class Node : public PropertyOwner {
 public:
  Node(TreeView* tree, int index, TextView key, TextView text, Node* parent);
  Node(const Node&) = delete;

  const Text Key;
  const int Index;  // position in the tree's node collection, counted from 1
  Property<Text> Caption;
  Property<bool> Checked{this, false};
  Property<bool> Expanded{this, false};
  Property<bool> Bold{this, false};
  Property<Color> BackColor{this, kWindowBackground};
  Property<Color> ForeColor{this, kWindowText};
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

class TreePeer {
 public:
  virtual ~TreePeer() = default;
  virtual void NodeAdded(Node& node) = 0;
  virtual void NodeChanged(Node& node) = 0;
  virtual void NodesCleared() = 0;
};

// A tree with check boxes. Nodes are kept in one collection in the order in which they were added,
// addressed from 1, and found by key.
class TreeView : public Control {
 public:
  Event<Node&> NodeCheck;  // the user changed a tick; the node bears it already
  Event<Node&> NodeClick;
  Event<int> MouseMove;                         // the buttons held down
  Property<Node*> SelectedItem{this, nullptr};  // setting it raises nothing

  int NodeCount() const { return static_cast<int>(nodes_.size()); }
  // Null when there is no such node.
  Node* NodeAt(int index);
  Node* NodeByKey(TextView key);
  // Adds the last child of `parent`, or a root when that is null. Null, and nothing added, when the key is
  // in use already; an empty key is none and may stand at any number of nodes.
  Node* AddNode(Node* parent, TextView key, TextView text);
  void Clear();

  // What a user's click on the box of a node does.
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
