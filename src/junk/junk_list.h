#pragma once

#include "controls/list_view.h"

// The junk types as rows of lsvJF. The columns are description and pattern, the tag is the recommended flag,
// the tick is the enabled flag. The grey colour of a row is all that marks a built-in type.
namespace tavix::mdlPubSelf {

constexpr int kPatternColumn = 1;

bool IsBuiltIn(const ListView::Item& row);

// Fills the list from JunkTypes and selects its first row.
void ShowJunkTypes();
// Rewrites both files from the rows, in the order of the rows. Does nothing if there are no rows. A crash
// leaves each file with either its old or its new content.
void SaveJunkTypes();

// Removes the read-only attribute of a junk file so that it can be written.
void MakeWritable(TextView file);

// Selects this row only, then calls EnableJunkCommands.
void SelectJunkRow(int row);
// Enables Edit and Delete if the selected row is a user type or no row is selected; otherwise disables them.
void EnableJunkCommands();

}  // namespace tavix::mdlPubSelf
