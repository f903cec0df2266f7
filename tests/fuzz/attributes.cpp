#include <cstdint>

#include "doubles/memory_store.h"
#include "platform/machine/formats/attribute_table.h"
#include "platform/machine/formats/machine_path.h"
#include "require.h"

// attributes.ini can hold any bytes. Saved attributes are read back unchanged, and a second save writes the
// same bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tavix;
  constexpr TextView kFile = u"attributes.ini";
  const auto all = [](const machine::AttributeTable& table) {
    std::vector<std::pair<Text, uint32_t>> found;
    const auto add = [&found](const Text& path, uint32_t attributes) {
      found.emplace_back(path, attributes);
      return true;
    };
    for (char16_t drive = u'A'; drive <= u'Z'; ++drive) table.VisitTree(Text{drive, u':', u'\\'}, add);
    table.VisitTree(machine::kApplicationFolder, add);
    return found;
  };
  machine::MemoryStore store;
  store.Root()->WriteFile(kFile, {reinterpret_cast<const char*>(data), size});
  machine::AttributeTable table(&store);
  for (const auto& [path, attributes] : all(table)) {
    const auto read = machine::ReadMachinePath(path);
    Require(attributes != 0 && read && read->ToText() == path);
  }
  table.Set(u"C:\\a=b", table.Get(u"C:\\a=b") == 7 ? 6 : 7);
  table.Move(u"C:\\Users", u"D:\\Users");
  Require(table.Save() == table.Readable());
  if (!table.Readable()) return 0;
  const auto written = store.Root()->ReadFile(kFile);
  machine::AttributeTable again(&store);
  Require(all(again) == all(table));
  again.Set(u"C:\\other", 1);
  again.Set(u"C:\\other", table.Get(u"C:\\other"));
  Require(again.Save() && store.Root()->ReadFile(kFile) == written);
  return 0;
}
