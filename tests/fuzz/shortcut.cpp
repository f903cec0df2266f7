#include "platform/machine/shortcut.h"

#include <cstdint>
#include <cstdlib>

// Any bytes are read without harm, and a target is one text without a zero in it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto shortcut = tavix::machine::ReadShortcut({reinterpret_cast<const char*>(data), size});
  if (shortcut && shortcut->target.find(u'\0') != tavix::Text::npos) std::abort();
  return 0;
}
