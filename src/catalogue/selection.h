#pragma once

#include "controls/tree_view.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// Captions of the master row (row 0 of lst). They say what the next click on it does.
constexpr TextView kCheckAll = u"Check All";
constexpr TextView kUncheckAll = u"Uncheck All";

// Handles a change of a row's tick in lst. The master row copies its tick to all rows and changes its
// caption. Other rows do nothing. While ListGuard is set, no row does anything.
void lst_ItemCheck(int item);

// Handles a change of a tick in the privacy tree. A branch copies its tick to its functions. A function ticks
// its branch, whichever way it changed itself; the branch gets the button-face colour while any function in
// it is unticked.
void trvPrivacy_NodeCheck(Node& node);
// Copies the tick of cbxAll to every row of lsvResult. Does nothing if there are more than 32,767 rows.
void cbxAll_Click();

}  // namespace tavix::mdlPubSelf
