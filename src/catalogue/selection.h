#pragma once

#include "controls/tree_view.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// Captions of the master row, row 0 of lst: what the next click on it will do.
constexpr TextView kCheckAll = u"Check All";
constexpr TextView kUncheckAll = u"Uncheck All";

// The tick of a row of lst has changed. The master row hands its tick to all rows and changes its caption;
// the other rows do nothing, and neither does any row while `ListGuard` is up.
void lst_ItemCheck(int item);

// A tick of the privacy tree has changed. A branch hands its tick to its children. A function's tick makes
// its branch ticked, and marked with the button-face colour where some function of it is not.
void trvPrivacy_NodeCheck(Node& node);
// Gives every row of lsvResult the tick of cbxAll. More rows than a 16-bit integer counts are left alone.
void cbxAll_Click();

}  // namespace tavix::mdlPubSelf
