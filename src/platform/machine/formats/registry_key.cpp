#include "platform/machine/formats/registry_key.h"

#include <algorithm>

namespace tavix::machine {

RegistryKey* RegistryKey::FindKey(TextView name) const {
  const auto found = keys_.find(name);
  return found == keys_.end() ? nullptr : found->second.get();
}

RegistryKey& RegistryKey::MakeKey(TextView name, bool& made) {
  // Names mostly arrive in order, so compare with the last one first.
  auto place = keys_.end();
  if (!keys_.empty()) {
    const auto last = std::prev(place);
    const int order = CompareIgnoringCase(last->first, name);
    if (order == 0) return *last->second;
    if (order > 0) {
      place = keys_.lower_bound(name);
      if (EqualIgnoringCase(place->first, name)) return *place->second;
    }
  }
  made = true;
  return *keys_.emplace_hint(place, name, std::make_unique<RegistryKey>())->second;
}

bool RegistryKey::DeleteKey(TextView name) {
  const auto found = keys_.find(name);
  if (found == keys_.end()) return false;
  keys_.erase(found);
  return true;
}

RegistryKey::Values::iterator RegistryKey::Locate(TextView name) {
  if (index_.empty()) {
    return std::find_if(values_.begin(), values_.end(),
                        [name](const RegistryValue& value) { return EqualIgnoringCase(value.Name, name); });
  }
  const auto found = index_.find(name);
  return found == index_.end() ? values_.end() : found->second;
}

const RegistryValue* RegistryKey::FindValue(TextView name) const {
  // Locate changes nothing.
  auto& self = const_cast<RegistryKey&>(*this);  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  const auto found = self.Locate(name);
  return found == self.values_.end() ? nullptr : &*found;
}

bool RegistryKey::SetValue(TextView name, uint32_t type, std::string data) {
  const auto found = Locate(name);
  if (found != values_.end()) {
    if (found->Type == type && found->Data == data) return false;
    found->Type = type;
    found->Data = std::move(data);
    return true;
  }
  values_.push_back({Text(name), type, std::move(data)});
  if (!index_.empty()) {
    index_.emplace_hint(index_.end(), values_.back().Name, std::prev(values_.end()));
  } else if (values_.size() > kFewValues) {
    for (auto value = values_.begin(); value != values_.end(); ++value) index_.emplace(value->Name, value);
  }
  return true;
}

bool RegistryKey::DeleteValue(TextView name) {
  const auto found = Locate(name);
  if (found == values_.end()) return false;
  // The index points into the value's own name.
  index_.erase(found->Name);
  values_.erase(found);
  return true;
}

bool RegistryKey::operator==(const RegistryKey& other) const {
  return values_ == other.values_ && std::equal(keys_.begin(), keys_.end(), other.keys_.begin(),
                                                other.keys_.end(), [](const auto& left, const auto& right) {
                                                  return left.first == right.first &&
                                                         *left.second == *right.second;
                                                });
}

}  // namespace tavix::machine
