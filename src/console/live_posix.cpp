#include "console/live.h"

namespace tavix::console {

std::unique_ptr<LiveSystem> UseLiveSystem(std::string& error) {
  error = "--live needs the Windows build of this program";
  return nullptr;
}

std::vector<std::string> Arguments(int count, char** values) { return {values + 1, values + count}; }

}  // namespace tavix::console
