#pragma once

namespace tavix::console {

// From here on a process whose memory is exhausted ends at once, with one line on standard error and the
// status, instead of going on with half of what it was told. What it leaves is what a kill leaves: whole
// files, the old registry.
void EndForLackOfMemory(int status);

}  // namespace tavix::console
