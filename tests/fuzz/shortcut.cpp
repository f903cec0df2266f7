#include "platform/shortcut.h"

#include <cstdint>
#include <cstdlib>

// Any bytes can be read. Each path is a text that isn't empty and contains no NUL.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto shortcut = tavix::platform::ReadShortcut({reinterpret_cast<const char*>(data), size});
  if (!shortcut) return 0;
  for (const tavix::Text& path : shortcut->paths) {
    if (path.empty() || path.find(u'\0') != tavix::Text::npos) std::abort();
  }
  return 0;
}
