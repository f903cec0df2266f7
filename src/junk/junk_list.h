#pragma once

#include "controls/list_view.h"

// The junk types as rows of lsvJF: description, pattern; a row's tag is its recommended flag, its tick the
// enabled one. A built-in type is known by the grey colour of its row and by nothing else.
namespace tavix::mdlPubSelf {

constexpr int kPatternColumn = 1;

bool IsBuiltIn(const ListView::Item& row);

// Fills the list from JunkTypes and selects its first row. An element without a pattern gives a row without.
void ShowJunkTypes();
// Rewrites both files from the rows, in their order; with no row they are left alone. A crash leaves the old
// or the new content of each.
void SaveJunkTypes();

// A junk file that is read-only isn't any more, so that what the user has entered gets into it.
void MakeWritable(TextView file);

// Selects a row alone, as EnableJunkCommands then has it.
void SelectJunkRow(int row);
// Edit and Delete are enabled where the row in focus is the user's. An empty list enables them.
void EnableJunkCommands();

}  // namespace tavix::mdlPubSelf
