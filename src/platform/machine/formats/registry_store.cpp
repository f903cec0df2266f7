#include "platform/machine/formats/registry_store.h"

#include <algorithm>

namespace tavix::machine {
namespace {

// Removes the first name from a path and returns it.
TextView TakePart(TextView& path) {
  const size_t end = std::min(path.find(u'\\'), path.size());
  const TextView part = path.substr(0, end);
  path.remove_prefix(std::min(end + 1, path.size()));
  return part;
}

}  // namespace

std::string_view RegistryStore::WhyNoKey(TextView name, size_t depth) {
  if (name.empty()) return "a key without a name";
  if (name.size() > kMaxKeyName) return "the name of a key is longer than 255 characters";
  if (name.find_first_of(u"\r\n") != TextView::npos) return "a line end in the name of a key";
  if (depth > kMaxDepth) return "keys lie more than 512 levels deep";
  return {};
}

std::string_view RegistryStore::WhyNoPath(TextView path) {
  if (!path.empty() && path.back() == u'\\') return WhyNoKey({}, 1);
  for (size_t depth = 1; !path.empty(); ++depth) {
    const std::string_view reason = WhyNoKey(TakePart(path), depth);
    if (!reason.empty()) return reason;
  }
  return {};
}

RegistryKey* RegistryStore::Root(platform::Hive hive) {
  const auto* const found = std::find(kHives.begin(), kHives.end(), hive);
  return found == kHives.end() ? nullptr : &roots_[static_cast<size_t>(found - kHives.begin())];
}

const RegistryKey* RegistryStore::Root(platform::Hive hive) const {
  const auto* const found = std::find(kHives.begin(), kHives.end(), hive);
  return found == kHives.end() ? nullptr : &roots_[static_cast<size_t>(found - kHives.begin())];
}

RegistryKey* RegistryStore::Find(platform::Hive hive, TextView path) {
  RegistryKey* key = Root(hive);
  if (!path.empty() && path.back() == u'\\') return nullptr;
  while (key != nullptr && !path.empty()) key = key->FindKey(TakePart(path));
  return key;
}

RegistryKey* RegistryStore::Make(platform::Hive hive, TextView path, bool& made) {
  RegistryKey* key = Root(hive);
  if (key == nullptr || !WhyNoPath(path).empty()) return nullptr;
  while (!path.empty()) key = &key->MakeKey(TakePart(path), made);
  return key;
}

}  // namespace tavix::machine
