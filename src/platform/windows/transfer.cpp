#include "platform/windows/transfer.h"

#include "platform/windows/wide.h"

namespace tavix::windows {
namespace {

// A numeric header of the answer. Nothing when it is missing.
std::optional<DWORD> HeaderNumber(HINTERNET request, DWORD header) {
  DWORD number = 0;
  DWORD size = sizeof number;
  const BOOL found =
      WinHttpQueryHeaders(request, header | WINHTTP_QUERY_FLAG_NUMBER, WINHTTP_HEADER_NAME_BY_INDEX, &number,
                          &size, WINHTTP_NO_HEADER_INDEX);
  return found != FALSE ? std::optional(number) : std::nullopt;
}

// The Location header. Nothing when it is missing or too long.
std::optional<Text> LocationOf(HINTERNET request) {
  constexpr size_t kMaxLength = 2048;
  wchar_t text[kMaxLength] = L"";
  DWORD bytes = sizeof text;
  if (WinHttpQueryHeaders(request, WINHTTP_QUERY_LOCATION, WINHTTP_HEADER_NAME_BY_INDEX, text, &bytes,
                          WINHTTP_NO_HEADER_INDEX) == FALSE)
    return std::nullopt;
  return FromWide(std::wstring_view(text, bytes / sizeof(wchar_t)));
}

bool IsRedirection(DWORD status) {
  for (const DWORD one : {301, 302, 303, 307, 308}) {
    if (status == one) return true;
  }
  return false;
}

}  // namespace

std::shared_ptr<Transfer> Transfer::Start(Request request) {
  auto transfer = std::make_shared<Transfer>();
  transfer->handles_ = std::move(request);
  if (!transfer->done_) return nullptr;
  // WinHTTP's own reference. OnStatus deletes it when the request's handle closes.
  auto reference = std::make_unique<std::shared_ptr<Transfer>>(transfer);
  const HINTERNET handle = transfer->handles_.request.Get();
  auto context = reinterpret_cast<DWORD_PTR>(reference.get());
  constexpr DWORD kNotifications = WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES;
  if (WinHttpSetStatusCallback(handle, OnStatus, kNotifications, 0) == WINHTTP_INVALID_STATUS_CALLBACK ||
      WinHttpSetOption(handle, WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context) == FALSE) {
    return nullptr;
  }
  static_cast<void>(reference.release());
  if (!transfer->Send(context)) {
    transfer->End();
    return nullptr;
  }
  return transfer;
}

std::optional<std::string> Transfer::Answer() const {
  return succeeded_ ? std::optional(bytes_) : std::nullopt;
}

void Transfer::End() {
  Request handles;  // closed after the unlock: closing calls OnStatus
  const std::lock_guard lock(guard_);
  ended_ = true;
  if (activeCalls_ == 0) std::swap(handles, handles_);
}

bool Transfer::Send(DWORD_PTR context) {
  Enter();
  const BOOL sent = WinHttpSendRequest(handles_.request.Get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0,
                                       WINHTTP_NO_REQUEST_DATA, 0, 0, context);
  Leave();
  return sent != FALSE;
}

bool Transfer::Enter() {
  const std::lock_guard lock(guard_);
  if (!ended_) ++activeCalls_;
  return !ended_;
}

void Transfer::Leave() {
  Request handles;  // closed after the unlock, as in End
  const std::lock_guard lock(guard_);
  --activeCalls_;
  if (ended_ && activeCalls_ == 0) std::swap(handles, handles_);
}

void CALLBACK Transfer::OnStatus(HINTERNET request, DWORD_PTR context, DWORD status, void*, DWORD length) {
  if (context == 0) return;
  auto* const reference = reinterpret_cast<std::shared_ptr<Transfer>*>(context);
  if (status == WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING) {
    delete reference;
    return;
  }
  // Leave may close the request, and that deletes WinHTTP's reference.
  const std::shared_ptr<Transfer> transfer = *reference;
  if (!transfer->Enter()) return;
  transfer->Proceed(request, status, length);
  transfer->Leave();
}

void Transfer::Proceed(HINTERNET request, DWORD status, DWORD length) {
  switch (status) {
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
      if (WinHttpReceiveResponse(request, nullptr) == FALSE) Finish(false);
      break;
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
      TakeHeaders(request);
      break;
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
      TakeBytes(request, length);
      break;
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
      Finish(false);
      break;
    default:
      break;
  }
}

void Transfer::TakeHeaders(HINTERNET request) {
  const DWORD status = HeaderNumber(request, WINHTTP_QUERY_STATUS_CODE).value_or(0);
  if (status == HTTP_STATUS_OK) return Read(request);
  if (IsRedirection(status)) location_ = LocationOf(request);
  Finish(false);
}

void Transfer::Read(HINTERNET request) {
  if (WinHttpReadData(request, readBuffer_, sizeof readBuffer_, nullptr) == FALSE) Finish(false);
}

void Transfer::TakeBytes(HINTERNET request, DWORD length) {
  if (length == 0) {
    // A broken connection delivers less than Content-Length.
    const auto promised = HeaderNumber(request, WINHTTP_QUERY_CONTENT_LENGTH);
    return Finish(!promised || *promised == bytes_.size());
  }
  if (length > sizeof readBuffer_ || bytes_.size() + length > kMaxBytes) return Finish(false);
  bytes_.append(readBuffer_, length);
  Read(request);
}

void Transfer::Finish(bool succeeded) {
  succeeded_ = succeeded;
  SetEvent(done_.Get());
}

}  // namespace tavix::windows
