#include "clean/action_string.h"

namespace tavix::mdlPubSelf {
namespace {

// Element `index` of what a text is cut into, if there is one.
std::optional<TextView> Element(const std::vector<TextView>& elements, size_t index) {
  return index < elements.size() ? std::optional(elements[index]) : std::nullopt;
}

}  // namespace

Action ReadAction(TextView tag) {
  const auto elements = Split(tag, u": ");
  return {Element(elements, 0).value_or(u""), Element(elements, 1).transform(Trim)};
}

RegistryTarget ReadRegistryTarget(TextView payload) {
  const auto fields = Split(payload, u", ");
  return {HiveByName(Element(fields, 0).value_or(u"")), Element(fields, 1), Element(fields, 2)};
}

std::vector<TextView> SplitRegistryTargets(TextView payload) { return Split(payload, u"MORVTVXRISSEP"); }

platform::Hive HiveByName(TextView name) {
  if (name == u"HKEY_LOCAL_MACHINE") return platform::Hive::LocalMachine;
  if (name == u"HKEY_CURRENT_USER") return platform::Hive::CurrentUser;
  if (name == u"HKEY_CURRENT_CONFIG") return platform::Hive::CurrentConfig;
  if (name == u"HKEY_CLASSES_ROOT") return platform::Hive::ClassesRoot;
  return platform::Hive::Users;
}

}  // namespace tavix::mdlPubSelf
