#include "platform/windows/loopback_server.h"

namespace tavix::windows {

LoopbackServer::LoopbackServer(std::vector<Answer> answers) : answers_(std::move(answers)) {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
  listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  int size = sizeof address;
  bind(listener_, reinterpret_cast<const sockaddr*>(&address), size);
  listen(listener_, SOMAXCONN);
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Run(); });
}

LoopbackServer::~LoopbackServer() {
  ending_ = true;
  thread_.join();
  closesocket(listener_);
  WSACleanup();
}

Text LoopbackServer::Url(TextView path) const { return Concat(u"http://127.0.0.1:", ToText(port_), path); }

std::vector<std::string> LoopbackServer::Requests() {
  const std::lock_guard lock(guard_);
  return requests_;
}

void LoopbackServer::Run() {
  for (const Answer& answer : answers_) {
    while (!ending_ && !IsReady(listener_)) continue;
    if (ending_) return;
    const SOCKET connection = accept(listener_, nullptr, nullptr);
    if (connection == INVALID_SOCKET) return;
    if (Receive(connection)) Serve(connection, answer);
    shutdown(connection, SD_SEND);
    closesocket(connection);
  }
}

bool LoopbackServer::IsReady(SOCKET socket) const {
  fd_set sockets;
  FD_ZERO(&sockets);
  FD_SET(socket, &sockets);
  timeval moment{0, 20'000};
  return select(0, &sockets, nullptr, nullptr, &moment) > 0;
}

bool LoopbackServer::Receive(SOCKET connection) {
  std::string request;
  while (!ending_ && request.find("\r\n\r\n") == std::string::npos) {
    if (!IsReady(connection)) continue;
    char piece[4096];
    const int count = recv(connection, piece, sizeof piece, 0);
    if (count <= 0) return false;
    request.append(piece, static_cast<size_t>(count));
  }
  const std::lock_guard lock(guard_);
  requests_.push_back(request);
  return true;
}

bool LoopbackServer::Send(SOCKET connection, const std::string& bytes) const {
  for (size_t sent = 0; sent < bytes.size();) {
    const int count = send(connection, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
    if (count <= 0) return false;
    sent += static_cast<size_t>(count);
  }
  return true;
}

void LoopbackServer::Serve(SOCKET connection, const Answer& answer) {
  // Don't wait for a client that has stopped reading.
  const DWORD timeout = 30'000;
  setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, reinterpret_cast<const char*>(&timeout), sizeof timeout);
  if (!Send(connection, answer.bytes)) return;
  const std::string more(answer.then == kSendOn ? 65536 : 1, 'x');
  while (answer.then != kClose && !ending_) {
    for (int i = 0; answer.then == kDrip && i < 14 && !ending_; ++i) Sleep(20);
    if (answer.then != kSendOn) Sleep(20);
    if (answer.then != kKeepSilent && !Send(connection, more)) return;
  }
}

}  // namespace tavix::windows
