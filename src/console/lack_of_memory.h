#pragma once

namespace tavix::console {

// From now on the process ends at once when memory runs out, with one line on standard error and this exit
// status. It doesn't continue with incomplete data. It leaves the machine as a killed process does: every
// file is whole, and the registry is the old one.
void EndForLackOfMemory(int status);

}  // namespace tavix::console
