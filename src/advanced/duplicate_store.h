#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The duplicate finder keeps its findings in text files with one path on each line:
//   DupeFiles\scanned\<bucket>\<name>       the candidates with this file name
//   DupeFiles\compared\<bucket>\<name>_<i>  a group of duplicates; its first member is candidate i
// A bucket is the first letter of the name, or "other" if the name doesn't begin with a letter A to Z.

// Appends a path to the candidate file of its name.
void WriteDuplicateCandidate(TextView name, TextView path);

// The bucket's name in messages: "'A*'" for a letter, otherwise "other".
Text BucketTitle(TextView bucket);

}  // namespace tavix::mdlPubSelf
