#include "export/masked.h"

#include <algorithm>

#include "export/shortcut_writer.h"
#include "platform/registry_data.h"
#include "platform/shortcut.h"
#include "text/text_file.h"

namespace tavix::exporting {
namespace {

using machine::RegistryKey;

// Data that are no text are shown as pairs of hex digits, which may spell names: they become zeros.
Text MaskedData(TextView data, const NameMask& mask) {
  bool isHex = data.size() >= 5 && data.size() % 3 == 2;
  for (size_t i = 0; isHex && i < data.size(); ++i) {
    const char16_t c = data[i];
    isHex = i % 3 == 2 ? c == u' ' : (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
  }
  if (!isHex) return mask.Apply(data);
  Text zeros(data);
  std::ranges::replace_if(
      zeros, [](char16_t c) { return c != u' '; }, u'0');
  return zeros;
}

void CopyMasked(const RegistryKey& from, RegistryKey& to, const NameMask& mask) {
  for (const machine::RegistryValue& value : from.AllValues()) {
    const Text data = platform::RenderData(value.Type, value.Data);
    to.SetValue(mask.Apply(value.Name), value.Type, platform::StringData(MaskedData(data, mask)));
  }
  for (const auto& [name, key] : from.Keys()) {
    bool made = false;
    CopyMasked(*key, to.MakeKey(mask.Apply(name), made), mask);
  }
}

}  // namespace

machine::RegistryStore Masked(const machine::RegistryStore& registry, const NameMask& mask) {
  machine::RegistryStore masked;
  for (const platform::Hive hive : machine::RegistryStore::kHives)
    CopyMasked(*registry.Root(hive), *masked.Root(hive), mask);
  return masked;
}

std::string MaskedContent(const std::string& content, const NameMask& mask) {
  if (std::optional<platform::Shortcut> shortcut = platform::ReadShortcut(content)) {
    for (Text& path : shortcut->paths) path = mask.Apply(path);
    return ShortcutBytes(*shortcut, content.size());
  }
  if (content.find('\0') != std::string::npos) return {};
  FileText text = DecodeTextFile(content);
  text.text = mask.Apply(text.text);
  return EncodeTextFile(text);
}

}  // namespace tavix::exporting
