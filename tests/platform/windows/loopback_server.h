#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "text/text.h"

// clang-format off
#include <winsock2.h>
#include "platform/windows/windows_api.h"
// clang-format on

namespace tavix::windows {

// A server on this machine that gives each connection the next of its answers, whatever is asked for, and
// takes none when they are used up.
class LoopbackServer {
 public:
  enum Then { kClose, kKeepSilent, kTrickle, kDrip, kSendOn };
  // kTrickle sends a byte every 20 ms, kDrip one every 300.
  struct Answer {
    std::string bytes;
    Then then = kClose;
  };

  explicit LoopbackServer(std::vector<Answer> answers);
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  int Port() const { return port_; }
  Text Url(TextView path) const;
  // The requests so far, each as it came.
  std::vector<std::string> Requests();

 private:
  void Run();
  void Serve(SOCKET connection, const Answer& answer);
  bool Receive(SOCKET connection);
  bool Send(SOCKET connection, const std::string& bytes) const;
  // Whether something is there to be read, waiting for a moment.
  bool IsReady(SOCKET socket) const;

  std::vector<Answer> answers_;
  SOCKET listener_ = INVALID_SOCKET;
  int port_ = 0;
  std::atomic<bool> ending_ = false;
  std::mutex guard_;
  std::vector<std::string> requests_;
  std::thread thread_;
};

}  // namespace tavix::windows
