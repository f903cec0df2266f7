#pragma once

#include <unistd.h>

#include <utility>

namespace tavix::machine {

// An open file or folder of the host.
class HostHandle {
 public:
  HostHandle() = default;
  explicit HostHandle(int handle) : handle_(handle) {}
  ~HostHandle() { Close(); }
  HostHandle(HostHandle&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
  HostHandle& operator=(HostHandle&& other) noexcept {
    if (this != &other) {
      Close();
      handle_ = std::exchange(other.handle_, -1);
    }
    return *this;
  }

  explicit operator bool() const { return handle_ >= 0; }
  int Get() const { return handle_; }
  int Release() { return std::exchange(handle_, -1); }

 private:
  void Close() {
    if (handle_ >= 0) ::close(handle_);
    handle_ = -1;
  }
  int handle_ = -1;
};

}  // namespace tavix::machine
