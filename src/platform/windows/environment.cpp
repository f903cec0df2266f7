#include "platform/windows/environment.h"

#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

namespace tavix::windows {
namespace {

bool HasNul(TextView text) { return text.find(u'\0') != TextView::npos; }

}  // namespace

std::optional<Text> Variable(TextView name) {
  if (name.empty() || HasNul(name)) return std::nullopt;
  const Text variable(name);
  Text value(MAX_PATH, u'\0');
  for (;;) {
    SetLastError(ERROR_SUCCESS);
    const DWORD length =
        GetEnvironmentVariableW(Wide(variable), WideBuffer(value.data()), static_cast<DWORD>(value.size()));
    if (length == 0 && GetLastError() != ERROR_SUCCESS) return std::nullopt;
    const bool fits = length < value.size();
    value.resize(length);
    if (fits) return value;
  }
}

Text ExpandVariables(TextView text) {
  Text plain(text);
  if (text.find(u'%') == TextView::npos || HasNul(text)) return plain;
  Text expanded;
  for (;;) {
    const DWORD length = ExpandEnvironmentStringsW(Wide(plain), WideBuffer(expanded.data()),
                                                   static_cast<DWORD>(expanded.size()));
    if (length == 0) return plain;
    const bool fits = length <= expanded.size();
    expanded.resize(fits ? length - 1 : length);
    if (fits) return expanded;
  }
}

}  // namespace tavix::windows
