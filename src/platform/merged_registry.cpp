#include "platform/merged_registry.h"

#include <set>
#include <vector>

#include "text/letter_case.h"

namespace tavix::platform {
namespace {

Text BelowClasses(TextView key) {
  return key.empty() ? Text(u"Software\\Classes") : Concat(u"Software\\Classes\\", key);
}

// A null part has no keys.
class MergedKeysBelow : public KeysBelow {
 public:
  MergedKeysBelow(std::unique_ptr<KeysBelow> users, std::unique_ptr<KeysBelow> machines)
      : users_(std::move(users)), machines_(std::move(machines)) {}

  std::optional<Text> ReadValue(TextView below, TextView name) override {
    std::optional<Text> value = users_ != nullptr ? users_->ReadValue(below, name) : std::nullopt;
    return value || machines_ == nullptr ? std::move(value) : machines_->ReadValue(below, name);
  }

 private:
  const std::unique_ptr<KeysBelow> users_, machines_;
};

}  // namespace

bool MergedRegistry::VisitSubKeys(Hive hive, TextView key, const NameVisitor& visit) {
  if (hive != Hive::ClassesRoot) return plain_.VisitSubKeys(hive, key, visit);
  const Text path = BelowClasses(key);
  std::vector<Text> users;
  const bool allOfUser =
      plain_.VisitSubKeys(Hive::CurrentUser, path, [&users](TextView name) { users.emplace_back(name); });
  // Both lists are sorted, so one pass merges them.
  size_t next = 0;
  const bool allOfMachine = plain_.VisitSubKeys(Hive::LocalMachine, path, [&](TextView name) {
    while (next < users.size() && CompareIgnoringCase(users[next], name) < 0) visit(users[next++]);
    if (next < users.size() && EqualIgnoringCase(users[next], name)) {
      visit(users[next++]);
    } else {
      visit(name);
    }
  });
  while (next < users.size()) visit(users[next++]);
  return allOfUser && allOfMachine;
}

bool MergedRegistry::VisitValues(Hive hive, TextView key, const ValueVisitor& visit) {
  if (hive != Hive::ClassesRoot) return plain_.VisitValues(hive, key, visit);
  const Text path = BelowClasses(key);
  std::set<Text, LessIgnoringCase> users;
  const bool allOfUser = plain_.VisitValues(Hive::CurrentUser, path, [&](TextView name, TextView data) {
    users.emplace(name);
    visit(name, data);
  });
  const bool allOfMachine = plain_.VisitValues(Hive::LocalMachine, path, [&](TextView name, TextView data) {
    if (!users.contains(name)) visit(name, data);
  });
  return allOfUser && allOfMachine;
}

std::optional<Text> MergedRegistry::ReadValue(Hive hive, TextView key, TextView name) {
  if (hive != Hive::ClassesRoot) return plain_.ReadValue(hive, key, name);
  const Text path = BelowClasses(key);
  return plain_.ReadValue(Hive::CurrentUser, path, name).or_else([&] {
    return plain_.ReadValue(Hive::LocalMachine, path, name);
  });
}

std::unique_ptr<KeysBelow> MergedRegistry::Below(Hive hive, TextView key) {
  if (hive != Hive::ClassesRoot) return plain_.Below(hive, key);
  const Text path = BelowClasses(key);
  auto users = plain_.Below(Hive::CurrentUser, path);
  auto machines = plain_.Below(Hive::LocalMachine, path);
  if (users == nullptr) return machines;
  return std::make_unique<MergedKeysBelow>(std::move(users), std::move(machines));
}

Existence MergedRegistry::KeyExists(Hive hive, TextView key) {
  if (hive != Hive::ClassesRoot) return plain_.KeyExists(hive, key);
  const Text path = BelowClasses(key);
  const Existence users = plain_.KeyExists(Hive::CurrentUser, path);
  if (users == true) return users;
  const Existence machines = plain_.KeyExists(Hive::LocalMachine, path);
  return machines == true ? machines : users == false ? machines : users;
}

bool MergedRegistry::WriteString(Hive hive, TextView key, TextView name, TextView data) {
  if (hive != Hive::ClassesRoot) return plain_.WriteString(hive, key, name, data);
  const Text path = BelowClasses(key);
  const Existence users = plain_.KeyExists(Hive::CurrentUser, path);
  if (users == std::nullopt) return false;
  return plain_.WriteString(users == true ? Hive::CurrentUser : Hive::LocalMachine, path, name, data);
}

bool MergedRegistry::DeleteKey(Hive hive, TextView key) {
  if (hive != Hive::ClassesRoot) return plain_.DeleteKey(hive, key);
  if (key.empty()) return false;
  const Text path = BelowClasses(key);
  // If the user's key can't be seen just now, don't delete the machine's instead.
  const Existence users = plain_.KeyExists(Hive::CurrentUser, path);
  if (users == std::nullopt) return false;
  return plain_.DeleteKey(users == true ? Hive::CurrentUser : Hive::LocalMachine, path);
}

bool MergedRegistry::DeleteValue(Hive hive, TextView key, TextView name) {
  if (hive != Hive::ClassesRoot) return plain_.DeleteValue(hive, key, name);
  const Text path = BelowClasses(key);
  // If the user's values can't all be seen just now, don't delete the machine's instead.
  bool users = false;
  const auto compare = [&](TextView found, TextView) { users = users || EqualIgnoringCase(found, name); };
  if (plain_.KeyExists(Hive::CurrentUser, path) != false &&
      !plain_.VisitValues(Hive::CurrentUser, path, compare)) {
    return false;
  }
  return plain_.DeleteValue(users ? Hive::CurrentUser : Hive::LocalMachine, path, name);
}

}  // namespace tavix::platform
