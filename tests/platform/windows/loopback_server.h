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

// A server on this machine. It gives each connection its next answer, whatever the request, and accepts no
// connection after the last answer.
class LoopbackServer {
 public:
  enum Then { kClose, kKeepSilent, kTrickle, kDrip, kSendOn };
  // After the answer: kTrickle sends a byte every 20 ms, kDrip a byte every 300 ms.
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
  // The requests so far, unchanged.
  std::vector<std::string> Requests();

 private:
  void Run();
  void Serve(SOCKET connection, const Answer& answer);
  bool Receive(SOCKET connection);
  bool Send(SOCKET connection, const std::string& bytes) const;
  // Waits for a moment; true if there is something to read.
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
