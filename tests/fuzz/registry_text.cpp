#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "platform/machine/formats/registry_text.h"

// Any bytes can be read. A registry that was read is the same after it is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tavix::machine;
  constexpr size_t kMost = 500;
  size = std::min(size, kMost);
  RegistryStore store;
  const auto error = ReadRegistryText({reinterpret_cast<const char*>(data), size}, store);
  if (error && (error->Line == 0 || error->Reason.empty())) std::abort();
  RegistryStore again;
  for (const auto hive : RegistryStore::kHives) {
    if (ReadRegistryText(WriteRegistryText(store, hive), again)) std::abort();
  }
  if (!(again == store)) std::abort();
  return 0;
}
