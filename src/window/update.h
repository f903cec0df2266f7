#pragma once

namespace tavix::mdlPubSelf {

// Asks the product's site whether it has another version than the one that runs, and if so offers to fetch
// it; the program ends when the user agrees. What goes wrong passes for no other version, and so
// does an answer that is no short plain text: over 64 characters, with control characters other than line
// ends, or with "<". The notes are shown without control characters, line ends apart, and without those that
// turn the order of reading.
//
// At start. Says nothing where there is no other version.
void CheckForUpdate();
// By hand. Tells the user as well where there is none.
void menhl_Click();

}  // namespace tavix::mdlPubSelf
