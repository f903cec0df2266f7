#include "scan/system_walks.h"

#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_system.h"
#include "frame/support/shell_object.h"
#include "scan/painting_pause.h"
#include "scan/walkers.h"
#include "scan/windows_folder.h"
#include "text/letter_case.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

bool BeginsWith(TextView name, TextView start) {
  return EqualIgnoringCase(name.substr(0, start.size()), start);
}

// Calls `visit` with the path of each direct subfolder whose name begins with `start`, letter case aside.
template <class Visitor>
void VisitSubFolders(TextView path, TextView start, const Visitor& visit) {
  const Folder folder = fileSystemObject.GetFolder(path).value_or(Folder());
  const auto subFolders = folder.SubFolders();
  if (!subFolders) return;
  for (const Folder& subFolder : *subFolders) {
    if (BeginsWith(*subFolder.Name(), start)) visit(*subFolder.Path());
  }
}

// Walks the path `below` a special folder of the shell.
void WalkShortcuts(TextView folder, TextView below, TextView type) {
  if (const auto path = shellObject.SpecialFolders(folder)) WalkInvalidShortcuts(Concat(*path, below), type);
}

}  // namespace

void ScanTemporaryFiles() {
  const PaintingPause pause;
  Text userFolder;
  pubSystem.GetUserTempFolder(userFolder);
  WalkFolderFiles(userFolder, u"User Temporary File");
  Text systemFolder;
  pubCommon.GetSystemTempFolder(systemFolder);
  WalkFolderFiles(Trim(systemFolder), u"System Temporary File");
}

void ScanFileFragments() {
  const PaintingPause pause;
  for (const platform::Drive& drive : fileSystemObject.Drives()) {
    if (!drive.ready || drive.type == platform::kCdDrive || drive.type == platform::kNetworkDrive) continue;
    VisitSubFolders(Concat(drive.path, u"\\"), u"found.", [](TextView folder) {
      WalkFolderByPattern(folder, u"CHKDSK File Fragment", u"*.chk;chklist.m*;file????._dd");
    });
  }
}

void ScanLogFiles() {
  const PaintingPause pause;
  WalkFolderByPattern(WindowsFolder(), u"Windows Log File", u"*.log");
}

void ScanUserShortcuts() {
  const PaintingPause pause;
  const Text user = EnvironmentText(u"USERNAME");
  WalkShortcuts(u"1", u"", u"Invalid Shortcut (All User's Start Menu)");
  WalkShortcuts(u"0", u"", u"Invalid Shortcut (All User's Desktop)");
  WalkShortcuts(u"11", u"", Concat(u"Invalid Shortcut (", user, u"'s Start Menu)"));
  WalkShortcuts(u"10", u"", Concat(u"Invalid Shortcut (", user, u"'s Desktop)"));
  WalkShortcuts(u"5", u"\\Microsoft\\Internet Explorer\\Quick Launch", u"Invalid Shortcut (Quick Launch)");
}

void ScanUpdateUninstallers() {
  const PaintingPause pause;
  VisitSubFolders(WindowsFolder(), u"$ntuninstall",
                  [](TextView folder) { WalkFolderFiles(folder, u"Uninstall File for Windows Update"); });
}

void ScanUpdateSources() {
  const PaintingPause pause;
  WalkFolderFiles(Concat(WindowsFolder(), u"\\SoftwareDistribution\\Download"),
                  u"Windows Update Source File");
}

void ScanOldPrefetchData() {
  const PaintingPause pause;
  // A setting that is no number means no walk.
  if (const auto days = ToInteger16(LastAccessedPrefetch)) {
    WalkFolderByPatternAge(Concat(WindowsFolder(), u"\\Prefetch"), u"Old Prefetch data", u"*.pf", *days);
  }
}

}  // namespace tavix::mdlPubSelf
