#include "console/report.h"
#include "console/terminal.h"
#include "platform/windows/windows_api.h"
#include "text/utf8.h"

#include <io.h>

#include <algorithm>
#include <string>

namespace tavix::console {
namespace {

HANDLE HandleOf(std::FILE* stream) { return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))); }

// Writes text to a file or a pipe with the line ends that the stream would write. The stream itself writes
// long text in many small pieces.
void WriteLines(std::FILE* out, std::string_view text) {
  std::string lines;
  lines.reserve(text.size() + text.size() / 64);
  while (!text.empty()) {
    const size_t end = text.find('\n');
    lines += text.substr(0, end);
    if (end == std::string_view::npos) break;
    lines += "\r\n";
    text.remove_prefix(end + 1);
  }
  std::fflush(out);
  for (std::string_view left = lines; !left.empty();) {
    DWORD written = 0;
    const DWORD most = static_cast<DWORD>(std::min(left.size(), size_t{1} << 20U));
    if (!WriteFile(HandleOf(out), left.data(), most, &written, nullptr) || written == 0) {
      // This fails too, and the stream notes it.
      std::fwrite(left.data(), 1, left.size(), out);
      return;
    }
    left.remove_prefix(written);
  }
}

}  // namespace

bool IsTerminal(std::FILE* stream) {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(stream), &mode) != FALSE;
}

void WriteText(std::FILE* out, std::string_view text) {
  const auto wide = IsTerminal(out) ? FromUtf8(text) : std::nullopt;
  if (!wide) return WriteLines(out, text);
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
