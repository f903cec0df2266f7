#include "window/addresses.h"

#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

// The addresses of the program that the tests of the update check run: they lead to the server of the test.
namespace tavix::mdlPubSelf {
namespace {

Text Variable(const wchar_t* name) {
  wchar_t value[256];
  const DWORD length = GetEnvironmentVariableW(name, value, 256);
  return windows::FromWide(std::wstring_view(value, length < 256 ? length : 0));
}

}  // namespace

Text ProductSite() { return Variable(L"TAVIX_TEST_SITE"); }
Text MakerSite() { return u"http://maker.example.invalid"; }
Text SupportMail() { return u"support@tavix.example.invalid"; }

}  // namespace tavix::mdlPubSelf
