#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tavix::console {

// Keeps the system that the console runs on behind the platform's interfaces for as long as it lives.
class LiveSystem {
 public:
  virtual ~LiveSystem() = default;
};

// Null on a system that has none to offer, with the reason in `error`.
std::unique_ptr<LiveSystem> UseLiveSystem(std::string& error);

// The arguments behind the program's name, in UTF-8.
std::vector<std::string> Arguments(int count, char** values);

bool StandardErrorIsTerminal();

}  // namespace tavix::console
