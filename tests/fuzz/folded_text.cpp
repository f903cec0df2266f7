#include <cstdint>

#include "forms/main_form.h"
#include "frame/support/pub_registry.h"
#include "platform/machine/services/machine_registry.h"
#include "require.h"
#include "scan/registry_list.h"
#include "scan/result_items.h"
#include "scan/substring_index.h"

namespace {

using namespace tavix;

constexpr TextView kKey = u"k";

Text Join(const std::vector<TextView>& pieces, TextView separator) {
  Text joined;
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) joined += separator;
    joined += pieces[i];
  }
  return joined;
}

std::optional<Text> ShowName(const mdlPubSelf::RegistryEntry& entry) { return Text(entry.Name); }

// Each piece of the joined text gives one row.
void ScanList(mdlPubSelf::RegistryEntries entries, const std::vector<TextView>& pieces) {
  mdlPubSelf::ClearResults();
  const mdlPubSelf::RegistryList list[] = {{.Status = u"",
                                            .Hive = platform::Hive::CurrentUser,
                                            .Root = kKey,
                                            .Entries = entries,
                                            .Test = ShowName,
                                            .Type = u"t",
                                            .Location = u"l"}};
  mdlPubSelf::ScanRegistryLists(list);
  Require(mdlPubSelf::ResultCount() == static_cast<int>(pieces.size()));
  if (entries == mdlPubSelf::RegistryEntries::Values) return;
  for (size_t i = 0; i < pieces.size(); ++i) {
    const TextView name = frmPubMain.lsvResult.Row(static_cast<int>(i) + 1).SubItems(mdlPubSelf::kNameColumn);
    Require(name == pieces[i]);
  }
}

}  // namespace

// The lines of the input are names and data of values, and names of subkeys. They may contain the separators.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMost = 1000;
  const Text input(data, data + std::min(size, kMost));
  machine::MachineRegistry registry;
  const auto lines = Split(input, u"\n");
  for (size_t i = 0; i < lines.size(); ++i) {
    registry.WriteString(platform::Hive::CurrentUser, kKey, lines[i],
                         i + 1 < lines.size() ? lines[i + 1] : u"");
    if (lines[i].find(u'\\') == TextView::npos) {
      registry.MakeKey(platform::Hive::CurrentUser, Concat(kKey, u"\\", lines[i]));
    }
  }
  mdlPubSelf::pubRegistry = clsPubRegistry(&registry);
  Text joined;
  mdlPubSelf::pubRegistry.EnumSubKeys(platform::Hive::CurrentUser, kKey, joined);
  auto pieces = Split(joined, clsPubRegistry::kSubKeySeparator);
  Require(Join(pieces, clsPubRegistry::kSubKeySeparator) == joined);
  ScanList(mdlPubSelf::RegistryEntries::SubKeys, pieces);

  mdlPubSelf::SubstringIndex index(joined);
  for (const TextView line : lines) {
    Require(index.Contains(line) == (line.empty() ? !joined.empty() : joined.find(line) != Text::npos));
  }

  for (const bool values : {false, true}) {
    if (values) {
      mdlPubSelf::pubRegistry.EnumValues(platform::Hive::CurrentUser, kKey, joined);
    } else {
      mdlPubSelf::pubRegistry.EnumValueNames(platform::Hive::CurrentUser, kKey, joined);
    }
    pieces = Split(joined, clsPubRegistry::kItemSeparator);
    Require(Join(pieces, clsPubRegistry::kItemSeparator) == joined);
    ScanList(values ? mdlPubSelf::RegistryEntries::Values : mdlPubSelf::RegistryEntries::ValueNames, pieces);
  }
  mdlPubSelf::pubRegistry = {};
  return 0;
}
