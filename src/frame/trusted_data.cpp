#include "frame/trusted_data.h"

#include <algorithm>
#include <optional>

#include "frame/data_paths.h"
#include "frame/messages.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "platform/dialogs.h"
#include "platform/trust.h"

namespace tavix::mdlPubSelf {
namespace {

struct DataPlace {
  TextView path;
  bool steers;  // the program reads it; the others are only made or emptied
};

// Folders before what lies in them.
constexpr DataPlace kPlaces[] = {
    {kMakersFolder, true},     {kDataFolder, true},     {kSettingsFile, true},
    {kBuiltInJunkFile, true},  {kUserJunkFile, true},   {kMarkerFile, false},
    {kDuplicateFolder, false}, {kScannedFolder, false}, {kComparedFolder, false},
};

// Used if the catalogue beside the program can't be read: a message box without words would ask nothing.
constexpr TextView kForeignText =
    u"In the place of its own data Tavix has found something that others may have put there: a link, or what "
    u"belongs to another user. OK gives it another name, and Tavix starts with its default settings. Cancel "
    u"ends Tavix and leaves everything as it is.";
constexpr TextView kStaysText =
    u"This could not be given another name. Tavix ends without reading or changing it.";

bool IsElevated() { return platform::trust->Elevated(); }

bool IsForeign(const DataPlace& place, bool elevated) {
  const std::optional<bool> link = platform::fileSystem->IsLink(place.path);
  if (!link) return false;
  return *link || (elevated && place.steers && platform::trust->OwnedByOthers(place.path));
}

bool LiesIn(TextView path, TextView folder) {
  return path.starts_with(folder) && path.substr(folder.size()).starts_with(u'\\');
}

int Ask(TextView key, TextView fallback, const std::vector<Text>& paths, int style) {
  Text words = GetMessageText(key, fallback);
  words += u"\r\n";
  for (const Text& path : paths) words += Concat(u"\r\n", path);
  return platform::dialogs->MsgBox(words, style);
}

bool PutAside(const Text& path) {
  constexpr int kTries = 99;
  const Text name = Concat(TextView(path).substr(path.rfind(u'\\') + 1), u".aside");
  bool renamed = platform::trust->Rename(path, name);
  for (int number = 2; !renamed && number <= kTries; ++number) {
    renamed = platform::trust->Rename(path, Concat(name, u".", ToText(number)));
  }
  return renamed && !platform::fileSystem->IsLink(path);
}

// True if other users could change it until now.
bool Close(TextView path) { return platform::trust->Protect(path) == platform::Protection::Set; }

void MakeClosed(TextView folder) {
  if (fileSystemObject.FolderExists(folder) != true) fileSystemObject.CreateFolder(folder);
  Close(folder);
}

}  // namespace

std::vector<Text> ForeignData() {
  std::vector<Text> foreign;
  const bool elevated = IsElevated();
  for (const DataPlace& place : kPlaces) {
    const bool covered =
        std::ranges::any_of(foreign, [&place](const Text& found) { return LiesIn(place.path, found); });
    if (!covered && IsForeign(place, elevated)) foreign.emplace_back(place.path);
  }
  return foreign;
}

bool DataIsTrusted() {
  const std::vector<Text> foreign = ForeignData();
  if (foreign.empty()) return true;
  constexpr int kStyle = platform::kOkCancel | platform::kWarning;
  if (Ask(u"DATA_FOREIGN", kForeignText, foreign, kStyle) != platform::kOk) return false;
  for (const Text& path : foreign) {
    if (PutAside(path)) continue;
    Ask(u"DATA_STAYS", kStaysText, {path}, platform::kWarning);
    return false;
  }
  return true;
}

void ProtectData() {
  const bool elevated = IsElevated();
  for (const TextView folder : {kMakersFolder, kDataFolder}) {
    MakeClosed(folder);
    // Until now others could put a link here. What it leads to stays as it is.
    if (IsForeign({folder, true}, elevated)) return;
  }
  MakeClosed(kDefaultBackupFolder);
  // Files made while the folder was open are open too.
  for (const TextView file : {kSettingsFile, kBuiltInJunkFile, kUserJunkFile, kMarkerFile}) Close(file);
  // The start makes the scratch folders anew.
  if (Close(kDuplicateFolder)) fileSystemObject.DeleteFolder(kDuplicateFolder, true);
}

bool BackupFolderIsTrusted() { return !IsElevated() || !platform::trust->LiesAmongPrograms(BackupFolder); }

}  // namespace tavix::mdlPubSelf
