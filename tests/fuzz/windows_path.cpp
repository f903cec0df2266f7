#include "platform/windows/windows_path.h"

#include <cstdint>
#include <cstring>

#include "require.h"

namespace {

using namespace tavix;

void Check(TextView text) {
  const auto normal = windows::NormalPath(text);
  if (!normal) return;
  Require(normal->size() <= text.size() + 1);
  Require(windows::NormalPath(*normal) == normal);
  Require(windows::NormalPath(windows::ExtendedPath(*normal)) == normal);
  if (windows::IsRoot(*normal)) return;
  const TextView folder = windows::FolderOf(*normal);
  Require(windows::NormalPath(folder) == Text(folder));
  Require(windows::PathIn(folder, windows::NameOf(*normal)) == *normal);
}

}  // namespace

// Reads the input as UTF-16 and as one byte for each character, alone, below a drive and below a share. The
// normal form of a normal form is the same, also with the \\?\ prefix, and is made up of its folder and its
// name.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Text wide(size / sizeof(char16_t), u'\0');
  std::memcpy(wide.data(), data, wide.size() * sizeof(char16_t));
  const Text narrow(data, data + size);
  for (const Text& text :
       {wide, narrow, u"c:/" + narrow, u"\\\\server\\share\\" + narrow, u"\\\\?\\" + narrow}) {
    Check(text);
  }
  return 0;
}
