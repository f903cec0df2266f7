#include "frame/start_up.h"

#include "forms/main_form.h"
#include "frame/data_folders.h"
#include "frame/left_temporaries.h"
#include "frame/messages.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_file.h"
#include "frame/support/pub_registry.h"
#include "frame/support/pub_system.h"
#include "frame/support/shell_object.h"
#include "frame/trusted_data.h"
#include "platform/dialogs.h"
#include "platform/instance.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kCloseMessage = 16;
constexpr TextView kHelpTitle = u"TVX Help";

Text ButtonWord(int answer) {
  switch (answer) {
    case platform::kOk:
      return GetMessageText(u"BUTTON_OK");
    case platform::kCancel:
      return GetMessageText(u"BUTTON_CANCEL");
    case platform::kYes:
      return GetMessageText(u"BUTTON_YES");
    case platform::kNo:
      return GetMessageText(u"BUTTON_NO");
    default:
      return {};
  }
}

void Run(const std::function<void()>& step) {
  if (step) step();
}

void CreateServices() {
  fileSystemObject = FileSystemObject(platform::fileSystem);
  shellObject = ShellObject(platform::shell);
  pubSystem = clsPubSystem({platform::shell, platform::fileSystem, platform::dialogs, platform::desktop});
  pubCommon = clsPubCommon(platform::fileSystem, platform::shell);
  pubRegistry = clsPubRegistry(platform::registry);
  pubFile = clsPubFile(platform::fileSystem);
  platform::buttonWord = ButtonWord;
}

void ReleaseServices() {
  platform::buttonWord = nullptr;
  pubSystem = {};
  fileSystemObject = {};
  pubCommon = {};
  shellObject = {};
  pubRegistry = {};
  pubFile = {};
}

void CloseHelpViewer() {
  platform::WindowHandle viewer = 0;
  pubSystem.FindWindowByTitle(kHelpTitle, viewer);
  if (viewer <= 1) return;
  pubSystem.FindWindowByTitle(kHelpTitle, viewer);
  pubSystem.PostWindowMessage(viewer, kCloseMessage, 0, 0);
}

// Asks about foreign data, closes the data folders to other users, and asks again about what came meanwhile.
// False if the program is to end.
bool OpenData() {
  if (!DataIsTrusted()) return false;
  ProtectData();
  return DataIsTrusted();
}

}  // namespace

bool Form_Initialize() { return !platform::instance->PreviousRuns(); }

bool Form_Load() {
  CreateServices();
  if (!OpenData()) {
    ReleaseServices();
    return false;
  }
  frmPubMain.Loaded = true;
  PrepareDataFolders();
  LoadSettings();
  // A blank list of common types means that the settings were never written.
  if (Trim(CommonTypes).empty()) {
    WriteDefaultSettings();
    LoadSettings();
  }
  RemoveLeftTemporaries();
  Run(frameSteps.BuildPrivacyTree);
  Run(frameSteps.LoadJunkDefinitions);
  pubCommon.LoadFormTexts(frmPubMain, TextCatalogue());
  Run(frameSteps.LayOutWindow);
  Run(frameSteps.MakeControls);
  Run(frameSteps.SendEmbeddedPage);
  Run(frameSteps.ColorControls);
  pubSystem.AttachListColorHook(frmPubMain.lsvResult.hWnd, true, frmPubMain.hWnd, kWhite);
  Run(frameSteps.CheckForUpdate);
  return true;
}

void Form_Unload() {
  if (!frmPubMain.Loaded) return;
  frmPubMain.Loaded = false;
  // Write nothing if others have replaced the data folders meanwhile.
  if (ForeignData().empty()) PrepareDataFolders();
  pubSystem.AttachListColorHook(frmPubMain.lsvResult.hWnd, false, 0, 0);
  CloseHelpViewer();
  Run(frameSteps.UnloadOptions);
  Run(frameSteps.UnloadTypeEditor);
  Run(frameSteps.UnloadAbout);
  ReleaseServices();
  frmPubMain.mhtm.Scroll = u"";
}

}  // namespace tavix::mdlPubSelf
