#include "frame/tree_colors.h"

#include "frame/support/pub_system.h"

namespace tavix::mdlPubSelf {

void ColorTreeLike(TreeView& tree, const ListView& list) {
  pubSystem.SetTreeBackColor(tree.hWnd, list.BackColor);
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    Node& node = *tree.NodeAt(i);
    node.BackColor = list.BackColor.Get();
    node.ForeColor = list.ForeColor.Get();
  }
}

}  // namespace tavix::mdlPubSelf
