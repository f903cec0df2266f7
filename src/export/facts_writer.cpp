#include "export/facts_writer.h"

#include <optional>

#include "platform/event_logs.h"
#include "platform/file_system.h"
#include "platform/screen.h"
#include "platform/shell.h"
#include "text/ini_text.h"

namespace tavix::exporting {
namespace {

Text DriveText(const platform::Drive& drive) {
  Text text = ToText(drive.type);
  // A comma ends the label.
  if (!drive.volumeName.empty() || !drive.ready) text += Concat(u",", BlankOut(drive.volumeName, u","));
  if (!drive.ready) text += u",not ready";
  return text;
}

Text LogText(TextView name) {
  const platform::EventLogs::Handle log = platform::eventLogs->Open(name);
  if (log == 0) return u"-";
  const std::optional<uint32_t> count = platform::eventLogs->Count(log);
  platform::eventLogs->Close(log);
  return count ? ToText(*count) : Text(u"-");
}

}  // namespace

Text MachineFactsText(const Texts& variables, const Locale& locale, const NameMask* mask) {
  Text ini;
  const auto put = [&ini](TextView section, TextView key, const std::optional<Text>& value) {
    if (value) ini = WriteIniValue(ini, section, key, *value);
  };
  const auto masked = [mask](TextView text) { return mask != nullptr ? mask->Apply(text) : Text(text); };
  const auto putMasked = [&](TextView section, TextView key, const std::optional<Text>& value) {
    put(section, key, value.transform(masked));
  };
  platform::Shell& shell = *platform::shell;
  Texts named = variables;
  named.insert({u"WinDir", u"USERNAME"});
  for (const Text& name : named) putMasked(u"Environment", masked(name), shell.EnvironmentVariable(name));
  for (const int number : {32, 33, 34, 9966})
    putMasked(u"Folders", ToText(number), shell.SpecialFolderByNumber(number));
  for (const TextView name :
       {u"Recent", u"Fonts", u"AllUsersPrograms", u"Programs", u"0", u"1", u"5", u"10", u"11"}) {
    putMasked(u"Special Folders", name, shell.SpecialFolderByName(name));
  }
  putMasked(u"Temporary Folders", u"User", shell.UserTempFolder());
  putMasked(u"Temporary Folders", u"System", shell.SystemTempFolder());
  for (const platform::Drive& drive : platform::fileSystem->Drives())
    putMasked(u"Drives", drive.path.substr(0, 1), DriveText(drive));
  for (const TextView log : {u"System", u"Application", u"Security"}) put(u"Event Logs", log, LogText(log));
  put(u"Recycle Bin", u"Info", shell.RecycleBinInfo().value_or(u"-"));
  put(u"Locale", u"Decimal", locale.Decimal);
  put(u"Locale", u"Grouping", locale.Grouping);
  put(u"Screen", u"Width", ToText(platform::screen.Width));
  put(u"Screen", u"Height", ToText(platform::screen.Height));
  return ini;
}

}  // namespace tavix::exporting
