#pragma once

namespace tavix::mdlPubSelf {

// Adds a row for each member of the groups of duplicates found so far, and deletes the group files. The first
// member of a group is the copy to keep: its row has a colour of its own and no tick. Shows the closing line
// of a scan in lblProgS, even if the scan isn't over. A group file that can't be read adds nothing. One that
// can't be deleted is shown again by the next call.
void LoadDuplicateResults();

// Calls LoadDuplicateResults every few seconds while duplicates are being compared.
void timLoader_Timer();

}  // namespace tavix::mdlPubSelf
