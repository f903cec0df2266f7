#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/windows/handle.h"
#include "platform/windows/windows_api.h"
#include "text/text.h"

#include <winhttp.h>

namespace tavix::windows {

struct InternetTraits {
  using Handle = HINTERNET;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { WinHttpCloseHandle(handle); }
};
using InternetHandle = Owned<InternetTraits>;

// An asynchronous request with the handles it depends on.
struct Request {
  InternetHandle session;
  InternetHandle connection;
  InternetHandle request;
};

// The download of one answer. WinHTTP's threads run it. They keep it alive until the request's handle is
// closed, which may be after its starter stops waiting.
class Transfer {
 public:
  // A longer answer fails.
  static constexpr size_t kMaxBytes = size_t{1} << 20;

  // Sends an unsent request that follows no redirections. Returns at once. Null when it can't be sent.
  static std::shared_ptr<Transfer> Start(Request request);

  // Signalled when the transfer has succeeded or failed. From then on Answer and Location may be called.
  HANDLE Done() const { return done_.Get(); }
  // The whole answer. Nothing when the transfer failed.
  std::optional<std::string> Answer() const;
  // The address that a redirection names, unchanged. Nothing without a redirection.
  std::optional<Text> Location() const { return location_; }
  // Ends the transfer at any point. The starter calls it, once. Returns at once: closes the request, or
  // leaves that to a WinHTTP thread that is still working with it.
  void End();

 private:
  static void CALLBACK OnStatus(HINTERNET request, DWORD_PTR context, DWORD status, void* information,
                                DWORD length);
  bool Send(DWORD_PTR context);
  // Enclose all work with the request. Enter returns false after the end; then nothing may be done.
  bool Enter();
  void Leave();
  void Proceed(HINTERNET request, DWORD status, DWORD length);
  void TakeHeaders(HINTERNET request);
  void Read(HINTERNET request);
  void TakeBytes(HINTERNET request, DWORD length);
  void Finish(bool succeeded);

  // A closed handle's value may be reused for another request, so the handle is closed only when no call is
  // working with it. The mutex guards only short checks: it isn't held during WinHTTP calls, which can take
  // as long as the server likes. Calls are counted because they nest: WinHTTP may call back from inside our
  // call.
  std::mutex guard_;
  int activeCalls_ = 0;
  bool ended_ = false;
  Request handles_;
  ObjectHandle done_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  std::string bytes_;
  std::optional<Text> location_;
  char readBuffer_[16384] = {};
  bool succeeded_ = false;
};

}  // namespace tavix::windows
