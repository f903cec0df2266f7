#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The duplicate finder keeps its findings in text files, one path a line:
//   DupeFiles\scanned\<bucket>\<name>       the candidates of one file name
//   DupeFiles\compared\<bucket>\<name>_<i>  a group of duplicates, of which candidate i is the first
// A bucket is a letter, or "other" for names that don't begin with one of A to Z.

// Adds a candidate to the file of its name.
void WriteDuplicateCandidate(TextView name, TextView path);

// "'A*'" for the bucket of a letter, otherwise "other".
Text BucketTitle(TextView bucket);

}  // namespace tavix::mdlPubSelf
