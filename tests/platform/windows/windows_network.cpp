#include "platform/windows/windows_network.h"

#include <gtest/gtest.h>

#include "platform/windows/loopback_server.h"
#include "platform/windows/transfer.h"

namespace tavix::windows {
namespace {

// In seconds: the timeout of a fetch that gets its answer, and the most that any fetch may take. The other
// timeouts here are two seconds at most. The silent servers never end a fetch; only its timeout does.
constexpr int kPatience = 60;

std::string Ok(const std::string& body, const std::string& headers = {}) {
  return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" + headers + "\r\n" +
         body;
}

class NetworkOfWindows : public testing::Test {
 protected:
  // Fetches from a server with these raw answers. `took` is the time in milliseconds.
  std::optional<std::string> Fetch(std::vector<LoopbackServer::Answer> answers, int seconds = kPatience) {
    LoopbackServer server(std::move(answers));
    const ULONGLONG before = GetTickCount64();
    auto bytes = network.Fetch(server.Url(u"/latestver.txt"), seconds);
    took = GetTickCount64() - before;
    EXPECT_LT(took, kPatience * 1000U);
    requests = server.Requests();
    return bytes;
  }

  WindowsNetwork network;
  ULONGLONG took = 0;
  std::vector<std::string> requests;
};

TEST_F(NetworkOfWindows, BringsTheBytesAsTheyAre) {
  const std::string any("2.19.630\r\n\0\x80\xFF", 13);
  EXPECT_EQ(Fetch({{Ok(any)}}), any);
  EXPECT_EQ(Fetch({{Ok("")}}), "");
  // A body that ends when the server closes, and a body in chunks.
  EXPECT_EQ(Fetch({{"HTTP/1.0 200 OK\r\n\r\nabc"}}), "abc");
  EXPECT_EQ(Fetch({{"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n1\r\nc\r\n0\r\n\r\n"}}),
            "abc");
}

TEST_F(NetworkOfWindows, AsksForTheAddressAndTellsNothingOfTheUser) {
  Fetch({{Ok("x", "Set-Cookie: id=1\r\n")}});
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_EQ(requests[0].substr(0, requests[0].find("\r\n")), "GET /latestver.txt HTTP/1.1");
  EXPECT_NE(requests[0].find("User-Agent: Tavix\r\n"), std::string::npos);
  for (const char* header : {"Cookie:", "Authorization:", "Referer:"})
    EXPECT_EQ(requests[0].find(header), std::string::npos) << header;
}

TEST_F(NetworkOfWindows, FollowsARedirection) {
  EXPECT_EQ(
      Fetch({{"HTTP/1.1 302 Found\r\nLocation: /there\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"},
             {Ok("there")}}),
      "there");
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[1].substr(0, 11), "GET /there ");
}

std::string MovedTo(const std::string& location) {
  return "HTTP/1.1 302 Found\r\nLocation: " + location + "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
}

TEST_F(NetworkOfWindows, FollowsARedirectionWithinTheHost) {
  LoopbackServer there({{Ok("there")}});
  const std::string port = std::to_string(there.Port());
  EXPECT_EQ(Fetch({{MovedTo("http://127.0.0.1:" + port + "/elsewhere")}}), "there");
}

TEST_F(NetworkOfWindows, AnotherHostIsNotAskedForTheAnswer) {
  LoopbackServer other({{Ok("2.19.630")}});
  const std::string port = std::to_string(other.Port());
  for (const std::string& location :
       {"http://localhost:" + port + "/latestver.txt", "//localhost:" + port + "/latestver.txt",
        "http://127.0.0.1@localhost:" + port + "/", "http://127.0.0.1.localhost:" + port + "/",
        std::string("ftp://127.0.0.1/"), std::string("file:///C:/windows/win.ini"), std::string("there"),
        std::string("")}) {
    EXPECT_EQ(Fetch({{MovedTo(location)}}, 2), std::nullopt) << location;
  }
  EXPECT_TRUE(other.Requests().empty());
}

TEST_F(NetworkOfWindows, ARedirectionWithoutEndComesToNothingInTime) {
  const LoopbackServer::Answer again{
      "HTTP/1.1 302 Found\r\nLocation: /there\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"};
  EXPECT_EQ(Fetch(std::vector<LoopbackServer::Answer>(1000, again), 2), std::nullopt);
}

TEST_F(NetworkOfWindows, AnotherStatusIsNoAnswer) {
  for (const char* status :
       {"404 Not Found", "500 Broken", "401 Who", "204 Nothing", "206 Part", "304 As before"}) {
    const std::string answer = std::string("HTTP/1.1 ") + status +
                               "\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 1\r\n\r\nx";
    EXPECT_EQ(Fetch({{answer}}), std::nullopt) << status;
    EXPECT_EQ(requests.size(), 1U) << status;
  }
}

TEST_F(NetworkOfWindows, WhatIsNoHttpIsNoAnswer) {
  for (const std::string& answer : {std::string(), std::string("hello"), std::string("\0\0\0\0", 4),
                                    std::string("SSH-2.0-x\r\n"), std::string("HTTP/1.1 200 OK")}) {
    EXPECT_EQ(Fetch({{answer}}, 2), std::nullopt) << answer;
  }
}

TEST_F(NetworkOfWindows, AnAnswerThatBreaksOffIsNone) {
  EXPECT_EQ(Fetch({{"HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\n2.19.6"}}, 2), std::nullopt);
}

TEST_F(NetworkOfWindows, AMegabyteIsTakenAndNotAByteMore) {
  const std::string most(Transfer::kMaxBytes, 'x');
  EXPECT_EQ(Fetch({{Ok(most)}}), most);
  EXPECT_EQ(Fetch({{Ok(most + "x")}}), std::nullopt);
}

TEST_F(NetworkOfWindows, AServerThatNeverEndsIsLeftAtTheSizeLimitOrTheTimeout) {
  const std::string head = "HTTP/1.1 200 OK\r\n\r\n";
  EXPECT_EQ(Fetch({{.bytes = head, .then = LoopbackServer::kSendOn}}), std::nullopt);
  EXPECT_EQ(Fetch({{.bytes = head + "2.19", .then = LoopbackServer::kKeepSilent}}, 1), std::nullopt);
  EXPECT_GE(took, 900U);
  EXPECT_EQ(Fetch({{.bytes = head, .then = LoopbackServer::kTrickle}}, 1), std::nullopt);
  // Headers that never end.
  EXPECT_EQ(Fetch({{.bytes = "HTTP/1.1 200 OK\r\nX: ", .then = LoopbackServer::kTrickle}}, 1), std::nullopt);
}

TEST_F(NetworkOfWindows, AServerThatSendsAByteNowAndThenIsLeftWhenTheTimeIsOver) {
  const std::string head = "HTTP/1.1 200 OK\r\n";
  for (const std::string& begin :
       {head, head + "\r\n", head + "\r\n2.19", head + "Content-Length: 9000\r\n\r\n2"}) {
    EXPECT_EQ(Fetch({{.bytes = begin, .then = LoopbackServer::kDrip}}, 1), std::nullopt) << begin;
  }
}

// A clock that is a second ahead at each look: when the fetch ends, it shows how long the fetch would have
// waited.
TEST_F(NetworkOfWindows, TheTimeOfAFetchEndsAtItsDeadlineWhateverTheServerDoes) {
  static ULONGLONG clock;
  const std::string head = "HTTP/1.1 200 OK\r\n\r\n2";
  for (const auto then : {LoopbackServer::kKeepSilent, LoopbackServer::kDrip, LoopbackServer::kTrickle}) {
    const ULONGLONG start = clock = 5'000'000;
    const NetworkCalls before = networkCalls;
    networkCalls.now = []() -> ULONGLONG { return clock += 1000; };
    EXPECT_EQ(Fetch({{.bytes = head, .then = then}}, 6), std::nullopt);
    networkCalls = before;
    EXPECT_GE(clock - start, 6000U) << then;
    EXPECT_LE(clock - start, 8000U) << then;
  }
}

// The options of all sessions, in order.
TEST_F(NetworkOfWindows, AsksForTls12AndLaterAlone) {
  static std::vector<DWORD> asked;
  static bool knowsTls13;
  for (const bool knows : {true, false}) {
    asked.clear();
    knowsTls13 = knows;
    const NetworkCalls before = networkCalls;
    networkCalls.setOption = [](HINTERNET session, DWORD option, LPVOID value, DWORD size) -> BOOL {
      EXPECT_NE(session, nullptr);
      EXPECT_EQ(option, DWORD{WINHTTP_OPTION_SECURE_PROTOCOLS});
      EXPECT_EQ(size, sizeof(DWORD));
      asked.push_back(*static_cast<DWORD*>(value));
      return knowsTls13 || (asked.back() & 0x2000) == 0;
    };
    EXPECT_EQ(Fetch({{Ok("x")}}), "x");
    networkCalls = before;
    EXPECT_EQ(asked, knows ? std::vector<DWORD>{0x2800} : (std::vector<DWORD>{0x2800, 0x800}));
  }
}

TEST_F(NetworkOfWindows, WhatWasGivenUpAsksForNothingMore) {
  const LoopbackServer server({{Ok("2.19.630")}, {Ok("2.19.630")}});
  for (const bool ended : {true, false}) {
    Request request;
    request.session.Reset(
        WinHttpOpen(L"Tavix", WINHTTP_ACCESS_TYPE_NO_PROXY, nullptr, nullptr, WINHTTP_FLAG_ASYNC));
    request.connection.Reset(
        WinHttpConnect(request.session.Get(), L"127.0.0.1", static_cast<INTERNET_PORT>(server.Port()), 0));
    request.request.Reset(
        WinHttpOpenRequest(request.connection.Get(), L"GET", L"/", nullptr, nullptr, nullptr, 0));
    const auto transfer = Transfer::Start(std::move(request));
    ASSERT_NE(transfer, nullptr);
    if (ended) transfer->End();
    const DWORD waited = WaitForSingleObject(transfer->Done(), ended ? 300 : kPatience * 1000);
    EXPECT_EQ(waited == WAIT_OBJECT_0, !ended);
    EXPECT_EQ(transfer->Answer(), ended ? std::nullopt : std::optional<std::string>("2.19.630"));
    if (!ended) transfer->End();
  }
}

TEST_F(NetworkOfWindows, AServerThatSaysNothingIsLeftWhenTheTimeIsOver) {
  EXPECT_EQ(Fetch({{.bytes = "", .then = LoopbackServer::kKeepSilent}}, 1), std::nullopt);
  EXPECT_GE(took, 900U);
  // No server accepts the connection.
  EXPECT_EQ(Fetch({}, 1), std::nullopt);
}

TEST_F(NetworkOfWindows, WithNoTimeThereIsNoAnswer) {
  for (const int seconds : {0, -1}) {
    EXPECT_EQ(Fetch({{.bytes = "", .then = LoopbackServer::kKeepSilent}}, seconds), std::nullopt);
  }
}

TEST_F(NetworkOfWindows, WhatLeadsNowhereFails) {
  Text closed;
  {
    const LoopbackServer server({});
    closed = server.Url(u"/");
  }
  for (const Text& url :
       {closed, Text(u"http://no-such-host.test/"), Text(u"http://tavix.example.invalid/latestver.txt"),
        Text(u"http://INVALID.Invalid/"), Text(u""), Text(u"latestver.txt"), Text(u"ftp://127.0.0.1/"),
        Text(u"file:///C:/windows/win.ini"), Text(u"http://"), Text(u"http://127.0.0.1:99999/"),
        Text(u"mailto:a@b.example")}) {
    const ULONGLONG before = GetTickCount64();
    EXPECT_EQ(network.Fetch(url, 2), std::nullopt) << testing::PrintToString(url);
    EXPECT_LT(GetTickCount64() - before, kPatience * 1000U) << testing::PrintToString(url);
  }
}

// A window procedure that counts paints.
LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) ++*reinterpret_cast<int*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_APP) *reinterpret_cast<int*>(GetWindowLongPtrW(window, GWLP_USERDATA)) += 1000;
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(NetworkOfWindows, WindowsArePaintedMeanwhileAndOtherMessagesWait) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = CountPaints;
  windowClass.lpszClassName = L"TavixPaintedMeanwhile";
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, windowClass.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                      nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  int paints = 0;
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&paints));
  UpdateWindow(window);
  paints = 0;
  InvalidateRect(window, nullptr, TRUE);
  PostMessageW(window, WM_APP, 0, 0);
  EXPECT_EQ(Fetch({{.bytes = "", .then = LoopbackServer::kKeepSilent}}, 1), std::nullopt);
  EXPECT_GE(paints, 1);
  EXPECT_LT(paints, 1000);
  MSG message;
  while (PeekMessageW(&message, window, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  EXPECT_GE(paints, 1000);
  DestroyWindow(window);
}

TEST_F(NetworkOfWindows, TheEndOfTheProgramWaitsToo) {
  PostQuitMessage(7);
  EXPECT_EQ(Fetch({{.bytes = "", .then = LoopbackServer::kKeepSilent}}, 1), std::nullopt);
  MSG message;
  ASSERT_NE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), FALSE);
  EXPECT_EQ(message.wParam, 7U);
}

}  // namespace
}  // namespace tavix::windows
