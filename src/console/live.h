#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tavix::console {

// While it lives, the platform's interfaces lead to the system that the console runs on.
class LiveSystem {
 public:
  virtual ~LiveSystem() = default;
};

// Null if this build can't work on the running system; `error` says why.
std::unique_ptr<LiveSystem> UseLiveSystem(std::string& error);

// The command-line arguments after the program's name, in UTF-8.
std::vector<std::string> Arguments(int count, char** values);

}  // namespace tavix::console
