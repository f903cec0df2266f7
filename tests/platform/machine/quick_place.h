#pragma once

#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace tavix::machine {

// Puts temporary files into memory, if the system has such a folder, for tests that make thousands of files.
class QuickPlace {
 public:
  QuickPlace() {
    if (const char* old = getenv("TMPDIR")) old_ = old;
    if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 1);
  }
  ~QuickPlace() { old_ ? setenv("TMPDIR", old_->c_str(), 1) : unsetenv("TMPDIR"); }
  QuickPlace(const QuickPlace&) = delete;
  QuickPlace& operator=(const QuickPlace&) = delete;

 private:
  std::optional<std::string> old_;
};

}  // namespace tavix::machine
