#pragma once

#include <cstdint>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Walkers add a ticked row of type `typeText` with the action "F" for each file: first the files of a folder,
// then those of its subfolders, depth first, through links too. A folder that is missing or can't be read
// adds nothing. For each folder they show it in lblProgS and run the user interface once, and in a folder
// that takes long or has more than 1,000 entries now and then. After Cancel they enter no further folder, and
// leave such a folder where they are. The caller suspends the painting of the list.

// All files.
void WalkFolderFiles(TextView folder, TextView typeText);
// All files except those named `skipName`, letter case aside, in any folder.
void WalkFolderFilesExcept(TextView folder, TextView typeText, TextView skipName);
// Shortcuts whose target is known to be missing.
void WalkInvalidShortcuts(TextView folder, TextView typeText);
// Files whose names match one of the patterns, which are joined by ";"; all files if there is none.
void WalkFolderByPattern(TextView folder, TextView typeText, TextView patterns);
// Matching files that were last accessed at least `days` calendar days ago; all matching files for 0 or less.
void WalkFolderByPatternAge(TextView folder, TextView typeText, TextView pattern, int16_t days);

}  // namespace tavix::mdlPubSelf
