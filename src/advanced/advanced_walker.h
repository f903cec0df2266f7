#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Applies the functions that `funcs` names, each between two bars, to a folder: for each finding a row. With
// `recurse` to all folders below as well, each after its files, links included. A folder whose files add up
// to zero bytes is one row, and nothing in it is looked at. Shows the folder in lblProgS and lets the user
// interface run once a folder. A folder that is missing adds nothing; after Cancel none is looked at.
void WalkAdvancedFolder(TextView folder, TextView funcs, bool recurse);

}  // namespace tavix::mdlPubSelf
