#pragma once

// Other programs find the windows and their controls by these. An array takes as many ids as it has members.
namespace tavix::win32 {

//--- Main window

constexpr wchar_t kMainWindowClass[] = L"TavixMainWindow";

enum ControlId : int {
  kIdTitleHelp = 101,
  kIdTitleCommend,
  kIdMini,
  kIdClose,
  kIdVersion,
  kIdPrivacy,
  kIdSystem,
  kIdRegistry,
  kIdAdvanced,
  kIdOptions,
  kIdOneClick,
  kIdPrivacyTree,
  kIdScopeTree,
  kIdFunctions,
  kIdResult,
  kIdCheckAll,
  kIdToolbar,  // the first of four
  kIdStatus = kIdToolbar + 4,
  kIdOptionLink,
  kIdOptionPrompt,
  kIdProgress,
  kIdTimePrefix,
  kIdTime,
  kIdSum,
  kIdScan,
  kIdCancel,
  kIdClean,
  kIdRepair,
  kIdBusyPage,
  kIdProductLink,
  kIdMakerLink,
};

constexpr int kLoaderTimer = 1;

//--- About window

constexpr wchar_t kAboutWindowClass[] = L"TavixAboutWindow";

// The close button has the id of the system for what Escape presses, IDCANCEL.
enum AboutControlId : int { kIdCloseAbout = 2, kIdProduct = 100, kIdCopyright, kIdMailer, kIdWeb };

//--- Options window

constexpr wchar_t kOptionsWindowClass[] = L"TavixOptionsWindow";

enum OptionsControlId : int {
  kIdPageTree = 301,
  kIdPagePicture,
  kIdPageTitle,
  kIdPageRemark,
  kIdRecommend,
  kIdSave,
  kIdCloseOptions,
  kIdOneClickTree = 310,
  kIdJunkTypes = 320,
  kIdJunkButtons,
  kIdDuplicateGroups = 330,
  kIdDuplicateRules = 332,
  kIdLeastSize = 336,
  kIdLeastSizeUnit,
  kIdScopes,
  kIdCommonTypes = 340,
  kIdCommonTypeButtons,
  kIdMethods = 350,
  kIdBackupFolder = 353,
  kIdBrowse,
  kIdOtherGroups = 360,
  kIdSizes = 363,
  kIdSizeNotes = 366,
  kIdDaysLabels = 370,
  kIdDays = 372,
  kIdExceptFolders = 374,
  kIdExceptFolderButtons,
};

//--- Junk type window

constexpr wchar_t kTypeWindowClass[] = L"TavixTypeWindow";

enum TypeControlId : int { kIdTypeLabels = 401, kIdTypeBoxes = 403, kIdTypeButtons = 405 };

}  // namespace tavix::win32
