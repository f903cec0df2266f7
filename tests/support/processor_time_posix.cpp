#include <ctime>

#include "support/processor_time.h"

namespace tavix {

std::chrono::duration<double> ProcessorTime() {
  return std::chrono::duration<double>(static_cast<double>(std::clock()) / CLOCKS_PER_SEC);
}

}  // namespace tavix
