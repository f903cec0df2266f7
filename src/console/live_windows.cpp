#include "console/live.h"

#include "platform/windows/library_search.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_host.h"
#include "text/utf8.h"

#include <shellapi.h>

namespace tavix::console {
namespace {

class Live : public LiveSystem {
 private:
  windows::WindowsHost host_;
};

}  // namespace

std::unique_ptr<LiveSystem> UseLiveSystem(std::string&) {
  windows::SearchSystemFolderOnly();
  return std::make_unique<Live>();
}

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  wchar_t** values = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    arguments.push_back(ToUtf8(reinterpret_cast<const char16_t*>(values[i])));
  }
  LocalFree(values);
  return arguments;
}

}  // namespace tavix::console
