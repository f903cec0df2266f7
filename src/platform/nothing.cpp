#include "platform/nothing.h"

#include "platform/application.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/event_logs.h"
#include "platform/event_queue.h"
#include "platform/file_system.h"
#include "platform/instance.h"
#include "platform/network.h"
#include "platform/registry.h"
#include "platform/screen.h"
#include "platform/shell.h"
#include "platform/trust.h"
#include "text/number.h"

namespace tavix::platform {
namespace {

struct NoClock : Clock {
  DateTime Now() override { return kUnknownTime; }
};

struct NoDesktop : Desktop {
  void SendWindowMessage(WindowHandle, uint32_t, intptr_t, intptr_t) override {}
  void PostWindowMessage(WindowHandle, uint32_t, intptr_t, intptr_t) override {}
  WindowHandle FindWindowByTitle(TextView) override { return 0; }
  void ReleaseCapture() override {}
  void SetTreeBackColor(WindowHandle, uint32_t) override {}
};

struct NoDialogs : Dialogs {
  int MsgBox(TextView, int) override { return kCancel; }
  std::optional<Text> InputBox(TextView, TextView) override { return std::nullopt; }
  std::optional<Text> BrowseForFolder(WindowHandle, TextView) override { return std::nullopt; }
};

struct NoEventLogs : EventLogs {
  Handle Open(TextView) override { return 0; }
  std::optional<uint32_t> Count(Handle) override { return std::nullopt; }
  bool Clear(Handle) override { return false; }
  void Close(Handle) override {}
};

struct NoEventQueue : EventQueue {
  void Yield() override {}
};

struct NoFileSystem : FileSystem {
  std::optional<FileFacts> Look(TextView) override { return std::nullopt; }
  Existence FileExists(TextView) override { return {}; }
  Existence FolderExists(TextView) override { return {}; }
  std::unique_ptr<OpenFolder> Open(TextView) override { return nullptr; }
  std::optional<Text> FolderIdentity(TextView) override { return std::nullopt; }
  std::vector<Text> Lineage(TextView) override { return {}; }
  std::optional<Text> ResolveLink(TextView) override { return std::nullopt; }
  std::unique_ptr<FoundFolder> OpenFound(TextView, TextView) override { return nullptr; }
  bool CreateFolder(TextView) override { return false; }
  bool CreateTextFile(TextView, bool) override { return false; }
  std::optional<std::string> ReadFile(TextView) override { return std::nullopt; }
  bool WriteFile(TextView, std::string_view) override { return false; }
  bool AppendToFile(TextView, std::string_view) override { return false; }
  bool DeleteFile(TextView, bool) override { return false; }
  bool DeleteFolder(TextView, bool) override { return false; }
  bool MoveFile(TextView, TextView) override { return false; }
  bool SetAttributes(TextView, uint32_t) override { return false; }
  void RemoveTemporaries(TextView) override {}
  std::vector<Drive> Drives() override { return {}; }
  std::optional<int> DriveType(char16_t) override { return std::nullopt; }
  bool IsDriveReady(char16_t) override { return false; }
};

struct NoInstance : Instance {
  bool PreviousRuns() override { return false; }
};

struct NoNetwork : Network {
  std::optional<std::string> Fetch(TextView, int) override { return std::nullopt; }
};

struct NoRegistry : Registry {
  bool VisitSubKeys(Hive, TextView, const NameVisitor&) override { return false; }
  bool VisitValues(Hive, TextView, const ValueVisitor&) override { return false; }
  std::optional<Text> ReadValue(Hive, TextView, TextView) override { return std::nullopt; }
  Existence KeyExists(Hive, TextView) override { return {}; }
  bool WriteString(Hive, TextView, TextView, TextView) override { return false; }
  bool DeleteKey(Hive, TextView) override { return false; }
  bool DeleteValue(Hive, TextView, TextView) override { return false; }
};

struct NoShell : Shell {
  bool RunTarget(TextView, int) override { return false; }
  bool OpenPath(TextView, int) override { return false; }
  bool RunHidden(TextView) override { return false; }
  bool ShowFileProperties(WindowHandle, TextView) override { return false; }
  bool DeleteToRecycleBin(TextView) override { return false; }
  bool EmptyRecycleBin(WindowHandle) override { return false; }
  std::optional<Text> RecycleBinInfo() override { return std::nullopt; }
  bool DeleteAtRestart(TextView) override { return false; }
  std::optional<Text> SpecialFolderByNumber(int) override { return std::nullopt; }
  std::optional<Text> SpecialFolderByName(TextView) override { return std::nullopt; }
  std::optional<Text> UserTempFolder() override { return std::nullopt; }
  std::optional<Text> SystemTempFolder() override { return std::nullopt; }
  std::optional<std::vector<Text>> NamedFolders() override { return std::nullopt; }
  std::optional<Text> EnvironmentVariable(TextView) override { return std::nullopt; }
  Text ExpandEnvironment(TextView text) override { return Text(text); }
  std::optional<Shortcut> OpenShortcut(TextView) override { return std::nullopt; }
};

struct NoTrust : Trust {
  bool Elevated() override { return false; }
  bool OwnedByOthers(TextView) override { return false; }
  Protection Protect(TextView) override { return Protection::Failed; }
  bool LiesAmongPrograms(TextView) override { return true; }
  bool Rename(TextView, TextView) override { return false; }
};

// constinit: they exist before any code runs and are destroyed last.
constinit NoClock theClock;
constinit NoDesktop theDesktop;
constinit NoDialogs theDialogs;
constinit NoEventLogs theEventLogs;
constinit NoEventQueue theEventQueue;
constinit NoFileSystem theFileSystem;
constinit NoInstance theInstance;
constinit NoNetwork theNetwork;
constinit NoRegistry theRegistry;
constinit NoShell theShell;
constinit NoTrust theTrust;

}  // namespace

constinit Clock* const noClock = &theClock;
constinit Desktop* const noDesktop = &theDesktop;
constinit Dialogs* const noDialogs = &theDialogs;
constinit EventLogs* const noEventLogs = &theEventLogs;
constinit EventQueue* const noEventQueue = &theEventQueue;
constinit FileSystem* const noFileSystem = &theFileSystem;
constinit Instance* const noInstance = &theInstance;
constinit Network* const noNetwork = &theNetwork;
constinit Registry* const noRegistry = &theRegistry;
constinit Shell* const noShell = &theShell;
constinit Trust* const noTrust = &theTrust;

constinit Clock* clock = &theClock;
constinit Desktop* desktop = &theDesktop;
constinit Dialogs* dialogs = &theDialogs;
constinit EventLogs* eventLogs = &theEventLogs;
constinit EventQueue* eventQueue = &theEventQueue;
constinit FileSystem* fileSystem = &theFileSystem;
constinit Instance* instance = &theInstance;
constinit Network* network = &theNetwork;
constinit Registry* registry = &theRegistry;
constinit Shell* shell = &theShell;
constinit Trust* trust = &theTrust;

void ClearPlatform() {
  registry = noRegistry;
  fileSystem = noFileSystem;
  shell = noShell;
  eventLogs = noEventLogs;
  dialogs = noDialogs;
  buttonWord = nullptr;
  desktop = noDesktop;
  instance = noInstance;
  network = noNetwork;
  trust = noTrust;
  clock = noClock;
  screen = {};
  applicationFolder.clear();
  userLocale = {};
}

}  // namespace tavix::platform
