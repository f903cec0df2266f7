#include "export/recording_registry.h"

#include <utility>
#include <vector>

#include "platform/registry_data.h"

namespace tavix::exporting {
namespace {

using platform::Hive;

constexpr auto kString = static_cast<uint32_t>(platform::DataType::String);

Text Joined(TextView key, TextView below) {
  if (key.empty() || below.empty()) return Concat(key, below);
  return Concat(key, u"\\", below);
}

// Calls `visit` with each place where a key is stored.
template <class Visitor>
void VisitPlaces(Hive hive, TextView key, const Visitor& visit) {
  if (hive != Hive::ClassesRoot) {
    visit(hive, Text(key));
    return;
  }
  for (const Hive place : {Hive::CurrentUser, Hive::LocalMachine})
    visit(place, Joined(u"Software\\Classes", key));
}

}  // namespace

class RecordingRegistry::Keys : public platform::KeysBelow {
 public:
  Keys(RecordingRegistry& registry, std::unique_ptr<platform::KeysBelow> source, Hive hive, TextView key)
      : registry_(registry), source_(std::move(source)), hive_(hive), key_(key) {}

  std::optional<Text> ReadValue(TextView below, TextView name) override {
    std::optional<Text> data = source_->ReadValue(below, name);
    if (data) registry_.NoteValue(hive_, Joined(key_, below), name);
    return data;
  }

 private:
  RecordingRegistry& registry_;
  const std::unique_ptr<platform::KeysBelow> source_;
  const Hive hive_;
  const Text key_;
};

// Null for a key that a machine folder can't hold.
machine::RegistryKey* RecordingRegistry::Make(Hive hive, TextView key) {
  bool made = false;
  return record_.registry.Make(hive, key, made);
}

void RecordingRegistry::NoteKey(Hive hive, TextView key) {
  VisitPlaces(hive, key, [this](Hive place, const Text& path) {
    if (source_.KeyExists(place, path) == true) Make(place, path);
  });
}

void RecordingRegistry::NoteSubKeys(Hive hive, TextView key) {
  VisitPlaces(hive, key, [this](Hive place, const Text& path) {
    source_.VisitSubKeys(place, path, [&](TextView name) { Make(place, Joined(path, name)); });
  });
}

// Notes the values in their order, also if single ones were noted before.
void RecordingRegistry::NoteValues(Hive hive, TextView key) {
  VisitPlaces(hive, key, [this](Hive place, const Text& path) {
    std::vector<std::pair<Text, Text>> values;
    source_.VisitValues(place, path, [&](TextView name, TextView data) { values.emplace_back(name, data); });
    machine::RegistryKey* noted = values.empty() ? nullptr : Make(place, path);
    if (noted == nullptr) return;
    for (const auto& [name, data] : values) noted->DeleteValue(name);
    for (const auto& [name, data] : values) noted->SetValue(name, kString, platform::StringData(data));
  });
}

void RecordingRegistry::NoteValue(Hive hive, TextView key, TextView name) {
  VisitPlaces(hive, key, [&](Hive place, const Text& path) {
    const std::optional<Text> data = source_.ReadValue(place, path, name);
    machine::RegistryKey* noted = data ? Make(place, path) : nullptr;
    if (noted != nullptr) noted->SetValue(name, kString, platform::StringData(*data));
  });
}

bool RecordingRegistry::VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) {
  NoteKey(hive, key);
  NoteSubKeys(hive, key);
  return source_.VisitSubKeys(hive, key, visit);
}

bool RecordingRegistry::VisitValues(Hive hive, TextView key, const ValueVisitor& visit) {
  NoteKey(hive, key);
  NoteValues(hive, key);
  return source_.VisitValues(hive, key, visit);
}

std::optional<Text> RecordingRegistry::ReadValue(Hive hive, TextView key, TextView name) {
  std::optional<Text> data = source_.ReadValue(hive, key, name);
  if (data) NoteValue(hive, key, name);
  return data;
}

std::unique_ptr<platform::KeysBelow> RecordingRegistry::Below(Hive hive, TextView key) {
  std::unique_ptr<platform::KeysBelow> keys = source_.Below(hive, key);
  if (keys == nullptr) return nullptr;
  NoteKey(hive, key);
  return std::make_unique<Keys>(*this, std::move(keys), hive, key);
}

platform::Existence RecordingRegistry::KeyExists(Hive hive, TextView key) {
  NoteKey(hive, key);
  return source_.KeyExists(hive, key);
}

bool RecordingRegistry::WriteString(Hive hive, TextView key, TextView name, TextView data) {
  return source_.WriteString(hive, key, name, data);
}

bool RecordingRegistry::DeleteKey(Hive hive, TextView key) { return source_.DeleteKey(hive, key); }

bool RecordingRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
  return source_.DeleteValue(hive, key, name);
}

}  // namespace tavix::exporting
