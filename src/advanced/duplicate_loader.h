#pragma once

namespace tavix::mdlPubSelf {

// Shows the groups of duplicates found so far as rows, one for each member, and deletes their files. The
// first member of a group is the copy that is kept: it has a colour of its own and no tick. Ends with the
// closing line of a scan in lblProgS, whether or not the scan is over. A group file that can't be read shows
// nothing; one that can't be deleted is shown again the next time.
void LoadDuplicateResults();

// Loads what there is every few seconds while duplicates are being compared.
void timLoader_Timer();

}  // namespace tavix::mdlPubSelf
