#include "platform/windows/windows_registry.h"

#include <algorithm>
#include <vector>

#include "platform/registry_data.h"
#include "platform/windows/native_registry.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

constexpr auto kNameNotFound = static_cast<NTSTATUS>(0xC0000034);
constexpr auto kAccessDenied = static_cast<NTSTATUS>(0xC0000022);
constexpr TextView kSeparator = u"\\";

bool SetString(HKEY key, TextView name, TextView data) {
  return native::SetValue(key, name, REG_SZ, platform::StringData(data));
}

// The subkey names of a key, packed into one buffer.
class SubKeyNames {
 public:
  explicit SubKeyNames(HKEY key) {
    native::Buffer buffer;
    for (uint32_t i = 0;; ++i) {
      const std::optional<TextView> name = native::SubKeyAt(key, i, buffer, complete_);
      if (!name) break;
      packed_ += *name;
      ends_.push_back(packed_.size());
    }
  }

  // Whether all names could be read.
  bool Complete() const { return complete_; }
  std::vector<TextView> List() const {
    std::vector<TextView> names;
    names.reserve(ends_.size());
    size_t start = 0;
    for (const size_t end : ends_) {
      names.push_back(TextView(packed_).substr(start, end - start));
      start = end;
    }
    return names;
  }

 private:
  Text packed_;
  std::vector<size_t> ends_;
  bool complete_ = false;
};

// Newly made keys. Deletes them again unless Keep is called.
class MadeKeys {
 public:
  MadeKeys() = default;
  MadeKeys(const MadeKeys&) = delete;
  MadeKeys& operator=(const MadeKeys&) = delete;
  ~MadeKeys() {
    for (auto key = keys_.rbegin(); key != keys_.rend(); ++key) native::Delete(key->Get());
  }
  void Add(RegistryKeyHandle key) { keys_.push_back(std::move(key)); }
  void Keep() { keys_.clear(); }

 private:
  std::vector<RegistryKeyHandle> keys_;
};

// Makes the missing keys of `path` and writes the value into the last one. Leaves no new keys on failure.
bool WriteBelowNewKeys(HKEY hive, TextView path, TextView name, TextView data) {
  size_t existing = path.size();
  native::Opened parent;
  do {
    const size_t cut = path.substr(0, existing).rfind(u'\\');
    existing = cut == TextView::npos ? 0 : cut;
    parent = native::Open(hive, path.substr(0, existing), KEY_CREATE_SUB_KEY);
  } while (parent.status == kNameNotFound && existing > 0);
  if (!parent.key) return false;

  constexpr REGSAM kAccess = KEY_CREATE_SUB_KEY | KEY_SET_VALUE | DELETE;
  MadeKeys made;
  HKEY last = parent.key.Get();
  for (const TextView part : Split(path.substr(existing == 0 ? 0 : existing + 1), kSeparator)) {
    native::Created next = native::Create(last, part, kAccess);
    if (!next.isNew) return false;
    last = next.opened.key.Get();
    made.Add(std::move(next.opened.key));
  }
  if (!SetString(last, name, data)) return false;
  made.Keep();
  return true;
}

// Whether a path has the form that platform::Registry defines. The system would skip an empty part: it would
// take a path whose last name is missing for the key above.
bool IsPath(TextView key) {
  return key.empty() || (key.front() != u'\\' && key.back() != u'\\' && key.find(u"\\\\") == TextView::npos);
}

std::optional<Text> ReadOpened(const RegistryKeyHandle& key, TextView name) {
  if (!key) return std::nullopt;
  native::Buffer buffer;
  return native::Query(key.Get(), name, buffer).transform([](const native::Value& value) {
    return platform::RenderData(value.type, value.data);
  });
}

// Keeps the key open, so that the system needn't look up its path for each value.
class OpenKeysBelow : public platform::KeysBelow {
 public:
  explicit OpenKeysBelow(RegistryKeyHandle key) : key_(std::move(key)) {}

  std::optional<Text> ReadValue(TextView below, TextView name) override {
    if (below.empty() || !IsPath(below)) return std::nullopt;
    return ReadOpened(native::Open(key_.Get(), below, KEY_QUERY_VALUE).key, name);
  }

 private:
  const RegistryKeyHandle key_;
};

}  // namespace

HKEY WindowsRegistry::Base(Hive hive, TextView key) {
  if (!IsPath(key)) return nullptr;
  RegistryKeyHandle& base = hives_[hive];
  if (!base) base = native::OpenHive(hive);
  return base.Get();
}

RegistryKeyHandle WindowsRegistry::Open(Hive hive, TextView key, REGSAM access) {
  const HKEY base = Base(hive, key);
  return base == nullptr ? RegistryKeyHandle() : native::Open(base, key, access).key;
}

WindowsRegistry::Reached WindowsRegistry::Reach(Hive hive, TextView key, REGSAM access) {
  const HKEY base = Base(hive, key);
  if (base == nullptr) return {{}, !IsPath(key) || !native::IsHive(hive), false};
  native::Opened opened = native::Open(base, key, access);
  return {std::move(opened.key), native::IsMissing(opened.status), opened.status == kAccessDenied};
}

bool WindowsRegistry::VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) {
  const Reached reached = Reach(hive, key, KEY_ENUMERATE_SUB_KEYS);
  if (!reached.key) return reached.missing;
  const SubKeyNames subKeys(reached.key.Get());
  std::vector<TextView> names = subKeys.List();
  if (!std::is_sorted(names.begin(), names.end(), LessIgnoringCase())) {
    std::sort(names.begin(), names.end(), LessIgnoringCase());
  }
  for (const TextView name : names) visit(name);
  return subKeys.Complete();
}

bool WindowsRegistry::VisitValues(Hive hive, TextView key, const ValueVisitor& visit) {
  const Reached reached = Reach(hive, key, KEY_QUERY_VALUE);
  if (!reached.key) return reached.missing;
  native::Buffer buffer;
  for (uint32_t i = 0;; ++i) {
    bool atEnd = false;
    const std::optional<native::Value> value = native::ValueAt(reached.key.Get(), i, buffer, atEnd);
    if (!value) return atEnd;
    visit(value->name, platform::RenderData(value->type, value->data));
  }
}

std::optional<Text> WindowsRegistry::ReadValue(Hive hive, TextView key, TextView name) {
  return ReadOpened(Open(hive, key, KEY_QUERY_VALUE), name);
}

// A key that can't be opened may still have keys below it that can.
std::unique_ptr<platform::KeysBelow> WindowsRegistry::Below(Hive hive, TextView key) {
  Reached reached = Reach(hive, key, KEY_ENUMERATE_SUB_KEYS);
  if (!reached.key) return reached.missing ? nullptr : Registry::Below(hive, key);
  return std::make_unique<OpenKeysBelow>(std::move(reached.key));
}

platform::Existence WindowsRegistry::KeyExists(Hive hive, TextView key) {
  const Reached reached = Reach(hive, key, KEY_QUERY_VALUE);
  if (reached.key || reached.denied) return true;
  if (reached.missing) return false;
  return std::nullopt;
}

bool WindowsRegistry::WriteString(Hive hive, TextView key, TextView name, TextView data) {
  const HKEY base = Base(hive, key);
  if (base == nullptr) return false;
  const native::Opened opened = native::Open(base, key, KEY_SET_VALUE);
  if (opened.key) return SetString(opened.key.Get(), name, data);
  return opened.status == kNameNotFound && WriteBelowNewKeys(base, key, name, data);
}

bool WindowsRegistry::DeleteKey(Hive hive, TextView key) {
  const HKEY base = Base(hive, key);
  if (base == nullptr || key.empty()) return false;
  // A link is opened as itself. It has no subkeys, so nothing of its target is deleted.
  constexpr REGSAM kAccess = DELETE | KEY_ENUMERATE_SUB_KEYS;
  constexpr auto kItself = native::LastPart::kOpenLink;
  std::vector<RegistryKeyHandle> keys;
  const auto take = [&keys](HKEY parent, TextView name) {
    keys.push_back(native::Open(parent, name, kAccess, kItself).key);
    return static_cast<bool>(keys.back());
  };
  if (!take(base, key)) return false;
  for (size_t i = 0; i < keys.size(); ++i) {
    const SubKeyNames subKeys(keys[i].Get());
    if (!subKeys.Complete()) return false;
    for (const TextView name : subKeys.List()) {
      if (!take(keys[i].Get(), name)) return false;
    }
  }
  // Subkeys come after their parent.
  bool gone = true;
  for (auto each = keys.rbegin(); each != keys.rend(); ++each) gone = native::Delete(each->Get()) && gone;
  return gone;
}

bool WindowsRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
  const RegistryKeyHandle opened = Open(hive, key, KEY_SET_VALUE);
  return opened && native::DeleteValue(opened.Get(), name);
}

}  // namespace tavix::windows
