#pragma once

namespace tavix::mdlPubSelf {

// Asks the product's site whether it has another version than the one that runs, and if so offers to fetch
// it; the program ends when the user agrees. What goes wrong passes for no other version.
//
// At start. Says nothing where there is no other version.
void CheckForUpdate();
// By hand. Tells the user as well where there is none.
void menhl_Click();

}  // namespace tavix::mdlPubSelf
