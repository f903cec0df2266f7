#include "platform/windows/windows_network.h"

#include <algorithm>
#include <cstdint>

#include "platform/windows/transfer.h"
#include "platform/windows/wide.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

struct Target {
  Text host;
  Text path;
  INTERNET_PORT port = 0;
  bool secure = false;
};

std::optional<Target> ReadUrl(TextView url) {
  const Text whole(url);
  URL_COMPONENTSW parts = {};
  parts.dwStructSize = sizeof parts;
  parts.dwSchemeLength = parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength =
      static_cast<DWORD>(-1);
  if (WinHttpCrackUrl(Wide(whole), 0, 0, &parts) == FALSE) return std::nullopt;
  if (parts.nScheme != INTERNET_SCHEME_HTTP && parts.nScheme != INTERNET_SCHEME_HTTPS) return std::nullopt;
  const auto piece = [](const wchar_t* begin, DWORD length) {
    return begin == nullptr ? Text() : FromWide(std::wstring_view(begin, length));
  };
  return Target{piece(parts.lpszHostName, parts.dwHostNameLength),
                Concat(piece(parts.lpszUrlPath, parts.dwUrlPathLength),
                       piece(parts.lpszExtraInfo, parts.dwExtraInfoLength)),
                parts.nPort, parts.nScheme == INTERNET_SCHEME_HTTPS};
}

// Whether the host ends in .invalid, which exists on no network. Checked before ReadUrl, so that WinHTTP
// isn't loaded for such an address.
bool HasInvalidHost(TextView url) {
  constexpr TextView kInvalidEnding = u".invalid";
  constexpr TextView kBeforeHost = u"://";
  const size_t start = url.find(kBeforeHost);
  if (start == TextView::npos) return false;
  const TextView rest = url.substr(start + kBeforeHost.size());
  const TextView host = rest.substr(0, rest.find_first_of(u":/?#"));
  return host.size() >= kInvalidEnding.size() &&
         CompareIgnoringCase(host.substr(host.size() - kInvalidEnding.size()), kInvalidEnding) == 0;
}

// The target of a redirection from `from`. Nothing for another host, or for http after https: that content
// isn't the site's own.
std::optional<Target> FollowRedirection(const Target& from, TextView location) {
  if (location.empty()) return std::nullopt;
  if (location.starts_with(u"/") && !location.starts_with(u"//")) {
    Target target = from;
    target.path = location;
    return target;
  }
  std::optional<Target> target = ReadUrl(location);
  const bool same = target && EqualIgnoringCase(target->host, from.host) && (target->secure || !from.secure);
  return same ? target : std::nullopt;
}

// Protocols before TLS 1.2 are broken, but older systems use them unless told otherwise. A system without TLS
// 1.3 rejects the whole set if it has TLS 1.3 in it.
void AskForSafeProtocols(HINTERNET session) {
  constexpr DWORD kTls12 = 0x800;
  constexpr DWORD kTls13 = 0x2000;
  for (DWORD protocols : {kTls12 | kTls13, kTls12}) {
    if (networkCalls.setOption(session, WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols, sizeof protocols) !=
        FALSE)
      return;
  }
}

// Uses the user's proxy settings where the system can find them automatically, otherwise the system's.
InternetHandle OpenSession() {
  constexpr DWORD kAutomaticProxy = 4;
  for (const DWORD proxy : {kAutomaticProxy, static_cast<DWORD>(WINHTTP_ACCESS_TYPE_DEFAULT_PROXY)}) {
    InternetHandle session(
        WinHttpOpen(L"Tavix", proxy, WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, WINHTTP_FLAG_ASYNC));
    if (!session) continue;
    AskForSafeProtocols(session.Get());
    return session;
  }
  return InternetHandle();
}

InternetHandle OpenRequest(HINTERNET connection, const Target& target) {
  const DWORD flags = WINHTTP_FLAG_REFRESH | (target.secure ? WINHTTP_FLAG_SECURE : 0);
  InternetHandle request(WinHttpOpenRequest(connection, L"GET", Wide(target.path), nullptr,
                                            WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES, flags));
  if (!request) return request;
  DWORD without = WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_AUTHENTICATION | WINHTTP_DISABLE_REDIRECTS;
  if (WinHttpSetOption(request.Get(), WINHTTP_OPTION_DISABLE_FEATURE, &without, sizeof without) == FALSE)
    return InternetHandle();
  return request;
}

void PaintWindows() {
  constexpr int kMaxMessages = 100;  // for a window that asks for paint without end
  MSG message;
  for (int i = 0; i < kMaxMessages && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != FALSE;
       ++i) {
    // PeekMessage returns WM_QUIT whatever the filter. Post it again for the main loop.
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
    DispatchMessageW(&message);
  }
}

bool Wait(HANDLE done, ULONGLONG deadline) {
  constexpr ULONGLONG kMaxWait = 250;  // shorter than the time after which the system calls a thread hung
  for (;;) {
    const ULONGLONG now = networkCalls.now();
    if (now >= deadline) return WaitForSingleObject(done, 0) == WAIT_OBJECT_0;
    const auto wait = static_cast<DWORD>(std::min(deadline - now, kMaxWait));
    if (MsgWaitForMultipleObjects(1, &done, FALSE, wait, QS_PAINT) == WAIT_OBJECT_0) return true;
    PaintWindows();
  }
}

// Sends a request and waits for its end. Null when it can't be sent or hasn't ended at `deadline` (by
// networkCalls.now).
std::shared_ptr<Transfer> Transact(const Target& target, ULONGLONG deadline) {
  const ULONGLONG now = networkCalls.now();
  // Each step has this time limit, so that an abandoned request ends soon too.
  const auto step = static_cast<int>(std::min<ULONGLONG>(now < deadline ? deadline - now : 0, INT32_MAX));
  Request request;
  request.session = OpenSession();
  if (!request.session) return nullptr;
  WinHttpSetTimeouts(request.session.Get(), step, step, step, step);
  request.connection.Reset(WinHttpConnect(request.session.Get(), Wide(target.host), target.port, 0));
  if (!request.connection) return nullptr;
  request.request = OpenRequest(request.connection.Get(), target);
  if (!request.request) return nullptr;
  std::shared_ptr<Transfer> transfer = Transfer::Start(std::move(request));
  if (transfer == nullptr) return nullptr;
  const bool done = Wait(transfer->Done(), deadline);
  transfer->End();
  return done ? transfer : nullptr;
}

}  // namespace

std::optional<std::string> WindowsNetwork::Fetch(TextView url, int timeoutSeconds) {
  constexpr int kMaxRedirections = 10;
  const ULONGLONG deadline = networkCalls.now() + static_cast<ULONGLONG>(std::max(timeoutSeconds, 0)) * 1000;
  if (HasInvalidHost(url)) return std::nullopt;
  std::optional<Target> target = ReadUrl(url);
  for (int i = 0; target && i <= kMaxRedirections; ++i) {
    const std::shared_ptr<Transfer> transfer = Transact(*target, deadline);
    if (transfer == nullptr) return std::nullopt;
    const std::optional<Text> location = transfer->Location();
    if (!location) return transfer->Answer();
    target = FollowRedirection(*target, *location);
  }
  return std::nullopt;
}

}  // namespace tavix::windows
