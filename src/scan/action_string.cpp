#include "scan/action_string.h"

#include "platform/hive_name.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kKindEnd = u": ";
constexpr TextView kFieldEnd = u", ";
constexpr TextView kValueEnd = u"MORVTVXRISSEP";

Text ValuePayload(platform::Hive hive, TextView key, TextView value) {
  return Concat(platform::HiveName(hive), kFieldEnd, key, kFieldEnd, value);
}

}  // namespace

Text RegistryKeyAction(platform::Hive hive, TextView key) {
  return Concat(action::kRegistryKey, kKindEnd, platform::HiveName(hive), kFieldEnd, key);
}

Text RegistryValueAction(platform::Hive hive, TextView key, TextView value) {
  return Concat(action::kRegistryValue, kKindEnd, ValuePayload(hive, key, value));
}

Text RegistryValuesAction(platform::Hive hive, TextView key, TextView first, TextView second) {
  return Concat(action::kRegistryValues, kKindEnd, ValuePayload(hive, key, first), u" ", kValueEnd, u" ",
                ValuePayload(hive, key, second));
}

Text CommandAction(TextView commandLine) { return Concat(action::kCommand, kKindEnd, commandLine); }

Text ClearTracksAction(int which) {
  return CommandAction(Concat(u"RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess ", ToText(which)));
}

Text NamedFileAction(TextView path) { return Concat(action::kNamedFile, kKindEnd, path); }

Text EventLogAction(TextView log) { return Concat(action::kEventLog, kKindEnd, log); }

Action ReadAction(TextView tag) {
  const auto parts = Split(tag, kKindEnd);
  return {ElementAt(parts, 0).value_or(u""), ElementAt(parts, 1).transform(Trim)};
}

RegistryTarget ReadRegistryTarget(TextView payload) {
  const auto fields = Split(payload, kFieldEnd);
  const TextView hive = ElementAt(fields, 0).value_or(u"");
  return {platform::FindHive(hive).value_or(platform::Hive::Users), ElementAt(fields, 1),
          ElementAt(fields, 2)};
}

std::vector<TextView> SplitRegistryTargets(TextView payload) { return Split(payload, kValueEnd); }

}  // namespace tavix::mdlPubSelf
