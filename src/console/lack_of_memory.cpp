#include "console/lack_of_memory.h"

#include <cstdio>
#include <cstdlib>
#include <new>

#include "console/progress.h"

namespace tavix::console {
namespace {

int endStatus = 0;

// The new handler: called on any thread when an allocation fails. It must not allocate.
[[noreturn]] void End() {
  Progress::Clear();
  std::fputs("tavix-console: the memory of this system is exhausted\n", stderr);
  std::_Exit(endStatus);
}

}  // namespace

void EndForLackOfMemory(int status) {
  endStatus = status;
  std::set_new_handler(End);
}

}  // namespace tavix::console
