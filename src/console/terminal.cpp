#include "console/terminal.h"

namespace tavix::console {

std::optional<std::string> ReadLine() {
  std::string line;
  for (int c = std::getchar(); c != '\n'; c = std::getchar()) {
    if (c == EOF) return line.empty() ? std::nullopt : std::optional(line);
    if (c != '\r') line.push_back(static_cast<char>(c));
  }
  return line;
}

}  // namespace tavix::console
