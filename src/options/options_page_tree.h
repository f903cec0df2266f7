#pragma once

#include <cstdint>

#include "catalogue/functions.h"
#include "controls/tree_view.h"

// trv, the tree of the pages of the options window.
namespace tavix::mdlPubSelf {

// Their numbers, beside those that functions have their options on.
constexpr int16_t kOneClickPage = 1;
constexpr int16_t kCleaningMethodPage = 4;

// Builds the tree anew.
void BuildPageTree();
// A page was chosen: it is shown in place of the others, with its title, picture and remark, and its node is
// the selected one.
void trv_NodeClick(Node& node);
// The same by the program. A number that no page has does nothing.
void ShowOptionsPage(int16_t page);
bool IsOptionsPageShown(int16_t page);

}  // namespace tavix::mdlPubSelf
