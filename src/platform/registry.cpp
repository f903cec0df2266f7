#include "platform/registry.h"

namespace tavix::platform {
namespace {

// Reads each value by its whole path.
class PathsBelow : public KeysBelow {
 public:
  PathsBelow(Registry& registry, Hive hive, TextView key) : registry_(registry), hive_(hive), key_(key) {}

  std::optional<Text> ReadValue(TextView below, TextView name) override {
    if (below.empty()) return std::nullopt;
    return registry_.ReadValue(hive_, Concat(key_, key_.empty() ? u"" : u"\\", below), name);
  }

 private:
  Registry& registry_;
  const Hive hive_;
  const Text key_;
};

}  // namespace

std::unique_ptr<KeysBelow> Registry::Below(Hive hive, TextView key) {
  if (KeyExists(hive, key) == false) return nullptr;
  return std::make_unique<PathsBelow>(*this, hive, key);
}

}  // namespace tavix::platform
