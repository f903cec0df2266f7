#include "scan/privacy_files.h"

#include "forms/main_form.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_system.h"
#include "frame/support/shell_object.h"
#include "scan/action_string.h"
#include "scan/painting_pause.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "scan/walkers.h"
#include "text/attempt.h"

namespace tavix::mdlPubSelf {
namespace {

// Numbers of shell folders.
constexpr int kInternetCache = 32;
constexpr int kCookies = 33;
constexpr int kHistory = 34;

// A store that one command of the system cleans.
struct WholeStore {
  int Folder;
  TextView Type;
  TextView NamePrefix;
  int Tracks;  // as ClearTracksAction numbers them
};

constexpr WholeStore kCacheStore = {kInternetCache, u"Temporary Internet Files", u"IE Cache (", 8};
constexpr WholeStore kCookieStore = {kCookies, u"Cookies", u"Cookies (", 2};
constexpr WholeStore kHistoryStore = {kHistory, u"History", u"History (", 1};

// An index file of the browser, which the system keeps open.
struct IndexFile {
  int Folder;
  TextView Path;  // below the folder
  TextView Type;
};

constexpr IndexFile kIndexFiles[] = {
    {kInternetCache, u"\\content.ie5\\index.dat", u"index.dat (Cache)"},
    {kCookies, u"\\index.dat", u"index.dat (Cookies)"},
    {kHistory, u"\\History.IE5\\index.dat", u"index.dat (History)"},
};

constexpr TextView kIndexName = u"index.dat";

// Empty if the system doesn't name the folder.
Text ShellFolder(int number) {
  Text path;
  pubSystem.GetSpecialFolder(number, path);
  return Text(Trim(path));
}

void ScanWholeStore(const WholeStore& store) {
  const Text path = ShellFolder(store.Folder);
  ShowScannedFolder(path);
  frmPubMain.Refresh();
  const Folder folder = fileSystemObject.GetFolder(path).value_or(Folder());
  int files = 0;
  pubCommon.CountFolderFiles(path, files);
  const auto size = folder.Size();
  AddResultItem(store.Type, Concat(store.NamePrefix, ToText(files), u" Files)"),
                size.transform(FormatSizeText), folder.Path(), size.transform(FormatSizeKey),
                ClearTracksAction(store.Tracks));
}

void ScanFileByFile(int folder, TextView type) {
  const PaintingPause pause;
  WalkFolderFilesExcept(ShellFolder(folder), type, kIndexName);
}

void ScanIndexFiles() {
  // If a file is missing, `file` keeps the one before: this is meant.
  File file;
  for (const IndexFile& index : kIndexFiles) {
    Set(file, fileSystemObject.GetFile(Concat(ShellFolder(index.Folder), index.Path)));
    AddResultItem(index.Type, kIndexName, file.Size().transform(FormatSizeText), file.Path(),
                  file.Size().transform(FormatSizeKey), action::kFileAtRestart);
  }
}

void ScanRecentDocuments() {
  constexpr TextView kType = u"Recently Used Documents";
  AddResultItem(kType, kType, kNoSize, u"Registry", kNoSizeKey,
                RegistryKeyAction(platform::Hive::CurrentUser,
                                  u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs"));
  const PaintingPause pause;
  if (const auto recent = shellObject.SpecialFolders(u"Recent")) {
    WalkFolderFiles(*recent, u"Recently Used Document");
  }
}

constexpr Scanner kScanners[] = {
    {u"ietif", [] { ScanWholeStore(kCacheStore); }},
    {u"iec", [] { ScanWholeStore(kCookieStore); }},
    {u"ieh", [] { ScanWholeStore(kHistoryStore); }},
    {u"ietifd", [] { ScanFileByFile(kInternetCache, u"Temporary Internet File"); }},
    {u"iecd", [] { ScanFileByFile(kCookies, u"Cookie"); }},
    {u"ieif", ScanIndexFiles},
    {u"werud", ScanRecentDocuments},
};

}  // namespace

constinit const std::span<const Scanner> kPrivacyFileScanners = kScanners;

}  // namespace tavix::mdlPubSelf
