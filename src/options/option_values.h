#pragma once

#include <cstdint>

namespace tavix::mdlPubSelf {

// Fills the controls of an options page from the settings in memory.
void ShowOptions(int16_t page);
// Writes the settings of a page into the file, one by one. The settings in memory stay. What can't be saved
// (a text that is no number of 16 bits, a group without a chosen button, a backup folder not in use) stays in
// the file as it is.
void SaveOptions(int16_t page);

}  // namespace tavix::mdlPubSelf
