#pragma once

#include <cstdint>

#include "catalogue/functions.h"
#include "controls/tree_view.h"

// trv is the tree of the pages of the options window.
namespace tavix::mdlPubSelf {

// Page numbers. catalogue/functions.h has those that functions link to.
constexpr int16_t kOneClickPage = 1;
constexpr int16_t kCleaningMethodPage = 4;

// Fills the tree.
void BuildPageTree();
// Shows the page of a node in place of the others, with its title, picture and remark, and selects the node.
void trv_NodeClick(Node& node);
// The same for a page number. An unknown number does nothing.
void ShowOptionsPage(int16_t page);
bool IsOptionsPageShown(int16_t page);

}  // namespace tavix::mdlPubSelf
