#pragma once

namespace tavix::mdlPubSelf {

// Asks the product's site for the latest version. If it isn't the one that runs, shows the notes and offers
// to download it; if the user agrees, opens the download and ends the program.
//
// Without an answer there is no other version. Nor is there if the answer can't be a version: longer than 64
// characters, with "<", or with a control character other than a line end. The notes are shown without
// characters that change the direction of reading and without control characters, except line ends.

// At start: without another version, says nothing.
void CheckForUpdate();
// By the user: without another version, says so.
void menhl_Click();

}  // namespace tavix::mdlPubSelf
