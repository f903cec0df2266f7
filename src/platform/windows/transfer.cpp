#include "platform/windows/transfer.h"

namespace tavix::windows {
namespace {

// A number among the headers of the answer.
std::optional<DWORD> HeaderNumber(HINTERNET request, DWORD header) {
  DWORD number = 0;
  DWORD size = sizeof number;
  const BOOL there =
      WinHttpQueryHeaders(request, header | WINHTTP_QUERY_FLAG_NUMBER, WINHTTP_HEADER_NAME_BY_INDEX, &number,
                          &size, WINHTTP_NO_HEADER_INDEX);
  return there != FALSE ? std::optional(number) : std::nullopt;
}

}  // namespace

std::shared_ptr<Transfer> Transfer::Start(HINTERNET request) {
  auto transfer = std::make_shared<Transfer>();
  if (!transfer->done_) return nullptr;
  // The share of the system's threads; it goes with the request.
  auto share = std::make_unique<std::shared_ptr<Transfer>>(transfer);
  auto context = reinterpret_cast<DWORD_PTR>(share.get());
  constexpr DWORD kNotifications = WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES;
  if (WinHttpSetStatusCallback(request, OnStatus, kNotifications, 0) == WINHTTP_INVALID_STATUS_CALLBACK ||
      WinHttpSetOption(request, WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context) == FALSE) {
    return nullptr;
  }
  static_cast<void>(share.release());
  const BOOL sent =
      WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0, 0, context);
  return sent != FALSE ? transfer : nullptr;
}

std::optional<std::string> Transfer::Answer() const { return well_ ? std::optional(bytes_) : std::nullopt; }

void Transfer::Abandon() {
  const std::lock_guard lock(guard_);
  abandoned_ = true;
}

void CALLBACK Transfer::OnStatus(HINTERNET request, DWORD_PTR context, DWORD status, void*, DWORD length) {
  if (context == 0) return;
  auto* const share = reinterpret_cast<std::shared_ptr<Transfer>*>(context);
  if (status == WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING) {
    delete share;
  } else {
    (*share)->Proceed(request, status, length);
  }
}

void Transfer::Proceed(HINTERNET request, DWORD status, DWORD length) {
  const std::lock_guard lock(guard_);
  if (abandoned_) return;
  switch (status) {
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
      if (WinHttpReceiveResponse(request, nullptr) == FALSE) Finish(false);
      break;
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
      if (HeaderNumber(request, WINHTTP_QUERY_STATUS_CODE) != HTTP_STATUS_OK) return Finish(false);
      Read(request);
      break;
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
      Take(request, length);
      break;
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
      Finish(false);
      break;
    default:
      break;
  }
}

void Transfer::Read(HINTERNET request) {
  if (WinHttpReadData(request, piece_, sizeof piece_, nullptr) == FALSE) Finish(false);
}

void Transfer::Take(HINTERNET request, DWORD length) {
  if (length == 0) {
    // A connection that broke off leaves less than was promised.
    const auto promised = HeaderNumber(request, WINHTTP_QUERY_CONTENT_LENGTH);
    return Finish(!promised || *promised == bytes_.size());
  }
  if (length > sizeof piece_ || bytes_.size() + length > kMostBytes) return Finish(false);
  bytes_.append(piece_, length);
  Read(request);
}

void Transfer::Finish(bool well) {
  well_ = well;
  SetEvent(done_.Get());
}

}  // namespace tavix::windows
