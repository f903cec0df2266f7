#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/windows/handle.h"
#include "platform/windows/windows_api.h"

#include <winhttp.h>

namespace tavix::windows {

struct InternetTraits {
  using Handle = HINTERNET;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { WinHttpCloseHandle(handle); }
};
using InternetHandle = Owned<InternetTraits>;

struct EventTraits {
  using Handle = HANDLE;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using EventHandle = Owned<EventTraits>;

// What a request of an asynchronous session brings in. The system's threads carry it forward; they keep it
// for as long as they know the request, which may be longer than anybody waits for it.
class Transfer {
 public:
  // The answer may have so many bytes at most.
  static constexpr size_t kMostBytes = size_t{1} << 20;

  // Sends the request, which must not have been sent, and returns at once. The transfer ends when the caller
  // closes the request. Null when it can't be sent.
  static std::shared_ptr<Transfer> Start(HINTERNET request);

  // Signalled when the transfer has come to its end, good or bad. The answer may be asked for from then on.
  HANDLE Done() const { return done_.Get(); }
  // The whole answer of a request that went well.
  std::optional<std::string> Answer() const;
  // Has the request left alone from here on: called before a request is closed that has not come to its end.
  void Abandon();

 private:
  static void CALLBACK OnStatus(HINTERNET request, DWORD_PTR context, DWORD status, void* information,
                                DWORD length);
  void Proceed(HINTERNET request, DWORD status, DWORD length);
  void Read(HINTERNET request);
  void Take(HINTERNET request, DWORD length);
  void Finish(bool well);

  // The value of a handle may come back for another request as soon as it is closed. Recursive, since what is
  // there already is told from within the call that asks for it.
  std::recursive_mutex guard_;
  bool abandoned_ = false;
  EventHandle done_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  std::string bytes_;
  char piece_[16384] = {};
  bool well_ = false;
};

}  // namespace tavix::windows
