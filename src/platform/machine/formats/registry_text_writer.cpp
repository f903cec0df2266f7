#include <cstring>

#include "platform/hive_name.h"
#include "platform/machine/formats/registry_text.h"
#include "platform/registry_data.h"

namespace tavix::machine {
namespace {

using platform::DataType;

constexpr TextView kLineEnd = u"\r\n";
// After this column a line ends before the next byte.
constexpr size_t kFullLine = 76;

void PutQuoted(Text& out, TextView text) {
  out.push_back(u'"');
  for (const char16_t c : text) {
    if (c == u'\\' || c == u'"') out.push_back(u'\\');
    out.push_back(c);
  }
  out.push_back(u'"');
}

void PutHex(Text& out, uint32_t number, unsigned digits) {
  for (unsigned i = digits; i-- > 0;) out.push_back(u"0123456789abcdef"[number >> (i * 4) & 15U]);
}

// The string, if the data is one that can be written in quotes: one terminator, no other NUL, no line end.
std::optional<Text> PlainString(const RegistryValue& value) {
  if (value.Type != static_cast<uint32_t>(DataType::String) || value.Data.size() % 2 != 0)
    return std::nullopt;
  Text text(value.Data.size() / 2, u'\0');
  std::memcpy(text.data(), value.Data.data(), value.Data.size());
  if (text.find_first_of(TextView(u"\0\r\n", 3)) + 1 != text.size() || text.empty()) return std::nullopt;
  if (text.back() != u'\0') return std::nullopt;
  text.pop_back();
  return text;
}

void PutBytes(Text& out, size_t lineStart, std::string_view bytes) {
  for (size_t i = 0; i < bytes.size(); ++i) {
    PutHex(out, static_cast<unsigned char>(bytes[i]), 2);
    if (i + 1 == bytes.size()) return;
    out.push_back(u',');
    if (out.size() - lineStart <= kFullLine) continue;
    out.append(u"\\").append(kLineEnd);
    lineStart = out.size();
    out.append(u"  ");
  }
}

void PutValue(Text& out, const RegistryValue& value) {
  const size_t lineStart = out.size();
  if (value.Name.empty()) {
    out.push_back(u'@');
  } else {
    PutQuoted(out, value.Name);
  }
  out.push_back(u'=');
  const auto type = static_cast<DataType>(value.Type);
  if (const std::optional<Text> text = PlainString(value)) {
    PutQuoted(out, *text);
  } else if (type == DataType::Number32 && value.Data.size() == sizeof(uint32_t)) {
    uint32_t number = 0;
    std::memcpy(&number, value.Data.data(), sizeof(number));
    out.append(u"dword:");
    PutHex(out, number, 8);
  } else {
    out.append(u"hex");
    if (type != DataType::Binary) {
      unsigned digits = 1;
      while (digits < 8 && value.Type >> (digits * 4) != 0) ++digits;
      out.push_back(u'(');
      PutHex(out, value.Type, digits);
      out.push_back(u')');
    }
    out.push_back(u':');
    PutBytes(out, lineStart, value.Data);
  }
  out.append(kLineEnd);
}

// `path` is the key's path; unchanged on return.
void PutKey(Text& out, Text& path, const RegistryKey& key) {
  out.append(kLineEnd).append(u"[").append(path).append(u"]").append(kLineEnd);
  for (const RegistryValue& value : key.AllValues()) PutValue(out, value);
  const size_t size = path.size();
  for (const auto& [name, subKey] : key.Keys()) {
    path.append(u"\\").append(name);
    PutKey(out, path, *subKey);
    path.resize(size);
  }
}

}  // namespace

std::string WriteRegistryText(const RegistryStore& store, platform::Hive hive) {
  Text out = u"\uFEFFWindows Registry Editor Version 5.00\r\n";
  if (const RegistryKey* root = store.Root(hive); root != nullptr) {
    Text path(platform::HiveName(hive));
    PutKey(out, path, *root);
  }
  std::string bytes(out.size() * 2, '\0');
  std::memcpy(bytes.data(), out.data(), bytes.size());
  return bytes;
}

}  // namespace tavix::machine
