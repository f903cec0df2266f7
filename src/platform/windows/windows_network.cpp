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

// Names that no network knows. An address with such a host isn't even taken apart, which spares the library
// that would be loaded for it.
bool LeadsNowhere(TextView url) {
  constexpr TextView kNowhere = u".invalid";
  constexpr TextView kBeforeHost = u"://";
  const size_t start = url.find(kBeforeHost);
  if (start == TextView::npos) return false;
  const TextView rest = url.substr(start + kBeforeHost.size());
  const TextView host = rest.substr(0, rest.find_first_of(u":/?#"));
  return host.size() >= kNowhere.size() &&
         CompareIgnoringCase(host.substr(host.size() - kNowhere.size()), kNowhere) == 0;
}

// The settings of the user where the system can look them up by itself, else those of the system.
InternetHandle OpenSession() {
  constexpr DWORD kAutomaticProxy = 4;
  for (const DWORD proxy : {kAutomaticProxy, static_cast<DWORD>(WINHTTP_ACCESS_TYPE_DEFAULT_PROXY)}) {
    InternetHandle session(
        WinHttpOpen(L"Tavix", proxy, WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, WINHTTP_FLAG_ASYNC));
    if (session) return session;
  }
  return InternetHandle();
}

InternetHandle OpenRequest(HINTERNET connection, const Target& target) {
  const DWORD flags = WINHTTP_FLAG_REFRESH | (target.secure ? WINHTTP_FLAG_SECURE : 0);
  InternetHandle request(WinHttpOpenRequest(connection, L"GET", Wide(target.path), nullptr,
                                            WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES, flags));
  if (!request) return request;
  DWORD without = WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_AUTHENTICATION;
  if (WinHttpSetOption(request.Get(), WINHTTP_OPTION_DISABLE_FEATURE, &without, sizeof without) == FALSE)
    return InternetHandle();
  return request;
}

void PaintWindows() {
  constexpr int kMost = 100;  // a window that never has enough
  MSG message;
  for (int i = 0; i < kMost && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != FALSE; ++i) {
    // The end of the program comes whatever is asked for; it stays for whom it is meant for.
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
    DispatchMessageW(&message);
  }
}

bool Wait(HANDLE done, ULONGLONG until) {
  constexpr ULONGLONG kMostAtOnce = 250;  // for the system to see that the thread is alive
  for (;;) {
    const ULONGLONG now = GetTickCount64();
    if (now >= until) return WaitForSingleObject(done, 0) == WAIT_OBJECT_0;
    const auto wait = static_cast<DWORD>(std::min(until - now, kMostAtOnce));
    if (MsgWaitForMultipleObjects(1, &done, FALSE, wait, QS_PAINT) == WAIT_OBJECT_0) return true;
    PaintWindows();
  }
}

}  // namespace

std::optional<std::string> WindowsNetwork::Fetch(TextView url, int timeoutSeconds) {
  const auto limit = static_cast<ULONGLONG>(std::max(timeoutSeconds, 0)) * 1000;
  const ULONGLONG until = GetTickCount64() + limit;
  if (LeadsNowhere(url)) return std::nullopt;
  const std::optional<Target> target = ReadUrl(url);
  if (!target) return std::nullopt;
  const InternetHandle session = OpenSession();
  if (!session) return std::nullopt;
  // Each of the steps for itself, so that what is given up below doesn't live on for long.
  const auto step = static_cast<int>(std::min<ULONGLONG>(limit, INT32_MAX));
  WinHttpSetTimeouts(session.Get(), step, step, step, step);
  const InternetHandle connection(WinHttpConnect(session.Get(), Wide(target->host), target->port, 0));
  if (!connection) return std::nullopt;
  const InternetHandle request = OpenRequest(connection.Get(), *target);
  if (!request) return std::nullopt;
  const std::shared_ptr<Transfer> transfer = Transfer::Start(request.Get());
  if (transfer == nullptr) return std::nullopt;
  if (Wait(transfer->Done(), until)) return transfer->Answer();
  transfer->Abandon();
  return std::nullopt;
}

}  // namespace tavix::windows
