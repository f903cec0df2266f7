#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Applies functions to a folder and adds a row for each finding. `funcs` names the functions, each between
// two bars. With `recurse` the walk goes on into all folders below, links to folders included; the files of a
// folder come before its subfolders. A folder whose files add up to zero bytes is one row, and its content
// isn't looked at. Shows each folder in lblProgS and yields to the user interface once for each, and now and
// then in a folder that takes long or has more than 1,000 entries. A missing folder adds nothing. After
// Cancel no further folder is looked at.
void WalkAdvancedFolder(TextView folder, TextView funcs, bool recurse);

}  // namespace tavix::mdlPubSelf
