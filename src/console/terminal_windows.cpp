#include "console/report.h"
#include "console/terminal.h"
#include "platform/windows/windows_api.h"
#include "text/utf8.h"

#include <io.h>

namespace tavix::console {
namespace {

HANDLE HandleOf(std::FILE* stream) { return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))); }

}  // namespace

bool IsTerminal(std::FILE* stream) {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(stream), &mode) != FALSE;
}

void WriteText(std::FILE* out, std::string_view text) {
  const auto wide = IsTerminal(out) ? FromUtf8(text) : std::nullopt;
  if (!wide) {
    std::fwrite(text.data(), 1, text.size(), out);
    return;
  }
  std::fflush(out);
  constexpr size_t kMost = 16000;  // older systems refuse more than 64 KB at once
  for (TextView left = *wide; !left.empty();) {
    const TextView part = BeginningOf(left, kMost);
    DWORD written = 0;
    if (WriteConsoleW(HandleOf(out), part.data(), static_cast<DWORD>(part.size()), &written, nullptr) ==
        FALSE)
      return;
    left.remove_prefix(part.size());
  }
}

}  // namespace tavix::console
