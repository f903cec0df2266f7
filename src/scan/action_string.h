#pragma once

#include <array>
#include <optional>
#include <vector>

#include "platform/registry.h"
#include "text/text.h"

// The action string of a result row, kept in its tag: a kind, or a kind, ": " and a payload. Scanners write
// it, the clean reads it.
namespace tavix::mdlPubSelf {

namespace action {

// Kinds without a payload. The row's location and name say which file or folder is meant.
constexpr TextView kFile = u"F";
constexpr TextView kFolder = u"P";
constexpr TextView kFileAtRestart = u"DUR";  // a file in use, marked for the next start of the system
constexpr TextView kRecycleBins = u"RE";

// Kinds with a payload.
constexpr TextView kRegistryKey = u"RK";
constexpr TextView kRegistryValue = u"RI";
constexpr TextView kRegistryValues = u"RIs";
constexpr TextView kCommand = u"Cmd";
constexpr TextView kNamedFile = u"FT";
constexpr TextView kEventLog = u"WSL";

// What reads kinds has an answer for each of these.
inline constexpr std::array kAll = {kFile,        kFolder,        kFileAtRestart,  kRecycleBins,
                                    kRegistryKey, kRegistryValue, kRegistryValues, kCommand,
                                    kNamedFile,   kEventLog};

}  // namespace action

// Writers of action strings with a payload. They write what they get: a ": " or ", " in a name is read as a
// cut.
Text RegistryKeyAction(platform::Hive hive, TextView key);
Text RegistryValueAction(platform::Hive hive, TextView key, TextView value);
// Two values of one key. Read back, the first name ends in a blank and the second hive is HKEY_USERS.
Text RegistryValuesAction(platform::Hive hive, TextView key, TextView first, TextView second);
Text CommandAction(TextView commandLine);
// The system's command that clears traces of the browser; `which` is the system's number for their kind.
Text ClearTracksAction(int which);
Text NamedFileAction(TextView path);
Text EventLogAction(TextView log);

// Kind and payload of an action string, which is cut at every ": ". The payload is the text up to the second
// cut without the blanks at its ends; nothing if there is no cut.
struct Action {
  TextView kind;
  std::optional<TextView> payload;
};
Action ReadAction(TextView tag);

// The key or value that a payload names. The payload is cut at every ", " and only the first three pieces
// count. A hive of an unknown name is HKEY_USERS.
struct RegistryTarget {
  platform::Hive hive = platform::Hive::Users;
  std::optional<TextView> key;
  std::optional<TextView> value;
};
RegistryTarget ReadRegistryTarget(TextView payload);

// The payloads of the single values in the payload of kRegistryValues. They keep the blanks around the
// separator, so the first value's name ends in a blank, and the second hive's name begins with one and is
// unknown.
std::vector<TextView> SplitRegistryTargets(TextView payload);

}  // namespace tavix::mdlPubSelf
