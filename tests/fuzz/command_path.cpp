#include "scan/command_path.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "doubles/memory_file_system.h"
#include "doubles/memory_host.h"
#include "frame/support/file_system_object.h"

namespace {

using namespace tavix;

void Check(const Text& command) {
  const Text path = mdlPubSelf::ExtractCommandPath(command);
  Text plain = command;
  std::erase(plain, u'"');
  // The path is one piece of the command without its quotes.
  if (path.find(u'"') != Text::npos || plain.find(path) == Text::npos) std::abort();
}

}  // namespace

// Reads the input as UTF-16 and as one byte for each character, on a machine without files and on one with a
// file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Text wide(size / sizeof(char16_t), u'\0');
  std::memcpy(wide.data(), data, wide.size() * sizeof(char16_t));
  const Text narrow(data, data + size);
  for (const Text& command : {wide, narrow}) Check(command);

  static machine::MemoryHost& host = *new machine::MemoryHost;
  static const bool seeded = [] {
    host.files.AddFile(u"C:\\a b\\c d.exe");
    return true;
  }();
  if (!seeded) std::abort();
  mdlPubSelf::fileSystemObject = FileSystemObject(&host.fileSystem);
  for (const Text& command : {wide, narrow}) Check(command);
  mdlPubSelf::fileSystemObject = {};
  return 0;
}
