#include "frame/support/pub_registry.h"

namespace tavix {
namespace {

// Joins items with a separator between any two.
class Folding {
 public:
  explicit Folding(TextView separator) : separator_(separator) {}
  Text& Next() {
    if (!first_) text_ += separator_;
    first_ = false;
    return text_;
  }
  Text Take() { return std::move(text_); }

 private:
  TextView separator_;
  Text text_;
  bool first_ = true;
};

}  // namespace

void clsPubRegistry::ReadValue(platform::Hive hive, TextView key, TextView name, TextView fallback,
                               Text& value) const {
  if (registry_ == platform::noRegistry) return;
  value = registry_->ReadValue(hive, key, name).value_or(Text(fallback));
}

std::unique_ptr<platform::KeysBelow> clsPubRegistry::Below(platform::Hive hive, TextView key) const {
  return registry_ == platform::noRegistry ? nullptr : registry_->Below(hive, key);
}

void clsPubRegistry::WriteValue(int type, platform::Hive hive, TextView key, TextView name, TextView value,
                                int& status) const {
  constexpr int kString = 1;
  if (registry_ == platform::noRegistry || type != kString) return;
  status = registry_->WriteString(hive, key, name, value) ? 0 : 1;
}

void clsPubRegistry::EnumSubKeys(platform::Hive hive, TextView key, Text& folded) const {
  if (registry_ == platform::noRegistry) return;
  Folding folding(kSubKeySeparator);
  const bool all = registry_->VisitSubKeys(hive, key, [&folding](TextView name) { folding.Next() += name; });
  folded = all ? folding.Take() : Text();
}

void clsPubRegistry::EnumValues(platform::Hive hive, TextView key, Text& folded) const {
  if (registry_ == platform::noRegistry) return;
  Folding folding(kItemSeparator);
  const bool all = registry_->VisitValues(hive, key, [&folding](TextView name, TextView data) {
    folding.Next().append(name).append(kDataSeparator).append(data);
  });
  folded = all ? folding.Take() : Text();
}

void clsPubRegistry::EnumValueNames(platform::Hive hive, TextView key, Text& folded) const {
  if (registry_ == platform::noRegistry) return;
  Folding folding(kItemSeparator);
  const bool all =
      registry_->VisitValues(hive, key, [&folding](TextView name, TextView) { folding.Next() += name; });
  folded = all ? folding.Take() : Text();
}

void clsPubRegistry::DeleteKey(platform::Hive hive, TextView key) const { registry_->DeleteKey(hive, key); }

void clsPubRegistry::DeleteValue(platform::Hive hive, TextView key, TextView name, int& status) const {
  if (registry_ == platform::noRegistry) return;
  status = registry_->DeleteValue(hive, key, name) ? 0 : 1;
}

void clsPubRegistry::CountValues(platform::Hive hive, TextView key, int16_t& count) const {
  int values = 0;
  const bool all = registry_->VisitValues(hive, key, [&values](TextView, TextView) { ++values; });
  if (all && values <= INT16_MAX) count = static_cast<int16_t>(values);
}

bool clsPubRegistry::IsReadable(platform::Hive hive, TextView key) const {
  return registry_->VisitSubKeys(hive, key, [](TextView) {}) &&
         registry_->VisitValues(hive, key, [](TextView, TextView) {});
}

}  // namespace tavix
