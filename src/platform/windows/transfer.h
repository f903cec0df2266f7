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

// A request of an asynchronous session, with what it depends on.
struct Request {
  InternetHandle session;
  InternetHandle connection;
  InternetHandle request;
};

// What a request brings in. The system's threads carry it forward; they keep it for as long as they know the
// request, which may be longer than anybody waits for it.
class Transfer {
 public:
  // The most bytes that an answer may have.
  static constexpr size_t kMostBytes = size_t{1} << 20;

  // Sends the request, which must not have been sent and follows no redirection, and returns at once. Null
  // when it can't be sent.
  static std::shared_ptr<Transfer> Start(Request request);

  // Signalled when the transfer has come to its end, good or bad. What follows may be asked for from then on.
  HANDLE Done() const { return done_.Get(); }
  // The whole answer of a request that went well.
  std::optional<std::string> Answer() const;
  // Where the server says that the answer is to be found, as it says it; nothing when it doesn't.
  std::optional<Text> Location() const { return location_; }
  // Ends the transfer, wherever it stands; called once, by whoever started it. It returns at once: the
  // request is closed here, or by a thread of the system that is busy with it, as soon as it isn't any more.
  void End();

 private:
  static void CALLBACK OnStatus(HINTERNET request, DWORD_PTR context, DWORD status, void* information,
                                DWORD length);
  bool Send(DWORD_PTR context);
  // Around each piece of work of the system's threads. Enter is false, and nothing to be done, after the end.
  bool Enter();
  void Leave();
  void Proceed(HINTERNET request, DWORD status, DWORD length);
  void TakeHeaders(HINTERNET request);
  void Read(HINTERNET request);
  void Take(HINTERNET request, DWORD length);
  void Finish(bool well);

  // The value of a handle may come back for another request as soon as it is closed, so it is closed when
  // nobody is at work with it. The guard is held for looking and noting alone: a call of the system can take
  // as long as the server likes. Work can be within work, since what is there already is told from within the
  // call that asks for it.
  std::mutex guard_;
  int atWork_ = 0;
  bool ended_ = false;
  Request handles_;
  ObjectHandle done_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  std::string bytes_;
  std::optional<Text> location_;
  char piece_[16384] = {};
  bool well_ = false;
};

}  // namespace tavix::windows
