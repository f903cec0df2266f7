#pragma once

#include <cstdint>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Walkers list files as ticked rows of type `typeText` with the action "F": the files of a folder first, then
// those of its subfolders, depth first, links included. A folder that is missing or can't be read adds
// nothing. Each shows the folder in lblProgS and lets the user interface run once a folder. After Cancel no
// further folder is entered. The caller suspends the painting of the list.

// Every file.
void WalkFolderFiles(TextView folder, TextView typeText);
// Every file but those named `skipName`, letter case aside, wherever they lie.
void WalkFolderFilesExcept(TextView folder, TextView typeText, TextView skipName);
// The shortcuts that are known to lead nowhere.
void WalkInvalidShortcuts(TextView folder, TextView typeText);
// The files whose names fit one of the patterns, joined by ";"; all files for none.
void WalkFolderByPattern(TextView folder, TextView typeText, TextView patterns);
// The files that fit and were last accessed at least `days` calendar days ago; all that fit for 0 or less.
void WalkFolderByPatternAge(TextView folder, TextView typeText, TextView pattern, int16_t days);

}  // namespace tavix::mdlPubSelf
